// Transforms, and mapping between the spaces of nodes.

#include "scene/testing/tree_test.h"

#include <cmath>
#include <cstring>
#include <limits>

#include <gtest/gtest.h>

namespace d2d::scene {
namespace {

using fakes::same;
using fakes::thrown_by;

constexpr float infinity = std::numeric_limits<float>::infinity();
constexpr float odd = std::numeric_limits<float>::quiet_NaN();
constexpr D2D_MATRIX_3X2_F quarter_turn{{{0, 1, -1, 0, 0, 0}}};
constexpr D2D_MATRIX_3X2_F doubled{{{2, 0, 0, 2, 0, 0}}};

class node_transform : public fakes::tree_test {
protected:
    /// A node below the root, 10 wide and high, both shown.
    void SetUp() override {
        tree_test::SetUp();
        child = filled({0, 0, 10, 10}, root);
        show();
    }
    void TearDown() override {
        child.reset();
        tree_test::TearDown();
    }
    com::ptr<INode> child;
};

TEST_F(node_transform, identity_on_a_new_node_changes_nothing) {
    EXPECT_FALSE(child->set_transform(identity_matrix));
    EXPECT_EQ(lines{}, calls());
}

TEST_F(node_transform, old_and_new_area_are_invalidated) {
    EXPECT_TRUE(child->set_transform(translation_matrix(5, 7)));
    EXPECT_EQ((lines{"invalidate_rect 0 0 10 10", "invalidate_rect 5 7 15 17"}), calls());
    EXPECT_TRUE(same({5, 7, 15, 17}, root->get_bounds(true)));
    EXPECT_TRUE(same({0, 0, 10, 10}, child->get_bounds(true))) << "its own space is where it was";
    EXPECT_TRUE(same(translation_matrix(5, 7), child->get_transform()));
}

TEST_F(node_transform, same_transform_again_is_not_detected) {
    EXPECT_TRUE(child->set_transform(translation_matrix(5, 5)));
    static_cast<void>(calls());
    EXPECT_TRUE(child->set_transform(translation_matrix(5, 5)));
    EXPECT_EQ((lines{"invalidate_rect 5 5 15 15", "invalidate_rect 5 5 15 15"}), calls());
}

TEST_F(node_transform, inverse_of_the_present_transform_is_ignored) {
    child->set_transform(translation_matrix(5, 5));
    static_cast<void>(calls());
    EXPECT_FALSE(child->set_transform(translation_matrix(-5, -5)));
    EXPECT_EQ(lines{}, calls());
    EXPECT_TRUE(same(translation_matrix(5, 5), child->get_transform()));
    child->set_transform(doubled);
    EXPECT_FALSE(child->set_transform({{{0.5f, 0, 0, 0.5f, 0, 0}}}));
    EXPECT_TRUE(same(doubled, child->get_transform()));
    child->set_transform(translation_matrix(5, 0));
    EXPECT_FALSE(child->set_transform(translation_matrix(-5, 0)));
    child->set_transform(translation_matrix(0, -7.25f));
    EXPECT_FALSE(child->set_transform(translation_matrix(0, 7.25f)));
    child->set_transform(quarter_turn);
    EXPECT_FALSE(child->set_transform({{{0, -1, 1, 0, 0, 0}}}));
    child->set_transform({{{-1, 0, 0, 1, 8, 0}}});
    EXPECT_FALSE(child->set_transform({{{-1, 0, 0, 1, 8, 0}}})) << "a mirrored node is its own inverse";
}

TEST_F(node_transform, inverse_is_compared_byte_for_byte) {
    child->set_transform(translation_matrix(5, 5));
    EXPECT_TRUE(child->set_transform({{{1, -0.0f, 0, 1, -5, -5}}})) << "equal as numbers alone";
    EXPECT_TRUE(child->set_transform(identity_matrix));
    EXPECT_TRUE(child->set_transform({{{1, 0, 0, 1, -0.0f, 0}}}));
    EXPECT_EQ(0, inside(child).clip_flags) << "as numbers it is the identity";
    EXPECT_TRUE(std::signbit(inside(child).inverse.dx)) << "and stands in both as it came";
    EXPECT_FALSE(child->set_transform({{{1, 0, 0, 1, -0.0f, 0}}}));
}

TEST_F(node_transform, way_back_to_the_identity_clears_the_flag) {
    child->set_transform(translation_matrix(5, 5));
    EXPECT_EQ(node::has_transform, inside(child).clip_flags);
    static_cast<void>(calls());
    EXPECT_TRUE(child->set_transform(identity_matrix));
    EXPECT_EQ(0, inside(child).clip_flags);
    EXPECT_EQ((lines{"invalidate_rect 5 5 15 15", "invalidate_rect 0 0 10 10"}), calls());
    EXPECT_FALSE(child->set_transform(identity_matrix));
}

TEST_F(node_transform, numbers_that_are_not_finite_are_refused_behind_the_first_invalidation) {
    child->set_transform(translation_matrix(5, 5));
    for (int place = 0; place < 6; ++place) {
        for (const float bad : {odd, infinity, -infinity}) {
            float values[6] = {2, 0, 0, 2, 0, 0};
            values[place] = bad;
            D2D_MATRIX_3X2_F matrix;
            std::memcpy(&matrix, values, sizeof(matrix));
            static_cast<void>(calls());
            EXPECT_EQ("invalid transform received by d2d::scene::INode",
                      thrown_by([&] { child->set_transform(matrix); }));
            EXPECT_EQ(lines{"invalidate_rect 5 5 15 15"}, calls());
            EXPECT_TRUE(same(translation_matrix(5, 5), child->get_transform()));
            EXPECT_TRUE(same(translation_matrix(-5, -5), inside(child).inverse));
            EXPECT_EQ(node::has_transform, inside(child).clip_flags);
        }
    }
}

TEST_F(node_transform, matrices_without_an_inverse_are_refused_behind_the_first_invalidation) {
    for (const D2D_MATRIX_3X2_F& matrix :
         {D2D_MATRIX_3X2_F{{{0, 0, 0, 0, 5, 5}}}, D2D_MATRIX_3X2_F{{{1, 0, 0, 0, 0, 0}}},
          D2D_MATRIX_3X2_F{{{1, 2, 2, 4, 0, 0}}}}) {
        EXPECT_EQ("unable to invert transform received by d2d::scene::INode",
                  thrown_by([&] { child->set_transform(matrix); }));
        EXPECT_EQ(lines{"invalidate_rect 0 0 10 10"}, calls());
        EXPECT_TRUE(same(identity_matrix, child->get_transform()));
        EXPECT_TRUE(same({0, 0, 10, 10}, root->get_bounds(true)));
    }
    EXPECT_EQ("unable to invert transform received by d2d::scene::INode", thrown_by([] {
                  create_node()->set_transform({{{0, 0, 0, 0, 0, 0}}});
              }));
}

TEST_F(node_transform, bounds_above_follow_nested_transforms) {
    const auto inner = filled({0, 0, 2, 1}, child);
    inner->set_transform({{{0, 1, -1, 0, 100, 0}}});  // turned, and to the right
    child->set_transform({{{2, 0, 0, 3, 5, 6}}});
    EXPECT_TRUE(same({0, 0, 100, 10}, child->get_bounds(true)));
    EXPECT_TRUE(same({0, 0, 10, 10}, child->get_bounds(false)));
    EXPECT_TRUE(same({5, 6, 205, 36}, root->get_bounds(true)));
}

TEST_F(node_transform, narrower_climb_ends_where_nothing_changes) {
    const auto wide = filled({-100, -100, 100, 100}, root);
    root->remove_child(child);
    wide->add_child(child);
    int told_root = 0;
    int told_wide = 0;
    root->add_bounds_handler([&](bool, D2D_RECT_F) { ++told_root; });
    wide->add_bounds_handler([&](bool, D2D_RECT_F) { ++told_wide; });
    child->set_transform(translation_matrix(5, 5));
    EXPECT_EQ(0, told_wide);
    child->set_transform(translation_matrix(95, 5));
    EXPECT_EQ(1, told_wide);
    EXPECT_EQ(1, told_root);
    EXPECT_TRUE(same({-100, -100, 105, 100}, root->get_bounds(true)));
}

TEST_F(node_transform, hit_bounds_climb_on_where_the_bounds_have_ended) {
    // A child that paints nothing but is hit: the two rectangles part.
    const auto shape = empty_below(root);
    shape->set_clip_geometry(geometry({0, 0, 50, 50}));
    shape->set_transform(translation_matrix(100, 0));
    EXPECT_TRUE(same({0, 0, 10, 10}, root->get_bounds(true)));
    EXPECT_TRUE(same({0, 0, 150, 50}, inside(root).subtree_hit_bounds));
}

TEST_F(node_transform, nothing_is_invalidated_without_target_or_outside_a_view) {
    edge->detach_render_target(&target);
    EXPECT_TRUE(child->set_transform(translation_matrix(5, 5)));
    EXPECT_TRUE(same({5, 5, 15, 15}, root->get_bounds(true)));
    edge->attach_render_target(&target);
    root->remove_child(child);
    static_cast<void>(calls());
    EXPECT_TRUE(child->set_transform(translation_matrix(6, 6)));
    EXPECT_EQ(lines{}, calls());
}

class space_mapping : public fakes::tree_test {
protected:
    /// root > a > b > c and root > x > y
    void SetUp() override {
        tree_test::SetUp();
        a = empty_below(root);
        b = empty_below(a);
        c = empty_below(b);
        x = empty_below(root);
        y = empty_below(x);
    }
    void TearDown() override {
        for (auto* each : {&a, &b, &c, &x, &y}) each->reset();
        tree_test::TearDown();
    }
    static D2D_MATRIX_3X2_F between(const com::ptr<INode>& from, const com::ptr<INode>& to) {
        return get_transformation_matrix(from.get(), to.get());
    }
    com::ptr<INode> a, b, c, x, y;
};

TEST_F(space_mapping, translations_and_scales_map_by_way_of_the_common_ancestor) {
    root->set_transform(translation_matrix(1000, 1000));  // common: of no account between the others
    a->set_transform(translation_matrix(10, 20));
    b->set_transform(doubled);
    c->set_transform(translation_matrix(1, 2));
    x->set_transform(translation_matrix(100, 200));
    y->set_transform(translation_matrix(3, 4));
    EXPECT_TRUE(same({{{2, 0, 0, 2, 12, 24}}}, between(c, root)));
    EXPECT_TRUE(same(translation_matrix(93, 184), between(y, a)));
    EXPECT_TRUE(same(translation_matrix(-93, -184), between(a, y)));
    EXPECT_TRUE(same(identity_matrix, between(b, b)));
    EXPECT_TRUE(same({{{2, 0, 0, 2, 0, 0}}}, between(b, a))) << "up to an ancestor";
    EXPECT_TRUE(same({{{0.5f, 0, 0, 0.5f, 0, 0}}}, between(a, b))) << "down to a child";
}

TEST_F(space_mapping, null_is_the_space_above_the_root_of_the_other) {
    root->set_transform(translation_matrix(1, 2));
    a->set_transform(translation_matrix(10, 20));
    EXPECT_TRUE(same(translation_matrix(11, 22), between(a, nullptr)));
    EXPECT_TRUE(same(translation_matrix(-11, -22), between(nullptr, a)));
    EXPECT_TRUE(same(identity_matrix, between(nullptr, nullptr)));
}

TEST_F(space_mapping, nodes_of_different_trees_map_by_way_of_the_space_above_both) {
    const auto other = create_node();
    other->set_transform(translation_matrix(5, 5));
    root->set_transform(translation_matrix(1, 2));
    EXPECT_TRUE(same(translation_matrix(-4, -3), between(root, other)));
}

TEST_F(space_mapping, ascent_turns_each_space_in_its_place) {
    // By hand: c's (1, 0) is (2, 0) in b, turned (0, 2) in a, moved (10, 2) in the root.
    a->set_transform(translation_matrix(10, 0));
    b->set_transform(quarter_turn);
    c->set_transform(doubled);
    D2D_POINT_2F point{1, 0};
    map_points(c.get(), root.get(), &point, 1);
    EXPECT_EQ(10, point.x);
    EXPECT_EQ(2, point.y);
}

TEST_F(space_mapping, descent_applies_the_inverses_deepest_first) {
    a->set_transform(translation_matrix(10, 0));
    b->set_transform(quarter_turn);
    // Deepest first: turned back, then moved. The other order would give (0, 10).
    const D2D_MATRIX_3X2_F turned_back{{{0, -1, 1, 0, 0, 0}}};
    EXPECT_TRUE(same(multiply(turned_back, translation_matrix(-10, 0)), between(root, b)));
    D2D_POINT_2F point{0, 0};
    map_points(root.get(), b.get(), &point, 1);
    EXPECT_EQ(-10, point.x);
    EXPECT_EQ(0, point.y);
    c->set_transform(doubled);
    EXPECT_TRUE(
        same(multiply({{{0.5f, 0, 0, 0.5f, 0, 0}}}, multiply(turned_back, translation_matrix(-10, 0))),
             between(root, c)));
}

TEST_F(space_mapping, descent_is_applied_ahead_of_the_ascent) {
    a->set_transform(doubled);
    x->set_transform(quarter_turn);
    y->set_transform(translation_matrix(3, 4));
    const D2D_MATRIX_3X2_F down =
        multiply(translation_matrix(-3, -4), multiply({{{0, -1, 1, 0, 0, 0}}}, doubled));
    EXPECT_TRUE(same(down, between(a, y))) << "each inverse is put ahead of what there is";
}

TEST_F(space_mapping, points_are_mapped_in_place) {
    a->set_transform(translation_matrix(10, 20));
    D2D_POINT_2F points[] = {{1, 2}, {3, 4}, {5, 6}};
    map_points(a.get(), root.get(), points, 2);
    EXPECT_EQ(11, points[0].x);
    EXPECT_EQ(22, points[0].y);
    EXPECT_EQ(13, points[1].x);
    EXPECT_EQ(24, points[1].y);
    EXPECT_EQ(5, points[2].x) << "not counted";
    map_points(a.get(), root.get(), nullptr, 0);
}

TEST_F(space_mapping, chains_hold_no_references) {
    static_cast<void>(between(c, y));
    EXPECT_EQ(2u, fakes::references(c.get()));
    EXPECT_EQ(2u, fakes::references(y.get()));
}

}  // namespace
}  // namespace d2d::scene
