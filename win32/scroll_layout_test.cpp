#include "win32/scroll_layout.h"

#include "win32/testing/scroll_probe.h"

#include <gtest/gtest.h>

namespace {

using area = win32::scroll_window::scroll_area;
using win32::scroll_layout;

// Twelve lengths, no two alike.
constexpr scroll_layout uneven{{3, 7, 1003, 807}, {11, 13, 17, 19}, {101, 53, 71, 37}};

TEST(scroll_layout, each_part_has_its_rectangle) {
    const struct {
        int part;
        RECT expected;
    } cases[] = {
        {0, {3 + 11 + 101, 7 + 13 + 53, 1003 - 17 - 71, 807 - 19 - 37}},
        {1, {3 + 11, 7 + 13, 3 + 11 + 101, 807 - 19}},
        {2, {3 + 11, 7 + 13, 1003 - 17, 7 + 13 + 53}},
        {4, {1003 - 17 - 71, 7 + 13, 1003 - 17, 807 - 19}},
        {8, {3 + 11, 807 - 19 - 37, 1003 - 17, 807 - 19}},
    };
    for (const auto& each : cases)
        EXPECT_EQ(each.expected, uneven.area_rect(static_cast<area>(each.part))) << "part " << each.part;
}

TEST(scroll_layout, what_is_no_part_is_the_client_area) {
    for (const int part : {3, 5, 6, 7, 9, 10, 12, 15, 16, 17, 18, 20, 24, 31, 32, -1})
        EXPECT_EQ(uneven.client, uneven.area_rect(static_cast<area>(part))) << "part " << part;
}

TEST(scroll_layout, a_part_and_unscrolled_are_one_value) {
    EXPECT_EQ(17, static_cast<int>(area::left_margin | area::unscrolled));
    EXPECT_EQ(16, static_cast<int>(area::scrolled | area::unscrolled));
    EXPECT_EQ(24, static_cast<int>(area::bottom_margin | area::unscrolled));
}

TEST(scroll_layout, the_strip_of_a_margin_without_width_is_empty) {
    const scroll_layout bare{{0, 0, 200, 100}, {}, {}};
    EXPECT_EQ((RECT{0, 0, 0, 100}), bare.area_rect(area::left_margin));
    EXPECT_EQ((RECT{0, 0, 200, 0}), bare.area_rect(area::top_margin));
    EXPECT_EQ((RECT{200, 0, 200, 100}), bare.area_rect(area::right_margin));
    EXPECT_EQ((RECT{0, 100, 200, 100}), bare.area_rect(area::bottom_margin));
    EXPECT_EQ((RECT{0, 0, 200, 100}), bare.area_rect(area::scrolled));
}

TEST(scroll_layout, a_page_is_what_frame_and_margins_leave) {
    EXPECT_EQ(1000 - 11 - 17 - 101 - 71, uneven.page(win32::horizontal_axis));
    EXPECT_EQ(800 - 13 - 19 - 53 - 37, uneven.page(win32::vertical_axis));
    const scroll_layout tight{{0, 0, 100, 30}, {5, 5, 5, 5}, {60, 20, 40, 0}};
    EXPECT_EQ(-10, tight.page(win32::horizontal_axis));
    EXPECT_EQ(0, tight.page(win32::vertical_axis));
}

TEST(scroll_layout, the_right_strip_follows_its_edge_between_the_other_strips) {
    EXPECT_EQ((RECT{1003 - 17 - 71, 7 + 53 + 13, 1203 - 17, 807 - 19 - 37}),
              uneven.strip_at_moved_edge(win32::horizontal_axis, {3, 7, 1203, 907}));
    EXPECT_EQ((RECT{903 - 17 - 71, 7 + 53 + 13, 903 - 17, 807 - 19 - 37}),
              uneven.strip_at_moved_edge(win32::horizontal_axis, {3, 7, 903, 707}));
}

TEST(scroll_layout, the_bottom_strip_follows_its_edge_with_what_is_to_its_right) {
    EXPECT_EQ((RECT{3 + 101 + 11, 807 - 19 - 37, 1003 + 71 + 17, 907 - 19}),
              uneven.strip_at_moved_edge(win32::vertical_axis, {3, 7, 1203, 907}));
    EXPECT_EQ((RECT{3 + 101 + 11, 707 - 19 - 37, 1003 + 71 + 17, 707 - 19}),
              uneven.strip_at_moved_edge(win32::vertical_axis, {3, 7, 903, 707}));
}

TEST(scroll_layout, each_part_scrolls_along_its_axes) {
    const struct { int part, x, y; } expected[] = {{0, 1, 1}, {1, 0, 1}, {2, 1, 0}, {4, 0, 1}, {8, 1, 0}};
    ASSERT_EQ(std::size(expected), win32::scroll_motions.size());
    for (std::size_t i = 0; i < std::size(expected); ++i) {
        EXPECT_EQ(expected[i].part, static_cast<int>(win32::scroll_motions[i].area));
        EXPECT_EQ(expected[i].x, win32::scroll_motions[i].x) << "part " << expected[i].part;
        EXPECT_EQ(expected[i].y, win32::scroll_motions[i].y) << "part " << expected[i].part;
    }
}

TEST(scroll_layout, painting_starts_at_the_part_and_follows_the_offset_along_its_axes) {
    const RECT rect{30, 40, 500, 600};
    const POINT offset{1000, 2000};
    const struct {
        int part;
        POINT expected;
    } cases[] = {
        {0, {1000 - 30, 2000 - 40}},
        {1, {-30, 2000 - 40}},
        {2, {1000 - 30, -40}},
        {4, {-30, 2000 - 40}},
        {8, {1000 - 30, -40}},
        {16, {-30, -40}},
        {17, {-30, -40}},
        {18, {-30, -40}},
        {20, {-30, -40}},
        {16 + 8, {-30, -40}},
    };
    for (const auto& each : cases) {
        const auto origin = win32::paint_origin(static_cast<area>(each.part), rect, offset);
        ASSERT_TRUE(origin) << "part " << each.part;
        EXPECT_EQ(each.expected, *origin) << "part " << each.part;
    }
    EXPECT_FALSE(win32::paint_origin(static_cast<area>(3), rect, offset));
}

TEST(scroll_layout, the_wheel_scrolls_three_lines_for_a_notch) {
    const struct {
        int delta, line, expected;
    } cases[] = {{120, 20, -60}, {-120, 20, 60}, {240, 20, -120}, {10, 20, 0},      {-39, 20, 0},
                 {40, 20, -20},  {-79, 20, 20},  {-120, 7, 21},   {-32768, 1, 819}, {120, 0, 0}};
    for (const auto& each : cases)
        EXPECT_EQ(each.expected, win32::wheel_distance(each.delta, each.line)) << each.delta;
}

TEST(scroll_layout, keys_stand_for_scroll_codes) {
    const struct {
        WPARAM key;
        WORD code;
    } cases[] = {{33, 2}, {34, 3}, {35, 7}, {36, 6}, {37, 0}, {38, 0}, {39, 1}, {40, 1}};
    for (const auto& each : cases) EXPECT_EQ(each.code, win32::scroll_code_of_key(each.key)) << each.key;
    int others = 0;
    for (WPARAM key = 0; key < 256; ++key)
        if (!win32::scroll_code_of_key(key)) ++others;
    EXPECT_EQ(256 - 8, others);
}

TEST(scroll_layout, a_mouse_point_is_moved_in_sixteen_bits) {
    const struct {
        long lparam;
        POINT offset;
        long expected;
    } cases[] = {
        {MAKELONG(5, 7), {0, 0}, MAKELONG(5, 7)},
        {MAKELONG(5, 7), {100, 300}, MAKELONG(105, 307)},
        {MAKELONG(0xFFFF, 0xFFFE), {1, 1}, MAKELONG(0, 0xFFFF)},  // (-1, -2)
        {MAKELONG(0, 0), {-1, -2}, MAKELONG(0xFFFF, 0xFFFE)},
        {MAKELONG(1, 2), {0x10000, 0x20003}, MAKELONG(1, 5)},
        {MAKELONG(0x7FFF, 0), {1, 0x9000}, static_cast<long>(0x90008000u)},
    };
    for (const auto& each : cases)
        EXPECT_EQ(each.expected, win32::moved_mouse_lparam(each.lparam, each.offset)) << each.lparam;
}

}  // namespace
