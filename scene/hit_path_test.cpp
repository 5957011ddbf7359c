// What is hit at a point.

#include "scene/hit_path.h"
#include "com/error.h"
#include "scene/testing/tree_test.h"

#include <map>
#include <string>

#include <gtest/gtest.h>

namespace d2d::scene {
namespace {

using fakes::call_text;

class hit_test : public fakes::tree_test {
protected:
    com::ptr<INode> named(std::string name, com::ptr<INode> of) {
        names[&inside(of)] = std::move(name);
        return of;
    }
    void SetUp() override {
        tree_test::SetUp();
        named("root", root);
    }
    std::string text_of(const hit_path& path) {
        std::string result;
        for (const auto& entry : path) {
            if (!result.empty()) result += ", ";
            result += names.at(entry.at) + " " + call_text(entry.point);
        }
        return result;
    }
    /// The way to what is hit, root first, with the point in each node's space.
    std::string hit(float x, float y) { return text_of(hit_path::from_root(inside(root), {x, y})); }

    void record_in_front(const com::ptr<INode>& of, const D2D_RECT_F& rect) {
        const auto context = of->draw(false);
        context->foreground();
        context->fill_geometry(geometry(rect), make_brush(red).get());
        context->commit();
    }

    std::map<const node*, std::string> names;
};

TEST_F(hit_test, empty_tree_is_never_hit) {
    EXPECT_EQ("", hit(0, 0));
    empty_below(root);
    EXPECT_EQ("", hit(0, 0));
}

TEST_F(hit_test, way_leads_to_the_front_child_and_keeps_ancestors_that_are_not_hit_themselves) {
    const auto group = named("group", empty_below(root));
    named("back", filled({0, 0, 20, 20}, group));
    named("front", filled({10, 10, 30, 30}, group));
    group->set_transform(translation_matrix(100, 0));
    EXPECT_EQ("root 105 5, group 5 5, back 5 5", hit(105, 5));
    EXPECT_EQ("root 115 15, group 15 15, front 15 15", hit(115, 15));
    EXPECT_EQ("", hit(125, 5));
    EXPECT_EQ("", hit(5, 5));
}

TEST_F(hit_test, points_are_mapped_into_each_nodes_space) {
    const auto turned = named("turned", filled({0, 0, 10, 10}, root));
    turned->set_transform({{{0, 1, -1, 0, 0, 0}}});
    const auto scaled = named("scaled", filled({0, 0, 2, 2}, turned));
    scaled->set_transform({{{2, 0, 0, 2, 4, 4}}});
    EXPECT_EQ("root -5 6, turned 6 5, scaled 1 0.5", hit(-5, 6));
    EXPECT_EQ("root -2 3, turned 3 2", hit(-2, 3));
}

TEST_F(hit_test, way_of_thirty_two_levels_is_found_whole) {
    com::ptr<INode> deepest = root;
    for (int level = 1; level < 32; ++level) {
        deepest = empty_below(deepest);
        deepest->set_transform(translation_matrix(1, 2));
    }
    record(deepest, {0, 0, 10, 10});
    const hit_path path = hit_path::from_root(inside(root), {36, 67});
    ASSERT_EQ(32u, path.size());
    EXPECT_EQ("36 67", call_text(path[0].point));
    EXPECT_EQ("20 35", call_text(path[16].point));
    EXPECT_EQ("5 5", call_text(path.back().point));
    EXPECT_EQ(&inside(deepest), path.back().at);
}

TEST_F(hit_test, right_and_bottom_edges_of_the_area_are_outside) {
    record(root, {0, 0, 10, 10});
    struct {
        float x, y;
        bool inside;
    } const cases[] = {{0, 0, true},   {9.75f, 9.75f, true}, {10, 5, false},
                       {5, 10, false}, {-0.25f, 5, false},   {5, -0.25f, false}};
    for (const auto& at : cases) EXPECT_EQ(at.inside, hit(at.x, at.y) != "") << at.x << ", " << at.y;
}

TEST_F(hit_test, transparent_node_hides_its_subtree) {
    record(root, {0, 0, 100, 100});
    const auto group = named("group", filled({0, 0, 50, 50}, root));
    named("child", filled({0, 0, 50, 50}, group));
    group->set_hit_mode(0);
    EXPECT_EQ("root 5 5", hit(5, 5));
}

TEST_F(hit_test, solid_node_takes_all_points_but_children_come_first) {
    root->set_hit_mode(2);
    const auto child = named("child", filled({0, 0, 10, 10}, root));
    EXPECT_EQ("root -99999 5", hit(-99999, 5));
    EXPECT_EQ("root 5 5, child 5 5", hit(5, 5));
    child->set_hit_mode(2);
    EXPECT_EQ("root 500 500, child 500 500", hit(500, 500));
}

TEST_F(hit_test, foreground_covers_the_children_and_background_does_not) {
    record_in_front(root, {0, 0, 10, 10});
    named("child", filled({0, 0, 20, 20}, root));
    EXPECT_EQ("root 5 5", hit(5, 5));
    EXPECT_EQ("root 15 15, child 15 15", hit(15, 15));
    record(root, {0, 0, 10, 10});
    EXPECT_EQ("root 5 5, child 5 5", hit(5, 5));
}

TEST_F(hit_test, foreground_of_a_solid_node_covers_its_children_too) {
    root->set_hit_mode(2);
    record_in_front(root, {0, 0, 10, 10});
    named("child", filled({0, 0, 20, 20}, root));
    EXPECT_EQ("root 5 5", hit(5, 5));
    EXPECT_EQ("root 15 15, child 15 15", hit(15, 15));
}

TEST_F(hit_test, children_come_ahead_of_the_clip_geometry_and_behind_the_foreground) {
    root->set_clip_geometry(geometry({0, 0, 30, 30}));
    record_in_front(root, {0, 0, 10, 10});
    named("child", filled({0, 0, 20, 20}, root));
    EXPECT_EQ("root 5 5", hit(5, 5));
    EXPECT_EQ("root 15 15, child 15 15", hit(15, 15));
    EXPECT_EQ("root 25 25", hit(25, 25));
}

TEST_F(hit_test, active_clip_hides_what_lies_outside_it) {
    record(root, {0, 0, 100, 100});
    const auto child = named("child", filled({0, 0, 50, 50}, root));
    child->set_clip_rect({10, 10, 20, 20});
    EXPECT_EQ("root 15 15, child 15 15", hit(15, 15));
    EXPECT_EQ("root 20 15", hit(20, 15));
    EXPECT_EQ("root 9 15", hit(9, 15));
    child->clear_clip_rect();
    EXPECT_EQ("root 20 15, child 20 15", hit(20, 15));
    child->set_hit_mode(2);
    child->set_clip_rect({10, 10, 20, 20});
    EXPECT_EQ("root 9 15", hit(9, 15)) << "a solid node too";
}

TEST_F(hit_test, clip_geometry_is_hit_besides_the_recording) {
    const auto shape = geometry({0, 0, 30, 30});
    record(root, {0, 0, 10, 10});
    root->set_clip_geometry(shape);
    EXPECT_EQ("root 25 25", hit(25, 25));
    EXPECT_FALSE(shape->got_matrix);
    EXPECT_EQ(0.25f, shape->got_tolerance);
    EXPECT_EQ("", hit(35, 35));
    shape->filled = false;
    EXPECT_EQ("", hit(25, 25));
    EXPECT_EQ("root 5 5", hit(5, 5)) << "by the recording";
    shape->filled = true;
    shape->bounds = {0, 0, 90, 90};  // beyond the area that was asked of it
    EXPECT_EQ("root 35 35", hit(35, 35)) << "outside the area the shape itself decides";
    shape->result = E_FAIL;
    EXPECT_EQ("", hit(35, 35)) << "one that cannot tell is not hit";
}

TEST_F(hit_test, node_whose_children_miss_is_hit_itself) {
    record(root, {0, 0, 100, 100});
    const auto child = named("child", empty_below(root));
    named("grandchild", filled({0, 0, 10, 10}, child));
    EXPECT_EQ("root 50 50", hit(50, 50));
}

TEST_F(hit_test, emptied_nodes_area_is_searched_and_misses) {
    record(root, {0, 0, 10, 10});
    erase(root);
    EXPECT_EQ("", hit(5, 5));
    EXPECT_FALSE(root->hit_test({5, 5}));
}

TEST_F(hit_test, of_a_node_asks_its_own_recording_alone) {
    record(root, {0, 0, 10, 10});
    filled({20, 20, 30, 30}, root);
    root->set_clip_rect({0, 0, 1, 1});
    EXPECT_TRUE(root->hit_test({5, 5}));
    EXPECT_FALSE(root->hit_test({25, 25}));
    record_in_front(root, {0, 0, 10, 10});
    EXPECT_TRUE(root->hit_test({5, 5}));
}

TEST_F(hit_test, enumeration_starts_at_the_children_in_the_nodes_own_space) {
    root->set_transform(translation_matrix(1000, 1000));
    record(root, {0, 0, 100, 100});
    const auto child = named("child", filled({0, 0, 50, 50}, root));
    child->set_transform(translation_matrix(10, 0));
    named("grandchild", filled({0, 0, 20, 20}, child));
    lines seen;
    const auto note = [&](bool result) {
        return [&seen, this, result](const com::ptr<INode>& at, D2D_POINT_2F point) {
            seen.push_back(call_text(names.at(&inside(at)), point));
            return result;
        };
    };
    EXPECT_FALSE(root->enumerate_hits({15, 5}, true, note(false)));
    EXPECT_EQ((lines{"grandchild 5 5", "child 5 5"}), std::exchange(seen, {}));
    EXPECT_FALSE(root->enumerate_hits({15, 5}, false, note(false)));
    EXPECT_EQ((lines{"child 5 5", "grandchild 5 5"}), std::exchange(seen, {}));
    EXPECT_TRUE(root->enumerate_hits({15, 5}, true, note(true)));
    EXPECT_EQ(lines{"grandchild 5 5"}, std::exchange(seen, {}));
    EXPECT_FALSE(root->enumerate_hits({95, 95}, true, note(true)));
    EXPECT_EQ(lines{}, seen);
}

TEST_F(hit_test, enumeration_goes_on_with_nodes_that_its_function_takes_away) {
    named("grandchild", filled({0, 0, 10, 10}, named("child", filled({0, 0, 20, 20}, root))));
    lines seen;
    root->enumerate_hits({5, 5}, false, [&](const com::ptr<INode>& at, D2D_POINT_2F point) {
        if (seen.empty()) root->clear();
        seen.push_back(call_text(names.at(&inside(at)), point));
        return false;
    });
    EXPECT_EQ((lines{"child 5 5", "grandchild 5 5"}), seen);
    EXPECT_TRUE(inside(root).children.empty());
}

TEST_F(hit_test, kept_path_keeps_its_nodes_alive) {
    named("child", filled({0, 0, 10, 10}, root));
    const hit_path path = hit_path::from_root(inside(root), {5, 5});
    ASSERT_EQ(2u, path.size());
    const kept_path keep(path);
    root->clear();
    EXPECT_EQ(1u, fakes::references(static_cast<INode*>(path.back().at)));
    EXPECT_EQ(nullptr, path.back().at->parent);
}

}  // namespace
}  // namespace d2d::scene
