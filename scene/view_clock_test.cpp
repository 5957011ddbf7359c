// When a view wants its host's clock, and what a tick does.

#include "scene/testing/tree_test.h"

#include <algorithm>
#include <vector>

#include <gtest/gtest.h>

namespace d2d::scene {
namespace {

constexpr const char* clock_on = "set_animation_clock 0 0.05000000074505806";
constexpr const char* clock_off = "set_animation_clock 0 0";

class view_clock : public fakes::tree_test {};

TEST_F(view_clock, animated_recording_starts_the_clock_and_its_going_stops_it) {
    show();
    const auto child = create_node();
    record(child, {0, 0, 1, 1}, true);
    EXPECT_EQ(lines{}, calls()) << "it is not in the view";
    root->add_child(child);
    EXPECT_EQ(0.05000000074505806, site.clock_interval);
    EXPECT_EQ(1, std::count(site.calls.begin(), site.calls.end(), clock_on));
    root->remove_child(child);
    EXPECT_EQ(1, std::count(site.calls.begin(), site.calls.end(), clock_off));
    EXPECT_EQ(0.0, site.clock_interval);
    static_cast<void>(calls());
    record(root, {0, 0, 1, 1}, true);
    EXPECT_EQ((lines{clock_on, "invalidate_rect 0 0 1 1"}), calls());
    record(root, {0, 0, 1, 1}, false);
    EXPECT_EQ((lines{"invalidate_rect 0 0 1 1", "invalidate_rect 0 0 1 1", clock_off}), calls());
}

TEST_F(view_clock, need_of_the_clock_is_kept_without_a_target_and_told_to_the_next_one) {
    record(root, {0, 0, 1, 1}, true);
    view->set_root(root);
    EXPECT_EQ(lines{}, calls());
    edge->attach_render_target(&target);
    EXPECT_EQ(lines{clock_on}, calls());
    edge->detach_render_target(&target);
    EXPECT_EQ(lines{clock_off}, calls());
    edge->attach_render_target(&target);
    EXPECT_EQ(lines{clock_on}, calls());
    edge->detach_render_target(&target);
    static_cast<void>(calls());
    erase(root);
    EXPECT_EQ(lines{}, calls());
    edge->attach_render_target(&target);
    EXPECT_EQ(lines{}, calls()) << "nothing is animated any more";
}

TEST_F(view_clock, starts_when_all_is_bound_and_stops_ahead_of_its_release) {
    const auto visual = make_visual("a", {0, 0, 1, 1});
    visual->animated = true;
    const auto context = root->draw(false);
    context->draw_visual(visual.get());
    context->commit();
    view->set_root(root);
    static_cast<void>(calls());
    edge->attach_render_target(&target);
    EXPECT_EQ((lines{"bind a", clock_on}), calls());
    edge->detach_render_target(&target);
    EXPECT_EQ((lines{clock_off, "unbind a"}), calls());
}

TEST_F(view_clock, runs_on_from_one_animated_root_to_the_next_and_stops_with_the_last) {
    record(root, {0, 0, 1, 1}, true);
    const auto next = create_node();
    record(next, {0, 0, 2, 2}, true);
    show();
    view->set_root(next);
    EXPECT_EQ((lines{"invalidate_rect 0 0 1 1", "invalidate_rect 0 0 2 2"}), calls());
    view->set_root(nullptr);
    EXPECT_EQ((lines{"invalidate_rect 0 0 2 2", clock_off}), calls());
    view->set_root(next);
    EXPECT_EQ((lines{clock_on, "invalidate_rect 0 0 2 2"}), calls());
    view->set_root(filled({0, 0, 3, 3}));
    EXPECT_EQ((lines{"invalidate_rect 0 0 2 2", "invalidate_rect 0 0 3 3", clock_off}), calls());
}

TEST_F(view_clock, transform_animations_are_counted_in_chains) {
    // root > a > b > c; and d, which comes and goes
    const auto a = empty_below(root);
    const auto b = empty_below(a);
    const auto c = empty_below(b);
    const auto d = create_node();
    show();
    const auto counts = [&] {
        std::vector<int> result;
        for (const auto& of : {root, a, b, c}) result.push_back(inside(of).animated_nodes);
        return result;
    };
    using ints = std::vector<int>;
    const auto animate = [&](const com::ptr<INode>& of, bool on) {
        of->set_transform_animation(on ? still().get() : nullptr);
    };
    animate(c, true);
    EXPECT_EQ((ints{1, 1, 1, 0}), counts());
    animate(a, true);
    EXPECT_EQ((ints{1, 1, 1, 0}), counts()) << "it counted already";
    animate(c, false);
    EXPECT_EQ((ints{1, 0, 0, 0}), counts());
    animate(b, true);
    EXPECT_EQ((ints{1, 1, 0, 0}), counts());
    animate(b, true);
    EXPECT_EQ((ints{1, 1, 0, 0}), counts()) << "another animation in the place of one";
    animate(a, false);
    EXPECT_EQ((ints{1, 1, 0, 0}), counts());
    EXPECT_EQ(lines{clock_on}, calls()) << "all along";
    animate(b, false);
    EXPECT_EQ((ints{0, 0, 0, 0}), counts());
    EXPECT_EQ(lines{clock_off}, calls());
    animate(d, true);
    b->add_child(d);
    c->add_child(create_node());
    EXPECT_EQ((ints{1, 1, 1, 0}), counts());
    a->remove_child(b);
    EXPECT_EQ((ints{0, 0, 1, 0}), counts());
    a->add_child(b);
    EXPECT_EQ((ints{1, 1, 1, 0}), counts());
    d->clear();
    EXPECT_EQ((ints{0, 0, 0, 0}), counts());
    EXPECT_EQ(0.0, site.clock_interval);
    animate(root, true);
    EXPECT_EQ((ints{0, 0, 0, 0}), counts());
    EXPECT_GT(site.clock_interval, 0.0) << "the root itself";
    root->clear();
    EXPECT_EQ(0.0, site.clock_interval);
}

TEST_F(view_clock, tick_moves_and_then_invalidates_what_is_animated_once) {
    root->set_transform(translation_matrix(100, 0));
    const auto moved = filled({0, 0, 10, 10}, root);
    moved->set_transform_animation(com::create_object<fakes::test_animation>([](double time) {
                                       return translation_matrix(static_cast<float>(time), 0);
                                   }).get());
    const auto blinking = empty_below(root);
    record(blinking, {0, 20, 5, 25}, true);
    const auto other = empty_below(blinking);
    other->set_transform(translation_matrix(0, 50));
    record(other, {0, 0, 5, 5}, true);
    show();
    edge->tick(3, 0.05f);
    EXPECT_EQ((lines{"invalidate_rect 100 0 110 10", "invalidate_rect 103 0 113 10",
                     "invalidate_rect 100 20 105 55"}),
              calls());
    view->set_root(nullptr);
    static_cast<void>(calls());
    edge->tick(4, 0.05f);
    EXPECT_EQ(lines{}, calls());
}

TEST_F(view_clock, animation_may_take_its_node_away_and_change_what_lies_above) {
    const auto middle = empty_below(root);
    auto leaf = filled({0, 0, 10, 10}, middle);
    leaf->set_transform_animation(com::create_object<fakes::test_animation>([&, bottom = leaf.get()](double) {
                                      bottom->set_transform_animation(nullptr);
                                      middle->remove_child(bottom);
                                      middle->set_transform(middle->get_transform().dx == 0
                                                                ? translation_matrix(5, 5)
                                                                : identity_matrix);
                                      return translation_matrix(1, 1);
                                  }).get());
    record(root, {0, 0, 1, 1}, true);
    show();
    leaf.reset();
    edge->tick(1, 0.05f);
    EXPECT_TRUE(inside(middle).children.empty());
    static_cast<void>(calls());
    edge->tick(2, 0.05f);
    EXPECT_EQ(lines{"invalidate_rect 0 0 1 1"}, calls());
}

}  // namespace
}  // namespace d2d::scene
