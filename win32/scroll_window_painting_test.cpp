// Pixels: what moves, what becomes invalid, and what a painter's device context is set to.

#include "support/golden.h"
#include "support/input.h"
#include "support/leak_checked_test.h"
#include "support/message_pump.h"
#include "support/picture.h"
#include "support/random_seed.h"
#include "support/shown.h"
#include "support/wine.h"
#include "win32/testing/scroll_probe.h"

#include <algorithm>
#include <random>

#include <gmock/gmock.h>

namespace {

using area = win32::scroll_window::scroll_area;
using test_support::picture;
using testing::ElementsAre;
using testing::IsEmpty;

// Where pixels move that are invalid already, Wine adds their new place and keeps the old one.
bool wine_keeps_invalid_what_moved_away() {
    return test_support::running_under_wine();
}

class scroll_window_painting : public test_support::leak_checked_test {
protected:
    void open(int width, int height) {
        window.set_scroll_region({0, 0, 1000, 2000});
        window.open(width, height);
    }

    void TearDown() override {
        window.destroy_window();
        test_support::leak_checked_test::TearDown();
    }

    void resize(int width, int height) {
        SetWindowPos(window.get_window_handle(), nullptr, 0, 0, width + GetSystemMetrics(SM_CXVSCROLL),
                     height + GetSystemMetrics(SM_CYHSCROLL), SWP_NOMOVE | SWP_NOZORDER);
    }

    std::vector<RECT> invalid_after_scroll(POINT offset) {
        window.validate();
        window.set_scroll_offset(offset);
        return window.invalid();
    }

    win32_testing::scroll_probe window;
};

TEST_F(scroll_window_painting, only_what_comes_into_view_is_invalid) {
    open(200, 100);
    EXPECT_THAT(invalid_after_scroll({0, 30}), ElementsAre(RECT{0, 70, 200, 100}));
    EXPECT_THAT(invalid_after_scroll({0, 20}), ElementsAre(RECT{0, 0, 200, 10}));
    EXPECT_THAT(invalid_after_scroll({25, 20}), ElementsAre(RECT{175, 0, 200, 100}));
    EXPECT_THAT(invalid_after_scroll({20, 20}), ElementsAre(RECT{0, 0, 5, 100}));
    EXPECT_THAT(invalid_after_scroll({30, 40}), ElementsAre(RECT{190, 0, 200, 80}, RECT{0, 80, 200, 100}));
    EXPECT_THAT(invalid_after_scroll({330, 240}), ElementsAre(RECT{0, 0, 200, 100}));
    EXPECT_THAT(invalid_after_scroll({330, 240}), IsEmpty());
}

TEST_F(scroll_window_painting, each_strip_follows_its_axis_alone) {
    window.frame = {1, 2, 3, 4};
    window.set_scroll_margin({10, 0, 20, 0});
    open(200, 100);
    // Frame: 1 to 197 by 2 to 96; the strips are 1 to 11 and 177 to 197.
    EXPECT_THAT(invalid_after_scroll({0, 5}), ElementsAre(RECT{1, 91, 197, 96}));
    EXPECT_THAT(invalid_after_scroll({7, 5}), ElementsAre(RECT{170, 2, 177, 96}));
    EXPECT_THAT(invalid_after_scroll({6, 3}), ElementsAre(RECT{1, 2, 197, 4}, RECT{11, 4, 12, 96}));
    window.set_scroll_margin({0, 10, 0, 20});
    window.set_scroll_offset({0, 0});
    resize(201, 100);
    // Frame: 1 to 198 by 2 to 96; the strips are 2 to 12 and 76 to 96.
    EXPECT_THAT(invalid_after_scroll({5, 0}), ElementsAre(RECT{193, 2, 198, 96}));
    EXPECT_THAT(invalid_after_scroll({5, 7}), ElementsAre(RECT{1, 69, 198, 76}));
}

// The bars take room from the client area, and the strips at its far edges are elsewhere then.
TEST_F(scroll_window_painting, the_strips_lie_inside_bars_that_have_come) {
    const int bar = GetSystemMetrics(SM_CXVSCROLL);
    const RECT vacated{0, 100 - bar - 20 - 7, 200 - bar, 100 - bar - 20};
    window.set_scroll_margin({0, 0, 0, 20});
    for (const bool bars_come_with_showing : {true, false}) {
        window.set_scroll_region({0, 0, 0, 0});
        if (bars_come_with_showing) window.set_scroll_region({0, 0, 1000, 2000});
        window.open(200, 100, 0);
        if (!bars_come_with_showing) window.set_scroll_region({0, 0, 1000, 2000});
        ASSERT_EQ((RECT{0, 0, 200 - bar, 100 - bar}), window.client_rect());
        EXPECT_THAT(invalid_after_scroll({0, 7}), ElementsAre(vacated)) << bars_come_with_showing;
        window.destroy_window();
    }
}

// Two strips meet in a corner: the later one moves what the earlier one left to paint there.
TEST_F(scroll_window_painting, the_strips_move_one_after_the_other) {
    window.set_scroll_margin({20, 10, 0, 0});
    open(200, 100);
    EXPECT_THAT(invalid_after_scroll({0, 5}), ElementsAre(RECT{0, 95, 200, 100}));
    EXPECT_THAT(invalid_after_scroll({5, 5}), ElementsAre(RECT{195, 0, 200, 100}));
    // Down by 5: the left strip's first rows, 0 to 5, go on to the right by 5 with the top strip.
    EXPECT_THAT(invalid_after_scroll({0, 0}), ElementsAre(RECT{0, 0, 25, 5}, RECT{0, 5, 5, 10},
                                                          RECT{20, 10, 200, 15}, RECT{20, 15, 25, 100}));
}

TEST_F(scroll_window_painting, what_becomes_invalid_is_erased) {
    open(200, 100);
    window.validate();
    window.messages.clear();
    window.set_scroll_offset({0, 5});
    UpdateWindow(window.get_window_handle());
    EXPECT_EQ(1, std::count(window.messages.begin(), window.messages.end(), UINT{WM_ERASEBKGND}));
}

// The client area as a grid of pixels, invalid or not, against what the system keeps.
class slow_update_region {
public:
    slow_update_region(int width, int height)
        : width_(width), height_(height), invalid_(static_cast<std::size_t>(width * height)) {}

    void scroll(const RECT& rect, int dx, int dy) {
        if ((dx == 0 && dy == 0) || rect.right <= rect.left || rect.bottom <= rect.top) return;
        const auto before = invalid_;
        const bool stays = wine_keeps_invalid_what_moved_away();
        const auto within = [&](LONG x, LONG y) {
            return x >= rect.left && x < rect.right && y >= rect.top && y < rect.bottom;
        };
        for (LONG y = 0; y < height_; ++y)
            for (LONG x = 0; x < width_; ++x)
                if (within(x, y))
                    invalid_[index(x, y)] = !within(x - dx, y - dy) || before[index(x - dx, y - dy)] ||
                                            (stays && before[index(x, y)]);
    }

    void fill(const std::vector<RECT>& rects) {
        for (const RECT& rect : rects)
            for (LONG y = rect.top; y < rect.bottom; ++y)
                for (LONG x = rect.left; x < rect.right; ++x) invalid_.at(index(x, y)) = true;
    }

    [[nodiscard]] long differences(const slow_update_region& other) const {
        long count = 0;
        for (std::size_t i = 0; i < invalid_.size(); ++i) count += invalid_[i] != other.invalid_[i];
        return count;
    }

private:
    [[nodiscard]] std::size_t index(LONG x, LONG y) const { return static_cast<std::size_t>(y * width_ + x); }

    LONG width_;
    LONG height_;
    std::vector<bool> invalid_;
};

TEST_F(scroll_window_painting, random_scrolls_invalidate_what_a_grid_of_pixels_says) {
    open(90, 70);
    const unsigned seed = test_support::random_seed();
    SCOPED_TRACE(testing::Message() << "seed " << seed);
    std::mt19937 random(seed);
    const auto below = [&](int limit) { return std::uniform_int_distribution(0, limit - 1)(random); };
    for (int round = 0; round < 50; ++round) {
        const RECT f = window.frame = {below(4), below(4), below(4), below(4)};
        const RECT m{below(2) * below(15), below(2) * below(15), below(2) * below(15), below(2) * below(15)};
        window.set_scroll_margin(m);
        window.set_scroll_offset({200 + below(40), 300 + below(40)});
        window.validate();
        slow_update_region expected(90, 70);
        for (int scroll = below(3); scroll >= 0; --scroll) {
            const int dx = below(2) * (below(41) - 20);
            const int dy = below(2) * (below(41) - 20);
            window.adjust_scroll_offset({-dx, -dy});
            expected.scroll(
                {f.left + m.left, f.top + m.top, 90 - f.right - m.right, 70 - f.bottom - m.bottom}, dx, dy);
            expected.scroll({f.left, f.top, f.left + m.left, 70 - f.bottom}, 0, dy);
            expected.scroll({f.left, f.top, 90 - f.right, f.top + m.top}, dx, 0);
            expected.scroll({90 - f.right - m.right, f.top, 90 - f.right, 70 - f.bottom}, 0, dy);
            expected.scroll({f.left, 70 - f.bottom - m.bottom, 90 - f.right, 70 - f.bottom}, dx, 0);
        }
        slow_update_region actual(90, 70);
        actual.fill(window.invalid());
        ASSERT_EQ(0, expected.differences(actual)) << "round " << round << ", margins " << m;
    }
}

TEST_F(scroll_window_painting, a_strip_at_a_moved_edge_goes_with_it) {
    window.set_scroll_margin({0, 0, 30, 0});
    open(200, 100);
    const bool stays = wine_keeps_invalid_what_moved_away();
    resize(240, 100);
    EXPECT_THAT(window.invalid(), ElementsAre(RECT{170, 0, stays ? 240 : 210, 100}));
    window.set_scroll_margin({0, 0, 0, 25});
    window.validate();
    resize(240, 130);
    EXPECT_THAT(window.invalid(), ElementsAre(RECT{0, 75, 240, stays ? 130 : 105}));
}

TEST_F(scroll_window_painting, what_is_left_of_a_strip_goes_with_an_edge_that_came_nearer) {
    window.set_scroll_margin({0, 0, 30, 0});
    open(200, 100);
    resize(160, 100);
    EXPECT_THAT(window.invalid(), ElementsAre(RECT{130, 0, 160, 100}));  // nothing was left
    window.set_scroll_margin({0, 0, 0, 25});
    window.validate();
    resize(160, 90);
    EXPECT_THAT(window.invalid(), ElementsAre(RECT{0, 80, 160, 90}));
}

TEST_F(scroll_window_painting, without_a_strip_at_the_edge_nothing_moves) {
    window.set_scroll_margin({30, 25, 0, 0});
    open(200, 100);
    resize(240, 130);
    EXPECT_THAT(window.invalid(), ElementsAre(RECT{200, 0, 240, 100}, RECT{0, 100, 240, 130}));
}

// What a device context is set to.
struct dc_settings {
    POINT window_origin{};
    POINT brush_origin{};
    RECT clip{};  // in pixels of the client area

    explicit dc_settings(HDC dc) {
        GetWindowOrgEx(dc, &window_origin);
        GetBrushOrgEx(dc, &brush_origin);
        GetClipBox(dc, &clip);
        LPtoDP(dc, reinterpret_cast<POINT*>(&clip), 2);
    }
};

TEST_F(scroll_window_painting, each_part_is_painted_in_coordinates_of_its_own) {
    window.frame = {1, 2, 3, 4};
    window.set_scroll_margin({30, 20, 40, 10});
    open(200, 100);
    window.set_scroll_offset({300, 700});
    InvalidateRect(window.get_window_handle(), nullptr, FALSE);
    const struct {
        int part;
        RECT clip;
        POINT origin, brush;
    } cases[] = {
        {0, {31, 22, 157, 86}, {300 - 31, 700 - 22}, {0, 0}},
        {1, {1, 2, 31, 96}, {-1, 700 - 2}, {1, 700 - 2}},
        {2, {1, 2, 197, 22}, {300 - 1, -2}, {0, 0}},
        {4, {157, 2, 197, 96}, {-157, 700 - 2}, {157, 700 - 2}},
        {8, {1, 86, 197, 96}, {300 - 1, -86}, {0, 0}},
        {16, {0, 0, 200, 100}, {0, 0}, {0, 0}},
        {17, {0, 0, 200, 100}, {0, 0}, {0, 0}},
        {18, {0, 0, 200, 100}, {0, 0}, {0, 0}},
        {20, {0, 0, 200, 100}, {0, 0}, {0, 0}},
        {24, {0, 0, 200, 100}, {0, 0}, {0, 0}},
        {3, {0, 0, 200, 100}, {0, 0}, {0, 0}},
    };
    win32::window::paint_context context(&window);
    for (const auto& each : cases) {
        SCOPED_TRACE(each.part);
        {
            const auto state = window.prepare_paint_context(static_cast<area>(each.part), context);
            const auto copy = state;
            const dc_settings set(context);
            EXPECT_EQ(each.clip, set.clip);
            EXPECT_EQ(each.origin, set.window_origin);
            EXPECT_EQ(each.brush, set.brush_origin);
        }
        const dc_settings restored(context);
        EXPECT_EQ((RECT{0, 0, 200, 100}), restored.clip);
        EXPECT_EQ((POINT{0, 0}), restored.window_origin);
        EXPECT_EQ((POINT{0, 0}), restored.brush_origin);
    }
}

TEST_F(scroll_window_painting, an_area_with_the_unscrolled_bit_is_painted_over_the_client_area) {
    window.set_scroll_margin({30, 20, 0, 0});
    open(200, 100);
    window.set_scroll_offset({300, 700});
    InvalidateRect(window.get_window_handle(), nullptr, FALSE);
    win32::window::paint_context context(&window);
    const auto state = window.prepare_paint_context(area::left_margin | area::unscrolled, context);
    const dc_settings set(context);
    EXPECT_EQ((RECT{0, 0, 200, 100}), set.clip);
    EXPECT_EQ((POINT{0, 0}), set.window_origin);
}

// Every logical pixel of every part has a colour of its own among its neighbours. The whole window, painted
// bit by bit as it becomes invalid, must look as if it were painted whole.
class scroll_window_pixels : public scroll_window_painting {
protected:
    static constexpr int parts[] = {0, 1, 2, 4, 8};

    static std::uint32_t colour(int part, LONG x, LONG y) {
        const auto byte = [](LONG value) { return static_cast<std::uint32_t>(value & 0xFF); };
        return 0xFF000000u | byte(x * 5) << 16 | byte(y * 7) << 8 | byte(x / 50 + y / 36 * 8 + part * 31);
    }

    RECT rect_of(int part) const {
        const RECT c = window.client_rect();
        const RECT f = window.frame;
        const RECT m = window.scroll_margin();
        RECT rect{c.left + f.left, c.top + f.top, c.right - f.right, c.bottom - f.bottom};
        if (part == 0 || part == 4) (part ? rect.left : rect.right) = rect.right - m.right;
        if (part == 0 || part == 8) (part ? rect.top : rect.bottom) = rect.bottom - m.bottom;
        if (part == 0) return {rect.left + m.left, rect.top + m.top, rect.right, rect.bottom};
        if (part == 1) rect.right = rect.left + m.left;
        if (part == 2) rect.bottom = rect.top + m.top;
        return rect;
    }

    POINT logical_start(int part) const {
        const POINT offset = window.scroll_offset();
        return {part == 1 || part == 4 ? 0 : offset.x, part == 2 || part == 8 ? 0 : offset.y};
    }

    void paint_part(HDC dc, int part) const {
        const RECT rect = rect_of(part);
        const LONG width = rect.right - rect.left;
        const LONG height = rect.bottom - rect.top;
        if (width <= 0 || height <= 0) return;
        const POINT start = logical_start(part);
        std::vector<std::uint32_t> pixels;
        for (LONG y = 0; y < height; ++y)
            for (LONG x = 0; x < width; ++x) pixels.push_back(colour(part, start.x + x, start.y + y));
        BITMAPINFO info{};
        info.bmiHeader = {sizeof info.bmiHeader, width, -height, 1, 32, BI_RGB, 0, 0, 0, 0, 0};
        SetDIBitsToDevice(dc, start.x, start.y, static_cast<DWORD>(width), static_cast<DWORD>(height), 0, 0,
                          0, static_cast<UINT>(height), pixels.data(), &info, DIB_RGB_COLORS);
    }

    void paint() {
        win32::window::paint_context context(&window);
        for (const int part : parts) {
            const auto state = window.prepare_paint_context(static_cast<area>(part), context);
            paint_part(context, part);
        }
        const auto state = window.prepare_paint_context(area::unscrolled, context);
        const RECT c = window.client_rect();
        const RECT inner{window.frame.left, window.frame.top, c.right - window.frame.right,
                         c.bottom - window.frame.bottom};
        ExcludeClipRect(context, inner.left, inner.top, inner.right, inner.bottom);
        FillRect(context, &c, static_cast<HBRUSH>(GetStockObject(WHITE_BRUSH)));
    }

    picture painted_whole() const {
        const RECT c = window.client_rect();
        picture whole(static_cast<unsigned>(c.right), static_cast<unsigned>(c.bottom), 0xFFFFFFFF);
        for (const int part : parts) {
            const RECT rect = rect_of(part);
            const POINT start = logical_start(part);
            for (LONG y = rect.top; y < rect.bottom; ++y)
                for (LONG x = rect.left; x < rect.right; ++x)
                    whole.at(static_cast<unsigned>(x), static_cast<unsigned>(y)) =
                        colour(part, start.x + x - rect.left, start.y + y - rect.top);
        }
        return whole;
    }

    // Corners belong to two strips, and where they went is to be painted anew.
    void invalidate_corners(POINT moved) {
        const RECT m = window.scroll_margin();
        const RECT inner = rect_of(0);
        const RECT left = rect_of(1), top = rect_of(2), right = rect_of(4), bottom = rect_of(8);
        const LONG dx = std::abs(moved.x);
        const LONG dy = std::abs(moved.y);
        const auto invalidate = [&](RECT rect) { InvalidateRect(window.get_window_handle(), &rect, FALSE); };
        const bool sides[] = {m.left > 0, m.right > 0};
        for (int side = 0; side < 2; ++side) {
            if (!sides[side]) continue;
            const RECT strip = side ? right : left;
            const LONG first = side ? strip.left - dx : strip.left;
            const LONG last = side ? strip.right : strip.right + dx;
            if (m.top > 0) {
                invalidate({first, top.top, last, top.bottom});
                invalidate({strip.left, top.top, strip.right, inner.top + dy});
            }
            if (m.bottom > 0) {
                invalidate({first, bottom.top, last, bottom.bottom});
                invalidate({strip.left, inner.bottom - dy, strip.right, bottom.bottom});
            }
        }
    }

    void expect_shown(const char* what, int round) {
        UpdateWindow(window.get_window_handle());
        const picture expected = painted_whole();
        const picture shown = test_support::grab_when(window.get_window_handle(),
                                                      [&](const picture& seen) { return seen == expected; });
        ASSERT_EQ(expected.width, shown.width);
        ASSERT_EQ(expected.height, shown.height);
        long differing = 0;
        for (std::size_t i = 0; i < shown.pixels.size(); ++i)
            differing += shown.pixels[i] != expected.pixels[i];
        if (differing) {
            test_support::save_png(shown, test_support::failure_file("scroll_window/pixels", "shown"));
            test_support::save_png(expected, test_support::failure_file("scroll_window/pixels", "expected"));
        }
        ASSERT_EQ(0, differing) << what << ", round " << round << ", margins " << window.scroll_margin();
    }
};

TEST_F(scroll_window_pixels, painted_bit_by_bit_it_looks_as_painted_whole) {
    open(150, 110);
    window.paint = [&] { paint(); };
    test_support::bring_to_front(window.get_window_handle());
    const unsigned seed = test_support::random_seed();
    SCOPED_TRACE(testing::Message() << "seed " << seed);
    std::mt19937 random(seed);
    const auto below = [&](int limit) { return std::uniform_int_distribution(0, limit - 1)(random); };
    POINT last{};
    window.changed = [&](POINT offset) {
        invalidate_corners({offset.x - last.x, offset.y - last.y});
        last = offset;
    };
    for (int round = 0; round < 25; ++round) {
        window.frame = {below(4), below(4), below(4), below(4)};
        window.set_scroll_margin(
            {below(2) * below(25), below(2) * below(25), below(2) * below(25), below(2) * 9});
        expect_shown("new margins", round);
        for (int scroll = 0; scroll < 3; ++scroll) {
            window.adjust_scroll_offset({below(81) - 40, below(81) - 40});
            if (below(2)) window.send(WM_VSCROLL, below(2) ? SB_LINEDOWN : SB_LINEUP);
            expect_shown("scrolled", round);
        }
        if (HasFatalFailure()) return;
    }
}

TEST_F(scroll_window_pixels, sized_at_random_it_looks_as_painted_whole) {
    open(150, 110);
    window.paint = [&] { paint(); };
    test_support::bring_to_front(window.get_window_handle());
    const unsigned seed = test_support::random_seed();
    SCOPED_TRACE(testing::Message() << "seed " << seed);
    std::mt19937 random(seed);
    const auto below = [&](int limit) { return std::uniform_int_distribution(0, limit - 1)(random); };
    // A strip at one edge at a time, and none that it would meet: corners do not move along.
    for (int round = 0; round < 25; ++round) {
        window.set_scroll_margin(below(2) ? RECT{below(20), 0, below(20), 0}
                                          : RECT{0, below(20), 0, below(20)});
        window.set_scroll_offset({100 + below(300), 100 + below(300)});
        expect_shown("new margins", round);
        for (int i = 0; i < 3; ++i) {
            resize(100 + below(80), 80 + below(60));
            expect_shown("sized", round);
        }
        if (HasFatalFailure()) return;
    }
}

}  // namespace
