#include "measure.h"
#include "scene_fixture.h"
#include "workloads.h"

#include <random>

namespace bench {
namespace {

constexpr std::size_t leaf_count = 10'000;

void run_build(scene_fixture& fixture) {
    if (!selected("build") && !selected("destroy")) return;
    stopwatch build;
    stopwatch destroy;
    for (int i = 0; i < stopwatch::repetitions; ++i) {
        com::ptr<d2d::scene::INode> root;
        build.run_once([&] {
            root = fixture.make_groups();
            fixture.show(root);
        });
        fixture.show(nullptr);
        destroy.run_once([&] { root.reset(); });
    }
    report("build", build.nanoseconds(), leaf_count);
    report("destroy", destroy.nanoseconds(), leaf_count);
}

/// One parent with `count` children, in the view ahead of them; several parents where they are small, so that
/// a repetition lasts long enough to be measured.
void run_build_flat(scene_fixture& fixture, const char* name, std::size_t count) {
    if (!selected(name)) return;
    const std::size_t parents = leaf_count / count;
    stopwatch watch;
    for (int i = 0; i < stopwatch::repetitions; ++i) {
        watch.run_once([&] {
            for (std::size_t k = 0; k < parents; ++k) {
                auto root = d2d::scene::create_node();
                fixture.show(root);
                for (std::size_t n = 0; n < count; ++n) {
                    root->add_child(fixture.make_leaf(static_cast<float>(n % 100) * 10,
                                                      static_cast<float>(n / 100) * 10));
                }
                fixture.show(nullptr);
            }
        });
    }
    report(name, watch.nanoseconds(), leaf_count);
}

/// Leaves at random inside the edges of their parent, moved by a pixel to and fro.
void run_move(scene_fixture& fixture, const char* name, std::size_t count) {
    if (!selected(name)) return;
    constexpr std::size_t moves = 200'000;
    const leaf_list list = make_leaf_list(fixture, count);
    fixture.show(list.parent);
    std::mt19937 random(1);
    const std::size_t side = side_of(count);
    std::vector<std::size_t> order(moves);
    for (auto& index : order) index = (1 + random() % (side - 2)) * side + 1 + random() % (side - 2);
    measure(name, moves, [&] {
        float shift = 0;
        for (const std::size_t index : order) {
            shift = shift == 0.5f ? 0.25f : 0.5f;
            list.leaves[index]->set_transform({{{1, 0, 0, 1, static_cast<float>(index % side) * 10 + shift,
                                                 static_cast<float>(index / side) * 10 + shift}}});
        }
    });
    fixture.show(nullptr);
}

void run_move_group(scene_fixture& fixture) {
    if (!selected("move_group")) return;
    constexpr std::size_t moves = 200'000;
    const auto root = d2d::scene::create_node();
    std::vector<com::ptr<d2d::scene::INode>> groups;
    for (int i = 0; i < 100; ++i) {
        groups.push_back(fixture.make_flat(100));
        groups.back()->set_transform({{{1, 0, 0, 1, 0, static_cast<float>(i) * 10}}});
        root->add_child(groups.back());
    }
    fixture.show(root);
    measure("move_group", moves, [&] {
        for (std::size_t i = 0; i < moves; ++i) {
            const std::size_t index = 1 + i % 98;
            groups[index]->set_transform(
                {{{1, 0, 0, 1, 0, static_cast<float>(index) * 10 + static_cast<float>(i / 98 % 2)}}});
        }
    });
    fixture.show(nullptr);
}

void run_rerecord(scene_fixture& fixture) {
    if (!selected("rerecord")) return;
    constexpr std::size_t recordings = 200'000;
    const leaf_list list = make_leaf_list(fixture, leaf_count);
    fixture.show(list.parent);
    measure("rerecord", recordings, [&] {
        for (std::size_t i = 0; i < recordings; ++i) fixture.record(*list.leaves[i * 7919 % leaf_count]);
    });
    fixture.show(nullptr);
}

void run_paint(scene_fixture::target_kind kind, const char* name, std::size_t paints) {
    if (!selected(name)) return;
    scene_fixture fixture(kind);
    fixture.show(fixture.make_groups());
    measure(name, paints * leaf_count, [&] {
        for (std::size_t i = 0; i < paints; ++i) fixture.paint();
    });
}

}  // namespace

void run_scene_workloads() {
    scene_fixture fixture;
    run_build(fixture);
    run_build_flat(fixture, "build_flat", leaf_count);
    run_build_flat(fixture, "build_flat_100", 100);
    run_move(fixture, "move_leaf", leaf_count);
    run_move(fixture, "move_leaf_100", 100);
    run_move_group(fixture);
    run_rerecord(fixture);
    run_paint(scene_fixture::target_kind::idle, "paint_walk", 20);
    run_paint(scene_fixture::target_kind::drawing, "paint", 1);
}

}  // namespace bench
