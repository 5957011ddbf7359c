#include "host/svg_path_parser.h"

#include "host/testing/svg_path_model.h"
#include "host/testing/svg_path_recorder.h"
#include "host/testing/svg_path_texts.h"
#include "scene/testing/allocation_count.h"
#include "support/debug_heap.h"
#include "support/random_seed.h"

#include <array>
#include <cmath>
#include <limits>
#include <random>
#include <stdexcept>

#include <gtest/gtest.h>

namespace {

using namespace std::string_view_literals;
using d2d::svg_path_parser;
using d2d::svg_path_text;
using d2d::svg_point;
using d2d::svg_transform;
using d2d::fakes::compare_with_model;
using d2d::fakes::svg_path_model;
using d2d::fakes::svg_path_recorder;

/// The calls of the sink, and behind them what was thrown.
std::string drawn(std::string_view text, const svg_transform& transform = {}) {
    svg_path_recorder sink;
    std::string failure;
    try {
        svg_path_parser(text, transform, sink).parse();
    } catch (const std::runtime_error& thrown) {
        failure = (sink.calls.empty() ? "" : " ") + std::string(thrown.what());
    }
    return text_of(sink.calls) + failure;
}

struct path_case {
    std::string_view text;
    std::string_view expected;
};

void check(std::initializer_list<path_case> cases) {
    for (const auto& each : cases) EXPECT_EQ(each.expected, drawn(each.text)) << '"' << each.text << '"';
}

TEST(svg_path, without_segments_draws_nothing) {
    check({{"", "close"},
           {"M1 2", "close"},
           {"m1 2", "close"},
           {"M1 2M3 4m5 6", "close"},
           {" M1 2 ", "close"},
           {"Z", "close"},
           {"z", "close"},
           {"zZz", "close"},
           {"M1 2Z", "close"}});
}

TEST(svg_path, needs_a_command) {
    check({{",,", "bad svg"},
           {" ", "bad svg"},
           {"\n\r\t ,", "bad svg"},
           {"5 5", "bad svg"},
           {"-", "bad svg"},
           {"\0"sv, "bad svg"},
           {"\x80", "bad svg"}});
}

TEST(svg_path, knows_no_letters_but_its_own) {
    for (int byte = 0; byte < 256; ++byte) {
        if (std::string_view("MmLlHhVvCcSsQqZz\n\r\t ,").find(static_cast<char>(byte)) !=
            std::string_view::npos) {
            continue;
        }
        const std::string alone(1, static_cast<char>(byte));
        EXPECT_EQ("bad svg", drawn(alone + "1 2 3 4 5 6 7")) << byte;
        EXPECT_EQ("bad svg", drawn(" " + alone + "1 2")) << byte;
        if (std::string_view("+-.0123456789").find(alone[0]) != std::string_view::npos) continue;
        EXPECT_EQ("begin 0,0 line 1,1 bad svg", drawn("M0 0L1 1" + alone + " 1 2 3 4 5 6 7")) << byte;
        EXPECT_EQ("begin 0,0 bad svg", drawn("M0 0L1" + alone + "1")) << byte;
    }
}

TEST(svg_path, lines_follow_moves) {
    check({{"M10 10L20 20", "begin 10,10 line 20,20 open close"},
           {"M10,10 20,20", "begin 10,10 line 20,20 open close"},
           {"M10 10 20 20 30 30", "begin 10,10 line 20,20 line 30,30 open close"},
           {"m1 1 2 2", "begin 1,1 line 3,3 open close"},
           {"m1 1 2 2 3 3", "begin 1,1 line 3,3 line 6,6 open close"},
           {"M1 1m1 1 2 2", "begin 2,2 line 4,4 open close"},
           {"m1 1M5 5 2 2", "begin 5,5 line 2,2 open close"},
           {"L1 2", "begin 0,0 line 1,2 open close"},
           {"l1 2", "begin 0,0 line 1,2 open close"},
           {"M5 6l1 2 3 4", "begin 5,6 line 6,8 line 9,12 open close"},
           {"M5 6L1 2 3 4", "begin 5,6 line 1,2 line 3,4 open close"}});
}

TEST(svg_path, horizontal_and_vertical_lines_keep_the_other_coordinate) {
    check({{"M0 0 H10 20 30", "begin 0,0 line 10,0 line 20,0 line 30,0 open close"},
           {"M1 2h10 20", "begin 1,2 line 11,2 line 31,2 open close"},
           {"M1 2V10 20", "begin 1,2 line 1,10 line 1,20 open close"},
           {"M1 2v10 20", "begin 1,2 line 1,12 line 1,32 open close"},
           {"M1 2h-1v-2", "begin 1,2 line 0,2 line 0,0 open close"},
           {"H5V6", "begin 0,0 line 5,0 line 5,6 open close"}});
}

TEST(svg_path, cubic_curves) {
    check({{"M1 1C1 2 3 4 5 6", "begin 1,1 bezier 1,2 3,4 5,6 open close"},
           {"M1 1c1 2 3 4 5 6", "begin 1,1 bezier 2,3 4,5 6,7 open close"},
           {"M1 1c1 2 3 4 5 6 1 1 1 1 1 1", "begin 1,1 bezier 2,3 4,5 6,7 bezier 7,8 7,8 7,8 open close"},
           {"C1 2 3 4 5 6 7 8 9 10 11 12", "begin 0,0 bezier 1,2 3,4 5,6 bezier 7,8 9,10 11,12 open close"}});
}

TEST(svg_path, a_smooth_curve_mirrors_the_latest_cubic_control_point) {
    check({{"M0 0C1 2 3 4 5 6S7 8 9 10", "begin 0,0 bezier 1,2 3,4 5,6 bezier 7,8 7,8 9,10 open close"},
           {"M0 0C1 2 3 4 5 6s1 1 2 2", "begin 0,0 bezier 1,2 3,4 5,6 bezier 7,8 6,7 7,8 open close"},
           {"M0 0C1 2 3 4 5 6S7 8 9 10 1 2 3 4",
            "begin 0,0 bezier 1,2 3,4 5,6 bezier 7,8 7,8 9,10 bezier 11,12 1,2 3,4 open close"}});
}

TEST(svg_path, the_mirrored_control_point_stays_through_other_commands) {
    check({{"M0 0C1 2 3 4 5 6L10 10S1 1 2 2",
            "begin 0,0 bezier 1,2 3,4 5,6 line 10,10 bezier 17,16 1,1 2,2 open close"},
           {"M0 0C1 2 3 4 5 6H10S1 1 2 2",
            "begin 0,0 bezier 1,2 3,4 5,6 line 10,6 bezier 17,8 1,1 2,2 open close"},
           {"M0 0C1 2 3 4 5 6v4S1 1 2 2",
            "begin 0,0 bezier 1,2 3,4 5,6 line 5,10 bezier 7,16 1,1 2,2 open close"},
           {"M0 0C1 2 3 4 5 6Q20 20 10 10S1 1 2 2",
            "begin 0,0 bezier 1,2 3,4 5,6 bezier 20,20 20,20 10,10 bezier 17,16 1,1 2,2 open close"},
           {"M0 0C1 2 3 4 5 6M8 8L10 10S1 1 2 2",
            "begin 0,0 bezier 1,2 3,4 5,6 open begin 8,8 line 10,10 bezier 17,16 1,1 2,2 open close"},
           {"M0 0C1 2 3 4 5 6ZL10 10S1 1 2 2",
            "begin 0,0 bezier 1,2 3,4 5,6 closed begin 5,6 line 10,10 bezier 17,16 1,1 2,2 open close"}});
}

TEST(svg_path, without_a_cubic_curve_the_origin_is_mirrored) {
    check({{"M0 0L1 1S2 3 4 5", "begin 0,0 line 1,1 bezier 2,2 2,3 4,5 open close"},
           {"M5 6l1 1s2 3 4 5", "begin 5,6 line 6,7 bezier 12,14 8,10 10,12 open close"},
           {"M0 0Q3 4 1 1S2 3 4 5", "begin 0,0 bezier 3,4 3,4 1,1 bezier 2,2 2,3 4,5 open close"}});
}

TEST(svg_path, a_smooth_curve_needs_an_open_figure) {
    check({{"M0 0 S1 2 3 4", "bad svg"},
           {"S1 2 3 4", "bad svg"},
           {"s1 2 3 4", "bad svg"},
           {"M0 0L1 1ZS1 2 3 4", "begin 0,0 line 1,1 closed bad svg"},
           {"M0 0L1 1M2 2s1 2 3 4", "begin 0,0 line 1,1 open bad svg"}});
}

TEST(svg_path, a_quadratic_curve_is_a_cubic_one_with_equal_control_points) {
    check({{"M1 1Q2 3 4 5", "begin 1,1 bezier 2,3 2,3 4,5 open close"},
           {"M1 1q2 3 4 5", "begin 1,1 bezier 3,4 3,4 5,6 open close"},
           {"M1 1q2 3 4 5 1 0 0 1", "begin 1,1 bezier 3,4 3,4 5,6 bezier 6,6 6,6 5,7 open close"}});
}

TEST(svg_path, a_closed_figure_leaves_the_point_where_its_last_segment_ended) {
    check({{"M0 0 L1 1 Z L2 2", "begin 0,0 line 1,1 closed begin 1,1 line 2,2 open close"},
           {"M0 0 L1 1 z l2 2", "begin 0,0 line 1,1 closed begin 1,1 line 3,3 open close"},
           {"M0 0L1 1zm2 2l1 0", "begin 0,0 line 1,1 closed begin 3,3 line 4,3 open close"},
           {"M0 0 L1 1 Z Z", "begin 0,0 line 1,1 closed close"},
           {"M0 0L1 1Z ", "begin 0,0 line 1,1 closed close"},
           {"ZL1 1", "begin 0,0 line 1,1 open close"},
           {"M3 4ZL1 1", "begin 3,4 line 1,1 open close"},
           {"M0 0L1 1ZM5 5", "begin 0,0 line 1,1 closed close"}});
}

TEST(svg_path, an_open_figure_ends_at_a_move_and_at_the_end) {
    check({{"M0 0 L1 1", "begin 0,0 line 1,1 open close"},
           {"M0 0 L1 1 M5 5", "begin 0,0 line 1,1 open close"},
           {"M0 0L1 1M5 5 6 6", "begin 0,0 line 1,1 open begin 5,5 line 6,6 open close"},
           {"M0 0L1 1m5 5 6 6", "begin 0,0 line 1,1 open begin 6,6 line 12,12 open close"}});
}

TEST(svg_path, separators_stand_anywhere_between_letters_and_numbers) {
    check({{",M,,1\t2\r\nL ,3,\n,4,", "begin 1,2 line 3,4 open close"},
           {"\n\r\t ,M1 2 L 3 4 \n", "begin 1,2 line 3,4 open close"},
           {"M1-2+3.4.5", "begin 1,-2 line 3.4000001,0.5 open close"},
           {"M1 2 L3\v4", "begin 1,2 bad svg"},
           {"M1 2 L3\f4", "begin 1,2 bad svg"},
           {"M1 2 L3;4", "begin 1,2 bad svg"},
           {"M1 2 L3 4 -\0"sv, "begin 1,2 line 3,4 bad svg"},
           {"M1 2 L3 4\0"sv, "begin 1,2 line 3,4 bad svg"}});
}

TEST(svg_path, an_incomplete_command_is_bad) {
    check({{"M", "bad svg"},
           {"M1", "bad svg"},
           {"M1 ", "bad svg"},
           {"M1 2 3", "begin 1,2 bad svg"},
           {"M1 2L", "begin 1,2 bad svg"},
           {"M1 2H", "begin 1,2 bad svg"},
           {"M1 2V,", "begin 1,2 bad svg"},
           {"M1 2C1 2 3 4 5", "begin 1,2 bad svg"},
           {"M1 2Q1 2 3", "begin 1,2 bad svg"},
           {"M1 2L1 1S1 2 3", "begin 1,2 line 1,1 bad svg"},
           {"M1 2L1 1M5", "begin 1,2 line 1,1 bad svg"},
           {"M1 2L1 1 2", "begin 1,2 line 1,1 bad svg"},
           {"M0 0 L1e2 3", "begin 0,0 bad svg"},
           {"M0 0L1,L2", "begin 0,0 bad svg"}});
}

TEST(svg_path, a_sign_or_a_point_alone_is_zero) {
    check({{"M1 2 3-", "begin 1,2 line 3,0 open close"},
           {"M1 2 3+", "begin 1,2 line 3,0 open close"},
           {"M1 2 3.", "begin 1,2 bad svg"},
           {"M1 2 3..", "begin 1,2 line 3,0 open close"},
           {"M1 2 3-.", "begin 1,2 line 3,0 open close"},
           {"M..", "close"},
           {"M..--", "begin 0,0 line 0,0 open close"},
           {"M1 2l-+", "begin 1,2 line 1,2 open close"}});
}

TEST(svg_path, a_zero_keeps_its_sign) {
    const svg_transform adding_no_zero{1, -0.0f, -0.0f, 1, -0.0f, -0.0f};
    EXPECT_EQ("begin 1,2 line 3,-0 open close", drawn("M1 2 3-", adding_no_zero));
    EXPECT_EQ("begin 1,2 line 3,-0 open close", drawn("M1 2 3-.", adding_no_zero));
    EXPECT_EQ("begin 1,2 line 3,0 open close", drawn("M1 2 3+", adding_no_zero));
    EXPECT_EQ("begin 1,0 line 3,0 open close", drawn("M1 0l2-", adding_no_zero));
}

TEST(svg_path, is_read_no_further_than_the_view) {
    const std::string text = "M1 2 L34 56 78";
    EXPECT_EQ("begin 1,2 line 34,56 open close", drawn(std::string_view(text).substr(0, 11)));
    EXPECT_EQ("begin 1,2 line 34,5 open close", drawn(std::string_view(text).substr(0, 10)));
    EXPECT_EQ("begin 1,2 bad svg", drawn(std::string_view(text).substr(0, 9)));
    EXPECT_EQ("close", drawn(std::string_view()));
}

TEST(svg_path, only_what_is_drawn_is_transformed) {
    const svg_transform twice_and_aside{2, 0, 0, 2, 10, 0};
    EXPECT_EQ("begin 12,2 line 14,2 open close", drawn("M1 1 l1 0", twice_and_aside));
    EXPECT_EQ("begin 12,2 line 14,2 line 16,2 open close", drawn("M1 1 l1 0 1 0", twice_and_aside));
    const svg_transform mixed{1, 10, 100, 1000, 10000, 100000};
    EXPECT_EQ(
        "begin 10201,102010 bezier 10302,103020 10403,104030 10504,105040 "
        "bezier 10605,106050 10706,107060 10807,108070 open close",
        drawn("M1 2c1 1 2 2 3 3s2 2 3 3", mixed));
}

TEST(svg_path, allocates_nothing) {
    struct idle_sink {
        void begin_figure(svg_point) {}
        void add_line(svg_point) {}
        void add_bezier(svg_point, svg_point, svg_point) {}
        void end_figure(d2d::svg_figure_end) {}
        void close() { ++closed; }
        int closed = 0;
    } sink;
    const auto before = d2d::scene::fakes::allocation_count();
    svg_path_parser("M1 2l3 4h5v6c1 2 3 4 5 6s1 2 3 4q1 2 3 4zM1 2 3.14159 -2.5", svg_transform{}, sink)
        .parse();
    EXPECT_EQ(before, d2d::scene::fakes::allocation_count());
    EXPECT_EQ(1, sink.closed);
}

TEST(svg_number, is_the_nearest_float_of_its_digits_in_double_precision) {
    struct number_case {
        std::string_view text;
        float expected;
    };
    constexpr float infinity = std::numeric_limits<float>::infinity();
    for (const auto& each : std::initializer_list<number_case>{
             {"0", 0.0f},
             {"-0", -0.0f},
             {"007", 7.0f},
             {"12.", 12.0f},
             {".5", 0.5f},
             {"+.5", 0.5f},
             {"-12.25", -12.25f},
             {"0.1", 0.1f},
             {"3.14159265358979323846", 3.14159265358979323846f},
             {"16777217", 16777216.0f},
             {"123456789012345", 123456789012345.0f},
             {"1234567890123456789012", 1234567890123456789012.0f},
             {"340282346638528859811704183484516925440", std::numeric_limits<float>::max()},
             {"1000000000000000000000000000000000000000", infinity},
             {"-1000000000000000000000000000000000000000", -infinity},
             {"0.000000000000000000000000000000000000000000001", 1.4013e-45f},
             {" ,\t\r\n1", 1.0f}}) {
        svg_path_text text(each.text);
        const float read = text.take_number();
        EXPECT_EQ(each.expected, read) << each.text;
        EXPECT_EQ(std::signbit(each.expected), std::signbit(read)) << each.text;
        EXPECT_TRUE(text.at_end()) << each.text;
    }
}

TEST(svg_number, ends_where_the_next_one_begins) {
    struct numbers_case {
        std::string_view text;
        std::array<float, 3> expected;
    };
    for (const auto& each : std::initializer_list<numbers_case>{{"1-2+3", {1, -2, 3}},
                                                                {"1.2.3.4", {1.2f, .3f, .4f}},
                                                                {"0.5.5-.5", {.5f, .5f, -.5f}},
                                                                {"--1-", {0, -1, 0}},
                                                                {"...", {0, 0, 0}},
                                                                {"+-.-", {0, 0, 0}},
                                                                {"-.-1.+", {0, -1, 0}}}) {
        svg_path_text text(each.text);
        for (const float expected : each.expected) EXPECT_EQ(expected, text.take_number()) << each.text;
    }
}

TEST(svg_number, of_many_digits_is_infinite_or_exact) {
    const std::string many(1000, '9');
    svg_path_text whole(many);
    EXPECT_TRUE(std::isinf(whole.take_number()));
    const std::string zeros(1000, '0');
    const std::string seven = zeros + "7." + zeros + "1";
    svg_path_text small(seven);
    EXPECT_EQ(7.0f, small.take_number());
}

class svg_path_at_random : public testing::Test {
protected:
    const std::uint32_t seed = test_support::random_seed();
    d2d::fakes::svg_path_texts texts{seed};

    [[nodiscard]] std::string trace() const { return "seed " + std::to_string(seed); }
};

TEST_F(svg_path_at_random, means_what_a_plain_reading_says) {
    SCOPED_TRACE(trace());
    std::printf("%s\n", trace().c_str());
    const int count = test_support::debug_heap::steps(200'000);
    std::array<int, 3> outcomes{};
    for (int i = 0; i < count; ++i) {
        const std::string text = texts.next();
        const svg_transform transform = texts.next_transform();
        ++outcomes[static_cast<std::size_t>(svg_path_model(text, transform).result)];
        ASSERT_EQ("", compare_with_model(text, transform));
    }
    for (const int times : outcomes) EXPECT_GT(times, count / 1000);
    EXPECT_GT(outcomes[static_cast<std::size_t>(svg_path_model::outcome::bad)], count / 10);
}

TEST_F(svg_path_at_random, is_drawn_when_it_is_well_formed) {
    SCOPED_TRACE(trace());
    std::printf("%s\n", trace().c_str());
    for (int i = 0; i < test_support::debug_heap::steps(20'000); ++i) {
        const std::string text = texts.valid();
        ASSERT_EQ(svg_path_model::outcome::drawn, svg_path_model(text, {}).result) << text;
        ASSERT_EQ("", compare_with_model(text, {}));
    }
}

}  // namespace
