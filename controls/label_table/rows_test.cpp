// Rows that come and go, what is refused, and where a layout puts them.

#include "controls/testing/answers.h"
#include "controls/testing/label_table_fixture.h"
#include "d2d/ui/IScrollArea.h"

#include <algorithm>
#include <initializer_list>
#include <string>
#include <utility>
#include <vector>

#include <gtest/gtest.h>

namespace d2d::ui {
namespace {

using scene::fakes::call_text;
using scene::fakes::thrown_by;

class label_table_rows : public fakes::label_table_fixture {
protected:
    /// The keys of rows from the top down, as they lie.
    [[nodiscard]] keys from_the_top(const keys& wanted) {
        std::vector<std::pair<float, int>> found;
        for (const int key : wanted) found.emplace_back(label(key).rect.top, key);
        std::sort(found.begin(), found.end());
        keys sorted;
        for (const auto& [top, key] : found) sorted.push_back(key);
        return sorted;
    }
    [[nodiscard]] static com::ptr<scene::INode> parent(const fakes::fake_label& of) {
        return of.node->get_parent();
    }
};

TEST_F(label_table_rows, are_of_a_table_that_answers_for_its_interfaces) {
    EXPECT_TRUE(fakes::answers<ILabelTable>(table));
    EXPECT_TRUE(fakes::answers<IControl>(table));
    EXPECT_TRUE(fakes::answers<scene::layout::IElement>(table));
    EXPECT_FALSE(fakes::answers<IScrollArea>(table));
}

TEST_F(label_table_rows, lie_in_columns_under_each_other) {
    fill(2);
    EXPECT_EQ("8 2 28 12", place(1));
    EXPECT_EQ("36 2 56 12", place(1, 1));
    EXPECT_EQ("8 14 28 24", place(2));
    EXPECT_EQ("36 14 56 24", place(2, 1));
    const auto measured = table->measure();
    EXPECT_EQ("64 26", call_text(measured.preferred_size.width, measured.preferred_size.height));
    EXPECT_EQ("12 12", call_text(measured.min_size.width, measured.min_size.height));
}

TEST_F(label_table_rows, take_the_largest_of_their_cells_and_columns_of_theirs) {
    add(1);
    add(2);
    label(1).measured.preferred_size = {50, 30};
    label(1).measured.margin = {10, 1, 9, 5};
    label(1, 1).measured.margin = {0, 7, 0, 0};
    label(2).measured.min_size = {90, 90};
    label(2).measured.max_size = {900, 900};
    lay_out();
    // Margins: 10 and 9 beside the first column, 7 and 5 around the first row.
    EXPECT_EQ("10 7 60 37", place(1));
    EXPECT_EQ("69 7 89 37", place(1, 1));
    EXPECT_EQ("10 42 60 52", place(2));
    EXPECT_EQ("97 54",
              call_text(table->measure().preferred_size.width, table->measure().preferred_size.height));
    label(1).measured = label(2, 1).measured;
    label(1, 1).measured = label(2, 1).measured;
    lay_out();
    EXPECT_EQ("8 2 28 12", place(1)) << "nothing of the former sizes is left";
    EXPECT_EQ("36 14 56 24", place(2, 1));
}

TEST_F(label_table_rows, of_header_and_footer_stay_around_the_body) {
    add(1, header);
    add(2, body);
    add(3, footer);
    lay_out();
    EXPECT_EQ("8 2 28 12", place(1));
    EXPECT_EQ("8 2 28 12", place(2));
    EXPECT_EQ("8 2 28 12", place(3));
    const auto top_of = [&](int key) {
        D2D_POINT_2F origin{};
        scene::map_points(label(key).node.get(), root.get(), &origin, 1);
        return origin.y;
    };
    EXPECT_EQ(0, top_of(1));
    EXPECT_EQ(15, top_of(2)) << "below 14 of header and the separator";
    EXPECT_EQ(86, top_of(3));
    table->remove_row(0, header);
    table->remove_row(0, footer);
    lay_out();
    EXPECT_EQ(0, top_of(2));
}

TEST_F(label_table_rows, follow_the_content_sideways_and_only_the_body_down) {
    add(1, header);
    for (int key = 10; key < 30; ++key) add(key);
    add(3, footer);
    for (const int key : {1, 10, 3}) label(key, 1).measured.preferred_size.width = 200;
    lay_out();
    const auto origin_of = [&](int key) {
        D2D_POINT_2F origin{};
        scene::map_points(label(key).node.get(), root.get(), &origin, 1);
        return call_text(origin.x + 0, origin.y + 0);
    };
    EXPECT_EQ("0 0", origin_of(1));
    EXPECT_EQ("0 15", origin_of(10));
    const std::string footer_at = origin_of(3);
    edge->on_mouse_event({input::mouse::event_type::wheel, std::nullopt, 0, {20, 40}, -120});
    edge->on_mouse_event({input::mouse::event_type::horizontal_wheel, std::nullopt, 0, {20, 40}, -120});
    EXPECT_NE("0 15", origin_of(10));
    EXPECT_EQ("-9 0", origin_of(1)) << "a tenth of the width of the view";
    EXPECT_EQ("-9" + footer_at.substr(1), origin_of(3));
}

TEST_F(label_table_rows, count_in_the_body_alone) {
    EXPECT_EQ(0u, table->get_row_count());
    add(1, header);
    add(2, footer);
    EXPECT_EQ(0u, table->get_row_count());
    add(3, body);
    add(4, body);
    EXPECT_EQ(2u, table->get_row_count());
    table->remove_row(0, body);
    EXPECT_EQ(1u, table->get_row_count());
}

TEST_F(label_table_rows, are_inserted_ahead_of_an_index_or_appended_to_their_section) {
    add(1, header);
    add(2, footer);
    insert(0, 3);
    insert(0, 4);
    insert(1, 5);
    insert(3, 6);
    insert(4000000000u, 7);
    insert(0, 8, header);
    insert(1, 9, footer);
    lay_out();
    EXPECT_EQ((keys{4, 5, 3, 6, 7}), from_the_top({3, 4, 5, 6, 7}));
    EXPECT_EQ((keys{8, 1}), from_the_top({1, 8}));
    EXPECT_EQ((keys{2, 9}), from_the_top({2, 9}));
}

TEST_F(label_table_rows, are_removed_by_their_index_in_the_section) {
    fill(4);
    add(10, header);
    add(11, header);
    lay_out();
    table->remove_row(1, body);
    table->remove_row(0, header);
    EXPECT_FALSE(parent(label(2)));
    EXPECT_FALSE(parent(label(2, 1)));
    EXPECT_FALSE(parent(label(10)));
    EXPECT_TRUE(parent(label(11)));
    lay_out();
    EXPECT_EQ((keys{1, 3, 4}), from_the_top({1, 3, 4}));
    EXPECT_EQ("8 14 28 24", place(3));
    EXPECT_EQ("8 2 28 12", place(11));
}

TEST_F(label_table_rows, lie_where_they_were_until_the_outermost_update_ends) {
    fill(2);
    table->begin_update();
    add(3);
    table->begin_update();
    table->remove_row(0, body);
    table->end_update();
    EXPECT_EQ("0 0 0 0", place(3));
    EXPECT_EQ("8 14 28 24", place(2));
    table->end_update();
    EXPECT_EQ("8 2 28 12", place(2));
    EXPECT_EQ("8 14 28 24", place(3));
    add(4);
    EXPECT_EQ("0 0 0 0", place(4)) << "no update, no layout";
}

TEST_F(label_table_rows, are_asked_and_placed_once_in_an_update) {
    fill(3);
    int measured = 0;
    int arranged = 0;
    for (auto& [key, of_row] : rows) {
        for (const auto& each : of_row) {
            each->on_measure = [&] { ++measured; };
            each->on_arrange = [&] { ++arranged; };
        }
    }
    table->begin_update();
    for (int key = 4; key <= 10; ++key) add(key);
    table->remove_row(9, body);
    EXPECT_EQ(0, measured + arranged);
    table->end_update();
    EXPECT_EQ(6, measured);
    EXPECT_EQ(6, arranged);
}

// Order

TEST_F(label_table_rows, of_the_body_are_sorted_from_the_next_layout_on) {
    add(9, header, 5);
    add(8, header, 1);
    for (const auto& [key, value] : {std::pair{1, 30}, {2, 10}, {3, 20}, {4, 10}}) add(key, body, value);
    table->set_compare([](int a, int b) { return a - b; });
    EXPECT_EQ("0 0 0 0", place(1));
    lay_out();
    EXPECT_EQ((keys{2, 4, 3, 1}), from_the_top({1, 2, 3, 4})) << "equal ones as they came";
    EXPECT_EQ((keys{9, 8}), from_the_top({8, 9}));
    table->set_compare([](int a, int b) { return b - a; });
    lay_out();
    EXPECT_EQ((keys{1, 3, 2, 4}), from_the_top({1, 2, 3, 4}));
    table->clear_compare();
    EXPECT_EQ((keys{1, 3, 2, 4}), from_the_top({1, 2, 3, 4}));
    lay_out();
    EXPECT_EQ((keys{1, 2, 3, 4}), from_the_top({1, 2, 3, 4}));
}

TEST_F(label_table_rows, have_indices_by_insertion_however_they_are_sorted) {
    for (const auto& [key, value] : {std::pair{1, 30}, {2, 10}, {3, 20}}) add(key, body, value);
    table->set_compare([](int a, int b) { return a - b; });
    lay_out();
    table->remove_row(0, body);
    EXPECT_FALSE(parent(label(1)));
    insert(0, 5, body, 20);
    lay_out();
    EXPECT_EQ((keys{2, 5, 3}), from_the_top({2, 3, 5}));
}

// What is refused

TEST_F(label_table_rows, of_no_section_are_refused) {
    const char* const text = "invalid section value specified";
    for (const int section : {-2, 2, 1000, -1000}) {
        EXPECT_EQ(text, thrown_by([&] { add(1, section); }));
        EXPECT_EQ(text, thrown_by([&] { insert(0, 1, section); }));
        EXPECT_EQ(text, thrown_by([&] { table->remove_row(0, section); }));
    }
    EXPECT_FALSE(parent(label(1)));
}

TEST_F(label_table_rows, that_are_not_there_are_not_removed) {
    const char* const text = "invalid row number";
    for (const int section : {header, body, footer}) {
        EXPECT_EQ(text, thrown_by([&] { table->remove_row(0, section); })) << section;
    }
    fill(2);
    add(3, footer);
    EXPECT_EQ(text, thrown_by([&] { table->remove_row(2, body); }));
    EXPECT_EQ(text, thrown_by([&] { table->remove_row(1, footer); }));
    EXPECT_EQ(text, thrown_by([&] { table->remove_row(0, header); }));
    EXPECT_EQ(text, thrown_by([&] { table->remove_row(0xFFFFFFFF, body); }));
    EXPECT_EQ(2u, table->get_row_count());
}

TEST_F(label_table_rows, with_another_number_of_labels_are_refused) {
    const labels& one = make_labels(1);
    const labels& more = make_labels(2);
    ILabel* const a = one[0].get();
    ILabel* const b = one[1].get();
    ILabel* const c = more[0].get();
    table->add_row(0, 1, header, {a, b});
    const auto expect_refused = [&](std::initializer_list<ILabel*> wrong) {
        EXPECT_EQ("Wrong number of values for row", thrown_by([&] { table->add_row(0, 2, body, wrong); }));
        EXPECT_EQ("not expected", thrown_by([&] { table->insert_row(0, body, 0, 2, wrong); }));
    };
    expect_refused({});
    expect_refused({c});
    expect_refused({c, more[1].get(), a});
    EXPECT_EQ(0u, table->get_row_count());
    EXPECT_FALSE(parent(label(2)));
    table->clear();
    table->add_row(0, 2, body, {c});
    EXPECT_EQ(1u, table->get_row_count()) << "the first row settles the number anew";
}

TEST_F(label_table_rows, keep_their_number_of_labels_when_all_have_been_removed) {
    const labels& made = make_labels(1);
    const auto expect_two_wanted = [&] {
        EXPECT_EQ("Wrong number of values for row",
                  thrown_by([&] { table->add_row(0, 1, body, {made[0].get()}); }));
        EXPECT_EQ("not expected", thrown_by([&] { table->insert_row(0, footer, 0, 1, {made[0].get()}); }));
    };
    add(2);
    table->remove_row(0, body);
    expect_two_wanted();
    add(3);
    table->clear_section(body);
    expect_two_wanted();
    add(4, footer);
    lay_out();
    EXPECT_EQ("36 2 56 12", place(4, 1));
}

TEST_F(label_table_rows, with_a_label_that_is_shown_elsewhere_are_refused_and_change_nothing) {
    const labels& made = make_labels(1);
    const auto taken = com::create_object<fakes::fake_label>();
    root->add_child(taken->node);
    EXPECT_EQ("unexpected", thrown_by([&] { table->add_row(0, 1, body, {made[0].get(), taken.get()}); }));
    EXPECT_EQ(0u, table->get_row_count());
    EXPECT_FALSE(parent(*made[0]));
    EXPECT_EQ("unexpected", thrown_by([&] {
                  table->insert_row(0, header, 0, 1, {made[0].get(), made[0].get()});
              }));
    EXPECT_FALSE(parent(*made[0]));
    table->add_row(0, 1, body, {made[0].get()});
    EXPECT_EQ(1u, table->get_row_count()) << "not even the number of columns was settled";
    root->remove_child(taken->node);
}

TEST_F(label_table_rows, have_operations_without_a_meaning) {
    add(1);
    table->reserved1();
    EXPECT_EQ(1u, table->get_row_count());
    EXPECT_EQ("not implemented", thrown_by([&] { table->reserved2(); }));
}

// Clearing

TEST_F(label_table_rows, go_from_all_sections) {
    add(1, header);
    add(2, body);
    add(3, footer);
    lay_out();
    table->clear();
    for (const int key : {1, 2, 3}) {
        EXPECT_FALSE(parent(label(key)));
        EXPECT_FALSE(parent(label(key, 1)));
    }
    EXPECT_EQ(0u, table->get_row_count());
    lay_out();
    EXPECT_EQ("0 0",
              call_text(table->measure().preferred_size.width, table->measure().preferred_size.height));
    add(4);
    lay_out();
    EXPECT_EQ("8 2 28 12", place(4));
    EXPECT_TRUE(parent(label(4)));
}

TEST_F(label_table_rows, go_from_the_body_alone) {
    add(1, header);
    add(2, body);
    add(3, footer);
    table->clear_section(body);
    EXPECT_EQ(0u, table->get_row_count());
    EXPECT_TRUE(parent(label(1)));
    EXPECT_FALSE(parent(label(2)));
    EXPECT_TRUE(parent(label(3)));
    lay_out();
    // The margin of the header's last row is carried across the empty body.
    EXPECT_EQ("64 2",
              call_text(table->measure().preferred_size.width, table->measure().preferred_size.height));
}

TEST_F(label_table_rows, of_other_sections_cannot_be_cleared_and_end_the_process) {
    add(1, header);
    for (const int section : {header, footer}) {
        EXPECT_DEATH(table->clear_section(section), "") << section;
    }
}

}  // namespace
}  // namespace d2d::ui
