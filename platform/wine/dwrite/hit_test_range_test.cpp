#include "layout_fixture.h"

#include <algorithm>

class hit_test_range : public layout_fixture {};
class hit_test_range_in : public every_text {};

INSTANTIATE_TEST_SUITE_P(texts, hit_test_range_in, testing::ValuesIn(sample_texts()), sample_name);

namespace {

float sum_of_widths(const std::vector<DWRITE_HIT_TEST_METRICS>& rectangles) {
    float sum = 0.0f;
    for (const auto& rectangle : rectangles) {
        sum += rectangle.width;
    }
    return sum;
}

}  // namespace

TEST_P(hit_test_range_in, covers_exactly_its_clusters) {
    const tested_layout layout = make_sample();
    const auto clusters = layout.clusters();
    for (std::size_t first = 0; first < clusters.size(); ++first) {
        float width = 0.0f;
        for (std::size_t last = first; last < clusters.size(); ++last) {
            width += layout.position(clusters[last].position).metrics.width;
            const UINT32 start = clusters[first].position;
            const auto rectangles = layout.range(start, clusters[last].end() - start);
            EXPECT_NEAR(width, sum_of_widths(rectangles), tolerance * 4)
                << "from " << first << " to " << last;
            UINT32 position = start;
            for (const auto& rectangle : rectangles) {
                EXPECT_EQ(position, rectangle.textPosition);
                position += rectangle.length;
            }
            EXPECT_EQ(clusters[last].end(), position);
        }
    }
}

TEST_P(hit_test_range_in, each_cluster_lies_in_the_one_rectangle_that_names_it) {
    const tested_layout layout = make_sample();
    const auto all = layout.range(0, static_cast<UINT32>(text().size()));
    for (const text_cluster& cluster : layout.clusters()) {
        const position_result place = layout.position(cluster.position);
        const auto found = std::find_if(all.begin(), all.end(), [&](const auto& rectangle) {
            return cluster.position < rectangle.textPosition + rectangle.length;
        });
        ASSERT_NE(all.end(), found);
        EXPECT_GE(place.metrics.left, found->left - tolerance);
        EXPECT_LE(place.metrics.left + place.metrics.width, found->left + found->width + tolerance);
        EXPECT_EQ(place.metrics.bidiLevel, found->bidiLevel);
        EXPECT_FLOAT_EQ(layout.lines()[cluster.line].height, found->height);
    }
}

TEST_P(hit_test_range_in, the_origin_moves_every_rectangle) {
    const tested_layout layout = make_sample();
    const auto length = static_cast<UINT32>(text().size());
    const auto here = layout.range(0, length);
    const auto there = layout.range(0, length, 30.0f, -7.0f);
    ASSERT_EQ(here.size(), there.size());
    for (std::size_t i = 0; i < here.size(); ++i) {
        EXPECT_NEAR(here[i].left + 30.0f, there[i].left, tolerance);
        EXPECT_NEAR(here[i].top - 7.0f, there[i].top, tolerance);
        EXPECT_NEAR(here[i].width, there[i].width, tolerance);
        EXPECT_EQ(here[i].height, there[i].height);
    }
}

TEST_P(hit_test_range_in, too_small_an_array_is_told_how_many_there_are) {
    const tested_layout layout = make_sample();
    const auto length = static_cast<UINT32>(text().size());
    const auto all = layout.range(0, length);
    for (UINT32 capacity = 0; capacity < all.size(); ++capacity) {
        std::vector<DWRITE_HIT_TEST_METRICS> few(capacity + 1);
        UINT32 count = 0;
        EXPECT_EQ(HRESULT_FROM_WIN32(ERROR_INSUFFICIENT_BUFFER),
                  layout->HitTestTextRange(0, length, 0.0f, 0.0f, few.data(), capacity, &count));
        EXPECT_EQ(all.size(), count);
    }
}

TEST_F(hit_test_range, has_one_rectangle_for_each_line) {
    const tested_layout layout = make(L"one two\nthree\nfour");
    const auto all = layout.range(0, 18);
    ASSERT_EQ(3u, all.size());
    float top = 0.0f;
    for (const auto& rectangle : all) {
        EXPECT_EQ(0.0f, rectangle.left);
        EXPECT_FLOAT_EQ(top, rectangle.top);
        top += rectangle.height;
    }
    const auto part = layout.range(4, 6);
    ASSERT_EQ(2u, part.size());
    EXPECT_FLOAT_EQ(layout.position(4).x, part[0].left);
    EXPECT_FLOAT_EQ(layout.position(10).x, part[1].left + part[1].width);
}

TEST_F(hit_test_range, has_one_rectangle_for_each_direction) {
    const tested_layout layout = make(L"ab \u05d0\u05d1\u05d2 cd", {.width = 500.0f});
    const auto all = layout.range(0, 9);
    ASSERT_EQ(3u, all.size());
    EXPECT_EQ(0u, all[0].bidiLevel);
    EXPECT_EQ(1u, all[1].bidiLevel);
    EXPECT_EQ(0u, all[2].bidiLevel);
    EXPECT_NEAR(all[0].left + all[0].width, all[1].left, tolerance);
    EXPECT_NEAR(all[1].left + all[1].width, all[2].left, tolerance);
    const auto first_letter = layout.range(3, 1);
    ASSERT_EQ(1u, first_letter.size());
    EXPECT_NEAR(all[1].left + all[1].width, first_letter[0].left + first_letter[0].width, tolerance)
        << "a leftward word begins at its right";
}

TEST_F(hit_test_range, reaches_no_further_than_the_text) {
    const tested_layout layout = make(L"abc");
    const auto all = layout.range(1, 0xffffffffu);
    ASSERT_EQ(1u, all.size());
    EXPECT_EQ(1u, all[0].textPosition);
    EXPECT_EQ(2u, all[0].length);
}

TEST_F(hit_test_range, takes_a_cluster_whole_when_it_touches_a_half) {
    const tested_layout layout = make(L"a\U0001F600b");
    const auto low = layout.range(2, 1);
    ASSERT_EQ(1u, low.size());
    EXPECT_FLOAT_EQ(layout.position(1).x, low[0].left);
    EXPECT_FLOAT_EQ(layout.position(3).x, low[0].left + low[0].width);
}
