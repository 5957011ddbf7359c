#include "layout_fixture.h"

#include <algorithm>
#include <cmath>
#include <utility>

class hit_test_position : public layout_fixture {};
class hit_test_position_in : public every_text {};

INSTANTIATE_TEST_SUITE_P(texts, hit_test_position_in, testing::ValuesIn(sample_texts()), sample_name);

TEST_P(hit_test_position_in, every_position_has_the_place_of_its_cluster) {
    const tested_layout layout = make_sample();
    for (const text_cluster& cluster : layout.clusters()) {
        const position_result start = layout.position(cluster.position);
        EXPECT_EQ(cluster.position, start.metrics.textPosition);
        EXPECT_EQ(cluster.length, start.metrics.length);
        EXPECT_NEAR(cluster.width, start.metrics.width, tolerance);
        EXPECT_GT(start.metrics.height, 0.0f);
        EXPECT_FLOAT_EQ(start.metrics.top, start.y);
        const float leading = start.metrics.left + (start.leftwards() ? start.metrics.width : 0.0f);
        const float trailing = start.metrics.left + (start.leftwards() ? 0.0f : start.metrics.width);
        EXPECT_FLOAT_EQ(leading, start.x);
        EXPECT_FLOAT_EQ(trailing, layout.position(cluster.position, true).x);
        for (UINT32 within = cluster.position + 1; within < cluster.end(); ++within) {
            const position_result same = layout.position(within);
            EXPECT_EQ(cluster.position, same.metrics.textPosition);
            EXPECT_EQ(start.x, same.x);
        }
    }
}

TEST_P(hit_test_position_in, the_caret_moves_on_within_a_line_of_left_to_right_text) {
    const tested_layout layout = make_sample();
    UINT32 line = 0;
    position_result previous{0.0f, -1.0f, {}};
    for (const text_cluster& cluster : layout.clusters()) {
        const position_result place = layout.position(cluster.position);
        if (cluster.line != line) {
            EXPECT_GT(place.y, previous.y) << "a later line is lower";
            line = cluster.line;
        } else if (!place.leftwards() && !previous.leftwards()) {
            EXPECT_GE(place.x, previous.x) << "at " << cluster.position;
        }
        previous = place;
    }
}

TEST_P(hit_test_position_in, neighbours_of_one_direction_touch) {
    const tested_layout layout = make_sample();
    const auto clusters = layout.clusters();
    // Wine 8 draws the runs around a number in leftward text in the wrong order: there any common edge will
    // do.
    const bool has_number = text().find(L"12") != std::wstring::npos;
    for (std::size_t i = 1; i < clusters.size(); ++i) {
        const position_result one = layout.position(clusters[i - 1].position, true);
        const position_result next = layout.position(clusters[i].position);
        if (clusters[i - 1].line != clusters[i].line || one.metrics.bidiLevel != next.metrics.bidiLevel) {
            continue;
        }
        const bool reordered = has_number && one.leftwards() && std::abs(one.x - next.x) > tolerance;
        EXPECT_NEAR(reordered ? one.metrics.left + one.metrics.width : one.x,
                    reordered ? next.metrics.left : next.x, tolerance)
            << "between " << clusters[i - 1].position << " and the next";
    }
}

TEST_P(hit_test_position_in, the_widths_of_a_line_add_up_to_the_metrics_width) {
    const tested_layout layout = make_sample({.width = 10'000.0f, .wrapping = DWRITE_WORD_WRAPPING_NO_WRAP});
    std::vector<float> widths(layout.lines().size());
    for (const text_cluster& cluster : layout.clusters()) {
        widths[cluster.line] += layout.position(cluster.position).metrics.width;
    }
    EXPECT_NEAR(layout.metrics().widthIncludingTrailingWhitespace,
                *std::max_element(widths.begin(), widths.end()), tolerance);
}

TEST_P(hit_test_position_in, the_end_of_the_text_has_a_place_without_width) {
    const tested_layout layout = make_sample();
    const auto end = static_cast<UINT32>(text().size());
    const position_result place = layout.position(end);
    EXPECT_EQ(end, place.metrics.textPosition);
    EXPECT_EQ(0.0f, place.metrics.width);
    EXPECT_GT(place.metrics.height, 0.0f);
    const auto clusters = layout.clusters();
    const auto last_line = layout.lines().size() - 1;
    if (clusters.empty() || clusters.back().line != last_line) {
        EXPECT_EQ(0.0f, place.x);
    } else {
        EXPECT_FLOAT_EQ(layout.position(clusters.back().position, true).x, place.x);
    }
    const float bottom = layout.metrics().top + layout.metrics().height;
    EXPECT_NEAR(bottom - layout.lines().back().height, place.y, tolerance);
}

TEST_P(hit_test_position_in, alignment_moves_a_line_by_the_room_that_is_left) {
    const std::wstring line = text().substr(0, text().find_first_of(L"\r\n"));
    const layout_box at_left{.width = 700.0f};
    const tested_layout leading = make(line, at_left);
    const float room = 700.0f - leading.metrics().width;
    for (const auto& [alignment, share] :
         {std::pair{DWRITE_TEXT_ALIGNMENT_CENTER, 0.5f}, std::pair{DWRITE_TEXT_ALIGNMENT_TRAILING, 1.0f}}) {
        layout_box box = at_left;
        box.alignment = alignment;
        const tested_layout moved = make(line, box);
        for (UINT32 position = 0; position <= line.size(); ++position) {
            const float offset = moved.position(position).x - leading.position(position).x;
            EXPECT_NEAR(room * share, offset, tolerance) << "at " << position;
        }
        const point_result far_left = moved.point(0.0f, 5.0f);
        const point_result same = leading.point(-1.0f, 5.0f);
        EXPECT_EQ(same.metrics.textPosition, far_left.metrics.textPosition);
        EXPECT_EQ(same.trailing, far_left.trailing);
    }
}

TEST_P(hit_test_position_in, paragraph_alignment_moves_the_text_by_the_height_that_is_left) {
    const tested_layout near_top = make_sample({.height = 500.0f});
    const float room = 500.0f - near_top.metrics().height;
    for (const auto& [alignment, share] : {std::pair{DWRITE_PARAGRAPH_ALIGNMENT_CENTER, 0.5f},
                                           std::pair{DWRITE_PARAGRAPH_ALIGNMENT_FAR, 1.0f}}) {
        const tested_layout moved = make_sample({.height = 500.0f, .paragraph = alignment});
        for (UINT32 position = 0; position <= text().size(); ++position) {
            EXPECT_NEAR(room * share, moved.position(position).y - near_top.position(position).y, tolerance);
            EXPECT_FLOAT_EQ(near_top.position(position).x, moved.position(position).x);
        }
    }
}

TEST_F(hit_test_position, a_letter_with_a_diacritic_has_an_edge_of_its_own) {
    const tested_layout layout = make(L"F\u00e4^\u00f6");
    const auto clusters = layout.clusters();
    ASSERT_EQ(4u, clusters.size());
    for (UINT32 position = 0; position < 4; ++position) {
        EXPECT_EQ(1u, clusters[position].length);
        EXPECT_EQ(position, layout.position(position).metrics.textPosition);
    }
    EXPECT_NEAR(make(L"F").metrics().width, layout.position(1).x, tolerance);
    EXPECT_NEAR(make(L"F\u00e4").metrics().width, layout.position(2).x, tolerance);
}

TEST_F(hit_test_position, the_halves_of_a_surrogate_pair_have_one_place) {
    const tested_layout layout = make(L"a\U0001F600b");
    const position_result high = layout.position(1);
    const position_result low = layout.position(2);
    EXPECT_EQ(1u, low.metrics.textPosition);
    EXPECT_EQ(2u, low.metrics.length);
    EXPECT_EQ(high.x, low.x);
    EXPECT_GT(layout.position(3).x, low.x);
}

TEST_F(hit_test_position, without_text_the_caret_has_the_height_of_a_line) {
    const tested_layout layout = make(L"");
    const position_result place = layout.position(0);
    EXPECT_EQ(0.0f, place.x);
    EXPECT_EQ(0.0f, place.y);
    EXPECT_FLOAT_EQ(make(L"x").lines()[0].height, place.metrics.height);
}

TEST_F(hit_test_position, without_text_the_caret_follows_the_alignment) {
    EXPECT_EQ(50.0f, make(L"", {.alignment = DWRITE_TEXT_ALIGNMENT_CENTER}).position(0).x);
    EXPECT_EQ(100.0f, make(L"", {.alignment = DWRITE_TEXT_ALIGNMENT_TRAILING}).position(0).x);
    EXPECT_EQ(100.0f, make(L"", {.direction = DWRITE_READING_DIRECTION_RIGHT_TO_LEFT}).position(0).x);
}

TEST_F(hit_test_position, the_caret_behind_a_newline_stands_at_the_next_line) {
    const tested_layout layout = make(L"one\n");
    const position_result place = layout.position(4);
    EXPECT_EQ(0.0f, place.x);
    EXPECT_FLOAT_EQ(layout.lines()[0].height, place.y);
}

TEST_F(hit_test_position, follows_changes_of_the_layout) {
    const tested_layout layout = make(L"the quick brown fox", {.width = 500.0f});
    EXPECT_EQ(0.0f, layout.position(10).y);
    layout->SetMaxWidth(60.0f);
    EXPECT_GT(layout.position(10).y, 0.0f);
    EXPECT_EQ(0.0f, layout.position(10).x);
    layout->SetTextAlignment(DWRITE_TEXT_ALIGNMENT_TRAILING);
    EXPECT_GT(layout.position(10).x, 0.0f);
    const float narrow = layout.position(0, true).metrics.width;
    layout->SetFontSize(24.0f, {0, 19});
    EXPECT_NEAR(2 * narrow, layout.position(0, true).metrics.width, tolerance);
}

TEST_F(hit_test_position, the_caret_has_the_size_of_the_font_and_stands_on_the_line_s_baseline) {
    const tested_layout layout = make(L"ab c");
    layout->SetFontSize(24.0f, {1, 1});
    const position_result small = layout.position(0);
    const position_result large = layout.position(1);
    EXPECT_NEAR(2 * small.metrics.height, large.metrics.height, tolerance);
    EXPECT_NEAR(0.0f, large.y, tolerance);
    const float ascent_share = make(L"a").lines()[0].baseline / make(L"a").lines()[0].height;
    EXPECT_NEAR(layout.lines()[0].baseline, small.y + ascent_share * small.metrics.height, tolerance);
    EXPECT_FLOAT_EQ(layout.lines()[0].height, layout.range(0, 1)[0].height)
        << "a selection is as high as the line";
}

TEST_F(hit_test_position, a_paragraph_from_right_to_left_begins_at_the_right) {
    const tested_layout layout =
        make(L"\u05d0\u05d1 ", {.direction = DWRITE_READING_DIRECTION_RIGHT_TO_LEFT});
    EXPECT_NEAR(100.0f, layout.position(0).x, tolerance);
    EXPECT_EQ(1u, layout.position(0).metrics.bidiLevel);
    EXPECT_LT(layout.position(1).x, layout.position(0).x);
    const float space = layout.position(2).x;
    EXPECT_NEAR(100.0f - layout.metrics().width, space, tolerance);
    EXPECT_LT(layout.position(3).x, space) << "the space at the end stands further left";
    EXPECT_EQ(3u, layout.point(-50.0f, 5.0f).caret());
}
