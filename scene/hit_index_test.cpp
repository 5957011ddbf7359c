// Hit tests of nodes with many children find what asking every child finds.

#include "scene/hit_index.h"
#include "scene/hit_path.h"
#include "scene/testing/allocation_count.h"
#include "scene/testing/modelled_tree_test.h"

#include <limits>
#include <string>

#include <gtest/gtest.h>

namespace d2d::scene {
namespace {

using fakes::tree_model;

class hit_index_test : public fakes::modelled_tree_test<fakes::hit_model> {
protected:
    /// A parent, above it a node to turn and scale it, and many children, some with children themselves.
    void grow(unsigned many) {
        top = &make_pair();
        parent = &make_pair();
        root = top->real;
        add(*top, *parent);
        for (unsigned i = 0; i < many; ++i) add_child_of_some_kind();
    }
    void add_child_of_some_kind() {
        pair& child = make_pair();
        if (one_in(12)) set_mode(child, one_in(2) ? 0 : 2);
        if (!one_in(15)) record_shapes(child, any_rect(size), std::nullopt);
        if (one_in(20)) change_any_of(child, size, reach);
        if (one_in(6)) {
            pair& grandchild = make_pair();
            record_shapes(grandchild, any_rect(size), std::nullopt);
            move_to(grandchild, any_matrix(size));
            add(child, grandchild);
        }
        if (child.model.hit_mode == 2) set_clip(child, any_rect(size));  // else it would take every point
        add(*parent, child);
        move_to(child, one_in(3) ? any_matrix(reach)
                                 : translation_matrix(between(-reach, reach), between(-reach, reach)));
    }

    D2D_POINT_2F any_point() {
        constexpr float far_out[] = {1e4f,
                                     -29999,
                                     30001,
                                     1e6f,
                                     -1e9f,
                                     1e30f,
                                     std::numeric_limits<float>::max(),
                                     std::numeric_limits<float>::infinity(),
                                     std::numeric_limits<float>::quiet_NaN()};
        if (points_near_children) {
            const auto& child = any_child().model;
            const D2D_RECT_F area = child.bounds().value_or(D2D_RECT_F{});
            const auto within = [&](float from, float to) { return from + (to - from) * between(-1, 9) / 8; };
            const D2D_POINT_2F in_child{within(area.left, area.right), within(area.top, area.bottom)};
            const D2D_POINT_2F in_parent = map_point(in_child, child.transform);
            return one_in(2) ? in_parent : map_point(in_parent, parent->model.transform);
        }
        const auto coordinate = [&] {
            if (one_in(60)) return far_out[below(9)];
            const float whole = between(-reach - size, reach + size);
            return one_in(2) ? whole : whole + between(0, 15) / 16;
        };
        return {coordinate(), coordinate()};
    }
    /// Compares some tests; counts those that used an index.
    void compare(int points) {
        for (int i = 0; i < points; ++i) {
            const D2D_POINT_2F p = any_point();
            const auto expected = top->model.path_at(p);
            ASSERT_EQ(text_of(expected), text_of(hit_path::from_root(inside(top->real), p)))
                << "at " << fakes::call_text(p);
            const auto expected_below = parent->model.path_below(p);
            ASSERT_EQ(text_of(expected_below), text_of(hit_path::below(inside(parent->real), p)))
                << "below, at " << fakes::call_text(p);
            hits += !expected_below.empty();
            const auto& lookup = inside(parent->real).lookup;
            indexed += lookup && lookup->index;
        }
    }
    pair& any_child() { return *pairs[2 + below(static_cast<unsigned>(pairs.size() - 2))]; }
    void change_something() {
        pair& changed = any_child();
        pair* const above = const_cast<pair*>(pair_of(changed.model.parent));
        switch (below(12)) {
            case 0:
                if (above) remove(*above, changed);
                return;
            case 1:
                if (above) remove(*above, changed);
                if (changed.model.children.empty()) set_mode(changed, static_cast<int>(below(2)));
                return add(*parent, changed);
            case 2:
                return move_to(*parent, any_matrix(40));
            case 3:
                return record_shapes(*parent, one_in(2) ? tree_model::area(any_rect(reach)) : std::nullopt,
                                     one_in(9) ? tree_model::area(any_rect(size)) : std::nullopt);
            case 4:
                return set_clip(*parent, one_in(2) ? tree_model::area(any_rect(3 * reach)) : std::nullopt);
            default:
                if (changed.model.hit_mode == 2) return move_to(changed, any_matrix(reach));
                return change_any_of(changed, size, reach);
        }
    }

    /// Grows a tree, and compares tests between changes of its children.
    void compare_while_changing(unsigned children, int rounds, unsigned most_changes) {
        SCOPED_TRACE(testing::Message() << "seed " << seed);
        grow(children);
        constexpr int tests_of_a_round = 8;
        for (int round = 0; round < rounds; ++round) {
            SCOPED_TRACE(testing::Message() << "round " << round);
            for (unsigned changes = below(most_changes + 1); changes > 0; --changes) change_something();
            compare(tests_of_a_round);
            if (HasFatalFailure()) return;
        }
        // The comparison says something: there was an index much of the time, and children were hit.
        EXPECT_GT(indexed, rounds * tests_of_a_round / 10);
        EXPECT_GT(hits, rounds * tests_of_a_round / 20);
    }

    bool points_near_children = false;
    const int size = 24;
    int reach = 200;
    pair* top = nullptr;
    pair* parent = nullptr;
    int hits = 0;
    int indexed = 0;
};

TEST_F(hit_index_test, finds_what_asking_every_child_finds_while_children_change) {
    compare_while_changing(250, 1500, 3);
}

TEST_F(hit_index_test, finds_the_same_when_some_children_are_very_far_away) {
    far_away = true;
    compare_while_changing(250, 500, 3);
}

TEST_F(hit_index_test, finds_the_same_far_down_a_long_list) {
    SCOPED_TRACE(testing::Message() << "seed " << seed);
    grow(250);
    points_near_children = true;
    for (int round = 0; round < 500 && !HasFatalFailure(); ++round) {
        const float distance = between(0, 4'000) * 250;
        for (int i = 0; i < 3; ++i) {
            D2D_MATRIX_3X2_F place = any_matrix(reach);
            place._32 += distance;
            move_to(any_child(), place);
        }
        if (one_in(10)) move_to(*parent, translation_matrix(between(-20, 20), between(-20, 20) - distance));
        compare(8);
    }
    EXPECT_GT(indexed, 2'000);
    EXPECT_GT(hits, 500);
}

TEST_F(hit_index_test, few_are_asked_far_down_a_long_list) {
    const auto list = create_node();
    for (int i = 0; i < 1000; ++i) {
        const auto child = filled({0, 0, 200, 14}, list);
        child->set_transform(translation_matrix(0, static_cast<float>(1000 * i)));
    }
    const auto index_for = [&](D2D_POINT_2F point, float scrolled) {
        return hit_index::for_test(inside(list), point, translation_matrix(0, scrolled));
    };
    EXPECT_FALSE(index_for({5, 5}, 0)) << "the first test";
    EXPECT_TRUE(index_for({5, 5}, 0));
    EXPECT_TRUE(index_for({5, 5}, 990'000));
    EXPECT_TRUE(index_for({5, 990'000}, 0));
    EXPECT_FALSE(index_for({5, 990'000}, -989'000)) << "a point that has come near by way of afar";
}

TEST_F(hit_index_test, finds_the_same_among_as_many_children_as_just_need_it) {
    reach = 60;
    compare_while_changing(2 * hit_index::fewest_children, 1500, 1);
}

TEST_F(hit_index_test, children_that_reach_the_same_cells_are_asked_front_to_back) {
    top = &make_pair();
    parent = &make_pair();
    root = top->real;
    add(*top, *parent);
    for (int i = 0; i < 100; ++i) {
        pair& child = make_pair();
        record_shapes(child, D2D_RECT_F{0, 0, 100.0f - static_cast<float>(i), 100}, std::nullopt);
        add(*parent, child);
    }
    for (int repeat = 0; repeat < 3; ++repeat) {
        for (int x = 0; x < 100; ++x) {
            const D2D_POINT_2F p{static_cast<float>(x) + 0.5f, 50};
            EXPECT_EQ(pairs[static_cast<std::size_t>(101 - x)]->real.get(),
                      static_cast<INode*>(hit_path::from_root(inside(root), p).back().at));
        }
    }
}

TEST_F(hit_index_test, children_without_a_place_in_a_grid_are_asked_all_the_same) {
    top = &make_pair();
    parent = &make_pair();
    root = top->real;
    add(*top, *parent);
    constexpr float endless = std::numeric_limits<float>::infinity();
    const D2D_RECT_F odd[] = {{-endless, 0, endless, 5},
                              {0, -1e38f, 5, 1e38f},
                              {-3e38f, -3e38f, 3e38f, 3e38f},
                              {std::numeric_limits<float>::quiet_NaN(), 0, 5, 5},
                              {1e8f, 1e8f, 1e8f + 64, 1e8f + 64},
                              {5, 5, 5, 5},
                              {9, 9, 3, 3}};
    for (int i = 0; i < 60; ++i) {
        pair& child = make_pair();
        record_shapes(child, odd[static_cast<std::size_t>(i) % std::size(odd)], std::nullopt);
        move_to(child, any_matrix(50));
        add(*parent, child);
    }
    SCOPED_TRACE(testing::Message() << "seed " << seed);
    for (int i = 0; i < 200 && !HasFatalFailure(); ++i) {
        compare(5);
        move_to(any_child(), any_matrix(50));
    }
    EXPECT_GT(indexed, 100);
}

TEST_F(hit_index_test, child_whose_adding_throws_is_found) {
    top = &make_pair();
    parent = &make_pair();
    root = top->real;
    add(*top, *parent);
    for (int i = 0; i < 40; ++i) {
        pair& child = make_pair();
        record_shapes(child, D2D_RECT_F{0, 0, 8, 8}, std::nullopt);
        move_to(child, translation_matrix(static_cast<float>(10 * i), 0));
        add(*parent, child);
    }
    for (int i = 0; i < 2; ++i) EXPECT_EQ(3u, hit_path::from_root(inside(root), {5, 5}).size());
    ASSERT_TRUE(inside(parent->real).lookup->index);
    const auto token = parent->real->add_bounds_handler({});
    pair& late = make_pair();
    record_shapes(late, D2D_RECT_F{0, 0, 8, 8}, std::nullopt);
    move_to(late, translation_matrix(5, 50));
    EXPECT_THROW(add(*parent, late), std::bad_function_call);
    parent->real->remove_bounds_handler(token);
    record_shapes(late, D2D_RECT_F{0, 0, 9, 9}, std::nullopt);
    for (int i = 0; i < 3; ++i) {
        const auto path = hit_path::from_root(inside(root), {9, 55});
        ASSERT_EQ(3u, path.size());
        EXPECT_EQ(late.real.get(), static_cast<INode*>(path.back().at));
    }
}

TEST_F(hit_index_test, few_of_a_long_list_and_of_a_wide_one_are_asked) {
    for (const bool is_long : {true, false}) {
        const auto list = create_node();
        for (int i = 0; i < 4000; ++i) {
            const float along = static_cast<float>(16 * i);
            const auto child = filled(is_long ? D2D_RECT_F{0, 0, 200, 14} : D2D_RECT_F{0, 0, 14, 200});
            child->set_transform(is_long ? translation_matrix(0, along) : translation_matrix(along, 0));
            list->add_child(child);
        }
        hit_index index(inside(list));
        for (const float along : {5.0f, 32'005.0f, 63'990.0f}) {
            int asked = 0;
            const D2D_POINT_2F point = is_long ? D2D_POINT_2F{100, along} : D2D_POINT_2F{along, 100};
            EXPECT_FALSE(index.visit_candidates(point, [&](std::size_t) { return ++asked, false; }));
            EXPECT_GT(asked, 0) << along;
            EXPECT_LT(asked, 10) << along;
        }
    }
}

TEST_F(hit_index_test, mouse_that_moves_within_one_of_many_children_allocates_nothing) {
    top = &make_pair();
    parent = &make_pair();
    root = top->real;
    add(*top, *parent);
    for (int i = 0; i < 500; ++i) {
        pair& child = make_pair();
        record_shapes(child, D2D_RECT_F{0, 0, 40, 40}, std::nullopt);
        move_to(child, translation_matrix(static_cast<float>(i % 25 * 50), static_cast<float>(i / 25 * 50)));
        add(*parent, child);
    }
    int heard = 0;
    pairs[2 + 260]->real->add_mouse_handler([&](INode*, int, input::mouse::event) { return ++heard, false; });
    view->set_root(root);
    const auto move = [&](float x, float y) {
        edge->on_mouse_event({input::mouse::event_type::move, std::nullopt, 0, {x, y}, 0});
    };
    const auto moves_within = [&] {
        for (int i = 0; i < 40; ++i) move(static_cast<float>(500 + i), 520);
    };
    move(505, 505);
    move(505, 505);
    ASSERT_TRUE(inside(parent->real).lookup->index);
    heard = 0;
    const std::size_t before = fakes::allocation_count();
    moves_within();
    EXPECT_EQ(before, fakes::allocation_count());
    EXPECT_EQ(40, heard);
    view->set_root(nullptr);  // the handler hears of that, too
}

}  // namespace
}  // namespace d2d::scene
