// Keys and characters along the chain of the focus node.

#include "scene/testing/input_test.h"

#include <memory>
#include <stdexcept>
#include <string>

#include <gtest/gtest.h>

namespace d2d::scene {
namespace {

using fakes::call_text;
using fakes::thrown_by;

class key_routing : public fakes::input_test {
protected:
    void SetUp() override {
        input_test::SetUp();
        group = named("group", {0, 0, 50, 50}, root);
        leaf = named("leaf", {0, 0, 20, 20}, group);
        for (const auto& each : {root, group, leaf}) hear_keys(each);
        view->set_root(root);
        edge->on_focus_gained();
        leaf->set_focus();
    }
    void TearDown() override {
        group.reset();
        leaf.reset();
        input_test::TearDown();
    }
    void character(wchar_t c = L'x') { edge->on_char(c); }

    com::ptr<INode> group;
    com::ptr<INode> leaf;
    const std::string whole_key =
        "root -2 of root, group -1 of group, leaf 0 of leaf, group 1 of group, root 2 of root";
    const std::string whole_char =
        "root c -2 of leaf, group c -1 of leaf, leaf c 0 of leaf, group c 1 of leaf, root c 2 of leaf";
};

TEST_F(key_routing, key_names_each_node_to_its_own_handler) {
    EXPECT_FALSE(key());
    EXPECT_EQ(whole_key, heard());
}

TEST_F(key_routing, character_names_the_focus_node_to_every_handler) {
    character();
    EXPECT_EQ(whole_char, heard());
}

TEST_F(key_routing, event_and_character_arrive_whole) {
    leaf->set_key_handler([this](INode*, int, input::key::event event) {
        return say(call_text("key", event.down, event.repeat, event.key, event.modifiers));
    });
    leaf->set_char_handler([this](INode*, int, wchar_t c) { return say(call_text("char", int{c})); });
    root->set_key_handler(nullptr);
    group->set_key_handler(nullptr);
    root->set_char_handler(nullptr);
    group->set_char_handler(nullptr);
    edge->on_key_event({false, true, 0xFFFFFFFF, 5});
    edge->on_key_event({true, false, 13, 2});
    edge->on_char(0xD83D);
    EXPECT_EQ("key 0 1 4294967295 5, key 1 0 13 2, char 55357", heard());
}

TEST_F(key_routing, true_ends_the_route_and_is_the_answer_to_a_key) {
    const struct {
        const char* key_line;
        const char* char_line;
        int count;
    } cases[] = {{"root -2 of root", "root c -2 of leaf", 1},
                 {"group -1 of group", "group c -1 of leaf", 2},
                 {"leaf 0 of leaf", "leaf c 0 of leaf", 3},
                 {"group 1 of group", "group c 1 of leaf", 4},
                 {"root 2 of root", "root c 2 of leaf", 5}};
    for (const auto& each : cases) {
        when(each.key_line, [] { return true; });
        EXPECT_TRUE(key());
        EXPECT_EQ(static_cast<std::size_t>(each.count), calls().size());
        when(each.char_line, [] { return true; });
        character();
        EXPECT_EQ(static_cast<std::size_t>(each.count), calls().size());
    }
}

TEST_F(key_routing, root_with_the_focus_hears_once) {
    root->set_focus();
    EXPECT_FALSE(key());
    character();
    EXPECT_EQ("root 0 of root, root c 0 of root", heard());
}

TEST_F(key_routing, without_a_focus_node_nothing_is_handled) {
    leaf->release_focus();
    EXPECT_FALSE(key());
    character();
    EXPECT_EQ("", heard());
}

TEST_F(key_routing, keys_need_a_focus_node_but_not_the_window_focus) {
    edge->on_focus_lost();
    EXPECT_FALSE(key());
    EXPECT_EQ(whole_key, heard());
}

TEST_F(key_routing, nodes_without_a_handler_are_passed_over) {
    group->set_key_handler(nullptr);
    leaf->set_key_handler({});
    EXPECT_FALSE(key());
    EXPECT_EQ("root -2 of root, root 2 of root", heard());
}

// Handlers that change what they run in

TEST_F(key_routing, handler_may_replace_itself_and_keeps_what_it_holds_until_it_ends) {
    const auto held = std::make_shared<std::string>("old");
    leaf->set_key_handler([this, text = std::shared_ptr<std::string>(held)](INode*, int, input::key::event) {
        leaf->set_key_handler([this](INode*, int, input::key::event) { return say("new"); });
        return say(*text);
    });
    leaf->set_char_handler([this, text = std::shared_ptr<std::string>(held)](INode*, int, wchar_t) {
        leaf->set_char_handler(nullptr);
        return say(*text);
    });
    key();
    key();
    character();
    character();
    EXPECT_EQ(
        "root -2 of root, group -1 of group, old, group 1 of group, root 2 of root, "
        "root -2 of root, group -1 of group, new, group 1 of group, root 2 of root, "
        "root c -2 of leaf, group c -1 of leaf, old, group c 1 of leaf, root c 2 of leaf, "
        "root c -2 of leaf, group c -1 of leaf, group c 1 of leaf, root c 2 of leaf",
        heard());
    EXPECT_EQ(1, held.use_count()) << "nothing replaced is kept";
}

TEST_F(key_routing, handler_that_replaces_itself_again_and_again_inside_itself_holds_out) {
    const auto held = std::make_shared<std::string>("held");
    int depth = 0;
    std::function<void()> install = [&] {
        leaf->set_key_handler([&, text = std::shared_ptr<std::string>(held)](INode*, int, input::key::event) {
            install();
            if (++depth < 10) key();
            return say(*text);
        });
    };
    install();
    EXPECT_FALSE(key());
    EXPECT_EQ(10, depth);
    EXPECT_EQ(2, held.use_count()) << "the test and the present handler";
}

TEST_F(key_routing, ancestor_may_take_the_handler_that_is_next) {
    pass_after("group -1 of group", [&] { leaf->set_key_handler(nullptr); });
    EXPECT_FALSE(key());
    EXPECT_EQ("root -2 of root, group -1 of group, group 1 of group, root 2 of root", heard());
}

TEST_F(key_routing, clear_inside_a_handler_ends_nothing_that_runs) {
    pass_after("leaf 0 of leaf", [&] { root->clear(); });
    EXPECT_FALSE(key());
    EXPECT_EQ("root -2 of root, group -1 of group, leaf 0 of leaf", heard());
}

TEST_F(key_routing, nodes_removed_on_the_way_still_hear) {
    pass_after("root -2 of root", [&] { root->remove_child(std::exchange(group, nullptr)); });
    EXPECT_FALSE(key());
    EXPECT_EQ(whole_key, heard());
    EXPECT_FALSE(key());
    EXPECT_EQ("", heard()) << "the focus went with them";
    pass_after("root c 0 of root", [&] { view->set_root(nullptr); });
    root->set_focus();
    character();
    EXPECT_EQ("root c 0 of root", heard());
}

TEST_F(key_routing, focus_that_a_handler_moves_counts_for_the_next_key) {
    pass_after("root -2 of root", [&] { group->set_focus(); });
    EXPECT_FALSE(key());
    EXPECT_EQ(whole_key, heard());
    EXPECT_FALSE(key());
    EXPECT_EQ("root -1 of root, group 0 of group, root 1 of root", heard());
}

TEST_F(key_routing, throw_passes_to_the_host_and_leaves_the_route_usable) {
    when("group -1 of group", []() -> bool { throw std::runtime_error("thrown by a handler"); });
    EXPECT_EQ("thrown by a handler", thrown_by<std::runtime_error>([&] { key(); }));
    when("leaf c 0 of leaf", []() -> bool { throw std::runtime_error("thrown by a handler"); });
    EXPECT_EQ("thrown by a handler", thrown_by<std::runtime_error>([&] { character(); }));
    static_cast<void>(heard());
    key();
    character();
    EXPECT_EQ(whole_key + ", " + whole_char, heard());
}

TEST_F(key_routing, handler_that_replaces_itself_and_throws_is_let_go) {
    const auto held = std::make_shared<std::string>("thrown by a handler");
    leaf->set_key_handler(
        [this, text = std::shared_ptr<std::string>(held)](INode*, int, input::key::event) -> bool {
            leaf->set_key_handler(nullptr);
            throw std::runtime_error(*text);
        });
    EXPECT_EQ("thrown by a handler", thrown_by<std::runtime_error>([&] { key(); }));
    EXPECT_EQ(1, held.use_count());
}

TEST_F(key_routing, handler_may_let_go_of_the_view_and_of_its_node) {
    pass_after("leaf 0 of leaf", [&] {
        view->set_root(nullptr);
        edge->detach_site(&site);
        view.reset();
        edge.reset();
        group->remove_child(std::exchange(leaf, nullptr));
    });
    EXPECT_FALSE(key());
    EXPECT_EQ(whole_key, heard());
    view = create_view();
    edge = com::ptr<IViewLowerEdge>(view);
}

}  // namespace
}  // namespace d2d::scene
