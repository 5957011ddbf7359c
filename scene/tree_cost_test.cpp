// What changes, walks and mouse moves cost: counted, not timed.

#include "scene/testing/allocation_count.h"
#include "scene/testing/fake_site.h"
#include "scene/testing/tree_test.h"

#include <vector>

#include <gtest/gtest.h>

namespace d2d::scene {
namespace {

using fakes::allocation_count;
using fakes::same;

/// A host that answers and writes nothing down.
class silent_site final : public IViewLowerEdge::ISite {
public:
    int invalidations = 0;

    bool request_focus() override { return true; }
    double get_current_time() const override { return 0; }
    void set_animation_clock(double, double) override {}
    void bounds_changed(D2D_RECT_F) override {}
    void invalidate_rect(D2D_RECT_F) override { ++invalidations; }
    bool drag_detect(D2D_POINT_2F, input::mouse::button) override { return false; }
    bool drag_loop(D2D_POINT_2F, input::mouse::button, D2D_MATRIX_3X2_F,
                   std::function<bool(D2D_POINT_2F)>) override {
        return false;
    }
    HRESULT STDMETHODCALLTYPE QueryService(const GUID&, const GUID&, void**) override {
        return E_NOINTERFACE;
    }
    HRESULT STDMETHODCALLTYPE QueryInterface(const GUID&, void**) noexcept override { return E_NOINTERFACE; }
    ULONG STDMETHODCALLTYPE AddRef() noexcept override { return 1; }
    ULONG STDMETHODCALLTYPE Release() noexcept override { return 1; }
};

class tree_cost : public fakes::tree_test {
protected:
    static constexpr std::size_t many = 10000;

    /// Allocations inside a call.
    template <class Call>
    static std::size_t allocations_in(Call&& call) {
        const std::size_t before = allocation_count();
        call();
        return allocation_count() - before;
    }

    /// Puts a false rectangle into a node, which its parent takes in as soon as it asks it.
    static void poison(const com::ptr<INode>& of) {
        node& inner = inside(of);
        inner.subtree_bounds = inner.subtree_hit_bounds = {-7777, -7777, 7777, 7777};
    }
    static testing::AssertionResult unpoisoned(const com::ptr<INode>& of, const D2D_RECT_F& expected) {
        const auto bounds = same(expected, inside(of).subtree_bounds);
        return bounds ? same(expected, inside(of).subtree_hit_bounds) : bounds;
    }
};

TEST_F(tree_cost, counter_counts_what_is_allocated) {
    EXPECT_EQ(1u, allocations_in([] { static_cast<void>(std::vector<int>(3)); }));
    EXPECT_EQ(0u, allocations_in([] {}));
}

TEST_F(tree_cost, changes_of_an_inner_child_among_many_ask_no_sibling) {
    record(root, {0, 0, 100, 100});
    std::vector<com::ptr<INode>> children;
    for (std::size_t i = 0; i < many; ++i) {
        children.push_back(create_node());
        record(children.back(), {0, 0, 10, 10});
        root->add_child(children.back());
        children.back()->set_transform(translation_matrix(static_cast<float>(i % 80) + 5, 5));
    }
    ASSERT_TRUE(unpoisoned(root, {0, 0, 100, 100}));
    for (const auto& child : children) poison(child);

    const auto child = filled({20, 20, 30, 30}, root);  // comes
    EXPECT_TRUE(unpoisoned(root, {0, 0, 100, 100}));
    child->set_transform(translation_matrix(30, 30));  // moves inside
    EXPECT_TRUE(unpoisoned(root, {0, 0, 100, 100}));
    child->set_transform(translation_matrix(75, 30));  // grows out of the others
    EXPECT_TRUE(unpoisoned(root, {0, 0, 105, 100}));
    child->set_transform(translation_matrix(76, 30));  // farther out
    EXPECT_TRUE(unpoisoned(root, {0, 0, 106, 100}));
    record(child, {20, 20, 40, 25});
    EXPECT_TRUE(unpoisoned(root, {0, 0, 116, 100}));
    const auto inner = filled({1, 1, 2, 2}, root);
    record(inner, {1, 1, 3, 3});
    const auto below = filled({3, 3, 4, 4}, inner);
    EXPECT_TRUE(unpoisoned(root, {0, 0, 116, 100}));
    below->set_transform(translation_matrix(3, 3));
    EXPECT_TRUE(unpoisoned(root, {0, 0, 116, 100}));
    inner->clear();
    EXPECT_TRUE(unpoisoned(root, {0, 0, 116, 100}));
    EXPECT_TRUE(root->remove_child(inner));
    EXPECT_TRUE(unpoisoned(root, {0, 0, 116, 100}));

    // One that draws back from an edge has the others asked: the false rectangles come to light.
    child->set_transform(translation_matrix(50, 50));
    EXPECT_FALSE(unpoisoned(root, {0, 0, 100, 100}));
}

TEST_F(tree_cost, children_that_are_appended_at_the_edge_ask_no_sibling) {
    // A list that grows downwards.
    for (std::size_t i = 0; i < 1000; ++i) {
        const auto line = filled({0, 0, 50, 10});
        line->set_transform(translation_matrix(0, static_cast<float>(10 * i)));
        root->add_child(line);
        ASSERT_TRUE(unpoisoned(root, {0, 0, 50, static_cast<float>(10 * i + 10)}));
        poison(line);
    }
}

TEST_F(tree_cost, children_that_draw_back_from_an_edge_ask_few_once_all_were_asked) {
    std::vector<com::ptr<INode>> children;
    for (std::size_t i = 0; i < many; ++i) children.push_back(filled({0, 0, 10, 10}, root));
    const auto draw_back = [&](std::size_t child, float before) {
        record(children[child], {0, 0, before, 10});
        record(children[child], {0, 0, 10, 10});
    };
    draw_back(0, 50);
    EXPECT_TRUE(unpoisoned(root, {0, 0, 10, 10}));
    for (std::size_t i = 17; i < many; ++i) poison(children[i]);
    draw_back(0, 60);
    EXPECT_TRUE(unpoisoned(root, {0, 0, 10, 10}));
    EXPECT_TRUE(root->remove_child(children[0]));
    const auto another = filled({0, 0, 70, 10}, root);
    record(another, {0, 0, 10, 10});
    EXPECT_TRUE(unpoisoned(root, {0, 0, 10, 10}));
    draw_back(16, 50);
    EXPECT_FALSE(unpoisoned(root, {0, 0, 10, 10})) << "neighbours are asked";
}

TEST_F(tree_cost, change_that_does_not_reach_a_node_asks_nothing_above_it) {
    record(root, {0, 0, 100, 100});
    const auto middle = filled({0, 0, 50, 50}, root);
    const auto leaf = filled({0, 0, 10, 10}, middle);
    const auto aside = filled({0, 0, 10, 10}, root);
    poison(aside);
    root->add_bounds_handler([](bool, D2D_RECT_F) { ADD_FAILURE() << "nothing changes"; });
    inside(root).subtree_bounds.right = 99;  // a full climb would put this right
    leaf->set_transform(translation_matrix(5, 5));
    EXPECT_EQ(99, inside(root).subtree_bounds.right);
}

TEST_F(tree_cost, moves_allocate_nothing) {
    silent_site silent;
    edge->detach_site(&site);
    edge->attach_site(&silent);
    const auto middle = filled({0, 0, 50, 50}, root);
    const auto leaf = filled({0, 0, 10, 10}, middle);
    int told = 0;
    root->add_bounds_handler([&](bool, D2D_RECT_F) { ++told; });
    edge->attach_render_target(&target);
    view->set_root(root);
    EXPECT_EQ(0u, allocations_in([&] {
                  for (int i = 0; i < 100; ++i) {
                      leaf->set_transform(translation_matrix(static_cast<float>(i * 3 % 100), 7));
                      leaf->set_transform({{{0, 1, -1, 0, static_cast<float>(i), 0}}});
                      middle->set_transform({{{2, 0, 0, 3, static_cast<float>(i), 1}}});
                  }
              }));
    EXPECT_GT(told, 100);
    EXPECT_EQ(601, silent.invalidations) << "two for each, and one of the root that came";
    view->set_root(nullptr);
    edge->detach_site(&silent);
    edge->attach_site(&site);
}

TEST_F(tree_cost, walks_allocate_nothing) {
    silent_site silent;
    edge->detach_site(&site);
    edge->attach_site(&silent);
    // Nodes without commands, transforms or clips ask nothing of the target, which writes down what it is
    // asked.
    com::ptr<INode> deep = root;
    for (int i = 0; i < 20; ++i) deep = empty_below(deep);
    deep->set_transform_animation(
        com::create_object<fakes::test_animation>([](double) { return identity_matrix; }).get());
    edge->attach_render_target(&target);
    view->set_root(root);
    EXPECT_EQ(0u, allocations_in([&] {
                  for (int i = 0; i < 20; ++i) edge->tick(static_cast<float>(i), 0.05f);
                  static_cast<void>(get_transformation_matrix(deep.get(), root.get()));
              }));
    static_cast<void>(target.take_calls());
    // A frame of the empty tree writes down one line: the string and the list that holds it.
    const std::size_t empty_frame = [&] {
        const auto alone = create_view();
        const com::ptr<IViewLowerEdge> lower(alone);
        lower->attach_render_target(&target);
        const std::size_t count = allocations_in([&] { lower->render({}, identity_matrix); });
        lower->detach_render_target(&target);
        static_cast<void>(target.take_calls());
        return count;
    }();
    EXPECT_EQ(empty_frame, allocations_in([&] { edge->render({}, identity_matrix); }));
    view->set_root(nullptr);
    edge->detach_site(&silent);
    edge->attach_site(&site);
}

TEST_F(tree_cost, mouse_that_moves_within_a_node_allocates_nothing) {
    com::ptr<INode> deep = root;
    for (int i = 0; i < 20; ++i) deep = filled({0, 0, 100, 100}, deep);
    int heard = 0;
    deep->add_mouse_handler([&](INode*, int, input::mouse::event) {
        ++heard;
        return false;
    });
    view->set_root(root);
    const auto move = [&](float x, float y) {
        edge->on_mouse_event({input::mouse::event_type::move, std::nullopt, 0, {x, y}, 0});
    };
    move(50, 50);
    heard = 0;
    EXPECT_EQ(0u, allocations_in([&] {
                  for (int i = 0; i < 50; ++i) move(static_cast<float>(10 + i), 20);
              }));
    EXPECT_EQ(50, heard);
    // Out and in again: the paths have their room from the first time on.
    move(500, 500);
    move(50, 50);
    EXPECT_EQ(0u, allocations_in([&] {
                  for (int i = 0; i < 10; ++i) {
                      move(500, 500);
                      move(50, 50);
                      static_cast<void>(edge->get_cursor({50, 50}));
                  }
              }));
    view->set_root(nullptr);  // the handler hears of that, too
}

}  // namespace
}  // namespace d2d::scene
