// Rows of a label list: where they lie, how they look, what the mouse does.

#include "controls/testing/answers.h"
#include "controls/testing/label_list_fixture.h"
#include "d2d/ui/IScrollArea.h"

#include <algorithm>
#include <limits>
#include <stdexcept>
#include <string>
#include <vector>

#include <gtest/gtest.h>

namespace d2d {
namespace {

using scene::fakes::call_text;
using scene::fakes::same;
using scene::fakes::thrown_by;

class label_list_test : public fakes::label_list_fixture {
protected:
    /// Whether the root hears of a press on its way up.
    [[nodiscard]] bool passes_on(D2D_POINT_2F point, std::optional<mouse_button> pressed) {
        hear_mouse(root);
        forget();
        press_at(point, pressed);
        const std::string all = heard();
        root->add_mouse_handler(nullptr);
        return all.rfind("root ") != all.find("root -");
    }
    [[nodiscard]] std::string content_size() const {
        const auto size = list->measure().preferred_size;
        return call_text(size.width, size.height);
    }
};

TEST_F(label_list_test, answers_for_its_interfaces) {
    EXPECT_TRUE(fakes::answers<ui::ILabelList>(list));
    EXPECT_TRUE(fakes::answers<ui::IControl>(list));
    EXPECT_TRUE(fakes::answers<scene::layout::IElement>(list));
    EXPECT_FALSE(fakes::answers<ui::IScrollArea>(list));
}

// Places

TEST_F(label_list_test, rows_stand_below_each_other_with_room_around_the_labels) {
    fill(3);
    EXPECT_EQ("6 1 28 13", place(0));
    EXPECT_EQ("6 15 28 27", place(1));
    EXPECT_EQ("6 29 28 41", place(2));
    EXPECT_EQ("36 48", content_size()) << "rows prefer to be larger by 2 than they can be";
}

TEST_F(label_list_test, margins_of_a_label_count_where_they_are_larger) {
    fakes::fake_label& made = make_label();
    made.measured.margin = {10, 0.5f, 2, 3};
    list->insert_item(0, &made, 0);
    EXPECT_EQ("10 1 32 13", place(0));
    EXPECT_EQ("40 18", content_size());
    made.measured.margin = {2, 4, 9, 0};
    append();
    EXPECT_EQ("6 4 28 16", place(0));
    EXPECT_EQ("6 18 28 30", place(1));
    EXPECT_EQ("39 35", content_size());
}

TEST_F(label_list_test, row_is_as_high_as_the_label_must_be_and_no_higher_than_it_may_be) {
    make_label().measured.min_size = {0, 30};
    list->insert_item(0, labels[0].get(), 0);
    EXPECT_EQ("6 1 28 33", place(0));
    list->clear();
    make_label().measured.max_size = {50, 11};
    list->insert_item(-1, labels[1].get(), 0);
    EXPECT_EQ("6 1 30 14", place(1)) << "as wide as the content";
}

TEST_F(label_list_test, row_without_a_limit_fills_the_content) {
    using scene::layout::unlimited;
    make_label().measured.max_size = {unlimited, unlimited};
    list->insert_item(0, labels[0].get(), 0);
    EXPECT_EQ("36 16", content_size());
    EXPECT_EQ("6 1 30 15", place(0));
}

TEST_F(label_list_test, rows_are_appended_at_places_beyond_the_ends) {
    for (int i = 0; i < 5; ++i) make_label();
    list->insert_item(-1, labels[0].get(), 10);
    list->insert_item(1000, labels[1].get(), 11);
    list->insert_item(0, labels[2].get(), 12);
    list->insert_item(1, labels[3].get(), 13);
    list->insert_item(std::numeric_limits<int>::min(), labels[4].get(), 14);
    std::vector<float> tops;
    for (const int label : {2, 3, 0, 1, 4}) tops.push_back(labels[static_cast<std::size_t>(label)]->rect.top);
    EXPECT_EQ((std::vector<float>{1, 15, 29, 43, 57}), tops);
}

TEST_F(label_list_test, measures_the_content_and_has_the_place_of_the_area) {
    const auto empty = list->measure();
    EXPECT_TRUE(same({0, 0, 0, 0}, empty.margin));
    EXPECT_EQ("5 5", call_text(empty.min_size.width, empty.min_size.height));
    const float unlimited = std::numeric_limits<float>::max();
    EXPECT_EQ(unlimited, empty.max_size.width);
    EXPECT_EQ(unlimited, empty.max_size.height);
    EXPECT_EQ("1 1", call_text(empty.preferred_size.width, empty.preferred_size.height))
        << "of an area that was never told";
    EXPECT_TRUE(same({0, 0, 100, 100}, list->get_rect()));
    list->arrange({10, 20, 70, 90});
    EXPECT_TRUE(same({10, 20, 70, 90}, list->get_rect()));
    EXPECT_EQ(own, list->get_node());
}

TEST_F(label_list_test, scrolls_what_does_not_fit) {
    fill(20);
    press_at(on_label(0));
    EXPECT_EQ(10, list->get_selection());
    edge->on_mouse_event({input::mouse::event_type::wheel, std::nullopt, 0, {16, 7}, -120});
    press_at(on_label(0));  // a tenth of the view further down
    EXPECT_EQ(11, list->get_selection());
}

TEST_F(label_list_test, has_operations_without_a_meaning) {
    EXPECT_EQ("not implemented", thrown_by([&] { list->reserved1(); }));
    EXPECT_EQ("not implemented", thrown_by([&] { list->reserved2(); }));
    EXPECT_EQ("not implemented", thrown_by([&] { list->reserved3(); }));
}

// Looks

TEST_F(label_list_test, shows_the_state_of_a_row) {
    fill(2);
    EXPECT_EQ((lines{}), shapes());
    move_to(on_label(0));
    EXPECT_EQ((lines{"Fill(0.5 0.5 33.5 13.5 2 2) hot.background",
                     "Draw(0.5 0.5 33.5 13.5 2 2) hot.outline 1 null"}),
              shapes());
    press_at(on_label(0));
    EXPECT_EQ((lines{"Fill(0.5 0.5 33.5 13.5 2 2) hot.selected.background",
                     "Draw(0.5 0.5 33.5 13.5 2 2) hot.selected.outline 1 null"}),
              shapes());
    move_to(outside);
    const lines selected{"Fill(0.5 0.5 33.5 13.5 2 2) selected.background",
                         "Draw(0.5 0.5 33.5 13.5 2 2) selected.outline 1 null"};
    EXPECT_EQ(selected, shapes());
    move_to(on_label(1));
    lines both = selected;
    both.insert(both.end(), {"Fill(0.5 14.5 33.5 27.5 2 2) hot.background",
                             "Draw(0.5 14.5 33.5 27.5 2 2) hot.outline 1 null"});
    EXPECT_EQ(both, shapes());
    press_at(on_label(1));
    mouse(input::mouse::event_type::leave, 0, 0);
    EXPECT_EQ((lines{"Fill(0.5 14.5 33.5 27.5 2 2) selected.background",
                     "Draw(0.5 14.5 33.5 27.5 2 2) selected.outline 1 null"}),
              shapes());
}

TEST_F(label_list_test, draws_behind_the_label) {
    fill(1);
    press_at(on_label(0));
    lines filled_in_order;
    for (const auto& line : painted()) {
        if (line.starts_with("FillGeometry") && line.find(" rectangle(") == std::string::npos)
            filled_in_order.push_back(look->settings->with_keys(line));
    }
    EXPECT_EQ((lines{"FillGeometry rounded_rectangle(0.5 0.5 33.5 13.5 2 2) selected.background",
                     "FillGeometry geometry brush(1 0 0 1)"}),
              filled_in_order);
}

TEST_F(label_list_test, shape_goes_with_its_row_when_rows_come) {
    fill(2);
    press_at(on_label(1));
    list->insert_item(0, &make_label(), 5);
    EXPECT_EQ("6 29 28 41", place(1));
    EXPECT_EQ("Fill(0.5 28.5 33.5 41.5 2 2) selected.background", shapes().at(0));
}

TEST_F(label_list_test, rows_that_draw_nothing_or_stay_are_not_drawn_anew_when_rows_come) {
    fill(2);
    press_at(on_label(0));
    look->settings->missing = "selected.background";  // throws when it is asked
    list->insert_item(1, &make_label(), 5);
    EXPECT_EQ("6 29 28 41", place(1));
    look->settings->missing.clear();
}

TEST_F(label_list_test, style_without_a_color_fails_as_it_is_asked) {
    fill(2);
    const char* const text = "unrecognized style identifier";
    look->settings->missing = "hot.background";
    EXPECT_EQ(text, thrown_by([&] { move_to(on_label(0)); }));
    look->settings->missing = "selected.text";
    EXPECT_EQ(text, thrown_by([&] { press_at(on_label(0)); }));
    EXPECT_EQ(std::nullopt, list->get_selection());
    look->settings->missing = "idle.text";
    EXPECT_EQ(text, thrown_by([&] { press_at(on_label(0)); }));
    EXPECT_EQ(std::nullopt, list->get_selection());
    look->settings->missing.clear();
    press_at(on_label(1));
    EXPECT_EQ(11, list->get_selection());
}

TEST_F(label_list_test, default_style_has_its_colors) {
    drop_list();
    make_list(nullptr);
    fill(1);
    const std::string shape = "(0.5 0.5 33.5 13.5 2 2) ";
    const std::string dark = "brush(0.3 0.3 0.7 1)";
    const std::string black = "brush(0 0 0 1)";
    move_to(on_label(0));
    EXPECT_EQ((lines{"Fill" + shape + "brush(0.9 0.9 1 1)", "Draw" + shape + dark + " 1 null"}), shapes());
    press_at(on_label(0));
    EXPECT_EQ((lines{"Fill" + shape + dark, "Draw" + shape + black + " 1 null"}), shapes());
    move_to(outside);
    EXPECT_EQ((lines{"Fill" + shape + dark, "Draw" + shape + black + " 1 null"}), shapes());
}

// Hover

TEST_F(label_list_test, row_is_hot_while_the_mouse_is_on_it_or_on_its_label) {
    fill(2);
    move_to(on_label(0));
    forget();
    move_to(beside_label(0));
    move_to(on_label(0));
    move_to({17, 8});
    EXPECT_EQ("", heard()) << "nothing is drawn anew";
    move_to(beside_label(0));
    EXPECT_EQ(2u, shapes().size());
    move_to(outside);
    EXPECT_EQ((lines{}), shapes());
}

TEST_F(label_list_test, idle_row_is_met_on_its_label_alone_and_one_with_a_shape_all_over) {
    fill(2);
    move_to(beside_label(0));
    EXPECT_EQ((lines{}), shapes());
    press_at(beside_label(0));
    EXPECT_EQ(std::nullopt, list->get_selection());
    move_to(on_label(0));
    move_to(beside_label(0));
    press_at(beside_label(0));
    EXPECT_EQ(10, list->get_selection()) << "a hot one";
    move_to(outside);
    move_to(beside_label(0));
    EXPECT_EQ("Fill(0.5 0.5 33.5 13.5 2 2) hot.selected.background", shapes().at(0)) << "a selected one";
    press_at(on_label(1));
    move_to(outside);
    move_to(beside_label(0));
    EXPECT_EQ("Fill(0.5 14.5 33.5 27.5 2 2) selected.background", shapes().at(0)) << "idle again";
}

TEST_F(label_list_test, goes_from_row_to_row) {
    fill(3);
    for (const int row : {0, 1, 2, 1, 0}) {
        move_to(on_label(row));
        ASSERT_EQ(2u, shapes().size());
        EXPECT_EQ("Fill(" + call_text(0.5, 0.5 + 14 * row, 33.5, 13.5 + 14 * row, 2, 2) + ") hot.background",
                  shapes()[0]);
    }
}

TEST_F(label_list_test, label_that_goes_under_the_mouse_leaves_its_row) {
    fill(1);
    move_to(on_label(0));
    const auto row = labels[0]->node->get_parent();
    row->remove_child(labels[0]->node);
    EXPECT_EQ(2u, shapes().size()) << "the row's own shape is still there";
    row->add_child(labels[0]->node);
    move_to({17, 8});
    move_to(outside);
    EXPECT_EQ((lines{}), shapes());
}

// Selection

TEST_F(label_list_test, left_button_alone_selects) {
    fill(3);
    EXPECT_EQ(std::nullopt, list->get_selection());
    for (const auto button : {std::optional(mouse_button::right), std::optional(mouse_button::middle),
                              std::optional<mouse_button>()}) {
        press_at(on_label(1), button);
        EXPECT_EQ(std::nullopt, list->get_selection());
    }
    press_at(on_label(1));
    EXPECT_EQ(11, list->get_selection());
    press_at(on_label(2), mouse_button::right);
    EXPECT_EQ(11, list->get_selection());
    press_at(outside);
    EXPECT_EQ(11, list->get_selection());
    for (const int type : {input::mouse::event_type::button_up, input::mouse::event_type::double_click}) {
        edge->on_mouse_event({type, mouse_button::left, 1, on_label(2), 0});
        EXPECT_EQ(11, list->get_selection());
    }
}

TEST_F(label_list_test, recolors_the_former_row_ahead_of_the_new_one) {
    fill(3);
    press_at(on_label(0));
    EXPECT_EQ("selected.text", color(0));
    EXPECT_EQ("none", color(1));
    forget();
    press_at(on_label(1));
    lines said = calls();
    std::erase_if(said, [](const auto& line) { return line.starts_with("invalidate"); });
    EXPECT_EQ((lines{"0: set_brush", "1: set_brush"}), said);
    EXPECT_EQ("idle.text", color(0));
    EXPECT_EQ("selected.text", color(1));
    EXPECT_EQ("none", color(2));
}

TEST_F(label_list_test, second_press_on_the_selected_row_draws_nothing) {
    fill(2);
    move_to(on_label(0));
    press_at(on_label(0));
    forget();
    press_at(on_label(0));
    press_at(beside_label(0));
    EXPECT_EQ("", heard());
    EXPECT_EQ(10, list->get_selection());
}

TEST_F(label_list_test, every_press_on_a_row_takes_the_focus_and_is_passed_on) {
    fill(2);
    const auto content = content_of(*labels[0]);
    for (const auto button : {std::optional(mouse_button::left), std::optional(mouse_button::right),
                              std::optional<mouse_button>()}) {
        root->set_focus();
        EXPECT_TRUE(passes_on(on_label(1), button));
        EXPECT_TRUE(content->has_focus(false));
    }
    root->set_focus();
    press_at(outside);
    EXPECT_FALSE(content->has_focus(true));
}

TEST_F(label_list_test, press_asks_for_the_focus_of_a_window_without_it) {
    fill(1);
    edge->on_focus_lost();
    forget();
    press_at(on_label(0));
    EXPECT_EQ("request_focus", calls().at(0));
    EXPECT_EQ(10, list->get_selection());
}

TEST_F(label_list_test, press_on_a_list_that_has_just_left_its_view_fails_for_want_of_a_focus) {
    fill(1);
    root->add_mouse_handler([this](scene::INode*, int depth, input::mouse::event event) {
        if (depth < 0 && event.type == input::mouse::event_type::button_down) root->remove_child(own);
        return false;
    });
    EXPECT_EQ("not expected", thrown_by<std::runtime_error>([&] { press_at(on_label(0)); }));
    EXPECT_EQ(std::nullopt, list->get_selection());
    root->add_mouse_handler(nullptr);
}

TEST_F(label_list_test, keys_go_by) {
    fill(2);
    press_at(on_label(0));
    for (const int code : {VK_DOWN, VK_UP, VK_SPACE, VK_HOME})
        EXPECT_FALSE(key(static_cast<std::uint32_t>(code)));
    EXPECT_EQ(10, list->get_selection());
}

// Clearing

TEST_F(label_list_test, cleared_list_has_nothing_selected_and_frees_the_labels) {
    fill(2);
    move_to(on_label(0));
    press_at(on_label(0));
    list->clear();
    EXPECT_EQ(std::nullopt, list->get_selection());
    EXPECT_EQ((lines{}), shapes());
    EXPECT_EQ("0 0", content_size());
    for (const auto& label : labels) {
        EXPECT_EQ(nullptr, label->node->get_parent());
        EXPECT_TRUE(same({0, 0, 0, 0}, label->node->get_bounds(true))) << "emptied";
        EXPECT_EQ(1u, scene::fakes::references(label.get()));
    }
    list->clear();
    append();
    EXPECT_EQ("6 1 28 13", place(2));
    record(labels[2]->node, labels[2]->rect);
    press_at(on_label(0));
    EXPECT_EQ(12, list->get_selection());
}

}  // namespace
}  // namespace d2d
