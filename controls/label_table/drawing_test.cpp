// How the selection and the row under the mouse are drawn.

#include "controls/testing/label_table_fixture.h"

#include <string>
#include <vector>

#include <gtest/gtest.h>

namespace d2d::ui {
namespace {

using scene::fakes::thrown_by;

class label_table_drawing : public fakes::label_table_fixture {
protected:
    void SetUp() override {
        label_table_fixture::SetUp();
        table->enable_multi_select();
    }
    void toggle(int row) { press_row(row, left_held | control); }
};

TEST_F(label_table_drawing, shows_the_state_of_a_row) {
    fill(2);
    EXPECT_EQ((lines{}), shapes());
    move_to(in_row(0));
    EXPECT_EQ((lines{"Fill(8.5 0.5 55.5 13.5 3 3) hot.background",
                     "Draw(8.5 0.5 55.5 13.5 3 3) hot.outline 1 null"}),
              shapes());
    toggle(0);
    EXPECT_EQ((lines{"Fill(8 0 56 14 3 3) selected.background",
                     "Fill(8.5 0.5 55.5 13.5 3 3) hot.selected.background",
                     "Draw(8.5 0.5 55.5 13.5 3 3) hot.selected.outline 1 null"}),
              shapes());
    leave();
    EXPECT_EQ((lines{"Fill(8 0 56 14 3 3) selected.background"}), shapes());
    move_to(in_row(1));
    EXPECT_EQ((lines{"Fill(8 0 56 14 3 3) selected.background", "Fill(8.5 12.5 55.5 25.5 3 3) hot.background",
                     "Draw(8.5 12.5 55.5 25.5 3 3) hot.outline 1 null"}),
              shapes());
    toggle(0);
    leave();
    EXPECT_EQ((lines{}), shapes());
}

TEST_F(label_table_drawing, lies_beneath_the_labels) {
    fill(1);
    record(label(1).node, label(1).rect);
    toggle(0);
    move_to({20, 7});
    lines painted_in_order;
    for (const auto& line : painted()) {
        if (line.starts_with("FillGeometry") && line.find(" rectangle(") == std::string::npos)
            painted_in_order.push_back(look->settings->with_keys(line));
    }
    ASSERT_EQ(3u, painted_in_order.size());
    EXPECT_NE(std::string::npos, painted_in_order[0].find(" selected.background"));
    EXPECT_NE(std::string::npos, painted_in_order[1].find(" hot.selected.background"));
    EXPECT_EQ("FillGeometry geometry brush(1 0 0 1)", painted_in_order[2]);
}

TEST_F(label_table_drawing, selected_neighbours_are_one_shape) {
    fill(6);
    toggle(0);
    toggle(1);
    toggle(3);
    toggle(5);
    EXPECT_EQ((lines{"Fill(8 0 56 26 3 3) selected.background", "Fill(8 36 56 50 3 3) selected.background",
                     "Fill(8 60 56 74 3 3) selected.background"}),
              shapes());
    toggle(2);
    EXPECT_EQ((lines{"Fill(8 0 56 50 3 3) selected.background", "Fill(8 60 56 74 3 3) selected.background"}),
              shapes());
    toggle(1);
    EXPECT_EQ((lines{"Fill(8 0 56 14 3 3) selected.background", "Fill(8 24 56 50 3 3) selected.background",
                     "Fill(8 60 56 74 3 3) selected.background"}),
              shapes());
}

TEST_F(label_table_drawing, reaches_around_the_margins_of_its_rows) {
    add(1);
    add(2);
    label(1).measured.margin = {20, 6, 0, 9};
    lay_out();
    move_to({90, 1});
    EXPECT_EQ((lines{"Fill(20.5 0.5 67.5 24.5 3 3) hot.background",
                     "Draw(20.5 0.5 67.5 24.5 3 3) hot.outline 1 null"}),
              shapes());
    leave();
    press_at({90, 1});
    press_at({90, 30}, left_held | control);
    EXPECT_EQ((lines{"Fill(20 0 68 37 3 3) selected.background"}), shapes());
}

TEST_F(label_table_drawing, has_the_radius_of_the_style_or_none) {
    fill(1);
    look->settings->numbers.clear();
    look->settings->numbers["corner.radius"] = 9;  // what is asked for is the longer key
    toggle(0);
    EXPECT_EQ((lines{"Fill(8 0 56 14 0 0) selected.background"}), shapes());
    look->settings->numbers["selection.corner.radius"] = 4.5f;
    move_to(in_row(0));
    EXPECT_EQ("Fill(8.5 0.5 55.5 13.5 4.5 4.5) hot.selected.background", shapes().at(1));
}

TEST_F(label_table_drawing, is_renewed_by_a_layout) {
    fill(3);
    toggle(1);
    toggle(2);
    move_to(in_row(1));
    label(1).measured.preferred_size.height = 30;
    label(2, 1).measured.preferred_size.width = 40;
    EXPECT_EQ("Fill(8 12 56 38 3 3) selected.background", shapes().at(0));
    lay_out();
    EXPECT_EQ((lines{"Fill(8 32 76 58 3 3) selected.background",
                     "Fill(8.5 32.5 75.5 45.5 3 3) hot.selected.background",
                     "Draw(8.5 32.5 75.5 45.5 3 3) hot.selected.outline 1 null"}),
              shapes());
    table->remove_row(1, body);
    EXPECT_EQ("Fill(8 32 76 58 3 3) selected.background", shapes().at(0)) << "until the update";
    lay_out();
    EXPECT_EQ((lines{"Fill(8 32 56 46 3 3) selected.background",
                     "Fill(8.5 32.5 55.5 45.5 3 3) hot.selected.background",
                     "Draw(8.5 32.5 55.5 45.5 3 3) hot.selected.outline 1 null"}),
              shapes());
    table->clear();
    lay_out();
    EXPECT_EQ((lines{}), shapes());
}

TEST_F(label_table_drawing, follows_the_order_of_rows) {
    for (int key = 1; key <= 4; ++key) add(key, body, key % 2);
    lay_out();
    toggle(0);
    toggle(2);
    EXPECT_EQ((lines{"Fill(8 0 56 14 3 3) selected.background", "Fill(8 24 56 38 3 3) selected.background"}),
              shapes());
    table->set_compare([](int a, int b) { return a - b; });
    lay_out();
    EXPECT_EQ((lines{"Fill(8 24 56 50 3 3) selected.background"}), shapes());
}

TEST_F(label_table_drawing, rows_without_labels_show_nothing_and_are_under_no_point) {
    for (int key = 1; key <= 3; ++key) table->add_row(0, key, body, {});
    lay_out();
    EXPECT_EQ(3u, table->get_row_count());
    // Without a cell there is no height, and no margin either.
    press_at({20, 0});
    EXPECT_EQ(keys{}, selected());
    move_to({20, 0});
    EXPECT_EQ((lines{}), shapes());
}

TEST_F(label_table_drawing, style_without_a_color_for_text_selects_nothing) {
    fill(2);
    toggle(0);
    for (const char* const key : {"selected.text", "text"}) {
        look->settings->missing = key;
        EXPECT_EQ("unrecognized style identifier", thrown_by([&] {
                      table->disable_multi_select();
                      press_row(1);
                  }))
            << key;
        EXPECT_EQ(keys{1}, selected());
    }
    look->settings->missing.clear();
    press_row(1);
    EXPECT_EQ(keys{2}, selected());
    EXPECT_EQ((lines{"Fill(8 12 56 26 3 3) selected.background"}), shapes());
}

TEST_F(label_table_drawing, style_without_a_color_for_shapes_fails_as_it_draws) {
    fill(2);
    for (const char* const key : {"hot.background", "hot.outline"}) {
        look->settings->missing = key;
        leave();
        EXPECT_EQ("unrecognized style identifier", thrown_by([&] { move_to(in_row(0)); })) << key;
    }
    look->settings->missing = "selected.background";
    EXPECT_EQ("unrecognized style identifier", thrown_by([&] { press_row(1); }));
    look->settings->missing.clear();
    leave();
    move_to(in_row(1));
    press_row(0);
    EXPECT_EQ((lines{"Fill(8 0 56 14 3 3) selected.background", "Fill(8.5 12.5 55.5 25.5 3 3) hot.background",
                     "Draw(8.5 12.5 55.5 25.5 3 3) hot.outline 1 null"}),
              shapes())
        << "all is well with the next press";
}

TEST_F(label_table_drawing, default_style_has_its_colors) {
    drop_table();
    table = create_label_table(nullptr);
    table->arrange({0, 0, 100, 100});
    own = table->get_node();
    root->add_child(own);
    fill(2);
    press_row(0);
    const std::string dark = "brush(0.3 0.3 0.7 1)";
    EXPECT_EQ((lines{"Fill(8 0 56 14 3 3) " + dark}), shapes());
    move_to(in_row(0));
    EXPECT_EQ((lines{"Fill(8 0 56 14 3 3) " + dark, "Fill(8.5 0.5 55.5 13.5 3 3) " + dark,
                     "Draw(8.5 0.5 55.5 13.5 3 3) brush(0 0 0 1) 1 null"}),
              shapes());
    move_to(in_row(1));
    EXPECT_EQ("Draw(8.5 12.5 55.5 25.5 3 3) " + dark + " 1 null", shapes().at(2));
}

}  // namespace
}  // namespace d2d::ui
