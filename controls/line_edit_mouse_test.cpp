// What the mouse does to a line edit.

#include "controls/testing/line_edit_fixture.h"

#include <string>

#include <gtest/gtest.h>

namespace d2d {
namespace {

using input::mouse::button;
namespace event_type = input::mouse::event_type;

class line_edit_mouse_test : public fakes::line_edit_fixture {
protected:
    void mouse(std::int32_t type, std::uint32_t position, button pressed = button::left) {
        const D2D_POINT_2F at = text_origin();
        edge->on_mouse_event({type, pressed, MK_LBUTTON, {at.x + x_of(position) + 0.25f, at.y + 5}, 0});
    }
};

TEST_F(line_edit_mouse_test, click_sets_the_cursor_at_the_nearer_edge_of_a_character) {
    make_focused(L"Harbour");
    const D2D_POINT_2F at = text_origin();
    for (std::uint32_t each = 0; each < 7; ++each) {
        const float left = x_of(each);
        const float width = x_of(each + 1) - left;
        click_at({at.x + left + 0.25f * width, at.y + 5});
        EXPECT_EQ(each, caret());
        click_at({at.x + left + 0.75f * width, at.y + 5});
        EXPECT_EQ(each + 1, caret());
    }
    click_at({rect.right - 1, at.y + 5});
    EXPECT_EQ(7u, caret());
    click_at({rect.left + 1, at.y + 5});
    EXPECT_EQ(0u, caret());
}

TEST_F(line_edit_mouse_test, click_counts_from_the_corner_without_a_frame) {
    make_focused(L"Harbour", false);
    for (std::uint32_t each = 0; each < 7; ++each) {
        const float width = x_of(each + 1) - x_of(each);
        click_at({rect.left + x_of(each) + 0.25f * width, rect.top + 5});
        EXPECT_EQ(each, caret());
        click_at({rect.left + x_of(each) + 0.75f * width, rect.top + 5});
        EXPECT_EQ(each + 1, caret());
    }
}

TEST_F(line_edit_mouse_test, click_gives_the_focus) {
    make(L"Harbour");
    edge->on_focus_gained();
    EXPECT_EQ(L"Harbour", look());
    click(3);
    EXPECT_TRUE(own->has_focus(false));
    EXPECT_EQ(L"Har|bour", look());
}

TEST_F(line_edit_mouse_test, click_asks_the_window_for_the_keyboard) {
    make(L"Harbour");
    click(3);
    EXPECT_EQ((lines{"request_focus"}), calls());
    EXPECT_EQ(L"Harbour", look()) << "no caret without the keyboard";
    edge->on_focus_gained();
    EXPECT_EQ(L"Har|bour", look());
}

TEST_F(line_edit_mouse_test, click_on_the_caret_is_a_click_on_the_text_below_it) {
    make(L"Harbour");
    focus();
    click_at({caret_node().transform._31 + 0.5f, rect.top + 5});
    EXPECT_EQ(L"|Harbour", look());
    type(L"x");
    EXPECT_EQ(L"x|Harbour", look()) << "the cursor had no position before";
}

TEST_F(line_edit_mouse_test, plain_click_ends_a_selection) {
    follow(L"H[arb|]our", {{"click 6", L"Harbou|r"}});
    follow(L"H[arb|]our", {{"click 1", L"H|arbour"}});
}

TEST_F(line_edit_mouse_test, click_where_the_cursor_is_leaves_the_selection) {
    for (const std::string click : {"click", "shift+click"}) {
        follow(L"H[arb|]our", {{click + " 4", L"H[arb|]our"}});
        follow(L"H[|arb]our", {{click + " 1", L"H[|arb]our"}, {"right", L"Harb|our"}});  // a selection still
    }
}

TEST_F(line_edit_mouse_test, click_with_shift_selects) {
    follow(L"Har|bour", {{"shift+click 5", L"Har[bo|]ur"},
                         {"shift+click 1", L"H[|ar]bour"},
                         {"shift+click 3", L"Har|bour"}});  // back at the anchor
    EXPECT_EQ(0, changes);
}

TEST_F(line_edit_mouse_test, click_with_more_than_shift_is_a_plain_click) {
    constexpr std::uint32_t selecting = MK_LBUTTON | MK_SHIFT;
    for (const std::uint32_t flags : codes{selecting | MK_CONTROL, selecting | MK_RBUTTON,
                                           selecting | MK_MBUTTON, MK_LBUTTON | MK_CONTROL, MK_SHIFT, 0}) {
        make_focused(L"H[arb|]our");
        click(6, flags);
        EXPECT_EQ(L"Harbou|r", look()) << flags;
    }
}

TEST_F(line_edit_mouse_test, click_with_shift_selects_all_before_it_when_the_cursor_had_no_position) {
    make_focused(L"Harbour");
    click(3, MK_LBUTTON | MK_SHIFT);
    EXPECT_EQ(3u, caret());
    type(L"x");
    EXPECT_EQ(L"Harx|", look()) << "from the end, where a cursor without a position is";
}

TEST_F(line_edit_mouse_test, other_mouse_events_do_nothing) {
    make_focused(L"H[arb|]our");
    for (const button each : {button::right, button::middle}) mouse(event_type::button_down, 6, each);
    for (const std::int32_t type : {event_type::move, event_type::button_up, event_type::double_click}) {
        mouse(type, 6);
    }
    EXPECT_EQ(L"H[arb|]our", look());
    root->set_focus();
    mouse(event_type::button_down, 6, button::right);
    EXPECT_FALSE(own->has_focus(false));
}

TEST_F(line_edit_mouse_test, click_outside_does_nothing) {
    make_focused(L"H[arb|]our");
    click_at({rect.left + 30, rect.bottom + 3});
    click_at({rect.right + 3, rect.top + 5});
    EXPECT_EQ(L"H[arb|]our", look());
}

TEST_F(line_edit_mouse_test, mouse_events_pass_to_the_nodes_above) {
    int passed = 0;
    root->add_mouse_handler([&](scene::INode*, int depth, input::mouse::event event) {
        if (depth > 0 && event.type == event_type::button_down) ++passed;
        return false;
    });
    make_focused(L"Har|bour");
    passed = 0;
    click(3);
    click(5);
    click(2, MK_LBUTTON | MK_SHIFT);
    EXPECT_EQ(3, passed);
    root->add_mouse_handler({});
}

TEST_F(line_edit_mouse_test, click_on_a_node_below_is_not_the_edits) {
    make_focused(L"H[arb|]our");
    const auto below = filled({100, 20, 120, 40}, own);
    click_at({110, 30});
    EXPECT_EQ(L"Harbour", edit->get_text());
    own->remove_child(below);
    EXPECT_EQ(L"H[arb|]our", look());
}

TEST_F(line_edit_mouse_test, cursor_is_the_beam_everywhere_on_it) {
    make(L"Harbour");
    const HCURSOR beam = LoadCursorW(nullptr, IDC_IBEAM);
    ASSERT_NE(LoadCursorW(nullptr, IDC_ARROW), beam);
    for (const D2D_POINT_2F point : {D2D_POINT_2F{11, 21}, {30, 30}, {209, 41}, {200, 22}}) {
        EXPECT_EQ(beam, edge->get_cursor(point));
    }
    EXPECT_NE(beam, edge->get_cursor({5, 30}));
    EXPECT_NE(beam, edge->get_cursor({30, 50}));
}

}  // namespace
}  // namespace d2d
