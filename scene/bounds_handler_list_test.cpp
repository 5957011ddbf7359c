#include "scene/bounds_handler_list.h"

#include <functional>
#include <memory>
#include <stdexcept>
#include <string>
#include <vector>

#include <gtest/gtest.h>

namespace {

using d2d::scene::bounds_handler_list;
using d2d::scene::extent;
using d2d::scene::INode;
using names = std::vector<std::string>;

constexpr extent some{true, {1, 2, 3, 4}};

class bounds_handler_list_test : public testing::Test {
protected:
    /// Adds a handler that logs its name and then does something.
    INode::bounds_token add(std::string name, std::function<void()> action = nullptr) {
        return list.add([this, name = std::move(name), action = std::move(action)](bool, D2D_RECT_F) {
            log.push_back(name);
            if (action) action();
        });
    }
    names called() {
        list.call(some);
        return std::exchange(log, {});
    }

    bounds_handler_list list;
    names log;
};

TEST_F(bounds_handler_list_test, handlers_are_called_in_the_order_of_their_adding_with_the_bounds) {
    std::vector<std::pair<bool, D2D_RECT_F>> seen;
    const auto note = [&](bool valid, D2D_RECT_F rect) { seen.emplace_back(valid, rect); };
    EXPECT_TRUE(list.empty());
    list.add(note);
    EXPECT_FALSE(list.empty());
    list.call(some);
    list.call({});
    ASSERT_EQ(2u, seen.size());
    EXPECT_TRUE(seen[0].first);
    EXPECT_EQ(1, seen[0].second.left);
    EXPECT_EQ(2, seen[0].second.top);
    EXPECT_EQ(3, seen[0].second.right);
    EXPECT_EQ(4, seen[0].second.bottom);
    EXPECT_FALSE(seen[1].first);
    add("b");
    add("c");
    EXPECT_EQ((names{"b", "c"}), called());
}

TEST_F(bounds_handler_list_test, token_is_the_address_of_the_stored_function_and_removes_that_one) {
    add("a");
    const auto b = add("b");
    const auto also_b = add("b");
    EXPECT_TRUE(*b);
    EXPECT_NE(b, also_b);
    list.remove(b);
    EXPECT_EQ((names{"a", "b"}), called());
    list.remove(also_b);
    EXPECT_EQ((names{"a"}), called());
}

TEST_F(bounds_handler_list_test, unknown_tokens_are_ignored) {
    const INode::bounds_function foreign = [](bool, D2D_RECT_F) {};
    add("a");
    list.remove(nullptr);
    list.remove(&foreign);
    EXPECT_EQ((names{"a"}), called());
}

TEST_F(bounds_handler_list_test, handler_may_remove_itself) {
    INode::bounds_token own = nullptr;
    const auto alive = std::make_shared<int>(0);
    add("a");
    own = list.add([&, alive](bool, D2D_RECT_F) {
        list.remove(own);
        log.push_back("self " + std::to_string(alive.use_count()));  // its captures are still there
    });
    add("c");
    EXPECT_EQ((names{"a", "self 2", "c"}), called());
    EXPECT_EQ(1, alive.use_count()) << "destroyed once the call has ended";
    EXPECT_EQ((names{"a", "c"}), called());
}

TEST_F(bounds_handler_list_test, handler_may_remove_those_before_and_behind_it) {
    const auto a = add("a");
    INode::bounds_token c = nullptr;
    INode::bounds_token d = nullptr;
    add("b", [&] {
        list.remove(a);
        list.remove(c);
        list.remove(d);
    });
    c = add("c");
    d = add("d");
    add("e");
    EXPECT_EQ((names{"a", "b", "e"}), called());
    EXPECT_EQ((names{"b", "e"}), called());
}

TEST_F(bounds_handler_list_test, handler_that_clears_ends_the_call) {
    const auto alive = std::make_shared<int>(0);
    add("a", [this, alive] {
        list.clear();
        log.push_back(std::to_string(alive.use_count()));
    });
    add("b");
    const long held = alive.use_count();
    EXPECT_EQ((names{"a", std::to_string(held)}), called());
    EXPECT_TRUE(list.empty());
    EXPECT_EQ(1, alive.use_count());
    EXPECT_EQ(names{}, called());
}

TEST_F(bounds_handler_list_test, handler_added_during_a_call_is_called_in_it) {
    int added = 0;
    add("a", [&] {
        if (added++ < 2) add("new");
    });
    EXPECT_EQ((names{"a", "new"}), called());
    EXPECT_EQ((names{"a", "new", "new"}), called());
}

TEST_F(bounds_handler_list_test, nested_calls_each_go_on_where_they_were) {
    int depth = 0;
    add("a");
    add("b", [&] {
        if (++depth <= 2) list.call(some);
    });
    add("c");
    EXPECT_EQ((names{"a", "b", "a", "b", "a", "b", "c", "c", "c"}), called());
}

TEST_F(bounds_handler_list_test, removal_in_a_nested_call_holds_for_the_outer_ones) {
    int depth = 0;
    const auto alive = std::make_shared<int>(0);
    INode::bounds_token b = nullptr;
    INode::bounds_token c = nullptr;
    add("a");
    b = add("b", [&, alive] {
        if (++depth == 1) {
            list.call(some);
            log.push_back("held " + std::to_string(alive.use_count() > 1));
        } else if (depth == 2) {
            list.remove(b);
            list.remove(c);
        }
    });
    c = add("c");
    add("d");
    EXPECT_EQ((names{"a", "b", "a", "b", "d", "held 1", "d"}), called());
    EXPECT_EQ(1, alive.use_count());
    EXPECT_EQ((names{"a", "d"}), called());
}

TEST_F(bounds_handler_list_test, clear_in_a_nested_call_ends_the_outer_ones) {
    int depth = 0;
    add("a", [&] {
        if (++depth == 1) {
            list.call(some);
        } else {
            list.clear();
        }
    });
    add("b");
    EXPECT_EQ((names{"a", "a"}), called());
    EXPECT_EQ(names{}, called());
}

TEST_F(bounds_handler_list_test, empty_function_throws_and_those_behind_it_are_not_called) {
    add("a");
    list.add(nullptr);
    add("c");
    EXPECT_THROW(list.call(some), std::bad_function_call);
    EXPECT_EQ((names{"a"}), std::exchange(log, {}));
    EXPECT_THROW(list.call(some), std::bad_function_call);
}

TEST_F(bounds_handler_list_test, throwing_handler_leaves_the_list_usable) {
    bool throws = true;
    const auto alive = std::make_shared<int>(0);
    INode::bounds_token own = nullptr;
    add("a");
    own = list.add([&, alive](bool, D2D_RECT_F) {
        list.remove(own);
        if (throws) throw std::runtime_error("handler");
    });
    add("c");
    EXPECT_THROW(list.call(some), std::runtime_error);
    EXPECT_EQ(1, alive.use_count()) << "what was removed ahead of the throw is destroyed";
    log.clear();
    EXPECT_EQ((names{"a", "c"}), called());
    const auto again = add("d");
    list.remove(again);
    EXPECT_EQ((names{"a", "c"}), called()) << "no call is taken for still running";
}

TEST_F(bounds_handler_list_test, throw_out_of_a_nested_call_ends_both) {
    int depth = 0;
    add("a", [&] {
        if (++depth == 1) list.call(some);
        if (depth == 2) throw std::runtime_error("handler");
    });
    add("b");
    EXPECT_THROW(list.call(some), std::runtime_error);
    log.clear();
    depth = 5;
    EXPECT_EQ((names{"a", "b"}), called());
}

TEST_F(bounds_handler_list_test, destroyed_function_may_remove_another_handler) {
    struct remover {
        bounds_handler_list* from;
        INode::bounds_token token;
        ~remover() { from->remove(token); }
    };
    const auto add_remover_of = [this](INode::bounds_token token) {
        return list.add([held = std::make_shared<remover>(remover{&list, token})](bool, D2D_RECT_F) {});
    };
    const auto a = add_remover_of(nullptr);
    list.remove(add_remover_of(add("b")));
    EXPECT_EQ(names{}, called());
    list.remove(a);
    add_remover_of(add("c"));
    add("d");
    list.clear();
    EXPECT_TRUE(list.empty());
}

}  // namespace
