// A line edit on the screen, used with a real keyboard and mouse.

#include "controls/testing/control_window.h"
#include "d2d/ui/ILineEdit.h"
#include "d2d/ui/ILineEditStyle.h"

#include <cmath>
#include <initializer_list>
#include <string>
#include <vector>

#include <gtest/gtest.h>

namespace d2d {
namespace {

using test_support::click;
using test_support::press_key;
using test_support::release_key;
using test_support::strike_key;
using test_support::type_text;

/// A framed edit of 160 by 24 pixels at (20, 20), and a node below it that can have the focus.
class line_edit_on_screen : public fakes::control_window {
protected:
    static constexpr D2D_RECT_F rect{20, 20, 180, 44};

    void SetUp() override {
        control_window::SetUp();
        edit = ui::create_line_edit(L"", rect, true, nullptr, nullptr);
        edit->set_on_change([this] { ++changes; });
        content = scene::create_node();
        content->set_key_handler([this](scene::INode*, int depth, input::key::event event) {
            if (depth > 0 && event.down) passed.push_back(event.key);
            return false;
        });
        content->add_child(edit->get_node());
        other = scene::create_node();
        content->add_child(other);
        show(content);
    }
    void TearDown() override {
        edit.reset();
        content.reset();
        other.reset();
        control_window::TearDown();
    }

    void start_with(const std::wstring& text) {
        edit->get_node()->set_focus();
        edit->set_text(text);  // the cursor at its end
        changes = 0;
        test_support::pump_until_idle(std::chrono::milliseconds(5), std::chrono::milliseconds(50));
    }
    /// The keys go down when the mouse is there: Wine's mouse forgets them on its way.
    void click_with(std::initializer_list<WORD> held, unsigned position) {
        const POINT point = point_of(position);
        move_mouse(point.x, point.y);
        for (const WORD key : held) press_key(key);
        test_support::press_mouse();
        test_support::release_mouse();
        for (const WORD key : held) release_key(key);
    }
    [[nodiscard]] testing::AssertionResult text_becomes(const std::wstring& wanted) const {
        if (becomes([&] { return edit->get_text() == wanted; })) return testing::AssertionSuccess();
        return testing::AssertionFailure() << "expected " << testing::PrintToString(wanted) << ", is "
                                           << testing::PrintToString(edit->get_text());
    }
    /// Where a position is in the window.
    [[nodiscard]] POINT point_of(unsigned position) const {
        const auto format = com::ptr<ui::ILineEditStyle>(ui::get_default_style(nullptr).get())->text_format();
        const auto layout = format->create_layout(std::wstring_view(edit->get_text()), 500, 20);
        float x = 0;
        float y = 0;
        DWRITE_HIT_TEST_METRICS metrics{};
        EXPECT_EQ(S_OK, layout->HitTestTextPosition(position, FALSE, &x, &y, &metrics));
        return {std::lround(std::floor(rect.left + 2 + x)), 32};
    }
    /// Waits until the caret is seen in front of a position, or nothing is.
    [[nodiscard]] bool caret_shows_at(unsigned position, bool seen = true) const {
        const POINT at = point_of(position);
        return becomes([&] {
            const auto image = test_support::grab_client_area(handle());
            for (unsigned y = 25; y < 33; ++y) {
                if ((image.at(static_cast<unsigned>(at.x), y) == black) != seen) return false;
            }
            return true;
        });
    }

    com::ptr<ui::ILineEdit> edit;
    com::ptr<scene::INode> content, other;
    std::vector<std::uint32_t> passed;
    int changes = 0;
};

TEST_F(line_edit_on_screen, takes_what_is_typed) {
    start_with({});
    type_text(L"M\u00F6we \u0416 \u65E5");
    EXPECT_TRUE(text_becomes(L"M\u00F6we \u0416 \u65E5"));
    EXPECT_EQ(8, changes);
    strike_key(VK_BACK);
    strike_key(VK_BACK);
    EXPECT_TRUE(text_becomes(L"M\u00F6we \u0416"));
}

TEST_F(line_edit_on_screen, keyboard_types_with_and_without_shift) {
    start_with({});
    strike_key('A');
    strike_key('A', {VK_SHIFT});
    strike_key(VK_SPACE);
    strike_key('1');
    EXPECT_TRUE(text_becomes(L"aA 1"));
    EXPECT_EQ(4, changes);
}

TEST_F(line_edit_on_screen, arrows_move_and_select) {
    start_with(L"Harbour");
    strike_key(VK_LEFT);
    strike_key(VK_LEFT);
    type_text(L"-");
    EXPECT_TRUE(text_becomes(L"Harbo-ur"));
    strike_key(VK_LEFT, {VK_SHIFT});
    strike_key(VK_LEFT, {VK_SHIFT});
    type_text(L"x");
    EXPECT_TRUE(text_becomes(L"Harbxur"));
    strike_key(VK_HOME, {VK_SHIFT});
    strike_key(VK_DELETE);
    EXPECT_TRUE(text_becomes(L"ur"));
    strike_key(VK_END);
    strike_key(VK_LEFT, {VK_CONTROL});
    strike_key(VK_BACK);
    EXPECT_TRUE(text_becomes(L"u")) << "an arrow with Ctrl moves nothing";
}

TEST_F(line_edit_on_screen, keys_that_it_does_not_know_pass_to_the_node_above) {
    start_with(L"Harbour");
    for (const WORD key : std::vector<WORD>{VK_TAB, VK_RETURN, VK_ESCAPE, VK_UP, VK_DOWN, VK_LEFT})
        strike_key(key);
    ASSERT_TRUE(becomes([&] { return passed.size() >= 5; }));
    strike_key('C', {VK_CONTROL});
    type_text(L"x");
    EXPECT_TRUE(text_becomes(L"Harbouxr"));
    ASSERT_LE(5u, passed.size());
    EXPECT_EQ((std::vector<std::uint32_t>{VK_TAB, VK_RETURN, VK_ESCAPE, VK_UP, VK_DOWN}),
              std::vector<std::uint32_t>(passed.begin(), passed.begin() + 5));
    EXPECT_EQ(1, changes);
}

TEST_F(line_edit_on_screen, click_gives_the_focus_and_sets_the_cursor) {
    start_with(L"Harbour");
    other->set_focus();
    click(handle(), point_of(3));
    ASSERT_TRUE(becomes([&] { return edit->get_node()->has_focus(false); }));
    type_text(L"-");
    EXPECT_TRUE(text_becomes(L"Har-bour"));
}

TEST_F(line_edit_on_screen, click_with_shift_selects) {
    start_with(L"Harbour");
    click(handle(), point_of(5));
    click_with({VK_SHIFT}, 1);
    type_text(L"x");
    EXPECT_TRUE(text_becomes(L"Hxur"));
}

TEST_F(line_edit_on_screen, click_with_shift_and_control_is_a_plain_click) {
    start_with(L"Harbour");
    click(handle(), point_of(5));
    click_with({VK_SHIFT, VK_CONTROL}, 1);
    type_text(L"x");
    EXPECT_TRUE(text_becomes(L"Hxarbour"));
}

TEST_F(line_edit_on_screen, second_press_of_a_double_click_selects_nothing) {
    start_with(L"Harbour");
    test_support::double_click(handle(), point_of(3));
    type_text(L"x");
    EXPECT_TRUE(text_becomes(L"Harxbour"));
}

TEST_F(line_edit_on_screen, caret_blinks_while_it_has_the_focus) {
    start_with(L"Harbour  ");
    EXPECT_TRUE(caret_shows_at(9));
    EXPECT_TRUE(caret_shows_at(9, false));
    EXPECT_TRUE(caret_shows_at(9));
    strike_key(VK_LEFT);
    EXPECT_TRUE(caret_shows_at(8));
}

TEST_F(line_edit_on_screen, caret_stays_away_without_the_focus) {
    start_with(L"Harbour  ");
    EXPECT_TRUE(caret_shows_at(9));
    other->set_focus();
    EXPECT_TRUE(caret_shows_at(9, false));
    for (int i = 0; i < 12; ++i) {
        test_support::pump_for(std::chrono::milliseconds(100));
        const POINT at = point_of(9);
        EXPECT_NE(black, test_support::grab_client_area(handle()).at(static_cast<unsigned>(at.x), 28));
    }
}

TEST_F(line_edit_on_screen, outline_tells_the_focus) {
    start_with({});
    const auto outline = [&] { return test_support::grab_client_area(handle()).at(100, 20); };
    test_support::pump_until_idle(std::chrono::milliseconds(20), std::chrono::milliseconds(300));
    const std::uint32_t focused = outline();
    other->set_focus();
    ASSERT_TRUE(becomes([&] { return outline() != focused; }));
    edit->get_node()->set_focus();
    EXPECT_TRUE(becomes([&] { return outline() == focused; }));
}

TEST_F(line_edit_on_screen, mouse_is_a_beam_over_it) {
    start_with(L"Harbour");
    test_support::move_mouse(handle(), {100, 32});
    EXPECT_TRUE(becomes([] { return GetCursor() == LoadCursorW(nullptr, IDC_IBEAM); }));
    test_support::move_mouse(handle(), {100, 90});
    EXPECT_TRUE(becomes([] { return GetCursor() != LoadCursorW(nullptr, IDC_IBEAM); }));
}

TEST_F(line_edit_on_screen, goes_inside_its_own_function) {
    start_with(L"Harbour");
    edit->set_on_change([this] {
        ++changes;
        edit.reset();
    });
    type_text(L"xyz");
    ASSERT_TRUE(becomes([&] { return changes == 1; }));
    test_support::pump_until_idle(std::chrono::milliseconds(20), std::chrono::milliseconds(200));
    EXPECT_EQ(1, changes);
    EXPECT_FALSE(edit);
}

}  // namespace
}  // namespace d2d
