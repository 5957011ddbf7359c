// The cursor that a scene wants at a point.

#include "scene/testing/input_test.h"

#include <cstdint>
#include <stdexcept>
#include <string>

#include <gtest/gtest.h>

namespace d2d::scene {
namespace {

using fakes::call_text;

HICON icon(int number) {
    return reinterpret_cast<HICON>(static_cast<std::intptr_t>(number));
}

class cursor_test : public fakes::input_test {
protected:
    void SetUp() override {
        input_test::SetUp();
        leaf = named("leaf", {10, 10, 20, 20}, root);
        leaf->set_transform(translation_matrix(5, 5));
        for (const auto& each : {root, leaf}) hear_cursor(each);
        view->set_root(root);
    }
    void TearDown() override {
        leaf.reset();
        input_test::TearDown();
    }

    /// Says "<name> <depth> of <source> at <point>"; the answer to a line is in `answers`, once.
    void hear_cursor(const com::ptr<INode>& node) {
        node->add_cursor_handler(
            [this, own = name_of(node.get())](INode* source, int depth, D2D_POINT_2F point) -> HICON {
                const bool answered = say(call_text(own, depth, "of", name_of(source), "at", point));
                return answered ? icon(7) : nullptr;
            });
    }

    com::ptr<INode> leaf;
};

TEST_F(cursor_test, handlers_are_asked_down_and_up_and_learn_no_point) {
    EXPECT_EQ(nullptr, edge->get_cursor({16, 16}));
    EXPECT_EQ("root -1 of leaf at 0 0, leaf 0 of leaf at 0 0, root 1 of leaf at 0 0", heard());
    EXPECT_EQ(nullptr, edge->get_cursor({1, 1}));
    EXPECT_EQ("", heard()) << "nothing is hit";
}

TEST_F(cursor_test, first_cursor_that_is_not_null_is_the_answer) {
    when("leaf 0 of leaf at 0 0", [] { return true; });
    EXPECT_EQ(icon(7), edge->get_cursor({16, 16}));
    EXPECT_EQ("root -1 of leaf at 0 0, leaf 0 of leaf at 0 0", heard());
    when("root 1 of leaf at 0 0", [] { return true; });
    EXPECT_EQ(icon(7), edge->get_cursor({16, 16}));
    when("root -1 of leaf at 0 0", [] { return true; });
    EXPECT_EQ(icon(7), edge->get_cursor({16, 16}));
}

TEST_F(cursor_test, several_on_a_node_are_asked_in_the_order_of_their_coming) {
    leaf->add_cursor_handler([](INode*, int, D2D_POINT_2F) { return icon(1); });
    leaf->add_cursor_handler([](INode*, int, D2D_POINT_2F) { return icon(2); });
    EXPECT_EQ(icon(1), edge->get_cursor({16, 16}));
    leaf->add_cursor_handler(nullptr);  // the one that only says
    EXPECT_EQ(icon(1), edge->get_cursor({16, 16}));
    leaf->add_cursor_handler(nullptr);
    EXPECT_EQ(icon(2), edge->get_cursor({16, 16}));
    leaf->add_cursor_handler(nullptr);
    EXPECT_EQ(nullptr, edge->get_cursor({16, 16}));
}

TEST_F(cursor_test, mouse_handlers_and_cursor_handlers_do_not_hear_each_other) {
    hear_mouse(leaf);
    static_cast<void>(edge->get_cursor({16, 16}));
    EXPECT_EQ("root -1 of leaf at 0 0, leaf 0 of leaf at 0 0, root 1 of leaf at 0 0", heard());
    press(16, 16);
    EXPECT_EQ("leaf 0", heard());
    leaf->add_mouse_handler(nullptr);
    static_cast<void>(edge->get_cursor({16, 16}));
    EXPECT_EQ("root -1 of leaf at 0 0, leaf 0 of leaf at 0 0, root 1 of leaf at 0 0", heard());
}

TEST_F(cursor_test, record_is_asked_whatever_events_it_names) {
    const handler_block block = leaf->allocate_handler(0);
    INode::cursor_invoke* const invoke = [](void*, INode*, int, D2D_POINT_2F) { return icon(3); };
    block.record->invoke = reinterpret_cast<void (*)()>(invoke);
    block.record->kind = handler_kind::cursor;
    leaf->link_handler(block.record);
    EXPECT_EQ(icon(3), edge->get_cursor({16, 16}));
    leaf->remove_handler(block.record);
    EXPECT_EQ(nullptr, edge->get_cursor({16, 16}));
}

TEST_F(cursor_test, question_changes_neither_hover_nor_the_last_point) {
    hear_mouse(leaf);
    move(16, 16);
    static_cast<void>(heard());
    static_cast<void>(edge->get_cursor({1, 1}));
    EXPECT_EQ("", heard());
    leaf->drag_detect(input::mouse::button::left);
    EXPECT_EQ("drag_detect 16 16 0", heard());
}

TEST_F(cursor_test, handler_may_take_its_node_away_and_throw) {
    when("leaf 0 of leaf at 0 0", [&]() -> bool {
        root->remove_child(leaf);
        leaf.reset();
        throw std::runtime_error("no cursor");
    });
    EXPECT_EQ("no cursor", fakes::thrown_by<std::runtime_error>([&] {
                  static_cast<void>(edge->get_cursor({16, 16}));
              }));
    EXPECT_EQ(nullptr, edge->get_cursor({16, 16}));
    EXPECT_EQ("root -1 of leaf at 0 0, leaf 0 of leaf at 0 0", heard());
}

TEST_F(cursor_test, nothing_is_wanted_without_a_root) {
    view->set_root(nullptr);
    EXPECT_EQ(nullptr, edge->get_cursor({16, 16}));
    EXPECT_EQ("", heard());
}

}  // namespace
}  // namespace d2d::scene
