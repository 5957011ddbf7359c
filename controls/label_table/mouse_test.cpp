// What the mouse does: the row that lights up, the rows that presses select, the click on a header.

#include "controls/testing/label_table_fixture.h"

#include <algorithm>
#include <cstdio>
#include <optional>
#include <string>
#include <utility>
#include <vector>

#include <windows.h>

#include <gtest/gtest.h>

namespace d2d::ui {
namespace {

using scene::fakes::call_text;
using scene::fakes::thrown_by;

class label_table_mouse : public fakes::label_table_fixture {
protected:
    /// The row that is drawn as hot, counted from 0; "none", or "several".
    [[nodiscard]] std::string hot() {
        std::string found = "none";
        for (const auto& line : shapes()) {
            if (line.find("hot.") == std::string::npos || !line.starts_with("Fill")) continue;
            if (found != "none") return "several";
            float left = 0;
            float top = 0;
            EXPECT_EQ(2, std::sscanf(line.c_str(), "Fill(%f %f", &left, &top));
            found = std::to_string(static_cast<int>((top - 0.5f) / 12));
        }
        return found;
    }
    /// Whether the root hears of a press on its way up.
    [[nodiscard]] bool passes_on(D2D_POINT_2F point, std::optional<mouse_button> pressed) {
        hear_mouse(root);
        forget();
        press_at(point, left_held, pressed);
        const std::string all = heard();
        root->add_mouse_handler(nullptr);
        EXPECT_NE(std::string::npos, all.find("root -"));
        return all.find("root 4") != std::string::npos || all.find("root 5") != std::string::npos;
    }
    /// The node of the body, which holds the mouse.
    [[nodiscard]] com::ptr<scene::INode> body_node(int key) {
        return label(key).node->get_parent()->get_parent();
    }
};

// The row under the mouse

TEST_F(label_table_mouse, lights_up_the_row_that_it_is_on) {
    fill(3);
    EXPECT_EQ("none", hot());
    move_to(in_row(1));
    EXPECT_EQ("1", hot()) << "entered there";
    move_to(in_row(2));
    EXPECT_EQ("2", hot());
    move_to({1, 7});
    EXPECT_EQ("0", hot()) << "beside the columns";
    move_to({90, 13});
    EXPECT_EQ("0", hot()) << "in the margins of both rows";
    move_to({90, 14});
    EXPECT_EQ("1", hot());
    move_to({90, 37.5f});
    EXPECT_EQ("2", hot());
    move_to({90, 38});
    EXPECT_EQ("none", hot()) << "below the last one";
    move_to(in_row(0));
    leave();
    EXPECT_EQ("none", hot());
}

TEST_F(label_table_mouse, lights_up_nothing_in_header_and_footer) {
    add(8, header);
    add(9, footer);
    fill(1);
    move_to({20, 7});
    EXPECT_EQ((lines{}), shapes());
    move_to({20, 93});
    EXPECT_EQ((lines{}), shapes());
}

TEST_F(label_table_mouse, that_leaves_a_label_is_on_no_row_until_it_moves_again) {
    fill(2);
    record(label(1).node, label(1).rect);
    move_to({20, 7});
    EXPECT_EQ("0", hot());
    move_to({32, 7});  // between the labels
    EXPECT_EQ("none", hot());
    move_to({33, 7});
    EXPECT_EQ("0", hot());
    move_to({20, 7});
    EXPECT_EQ("0", hot()) << "the label was entered";
}

TEST_F(label_table_mouse, redraws_only_what_another_row_changes) {
    fill(2);
    move_to(in_row(0));
    forget();
    move_to({21, 6});
    EXPECT_EQ("", heard());
    move_to(in_row(1));
    EXPECT_NE("", heard());
}

TEST_F(label_table_mouse, keeps_the_index_of_the_hot_row_and_drops_one_beyond_the_end) {
    fill(3);
    move_to(in_row(1));
    table->remove_row(0, body);
    EXPECT_EQ("1", hot());
    lay_out();
    EXPECT_EQ("1", hot());
    table->remove_row(1, body);
    EXPECT_EQ("1", hot()) << "drawn until the update";
    lay_out();
    EXPECT_EQ("none", hot());
    add(5);
    lay_out();
    EXPECT_EQ("none", hot()) << "the mouse has not moved";
    move_to({21, 19});
    EXPECT_EQ("1", hot());
}

TEST_F(label_table_mouse, at_rest_stays_on_the_row_of_a_table_that_is_filled_anew) {
    fill(3);
    move_to(in_row(1));
    table->clear_section(body);
    add(11);
    add(12);
    lay_out();
    EXPECT_EQ("1", hot());
    table->clear();
    for (int key = 21; key <= 23; ++key) add(key);
    lay_out();
    EXPECT_EQ("1", hot());
    leave();
    EXPECT_EQ("none", hot());
}

TEST_F(label_table_mouse, on_a_label_that_goes_is_on_no_row) {
    fill(2);
    record(label(2).node, label(2).rect);
    move_to(in_row(1));
    EXPECT_EQ("1", hot());
    table->clear_section(body);
    EXPECT_EQ("none", hot());
    lay_out();
    EXPECT_EQ("none", hot());
}

// Selection

TEST_F(label_table_mouse, selects_one_row_with_whatever_key_is_held) {
    fill(4);
    int index = 0;
    for (const std::uint32_t flags : {left_held, left_held | shift, left_held | control,
                                      left_held | shift | control, std::uint32_t{0}, std::uint32_t{0x70}}) {
        index = (index + 1) % 4;
        press_row(index, flags);
        EXPECT_EQ(keys{index + 1}, selected()) << flags;
    }
    press_row(index);
    EXPECT_EQ(keys{index + 1}, selected()) << "again";
}

struct row_press {
    int row;
    std::uint32_t flags;
};
constexpr std::uint32_t plain = 1, with_shift = 5, with_control = 9;

struct sequence {
    const char* name;
    std::vector<row_press> presses;
    std::vector<int> expected;  // rows
};

TEST_F(label_table_mouse, selects_several_rows_by_the_keys_that_are_held) {
    const sequence all[] = {
        {"alone", {{2, plain}}, {2}},
        {"alone, instead of others", {{1, with_control}, {3, with_control}, {2, plain}}, {2}},
        {"Shift first: alone, and the range begins there", {{3, with_shift}}, {3}},
        {"down", {{1, with_shift}, {4, with_shift}}, {1, 2, 3, 4}},
        {"up", {{4, with_shift}, {1, with_shift}}, {1, 2, 3, 4}},
        {"from the same row again", {{2, with_shift}, {4, with_shift}, {0, with_shift}}, {0, 1, 2}},
        {"Shift on where it began", {{2, with_shift}, {4, with_shift}, {2, with_shift}}, {2}},
        {"a press alone begins no range", {{1, plain}, {3, with_shift}}, {3}},
        {"nor ends one", {{1, with_control}, {4, plain}, {3, with_shift}}, {1, 2, 3}},
        {"Control adds", {{1, plain}, {3, with_control}, {5, with_control}}, {1, 3, 5}},
        {"Control takes away", {{1, with_control}, {3, with_control}, {1, with_control}}, {3}},
        {"Control begins a range", {{1, with_shift}, {4, with_control}, {2, with_shift}}, {2, 3, 4}},
        {"where it takes away, too", {{3, plain}, {3, with_control}, {5, with_shift}}, {3, 4, 5}},
        {"a range takes away what is outside",
         {{0, with_control}, {5, with_control}, {4, with_shift}},
         {4, 5}},
        {"nothing with both", {{2, plain}, {4, with_shift | with_control}}, {2}},
        {"nothing with another button", {{2, plain}, {4, plain | 2}, {5, plain | 0x10}}, {2}},
        {"nothing without the button", {{2, plain}, {4, 0}, {5, 4}, {0, 8}}, {2}},
        {"nothing with both begins no range", {{2, with_shift | with_control}, {4, with_shift}}, {4}},
    };
    table->enable_multi_select();
    for (const sequence& each : all) {
        SCOPED_TRACE(each.name);
        table->clear();
        fill(6);
        for (const row_press& pressed : each.presses) press_row(pressed.row, pressed.flags);
        keys expected;
        for (const int row : each.expected) expected.push_back(row + 1);
        EXPECT_EQ(expected, selected());
        for (int row = 0; row < 6; ++row) {
            const bool is_selected = std::find(expected.begin(), expected.end(), row + 1) != expected.end();
            if (is_selected) {
                EXPECT_EQ("selected.text", color(row + 1));
            } else {
                EXPECT_NE("selected.text", color(row + 1));
            }
        }
    }
}

TEST_F(label_table_mouse, presses_the_row_that_its_height_meets) {
    fill(2);
    press_at({90, 13});
    EXPECT_EQ(keys{1}, selected());
    press_at({1, 14});
    EXPECT_EQ(keys{2}, selected());
    press_at({1, 26});
    EXPECT_EQ(keys{2}, selected()) << "on none";
    record(label(1, 1).node, label(1, 1).rect);
    press_at({40, 7});
    EXPECT_EQ(keys{1}, selected()) << "on a label";
}

TEST_F(label_table_mouse, ends_the_route_of_a_press_on_a_row_and_passes_on_others) {
    add(8, header);
    add(9, footer);
    fill(1);
    struct {
        const char* name;
        D2D_POINT_2F point;
        std::optional<mouse_button> button;
        bool passes;
    } const cases[] = {
        {"row", {20, 22}, mouse_button::left, false},
        {"row, right", {20, 22}, mouse_button::right, true},
        {"row, middle", {20, 22}, mouse_button::middle, true},
        {"row, no button", {20, 22}, std::nullopt, true},
        {"below the rows", {20, 60}, mouse_button::left, true},
        {"header", {20, 7}, mouse_button::left, false},
        {"header, right", {20, 7}, mouse_button::right, true},
        {"footer", {20, 93}, mouse_button::left, true},
    };
    for (const auto& each : cases) {
        table->disable_multi_select();
        EXPECT_EQ(each.passes, passes_on(each.point, each.button)) << each.name;
    }
    EXPECT_EQ(keys{1}, selected());
}

TEST_F(label_table_mouse, selects_at_the_press_alone) {
    fill(2);
    for (const int type : {input::mouse::event_type::button_up, input::mouse::event_type::double_click}) {
        edge->on_mouse_event({type, mouse_button::left, left_held, in_row(0), 0});
        EXPECT_EQ(keys{}, selected());
    }
}

TEST_F(label_table_mouse, recolors_the_rows_that_change_and_no_others) {
    fill(4);
    table->enable_multi_select();
    press_row(1);
    lines said = calls();
    std::erase_if(said, [](const auto& line) { return line.find("set_brush") == std::string::npos; });
    EXPECT_EQ((lines{"2: set_brush", "2: set_brush"}), said);
    EXPECT_EQ("selected.text", color(2));
    press_row(1, with_control);
    EXPECT_EQ("text", color(2));
    press_row(1, with_control);
    forget();
    press_row(3, with_shift);
    said = calls();
    std::erase_if(said, [](const auto& line) { return line.find("set_brush") == std::string::npos; });
    EXPECT_EQ((lines{"3: set_brush", "3: set_brush", "4: set_brush", "4: set_brush"}), said);
    EXPECT_EQ("none", color(1));
}

TEST_F(label_table_mouse, selection_is_read_from_the_top_down) {
    for (const auto& [key, value] : {std::pair{1, 30}, {2, 10}, {3, 20}}) add(key, body, value);
    table->set_compare([](int a, int b) { return a - b; });
    lay_out();
    table->enable_multi_select();
    EXPECT_EQ(std::nullopt, table->get_selected_key());
    EXPECT_EQ(std::nullopt, table->get_selected_value());
    EXPECT_EQ(keys{}, table->get_selected_values());
    press_row(2);
    EXPECT_EQ(1, table->get_selected_key());
    EXPECT_EQ(30, table->get_selected_value());
    press_row(0, with_control);
    EXPECT_EQ((keys{2, 1}), selected());
    EXPECT_EQ((keys{10, 30}), table->get_selected_values());
    const char* const text = "more than one item selected";
    EXPECT_EQ(text, thrown_by([&] { static_cast<void>(table->get_selected_key()); }));
    EXPECT_EQ(text, thrown_by([&] { static_cast<void>(table->get_selected_value()); }));
    table->clear_compare();
    lay_out();
    EXPECT_EQ((keys{1, 2}), selected()) << "rows stay selected wherever they go";
}

TEST_F(label_table_mouse, several_rows_stay_selected_when_only_one_can_be) {
    fill(4);
    table->enable_multi_select();
    press_row(0, with_shift);
    press_row(2, with_shift);
    table->disable_multi_select();
    EXPECT_EQ((keys{1, 2, 3}), selected());
    press_row(1, with_control);
    EXPECT_EQ(keys{2}, selected());
}

TEST_F(label_table_mouse, range_reaches_to_the_end_where_its_beginning_has_gone) {
    fill(6);
    table->enable_multi_select();
    press_row(5, with_control);
    table->remove_row(5, body);
    table->remove_row(4, body);
    lay_out();
    press_row(1, with_shift);
    EXPECT_EQ((keys{2, 3, 4}), selected());
}

TEST_F(label_table_mouse, range_begins_anew_in_a_table_that_was_cleared) {
    for (const bool whole : {true, false}) {
        table->enable_multi_select();
        fill(4);
        press_row(0, with_control);
        if (whole) {
            table->clear();
        } else {
            table->clear_section(body);
        }
        EXPECT_EQ(keys{}, selected());
        fill(4);
        press_row(2, with_shift);
        EXPECT_EQ(keys{3}, selected());
        table->clear();
    }
}

TEST_F(label_table_mouse, rows_that_go_are_selected_no_more) {
    fill(4);
    table->enable_multi_select();
    press_row(1, with_shift);
    press_row(3, with_shift);
    table->remove_row(2, body);
    EXPECT_EQ((keys{2, 4}), selected());
    insert(1, 9);
    EXPECT_EQ((keys{2, 4}), selected());
    lay_out();
    EXPECT_EQ((keys{2, 4}), selected());
}

// Dragging

TEST_F(label_table_mouse, asks_for_a_drag_ahead_of_the_selection_and_drags_behind_it) {
    fill(2);
    press_row(1);
    lines said = calls();
    EXPECT_EQ("drag_detect 20 19 0", said.at(0));
    EXPECT_EQ("2: set_brush", said.at(1));
    EXPECT_EQ(
        0, std::count_if(said.begin(), said.end(), [](auto& line) { return line.starts_with("drag_loop"); }));
    site.drag_detected = true;
    bool ended = true;
    site.drag = [&](const auto& moved) {
        EXPECT_EQ(keys{1}, selected());
        ended = moved({20, 19}) || moved({900, 900});
        return true;
    };
    press_row(0);
    said = calls();
    EXPECT_EQ("drag_detect 20 7 0", said.at(0));
    EXPECT_EQ("drag_loop 20 7 0 1 0 0 1 0 0", said.back());
    EXPECT_FALSE(ended);
    EXPECT_EQ(keys{1}, selected());
}

// The header

class label_table_header : public label_table_mouse {
protected:
    void SetUp() override {
        label_table_mouse::SetUp();
        add(7, header);
        add(8, header);
        fill(1);
        table->set_on_header_click(
            [this](ILabelTable::row_key key) { site.calls.push_back(call_text("click", key)); });
    }
    [[nodiscard]] lines clicks() {
        lines said = calls();
        std::erase_if(
            said, [](const auto& line) { return !line.starts_with("click") && !line.starts_with("drag"); });
        return said;
    }
};

TEST_F(label_table_header, tells_which_of_its_rows_is_clicked) {
    press_at({20, 7});
    EXPECT_EQ((lines{"drag_detect 20 7 0", "click 7"}), clicks());
    press_at({95, 19});
    EXPECT_EQ((lines{"drag_detect 95 19 0", "click 8"}), clicks());
    EXPECT_EQ(keys{}, selected());
}

TEST_F(label_table_header, hears_the_left_button_alone_at_its_press) {
    press_at({20, 7}, 2, mouse_button::right);
    press_at({20, 7}, 0, std::nullopt);
    move_to({20, 7});
    edge->on_mouse_event({input::mouse::event_type::button_up, mouse_button::left, 0, {20, 7}, 0});
    EXPECT_EQ((lines{}), clicks());
}

TEST_F(label_table_header, tells_behind_a_drag) {
    site.drag_detected = true;
    site.drag = [&](const auto& moved) {
        EXPECT_FALSE(moved({50, 50}));
        return false;
    };
    press_at({20, 7});
    EXPECT_EQ((lines{"drag_detect 20 7 0", "drag_loop 20 7 0 1 0 0 1 0 0", "click 7"}), clicks());
}

TEST_F(label_table_header, needs_nobody_who_listens) {
    table->set_on_header_click(nullptr);
    press_at({20, 7});
    EXPECT_EQ((lines{"drag_detect 20 7 0"}), clicks());
}

TEST_F(label_table_header, follows_the_table_sideways) {
    label(7, 1).measured.preferred_size.width = 300;
    lay_out();
    edge->on_mouse_event({input::mouse::event_type::horizontal_wheel, std::nullopt, 0, {20, 40}, -120});
    forget();
    press_at({60, 19});
    EXPECT_EQ((lines{"drag_detect 60 19 0", "click 8"}), clicks());
}

// Keys

TEST_F(label_table_mouse, keys_go_by) {
    fill(2);
    edge->on_focus_gained();
    body_node(1)->set_focus();
    name(body_node(1), "body");
    hear_keys(root);
    forget();
    EXPECT_FALSE(key(VK_DOWN));
    EXPECT_FALSE(key(VK_RETURN));
    edge->on_char(L' ');
    EXPECT_EQ(keys{}, selected());
    press_row(0);
    EXPECT_FALSE(key(VK_DELETE));
    EXPECT_EQ(keys{1}, selected());
}

TEST_F(label_table_mouse, press_leaves_the_focus_where_it_is) {
    fill(1);
    edge->on_focus_gained();
    root->set_focus();
    press_row(0);
    EXPECT_TRUE(root->has_focus(false));
}

}  // namespace
}  // namespace d2d::ui
