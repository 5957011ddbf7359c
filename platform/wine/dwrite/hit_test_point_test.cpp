#include "layout_fixture.h"

class hit_test_point : public layout_fixture {};
class hit_test_point_in : public every_text {};

INSTANTIATE_TEST_SUITE_P(texts, hit_test_point_in, testing::ValuesIn(sample_texts()), sample_name);

TEST_P(hit_test_point_in, the_two_halves_of_each_cluster_lead_back_to_it) {
    const tested_layout layout = make_sample();
    for (const text_cluster& cluster : layout.clusters()) {
        if (cluster.width == 0.0f) {
            continue;
        }
        const position_result place = layout.position(cluster.position);
        ASSERT_EQ(cluster.position, place.metrics.textPosition);
        for (const bool right_half : {false, true}) {
            const float x = place.metrics.left + place.metrics.width * (right_half ? 0.75f : 0.25f);
            const point_result hit = layout.point(x, place.middle_y());
            EXPECT_EQ(cluster.position, hit.metrics.textPosition) << "x " << x;
            EXPECT_EQ(cluster.length, hit.metrics.length);
            EXPECT_EQ(right_half != place.leftwards(), hit.trailing != FALSE) << "at " << cluster.position;
            EXPECT_EQ(TRUE, hit.inside);
            EXPECT_EQ(TRUE, hit.metrics.isText);
            EXPECT_EQ(FALSE, hit.metrics.isTrimmed);
            EXPECT_FLOAT_EQ(place.metrics.left, hit.metrics.left);
            EXPECT_FLOAT_EQ(place.metrics.top, hit.metrics.top);
            EXPECT_NEAR(cluster.width, hit.metrics.width, tolerance);
        }
    }
}

TEST_P(hit_test_point_in, a_point_above_or_below_is_moved_to_the_first_or_the_last_line) {
    const tested_layout layout = make_sample();
    const float bottom = layout.metrics().top + layout.metrics().height;
    for (float x = -5.0f; x < 110.0f; x += 7.0f) {
        const point_result first = layout.point(x, 0.5f);
        const point_result above = layout.point(x, -1000.0f);
        EXPECT_EQ(first.metrics.textPosition, above.metrics.textPosition);
        EXPECT_EQ(first.trailing, above.trailing);
        EXPECT_EQ(FALSE, above.inside);
        const point_result last = layout.point(x, bottom - 0.5f);
        const point_result below = layout.point(x, bottom + 1000.0f);
        EXPECT_EQ(last.metrics.textPosition, below.metrics.textPosition);
        EXPECT_EQ(last.trailing, below.trailing);
        EXPECT_EQ(FALSE, below.inside);
    }
}

TEST_P(hit_test_point_in, a_point_far_beside_a_line_leads_to_the_line_s_end_on_that_side) {
    const tested_layout layout = make_sample();
    UINT32 start = 0;
    float top = layout.metrics().top;
    for (const DWRITE_LINE_METRICS& line : layout.lines()) {
        for (const float x : {-1000.0f, 1000.0f}) {
            const point_result hit = layout.point(x, top + line.height / 2);
            EXPECT_EQ(FALSE, hit.inside);
            EXPECT_GE(hit.caret(), start);
            EXPECT_LE(hit.caret(), start + line.length - line.newlineLength);
            const float edge = layout.position(hit.metrics.textPosition, hit.trailing != FALSE).x;
            const auto rectangles = layout.range(start, line.length);
            for (const auto& rectangle : rectangles) {
                EXPECT_TRUE(x < 0 ? edge <= rectangle.left + tolerance
                                  : edge >= rectangle.left + rectangle.width - tolerance);
            }
        }
        start += line.length;
        top += line.height;
    }
}

TEST_F(hit_test_point, left_of_a_line_is_its_first_position_and_right_of_it_its_last_cluster_trailing) {
    const tested_layout layout = make(L"ab\ncde");
    const float height = layout.lines()[0].height;
    const point_result left = layout.point(-1.0f, 1.0f);
    EXPECT_EQ(0u, left.metrics.textPosition);
    EXPECT_EQ(FALSE, left.trailing);
    const point_result lower_left = layout.point(-1.0f, height + 1.0f);
    EXPECT_EQ(3u, lower_left.metrics.textPosition);
    EXPECT_EQ(FALSE, lower_left.trailing);
    EXPECT_EQ(2u, layout.point(90.0f, 1.0f).caret()) << "in front of the newline";
    const point_result lower_right = layout.point(90.0f, height + 1.0f);
    EXPECT_EQ(5u, lower_right.metrics.textPosition);
    EXPECT_EQ(TRUE, lower_right.trailing);
    EXPECT_EQ(FALSE, lower_right.inside);
}

TEST_F(hit_test_point, both_sides_of_an_empty_line_are_its_newline) {
    const tested_layout layout = make(L"a\n\nb");
    const float height = layout.lines()[0].height;
    for (const float x : {-5.0f, 0.5f, 50.0f}) {
        const point_result hit = layout.point(x, height * 1.5f);
        EXPECT_EQ(2u, hit.metrics.textPosition);
        EXPECT_EQ(FALSE, hit.trailing);
        EXPECT_EQ(FALSE, hit.inside);
    }
}

TEST_F(hit_test_point, a_newline_of_two_characters_is_never_entered) {
    const tested_layout layout = make(L"ab\r\ncd");
    EXPECT_EQ(2u, layout.point(90.0f, 1.0f).caret());
    EXPECT_EQ(4u, layout.point(-5.0f, layout.lines()[0].height + 1.0f).caret());
}

TEST_F(hit_test_point, without_text_every_point_leads_to_the_start) {
    const tested_layout layout = make(L"");
    for (const float x : {-10.0f, 0.0f, 50.0f}) {
        for (const float y : {-10.0f, 5.0f, 190.0f}) {
            const point_result hit = layout.point(x, y);
            EXPECT_EQ(0u, hit.caret());
            EXPECT_EQ(FALSE, hit.trailing);
            EXPECT_EQ(FALSE, hit.inside);
            EXPECT_EQ(0.0f, hit.metrics.left);
            EXPECT_FLOAT_EQ(layout.metrics().height, hit.metrics.height);
        }
    }
}

TEST_F(hit_test_point, white_space_at_the_end_of_a_line_is_hit) {
    const tested_layout layout = make(L"ab   ");
    const float end = layout.metrics().widthIncludingTrailingWhitespace;
    const point_result hit = layout.point(end - 0.5f, 5.0f);
    EXPECT_EQ(4u, hit.metrics.textPosition);
    EXPECT_EQ(TRUE, hit.trailing);
    EXPECT_EQ(TRUE, hit.inside);
}

TEST_F(hit_test_point, right_of_a_line_that_ends_leftwards_is_where_the_leftward_text_begins) {
    const tested_layout layout = make(L"ab \u05d0\u05d1");
    const point_result hit = layout.point(90.0f, 5.0f);
    EXPECT_EQ(3u, hit.metrics.textPosition) << "the first letter of the Hebrew word stands at the right";
    EXPECT_EQ(FALSE, hit.trailing);
    EXPECT_EQ(1u, hit.metrics.bidiLevel);
}
