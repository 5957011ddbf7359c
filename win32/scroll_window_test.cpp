// Positions: bars, keys, the wheel, sizes.

#include "win32/scroll_window.h"

#include "support/heard_drag.h"
#include "support/input.h"
#include "support/leak_checked_test.h"
#include "support/message_pump.h"
#include "win32/testing/scroll_probe.h"

#include <algorithm>
#include <atomic>
#include <stdexcept>
#include <vector>

#include <gmock/gmock.h>

namespace {

using testing::ElementsAre;
using testing::IsEmpty;

class scroll_window : public test_support::leak_checked_test {
protected:
    // The scrolled part is 200 by 100 in a region of 1000 by 2000; a page is 200 and 100.
    void open() {
        window.set_scroll_region({0, 0, 1000, 2000});
        window.open(200, 100);
    }

    void TearDown() override {
        window.destroy_window();
        test_support::leak_checked_test::TearDown();
    }

    [[nodiscard]] long count(UINT message) const {
        return static_cast<long>(std::count(window.messages.begin(), window.messages.end(), message));
    }

    win32_testing::scroll_probe window;
};

TEST_F(scroll_window, starts_at_nothing_and_keeps_its_region_for_its_window) {
    EXPECT_EQ((POINT{0, 0}), window.scroll_offset());
    EXPECT_EQ((RECT{0, 0, 0, 0}), window.scroll_region());
    EXPECT_EQ((RECT{0, 0, 0, 0}), window.scroll_margin());
    EXPECT_EQ((RECT{0, 0, 0, 0}), window.frame);
    EXPECT_EQ(20, window.line_x);
    EXPECT_EQ(20, window.line_y);
    EXPECT_EQ(500, window.page_x);
    EXPECT_EQ(500, window.page_y);
    window.set_scroll_margin({1, 2, 3, 4});
    window.set_scroll_region({5, 6, 1007, 2008});
    window.set_scroll_offset({50, 60});  // there is no bar yet
    EXPECT_EQ((POINT{0, 0}), window.scroll_offset());
    EXPECT_EQ((RECT{1, 2, 3, 4}), window.scroll_margin());
    EXPECT_EQ((RECT{5, 6, 1007, 2008}), window.scroll_region());
    EXPECT_THAT(window.told, IsEmpty());
    window.open(200, 100);
    EXPECT_EQ((POINT{5, 6}), window.scroll_offset());  // the bars' least positions
    EXPECT_THAT(window.told, ElementsAre(POINT{5, 6}));
}

TEST_F(scroll_window, sizing_sets_ranges_and_pages) {
    window.frame = {1, 2, 3, 4};
    window.set_scroll_margin({10, 20, 30, 40});
    window.set_scroll_region({-50, -60, 1000, 2000});
    window.open(200, 100);
    EXPECT_EQ(200 - 1 - 3 - 10 - 30, window.page_x);
    EXPECT_EQ(100 - 2 - 4 - 20 - 40, window.page_y);
    const SCROLLINFO across = window.bar(SB_HORZ);
    EXPECT_EQ(-50, across.nMin);
    EXPECT_EQ(1000, across.nMax);
    EXPECT_EQ(156u, across.nPage);
    const SCROLLINFO down = window.bar(SB_VERT);
    EXPECT_EQ(-60, down.nMin);
    EXPECT_EQ(2000, down.nMax);
    EXPECT_EQ(34u, down.nPage);
}

TEST_F(scroll_window, a_new_region_sets_ranges_and_pages_of_what_changed_its_extent) {
    open();
    window.set_scroll_region({100, 0, 700, 2000});
    EXPECT_EQ((RECT{100, 0, 700, 2000}), window.scroll_region());
    const SCROLLINFO across = window.bar(SB_HORZ);
    EXPECT_EQ(100, across.nMin);
    EXPECT_EQ(699, across.nMax);
    EXPECT_EQ(200u, across.nPage);
    EXPECT_EQ(2000, window.bar(SB_VERT).nMax);  // of the sizing: the extent is the same
    EXPECT_EQ((POINT{100, 0}), window.scroll_offset());
    EXPECT_THAT(window.told, ElementsAre(POINT{100, 0}));

    window.set_scroll_region({300, 10, 900, 1510});
    EXPECT_EQ(100, window.bar(SB_HORZ).nMin);
    EXPECT_EQ(10, window.bar(SB_VERT).nMin);
    EXPECT_EQ(1509, window.bar(SB_VERT).nMax);
    EXPECT_EQ(100u, window.bar(SB_VERT).nPage);
    EXPECT_EQ((RECT{300, 10, 900, 1510}), window.scroll_region());
}

TEST_F(scroll_window, bars_come_and_go_with_the_region_and_the_window_scrolls_what_they_leave) {
    window.open(200, 100, 0);
    EXPECT_EQ((RECT{0, 0, 200, 100}), window.client_rect());
    window.set_scroll_region({0, 0, 150, 2000});
    const int bar = GetSystemMetrics(SM_CXVSCROLL);
    ASSERT_EQ((RECT{0, 0, 200 - bar, 100}), window.client_rect());
    EXPECT_EQ(100u, window.bar(SB_VERT).nPage);
    test_support::pump_until_idle();
    window.validate();
    window.set_scroll_offset({0, 7});
    EXPECT_THAT(window.invalid(), ElementsAre(RECT{0, 93, 200 - bar, 100}));

    window.set_scroll_region({0, 0, 150, 80});
    EXPECT_EQ((RECT{0, 0, 200, 100}), window.client_rect());
    EXPECT_EQ((POINT{0, 0}), window.scroll_offset());
}

TEST_F(scroll_window, settles_where_the_bars_clamp_it) {
    open();
    window.set_scroll_offset({5000, 5000});
    EXPECT_EQ((POINT{801, 1901}), window.scroll_offset());  // 1000 - 200 + 1, 2000 - 100 + 1
    window.set_scroll_offset({-5, 30});
    EXPECT_EQ((POINT{0, 30}), window.scroll_offset());
    window.adjust_scroll_offset({12, -7});
    EXPECT_EQ((POINT{12, 23}), window.scroll_offset());
    EXPECT_EQ(12, window.bar(SB_HORZ).nPos);
    EXPECT_EQ(23, window.bar(SB_VERT).nPos);
    EXPECT_THAT(window.told, ElementsAre(POINT{801, 1901}, POINT{0, 30}, POINT{12, 23}));
    window.set_scroll_offset({12, 23});
    window.adjust_scroll_offset({0, 0});
    EXPECT_EQ(3u, window.told.size());
}

TEST_F(scroll_window, is_clamped_as_the_window_grows) {
    open();
    window.set_scroll_offset({5000, 5000});
    SetWindowPos(window.get_window_handle(), nullptr, 0, 0, 300 + GetSystemMetrics(SM_CXVSCROLL),
                 150 + GetSystemMetrics(SM_CYHSCROLL), SWP_NOMOVE | SWP_NOZORDER);
    EXPECT_EQ((POINT{701, 1851}), window.scroll_offset());
    EXPECT_EQ((POINT{701, 1851}), window.told.back());
    EXPECT_EQ(300, window.page_x);
    EXPECT_EQ(150, window.page_y);
}

TEST_F(scroll_window, keeps_its_place_where_margins_leave_no_room) {
    window.set_scroll_margin({30, 30, 30, 30});
    open();
    window.set_scroll_offset({300, 400});
    SetWindowPos(window.get_window_handle(), nullptr, 0, 0, 50, 50, SWP_NOMOVE | SWP_NOZORDER);
    EXPECT_LT(window.page_x, 0);
    EXPECT_EQ(0u, window.bar(SB_HORZ).nPage);
    EXPECT_EQ((POINT{300, 400}), window.scroll_offset());
}

TEST_F(scroll_window, the_bars_messages_move_by_lines_and_pages_and_to_the_ends) {
    open();
    window.line_x = 15;
    window.line_y = 25;
    const struct {
        WORD code;
        int x, y;  // from 300
    } cases[] = {
        {SB_LINEUP, 285, 275},   {SB_LINEDOWN, 315, 325},      {SB_PAGEUP, 100, 200},
        {SB_PAGEDOWN, 500, 400}, {SB_THUMBPOSITION, 300, 300}, {SB_TOP, 0, 0},
        {SB_BOTTOM, 800, 1900},  {SB_ENDSCROLL, 300, 300},     {9, 300, 300},
    };
    for (const auto& each : cases) {
        for (const WORD place : {WORD{0}, WORD{777}}) {
            window.set_scroll_offset({300, 300});
            EXPECT_EQ(0, window.send(WM_HSCROLL, MAKEWPARAM(each.code, place)));
            EXPECT_EQ((POINT{each.x, 300}), window.scroll_offset()) << "code " << each.code;
            window.set_scroll_offset({300, 300});
            EXPECT_EQ(0, window.send(WM_VSCROLL, MAKEWPARAM(each.code, place)));
            EXPECT_EQ((POINT{300, each.y}), window.scroll_offset()) << "code " << each.code;
        }
    }
}

TEST_F(scroll_window, the_first_end_is_zero_whatever_the_region) {
    window.set_scroll_region({-100, -200, 1000, 2000});
    window.open(200, 100);
    window.set_scroll_offset({-100, -200});
    window.send(WM_VSCROLL, SB_TOP);
    window.send(WM_HSCROLL, SB_LEFT);
    EXPECT_EQ((POINT{0, 0}), window.scroll_offset());
}

TEST_F(scroll_window, the_wheel_moves_three_lines_whatever_the_system_says) {
    open();
    const struct {
        int delta;
        LONG y;  // from 200
    } cases[] = {{120, 140}, {-120, 260}, {10, 200}, {-39, 200}, {-40, 220}, {79, 180}, {-240, 320}};
    for (const auto& each : cases) {
        window.set_scroll_offset({50, 200});
        EXPECT_EQ(0, window.send(WM_MOUSEWHEEL, MAKEWPARAM(0, static_cast<WORD>(each.delta))));
        EXPECT_EQ((POINT{50, each.y}), window.scroll_offset()) << "delta " << each.delta;
    }
    window.line_y = 7;
    window.send(WM_MOUSEWHEEL, MAKEWPARAM(MK_CONTROL, static_cast<WORD>(-120)));
    EXPECT_EQ((POINT{50, 320 + 21}), window.scroll_offset());
}

TEST_F(scroll_window, a_real_wheel_turns_it) {
    open();
    test_support::bring_to_front(window.get_window_handle());
    test_support::move_mouse(window.get_window_handle(), {50, 50});
    test_support::turn_wheel(-1);
    EXPECT_EQ((POINT{0, 60}), window.scroll_offset());
    test_support::turn_wheel(-2);
    EXPECT_EQ((POINT{0, 180}), window.scroll_offset());
    test_support::turn_wheel(1);
    EXPECT_EQ((POINT{0, 120}), window.scroll_offset());
    test_support::turn_horizontal_wheel(1);
    EXPECT_EQ((POINT{0, 120}), window.scroll_offset());
    EXPECT_THAT(window.told, ElementsAre(POINT{0, 60}, POINT{0, 180}, POINT{0, 120}));
}

TEST_F(scroll_window, real_keys_scroll_vertically_all_of_them) {
    open();
    test_support::bring_to_front(window.get_window_handle());
    const struct {
        WORD key;
        LONG y;  // from 300
    } cases[] = {{VK_PRIOR, 200}, {VK_NEXT, 400}, {VK_END, 1900},  {VK_HOME, 0},
                 {VK_LEFT, 280},  {VK_UP, 280},   {VK_RIGHT, 320}, {VK_DOWN, 320},
                 {VK_SPACE, 300}, {VK_TAB, 300},  {'A', 300}};
    for (const auto& each : cases) {
        window.set_scroll_offset({70, 300});
        test_support::strike_key(each.key);
        EXPECT_EQ((POINT{70, each.y}), window.scroll_offset()) << "key " << each.key;
    }
}

TEST_F(scroll_window, a_key_becomes_a_scroll_message_of_its_own) {
    open();
    std::vector<WPARAM> codes;
    window.ahead = [&](const MSG& message) {
        if (message.message != WM_VSCROLL) return;
        EXPECT_EQ(window.get_window_handle(), message.hwnd);
        EXPECT_EQ(0, message.lParam);
        codes.push_back(message.wParam);
    };
    for (WPARAM key = 0; key < 256; ++key) EXPECT_EQ(0, window.send(WM_KEYDOWN, key)) << key;
    EXPECT_THAT(codes, ElementsAre(SB_PAGEUP, SB_PAGEDOWN, SB_BOTTOM, SB_TOP, SB_LINEUP, SB_LINEUP,
                                   SB_LINEDOWN, SB_LINEDOWN));
}

TEST_F(scroll_window, handles_its_messages_and_leaves_the_others) {
    open();
    const auto answer = [&](UINT id, WPARAM wparam = 0, LPARAM lparam = 0) {
        MSG message{};
        message.hwnd = window.get_window_handle();
        message.message = id;
        message.wParam = wparam;
        message.lParam = lparam;
        return window.win32::scroll_window::on_window_message(message);
    };
    WINDOWPOS unmoved{};
    unmoved.flags = SWP_NOSIZE | SWP_NOMOVE;
    EXPECT_EQ(0, answer(WM_WINDOWPOSCHANGED, 0, reinterpret_cast<LPARAM>(&unmoved)));
    EXPECT_EQ(0, answer(WM_KEYDOWN, VK_F5));
    EXPECT_EQ(0, answer(WM_HSCROLL, SB_ENDSCROLL));
    EXPECT_EQ(0, answer(WM_VSCROLL, SB_ENDSCROLL));
    EXPECT_EQ(0, answer(WM_MOUSEWHEEL));
    for (const UINT other : {UINT{WM_CREATE}, UINT{WM_PAINT}, UINT{WM_SIZE}, UINT{WM_KEYUP}, UINT{WM_CHAR},
                             UINT{WM_SYSKEYDOWN}, UINT{WM_MOUSEHWHEEL}, UINT{WM_MOUSEMOVE}, UINT{WM_DESTROY}})
        EXPECT_FALSE(answer(other)) << other;
}

TEST_F(scroll_window, sizing_ends_here_and_a_move_alone_is_nothing) {
    open();
    window.messages.clear();
    window.page_y = 1;
    SetWindowPos(window.get_window_handle(), nullptr, 60, 50, 0, 0, SWP_NOSIZE | SWP_NOZORDER);
    EXPECT_EQ(1, count(WM_WINDOWPOSCHANGED));
    EXPECT_EQ(1, window.page_y);
    SetWindowPos(window.get_window_handle(), nullptr, 0, 0, 400, 300, SWP_NOMOVE | SWP_NOZORDER);
    EXPECT_EQ(window.client_rect().bottom, window.page_y);
    EXPECT_EQ(0, count(WM_SIZE));
    EXPECT_EQ(0, count(WM_MOVE));
}

TEST_F(scroll_window, showing_counts_as_sizing) {
    open();
    window.show_window(SW_HIDE);
    window.page_x = window.page_y = 1;
    window.show_window(SW_SHOW);
    EXPECT_EQ(200, window.page_x);
    EXPECT_EQ(100, window.page_y);
}

TEST_F(scroll_window, new_margins_set_pages_by_their_differences_and_invalidate_all) {
    open();
    window.set_scroll_margin({10, 20, 50, 45});  // 40 and 25
    EXPECT_EQ(40u, window.bar(SB_HORZ).nPage);
    EXPECT_EQ(25u, window.bar(SB_VERT).nPage);
    EXPECT_EQ(1000, window.bar(SB_HORZ).nMax);
    EXPECT_EQ((RECT{10, 20, 50, 45}), window.scroll_margin());
    EXPECT_THAT(window.invalid(), ElementsAre(window.client_rect()));

    window.set_scroll_margin({5, 6, 1000, 2000});  // large: the room counts
    EXPECT_EQ(0u, window.bar(SB_HORZ).nPage);
    window.frame = {1, 2, 3, 4};
    window.set_scroll_margin({0, 0, 90, 60});
    EXPECT_EQ(90u, window.bar(SB_HORZ).nPage);
    EXPECT_EQ(100u - 60 - 6, window.bar(SB_VERT).nPage);
}

TEST_F(scroll_window, a_thumb_at_rest_is_tracked_to_where_it_is) {
    open();
    window.set_scroll_offset({40, 60});
    window.told.clear();
    window.validate();
    EXPECT_EQ(0, window.send(WM_VSCROLL, MAKEWPARAM(SB_THUMBTRACK, 500)));  // the bar counts, not the message
    EXPECT_EQ((POINT{40, 60}), window.scroll_offset());
    EXPECT_THAT(window.told, ElementsAre(POINT{40, 60}));
    EXPECT_THAT(window.invalid(), IsEmpty());
}

// What a drag of a thumb does at each of its steps.
class scroll_window_thumb : public scroll_window {
protected:
    // Drags the thumb along by 40 pixels of the bar.
    void drag_thumb(int bar) {
        SCROLLBARINFO place{};
        place.cbSize = sizeof place;
        GetScrollBarInfo(window.get_window_handle(), bar == SB_HORZ ? OBJID_HSCROLL : OBJID_VSCROLL, &place);
        const LONG along = (place.xyThumbTop + place.xyThumbBottom) / 2;
        POINT from = bar == SB_HORZ ? POINT{place.rcScrollBar.left + along, place.rcScrollBar.top + 5}
                                    : POINT{place.rcScrollBar.left + 5, place.rcScrollBar.top + along};
        ScreenToClient(window.get_window_handle(), &from);
        std::vector<POINT> points;
        for (LONG moved = 0; moved <= 40; moved += 10)
            points.push_back(bar == SB_HORZ ? POINT{from.x + moved, from.y} : POINT{from.x, from.y + moved});
        test_support::bring_to_front(window.get_window_handle());
        test_support::drag_as_heard(window.get_window_handle(), points, steps);
    }

    void expect_steps(UINT message, int bar, LONG POINT::*position) {
        POINT before{};
        SCROLLINFO tracked{};
        window.ahead = [&](const MSG& received) {
            if (received.message != message) return;
            window.validate();
            before = window.scroll_offset();
            tracked = window.bar(bar);
            window.told.clear();
        };
        window.behind = [&](const MSG& received) {
            if (received.message != message) return;
            POINT expected = before;
            if (LOWORD(received.wParam) == SB_THUMBTRACK) {
                expected.*position = tracked.nTrackPos;
                EXPECT_THAT(window.told, ElementsAre(expected));
                const LONG distance = tracked.nTrackPos - tracked.nPos;
                if (distance > 0) {
                    ++steps;
                    RECT vacated = window.client_rect();
                    (bar == SB_HORZ ? vacated.left : vacated.top) =
                        std::max((bar == SB_HORZ ? vacated.right : vacated.bottom) - distance, 0L);
                    EXPECT_THAT(window.invalid(), ElementsAre(vacated));
                }
            } else {
                EXPECT_THAT(window.told, IsEmpty());
                placed = placed || LOWORD(received.wParam) == SB_THUMBPOSITION;
            }
            EXPECT_EQ(expected, window.scroll_offset());
            EXPECT_EQ(expected.*position, window.bar(bar).nPos);
        };
        drag_thumb(bar);
        EXPECT_GE(steps, 3);
        EXPECT_TRUE(placed);
        EXPECT_GT(window.scroll_offset().*position, 100);
    }

    std::atomic<int> steps = 0;
    bool placed = false;
};

TEST_F(scroll_window_thumb, dragged_down_takes_the_window_along) {
    window.set_scroll_region({0, 0, 1000, 2000});
    window.open(300, 200);
    expect_steps(WM_VSCROLL, SB_VERT, &POINT::y);
    EXPECT_EQ(0, window.scroll_offset().x);
}

TEST_F(scroll_window_thumb, dragged_to_the_right_takes_the_window_along) {
    window.set_scroll_region({0, 0, 2000, 1000});
    window.open(300, 200);
    expect_steps(WM_HSCROLL, SB_HORZ, &POINT::x);
    EXPECT_EQ(0, window.scroll_offset().y);
}

TEST_F(scroll_window, may_scroll_while_it_is_told_of_scrolling) {
    open();
    window.changed = [&](POINT offset) {
        if (offset.y < 100) window.set_scroll_offset({offset.x, 100});
    };
    window.set_scroll_offset({0, 30});
    EXPECT_EQ((POINT{0, 100}), window.scroll_offset());
    EXPECT_THAT(window.told, ElementsAre(POINT{0, 30}, POINT{0, 100}));
    EXPECT_THAT(window.invalid(), ElementsAre(RECT{0, 0, 200, 100}));
}

TEST_F(scroll_window, what_it_throws_when_told_reaches_whoever_scrolled) {
    open();
    window.changed = [](POINT) { throw std::domain_error("not there"); };
    EXPECT_THROW(window.set_scroll_offset({0, 30}), std::domain_error);
    EXPECT_THROW(window.send(WM_VSCROLL, SB_LINEDOWN), std::domain_error);
    EXPECT_EQ((POINT{0, 50}), window.scroll_offset());
}

TEST_F(scroll_window, a_mouse_message_becomes_logical) {
    open();
    window.set_scroll_offset({300, 700});
    EXPECT_EQ(MAKELONG(310, 720), window.adjust_mouse_lparam(MAKELONG(10, 20)));
    EXPECT_EQ(MAKELONG(295, 690), window.adjust_mouse_lparam(MAKELONG(-5, -10)));
}

}  // namespace
