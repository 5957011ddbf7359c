// Trees that change at random, compared after each change with a model that works everything out anew.

#include "scene/testing/random_tree.h"
#include "support/debug_heap.h"

#include <algorithm>
#include <cstring>
#include <functional>

#include <gtest/gtest.h>

namespace d2d::scene {
namespace {

using fakes::random_tree;
using test_support::debug_heap;

TEST_F(random_tree, caches_damage_and_calls_of_handlers_are_those_of_the_model) {
    SCOPED_TRACE(testing::Message() << "seed " << seed);
    change_target();
    set_root(&pairs[0]);
    for (auto& each : pairs) add_handler(each);
    static_cast<void>(calls());
    expected.clear();
    int longest = 0;
    int most_shown = 0;
    for (int step = 0; step < debug_heap::steps(60'000); ++step) {
        SCOPED_TRACE(testing::Message() << "step " << step);
        const bool clock_before = has_target && needs_clock();
        change_anything();
        int clock_calls = 0;
        const auto actual = step_calls(clock_calls);
        EXPECT_EQ(expected, actual);
        SCOPED_TRACE(testing::Message() << "change " << change);
        const bool clock_now = has_target && needs_clock();
        EXPECT_EQ(clock_before == clock_now ? 0 : 1, clock_calls);
        EXPECT_EQ(clock_now, site.clock_interval > 0);
        compare_all();
        if (HasFailure()) return;
        longest = std::max(longest, static_cast<int>(expected.size()));
        most_shown = std::max(
            most_shown, static_cast<int>(std::count_if(pairs.begin(), pairs.end(), [this](const pair& each) {
                return in_view(each.model);
            })));
        expected.clear();
    }
    // The changes reach far: long ways up, and large trees in the view.
    EXPECT_GT(longest, 6);
    EXPECT_GT(most_shown, 8);
}

TEST_F(random_tree, handlers_that_move_other_nodes_leave_the_caches_right) {
    SCOPED_TRACE(testing::Message() << "seed " << seed);
    change_target();
    set_root(&pairs[0]);
    for (std::size_t i = 0; i < node_count; i += 2) add_handler(pairs[i]);
    int budget = 0;
    int moved = 0;
    on_bounds = [&](pair& told) {
        if (budget <= 0 || one_in(3)) return;
        --budget;
        ++moved;
        pair& other = one_in(3) ? told : any();
        const D2D_MATRIX_3X2_F matrix = any_matrix(other.model);
        const node& real = static_cast<const node&>(*other.real);
        if (std::memcmp(&matrix, &real.inverse, sizeof(matrix)) != 0) other.model.transform = matrix;
        other.real->set_transform(matrix);
        other.model.inverse = real.inverse;
    };
    const int steps = debug_heap::steps(30'000);
    for (int step = 0; step < steps; ++step) {
        SCOPED_TRACE(testing::Message() << "step " << step);
        budget = 4;
        change_anything();
        static_cast<void>(calls());
        expected.clear();
        compare_all();
        if (HasFailure()) return;
    }
    EXPECT_GT(moved, steps / 30);
}

TEST_F(random_tree, tree_heals_with_the_next_changes_after_handlers_have_thrown) {
    SCOPED_TRACE(testing::Message() << "seed " << seed);
    // Outside the view: a child whose adding threw is not shown.
    for (auto& each : pairs) add_handler(each);
    bool throws = true;
    int thrown = 0;
    on_bounds = [&](pair&) {
        if (!throws || !one_in(3)) return;
        ++thrown;
        throw std::bad_function_call();
    };
    const int rounds = debug_heap::steps(3'000);
    for (int round = 0; round < rounds; ++round) {
        SCOPED_TRACE(testing::Message() << "round " << round);
        throws = true;
        for (unsigned changes = 1 + below(3); changes > 0; --changes) {
            try {
                pair& at = any();
                switch (below(6)) {
                    case 0:
                        add_child(any(), at);
                        break;
                    case 1:
                        remove_child(at.model.parent ? pair_of(*at.model.parent) : any(), at);
                        break;
                    case 2:
                        set_hit_mode(at);
                        break;
                    case 3:
                        set_clip_geometry(at);
                        break;
                    case 4:
                        set_animation(at);
                        break;
                    default:
                        record_any(at);
                        break;
                }
            } catch (const std::bad_function_call&) {
            }
        }
        throws = false;
        for (auto& each : pairs) {
            if (each.model.children.empty()) record_any(each);
        }
        static_cast<void>(calls());
        expected.clear();
        compare_all();
        if (HasFailure()) return;
    }
    EXPECT_GT(thrown, rounds / 10);
}

}  // namespace
}  // namespace d2d::scene
