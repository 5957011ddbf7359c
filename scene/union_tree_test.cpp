// Parents of many children, compared after each change with a model that asks all of them.

#include "scene/testing/hit_model.h"
#include "scene/testing/modelled_tree_test.h"

#include <stdexcept>
#include <string>

#include <gtest/gtest.h>

namespace d2d::scene {
namespace {

using fakes::hit_model;
using fakes::tree_model;

class union_tree_test : public fakes::modelled_tree_test<hit_model> {
protected:
    static constexpr unsigned node_count = 400;

    void SetUp() override {
        modelled_tree_test::SetUp();
        for (unsigned i = 0; i < node_count; ++i) make_pair();
        add(top(), hub());
    }

    pair& top() { return *pairs[0]; }
    pair& hub() { return *pairs[1]; }
    pair& any_other() { return *pairs[2 + below(node_count - 2)]; }

    [[nodiscard]] bool has_tree() const {
        const auto& lookup = inside(pairs[1]->real).lookup;
        return lookup && lookup->unions;
    }

    void reset(hit_model& model) {
        for (tree_model* child : model.children) {
            reset(static_cast<hit_model&>(*child));
            child->parent = nullptr;
        }
        tree_model* const parent = model.parent;
        model = {};
        model.parent = parent;
    }
    void clear(pair& at) {
        reset(at.model);
        at.real->clear();
    }

    /// Most nodes are children of the hub, or one level below.
    void change_tree() {
        pair& chosen = any_other();
        if (!chosen.model.parent) {
            pair& other = any_other();
            const bool deeper = one_in(5) && other.model.parent == &hub().model;
            return add(deeper ? other : hub(), chosen);
        }
        if (one_in(300)) return clear(hub());
        if (one_in(6)) return clear(chosen);
        if (one_in(4)) return set_mode(chosen, static_cast<int>(below(6) / 2));
        if (one_in(4)) return;
        hit_model* const parent = static_cast<hit_model*>(chosen.model.parent);
        for (const auto& each : pairs) {
            if (&each->model == parent) return remove(*each, chosen);
        }
    }
    /// The few that lie far out hold the edges, and draw back from them.
    void change() {
        if (one_in(3)) return change_tree();
        change_any_of(any_other(), 40, one_in(20) ? 2000 : 200);
    }

    void compare() {
        for (pair* each : {&top(), &hub(), &any_other()}) {
            const node& real = inside(each->real);
            EXPECT_EQ(tree_model::text(each->model.bounds()), text_of_extent(real.subtree_extent()));
            EXPECT_EQ(tree_model::text(each->model.hits()), text_of_extent(real.subtree_hit_extent()));
        }
    }
    static std::string text_of_extent(const extent& e) {
        return tree_model::text(e.valid ? tree_model::area(e.rect) : tree_model::area());
    }

    /// Changes and compares, `steps` times.
    template <class Change>
    void compare_many(int steps, Change&& change_once) {
        SCOPED_TRACE(testing::Message() << "seed " << seed);
        std::size_t most = 0;
        int with_tree = 0;
        for (int step = 0; step < steps && !HasFailure(); ++step) {
            SCOPED_TRACE(testing::Message() << "step " << step);
            change_once();
            compare();
            most = std::max(most, inside(hub().real).children.size());
            if (has_tree()) ++with_tree;
        }
        EXPECT_GT(most, union_tree::fewest_children * 2);
        EXPECT_GT(with_tree, steps / 4);
        EXPECT_LT(with_tree, steps) << "a parent with few children has none";
    }
};

TEST_F(union_tree_test, unions_are_those_of_the_model) {
    compare_many(20'000, [this] { change(); });
}

TEST_F(union_tree_test, unions_are_right_when_handlers_move_other_children) {
    // None of those that are changed otherwise: the model follows a move when it has ended.
    constexpr unsigned movers = 40;
    int budget = 0;
    unsigned next = 0;
    for (unsigned i = 0; i < movers; ++i) add(hub(), *pairs[node_count - movers + i]);
    hub().real->add_bounds_handler([&](bool, D2D_RECT_F) {
        if (budget-- <= 0) return;
        next = (next + 1) % movers;
        pair& moved = *pairs[node_count - movers + next];
        move_to(moved, translation_matrix(between(-300, 300), between(-300, 300)));
    });
    const auto any_changed = [&]() -> pair& { return *pairs[2 + below(node_count - movers - 2)]; };
    compare_many(10'000, [&] {
        budget = 3;
        pair& changed = any_changed();
        if (one_in(3)) {
            if (!changed.model.parent) return add(hub(), changed);
            if (inside(hub().real).children.size() > 200 || one_in(100)) return remove(hub(), changed);
        }
        change_any_of(changed, 40, one_in(20) ? 2000 : 200);
    });
}

TEST_F(union_tree_test, unions_are_right_again_behind_handlers_that_throw) {
    for (unsigned i = 2; i < node_count; ++i) add(hub(), *pairs[i]);
    bool throws = false;
    int thrown = 0;
    for (unsigned i = 1; i < node_count; i += 10) {
        pairs[i]->real->add_bounds_handler([&](bool, D2D_RECT_F) {
            if (!throws || !one_in(2)) return;
            ++thrown;
            throw std::runtime_error("no");
        });
    }
    for (int round = 0; round < 3'000 && !HasFailure(); ++round) {
        SCOPED_TRACE(testing::Message() << "seed " << seed << ", round " << round);
        pair& changed = any_other();
        throws = true;
        for (int i = 0; i < 3; ++i) {
            try {
                record_shapes(changed, any_rect(one_in(10) ? 3000 : 50), std::nullopt);
            } catch (const std::runtime_error&) {
            }
        }
        throws = false;
        // A change that is told of to the end.
        record_shapes(changed, any_rect(60), std::nullopt);
        record_shapes(changed, any_rect(50), std::nullopt);
        compare();
    }
    EXPECT_GT(thrown, 100);
    EXPECT_TRUE(has_tree());
}

}  // namespace
}  // namespace d2d::scene
