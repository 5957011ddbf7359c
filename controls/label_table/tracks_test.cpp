// Where rows and columns lie, which row is at a point, and which rows are selected together.

#include "controls/label_table/tracks.h"
#include "support/random_seed.h"

#include <deque>
#include <optional>
#include <random>
#include <string>
#include <utility>
#include <vector>

#include <gtest/gtest.h>

namespace d2d::ui::label_table {
namespace {

constexpr int header = ILabelTable::header;
constexpr int body = ILabelTable::body;
constexpr int footer = ILabelTable::footer;

struct demands {
    float margin_before;
    float size;
    float margin_after;
};

/// Rows of which only margins and sizes count.
class row_list {
public:
    void add(int section, const demands& wanted) {
        row& added = rows_.emplace_back();
        added.take_in({wanted.margin_before, wanted.margin_after, 0, 0, wanted.size}, 0);
        shown.append(section, &added);
    }
    [[nodiscard]] std::vector<std::pair<float, float>> places(int section) const {
        std::vector<std::pair<float, float>> found;
        for (const row* each : shown[section]) found.emplace_back(each->start, each->end);
        return found;
    }

    sections<row*> shown;

private:
    std::deque<row> rows_;
};

using places = std::vector<std::pair<float, float>>;

TEST(label_table_tracks, margins_of_neighbours_collapse) {
    row_list rows;
    rows.add(body, {2, 10, 4});
    rows.add(body, {6, 20, 1});
    rows.add(body, {3, 5, 7});
    EXPECT_EQ(53, place_tracks(rows.shown));
    EXPECT_EQ((places{{2, 12}, {18, 38}, {41, 46}}), rows.places(body)) << "and the last margin behind them";
}

TEST(label_table_tracks, each_section_begins_at_0_with_the_margin_of_the_one_before) {
    row_list rows;
    rows.add(header, {1, 10, 5});
    rows.add(body, {2, 10, 8});
    rows.add(footer, {3, 10, 4});
    EXPECT_EQ(23, place_tracks(rows.shown));
    EXPECT_EQ((places{{1, 11}}), rows.places(header));
    EXPECT_EQ((places{{5, 15}}), rows.places(body));
    EXPECT_EQ((places{{8, 18}}), rows.places(footer));
}

TEST(label_table_tracks, empty_body_ends_behind_the_margin_of_the_header) {
    row_list rows;
    EXPECT_EQ(0, place_tracks(rows.shown));
    rows.add(header, {1, 10, 5});
    rows.add(footer, {1, 10, 9});
    EXPECT_EQ(5, place_tracks(rows.shown));
}

TEST(label_table_tracks, section_by_itself_is_as_thick_as_its_rows_and_all_its_margins) {
    row_list rows;
    EXPECT_EQ(0, thickness_of(rows.shown[header]));
    rows.add(header, {2, 10, 4});
    EXPECT_EQ(16, thickness_of(rows.shown[header]));
    rows.add(header, {6, 20, 1});
    EXPECT_EQ(39, thickness_of(rows.shown[header]));
}

TEST(label_table_tracks, track_takes_the_largest_that_its_cells_ask_for) {
    track column;
    column.take_in({1, 12, 5, 50, 20}, 8);
    column.take_in({9, 2, 7, 40, 10}, 8);
    EXPECT_EQ(9, column.margin_before);
    EXPECT_EQ(12, column.margin_after);
    EXPECT_EQ(7, column.min_size);
    EXPECT_EQ(50, column.max_size);
    EXPECT_EQ(20, column.size);
    column.forget_demands();
    column.take_in({0, 0, 0, 0, 0}, 8);
    EXPECT_EQ(8, column.margin_before);
    EXPECT_EQ(8, column.margin_after);
    EXPECT_EQ(0, column.size);
}

TEST(label_table_tracks, row_reaches_to_the_ends_of_its_margins_and_the_upper_one_goes_first) {
    row_list rows;
    rows.add(body, {2, 10, 4});  // at 2 to 12
    rows.add(body, {3, 10, 2});  // at 16 to 26
    place_tracks(rows.shown);
    const auto at = [&](float y) { return row_at(rows.shown[body], y); };
    EXPECT_EQ(std::nullopt, at(-0.5f));
    EXPECT_EQ(0u, at(0));
    EXPECT_EQ(0u, at(15.5f)) << "where both margins lie";
    EXPECT_EQ(1u, at(16));
    EXPECT_EQ(1u, at(27.5f));
    EXPECT_EQ(std::nullopt, at(28));
    EXPECT_EQ(std::nullopt, row_at({}, 0));
}

TEST(label_table_tracks, row_at_a_point_is_the_first_of_all_that_have_it) {
    const unsigned seed = test_support::random_seed();
    SCOPED_TRACE("seed " + std::to_string(seed));
    std::mt19937 random(seed);
    const auto up_to = [&](unsigned limit) { return static_cast<float>(random() % (limit + 1)); };
    for (int table = 0; table < 200; ++table) {
        row_list rows;
        for (std::size_t i = random() % 12; i > 0; --i) rows.add(body, {up_to(4), up_to(6), up_to(4)});
        const float height = place_tracks(rows.shown);
        for (float y = -3; y < height + 3; y += 0.5f) {
            std::optional<std::size_t> expected;
            for (std::size_t i = 0; i < rows.shown.size(body) && !expected; ++i) {
                const row& asked = *rows.shown[body][i];
                if (y >= asked.start - asked.margin_before && y < asked.end + asked.margin_after)
                    expected = i;
            }
            ASSERT_EQ(expected, row_at(rows.shown[body], y)) << y;
        }
    }
}

TEST(label_table_tracks, runs_are_the_longest_ranges_of_selected_rows) {
    row_list rows;
    for (int i = 0; i < 8; ++i) rows.add(body, {});
    const auto runs = [&](index_range within) {
        std::string text;
        for (const auto& run : selected_runs(rows.shown[body], within)) {
            text += std::to_string(run.first) + "-" + std::to_string(run.end) + " ";
        }
        return text;
    };
    EXPECT_EQ("", runs({0, 8}));
    for (const std::size_t i : {0u, 2u, 3u, 4u, 7u}) rows.shown[body][i]->selected = true;
    EXPECT_EQ("0-1 2-5 7-8 ", runs({0, 8}));
    EXPECT_EQ("3-5 ", runs({3, 7}));
    EXPECT_EQ("", runs({3, 3}));
}

TEST(label_table_sections, items_stand_in_their_section_whatever_the_order_of_coming) {
    sections<std::string> words;
    const auto text = [&] {
        std::string all;
        for (const auto& each : words.all()) all += each + " ";
        return all;
    };
    words.append(footer, "f");
    words.append(body, "b2");
    words.append(header, "h1");
    words.insert(body, 0, "b1");
    words.append(header, "h2");
    EXPECT_EQ("h1 h2 b1 b2 f ", text());
    EXPECT_EQ("h2", words.take(header, 1));
    EXPECT_EQ("b2", words.take(body, 1));
    EXPECT_EQ("h1 b1 f ", text());
    EXPECT_EQ(1u, words.size(header));
    EXPECT_EQ("b1", words[body][0]);
    EXPECT_EQ(std::vector<std::string>{"b1"}, words.take_all(body));
    EXPECT_EQ("h1 f ", text());
    EXPECT_EQ("f", words[footer][0]);
}

TEST(label_table_sections, numbers_of_no_section_are_refused) {
    EXPECT_THROW(check_section(2), std::logic_error);
    EXPECT_THROW(check_section(-2), std::logic_error);
    EXPECT_NO_THROW(check_section(header));
}

}  // namespace
}  // namespace d2d::ui::label_table
