#include "measure.h"
#include "scene_fixture.h"
#include "workloads.h"

#include <random>

namespace bench {
namespace {

using d2d::scene::INode;

constexpr std::size_t leaf_count = 10'000;
constexpr std::size_t tests = 100'000;

std::vector<D2D_POINT_2F> random_points(float side) {
    std::mt19937 random(2);
    std::uniform_real_distribution<float> coordinate(0, side);
    std::vector<D2D_POINT_2F> points(4096);
    for (auto& point : points) point = {coordinate(random), coordinate(random)};
    return points;
}

/// The view's hit test at random points of a square; `between(i)` runs ahead of each test. Asking for the
/// cursor is a hit test and nothing more, where no node chooses one.
template <class Between>
void run_hit_tests(scene_fixture& fixture, const char* name, const com::ptr<INode>& root, float side,
                   Between&& between) {
    fixture.show(root);
    d2d::IViewLowerEdge& edge = fixture.lower_edge();
    const auto points = random_points(side);
    for (const auto& point : points) edge.get_cursor(point);
    measure(name, tests, [&] {
        for (std::size_t i = 0; i < tests; ++i) {
            between(i);
            edge.get_cursor(points[i % points.size()]);
        }
    });
    fixture.show(nullptr);
}

void run_hit_test_flat(scene_fixture& fixture, const char* name, std::size_t count) {
    if (!selected(name)) return;
    const auto list = make_leaf_list(fixture, count);
    run_hit_tests(fixture, name, list.parent, static_cast<float>(side_of(count)) * 10, [](std::size_t) {});
}

void run_hit_test_moving(scene_fixture& fixture) {
    if (!selected("hit_test_moving")) return;
    const auto list = make_leaf_list(fixture, leaf_count);
    run_hit_tests(fixture, "hit_test_moving", list.parent, 1000, [&](std::size_t i) {
        const std::size_t index = (1 + i * 7 % 98) * 100 + 1 + i * 31 % 98;  // inside the edges
        const float shift = i % 2 == 0 ? 0.5f : 0.25f;
        list.leaves[index]->set_transform({{{1, 0, 0, 1, static_cast<float>(index % 100) * 10 + shift,
                                             static_cast<float>(index / 100) * 10 + shift}}});
    });
}

/// A chain of nodes, each a child of the one before, with a leaf at the end.
std::vector<com::ptr<INode>> make_chain(const scene_fixture& fixture, std::size_t depth) {
    std::vector<com::ptr<INode>> chain{d2d::scene::create_node()};
    while (chain.size() < depth) {
        auto next = chain.size() + 1 < depth ? d2d::scene::create_node() : fixture.make_leaf(0, 0);
        next->set_transform({{{1, 0, 0, 1, 1, 1}}});
        chain.back()->add_child(next);
        chain.push_back(std::move(next));
    }
    return chain;
}

void run_hit_test_deep(scene_fixture& fixture) {
    if (!selected("hit_test_deep")) return;
    const auto chain = make_chain(fixture, 30);
    run_hit_tests(fixture, "hit_test_deep", chain[0], 40, [](std::size_t) {});
}

d2d::input::mouse::event move_to(float x, float y) {
    return {d2d::input::mouse::event_type::move, std::nullopt, 0, {x, y}, 0};
}

void run_mouse_moves(scene_fixture& fixture) {
    if (!selected("mouse_move_same") && !selected("mouse_move_cross")) return;
    const auto root = fixture.make_groups();
    fixture.show(root);
    d2d::IViewLowerEdge& edge = fixture.lower_edge();
    for (int i = 0; i < 4; ++i) edge.on_mouse_event(move_to(505 + static_cast<float>(i), 505));
    measure("mouse_move_same", tests, [&] {
        for (std::size_t i = 0; i < tests; ++i)
            edge.on_mouse_event(move_to(501 + static_cast<float>(i % 8), 505));
    });
    measure("mouse_move_cross", tests, [&] {
        for (std::size_t i = 0; i < tests; ++i) {
            edge.on_mouse_event(move_to(505 + static_cast<float>(i % 2) * 10, 505));
        }
    });
    fixture.show(nullptr);
}

void run_key_route(scene_fixture& fixture) {
    if (!selected("key_route")) return;
    const auto chain = make_chain(fixture, 30);
    std::size_t seen = 0;
    for (const auto& node : chain) {
        node->set_key_handler([&seen](INode*, int, d2d::input::key::event) {
            ++seen;
            return false;
        });
    }
    fixture.show(chain[0]);
    chain.back()->set_focus();
    d2d::IViewLowerEdge& edge = fixture.lower_edge();
    measure("key_route", tests, [&] {
        for (std::size_t i = 0; i < tests; ++i) edge.on_key_event({true, false, VK_SPACE, 0});
    });
    keep(seen);
    fixture.show(nullptr);
}

void run_tick(scene_fixture& fixture) {
    if (!selected("tick_idle_tree")) return;
    const auto root = fixture.make_groups();
    const auto blinking = d2d::scene::create_node();
    const auto context = blinking->draw(false);
    context->fill_geometry(
        d2d::factory::create_rectangle_geometry({0, 0, 10, 10}).get(),
        d2d::scene::create_blinking_solid_color_brush({1, 0, 0, 1}, {0, 0, 1, 1}, 0.5f).get());
    context->commit();
    root->add_child(blinking);
    fixture.show(root);
    d2d::IViewLowerEdge& edge = fixture.lower_edge();
    measure("tick_idle_tree", tests, [&] {
        for (std::size_t i = 0; i < tests; ++i) edge.tick(static_cast<float>(i) * 0.05f, 0.05f);
    });
    fixture.show(nullptr);
}

}  // namespace

void run_input_workloads() {
    scene_fixture fixture;
    if (selected("hit_test")) {
        run_hit_tests(fixture, "hit_test", fixture.make_groups(), 1000, [](std::size_t) {});
    }
    run_hit_test_flat(fixture, "hit_test_flat", leaf_count);
    run_hit_test_flat(fixture, "hit_test_flat_100", 100);
    run_hit_test_moving(fixture);
    run_hit_test_deep(fixture);
    run_mouse_moves(fixture);
    run_key_route(fixture);
    run_tick(fixture);
}

}  // namespace bench
