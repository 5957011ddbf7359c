// A row or column of cells in one outline, which show that they are pressed.

#include "controls/testing/command_strip_test.h"

#include <string>

#include <gtest/gtest.h>

namespace d2d {
namespace {

using fakes::answers;
using fakes::fake_label;
using scene::identity_matrix;
using scene::translation_matrix;
using scene::fakes::call_text;
using scene::fakes::same;
using scene::fakes::thrown_by;
namespace event_type = input::mouse::event_type;

using command_strip_test = fakes::command_strip_test;

TEST_F(command_strip_test, answers_for_its_interfaces) {
    const auto made = ui::create_command_strip(false, {30, 20}, {}, style.get());
    EXPECT_TRUE(answers<IUnknown>(made));
    EXPECT_TRUE(answers<ui::ICommandStrip>(made));
    EXPECT_TRUE(answers<ui::IControl>(made));
    EXPECT_TRUE(answers<scene::layout::IElement>(made));
    EXPECT_FALSE(answers<ui::IButton>(made));
    EXPECT_FALSE(answers<ui::ILabel>(made));
}

TEST_F(command_strip_test, a_button_is_two_pointers) {
    static_assert(sizeof(ui::ICommandStrip::button) == 2 * sizeof(void*));
    static_assert(offsetof(ui::ICommandStrip::button, label) == sizeof(void*));
    const ui::ICommandStrip::button made{nullptr, nullptr};
    EXPECT_EQ(nullptr, made.label);
}

TEST_F(command_strip_test, is_as_long_as_its_cells) {
    struct {
        bool vertical;
        std::size_t count;
        D2D_RECT_F rect;
    } const cases[] = {
        {false, 0, {0, 0, 0, 20}}, {false, 1, {0, 0, 30, 20}}, {false, 3, {0, 0, 90, 20}},
        {true, 0, {0, 0, 30, 0}},  {true, 1, {0, 0, 30, 20}},  {true, 2, {0, 0, 30, 40}},
        {true, 3, {0, 0, 30, 60}}, {false, 2, {0, 0, 60, 20}},
    };
    for (const auto& [vertical, count, rect] : cases) {
        show_strip(vertical, {30, 20}, count);
        EXPECT_TRUE(same(rect, strip->get_rect())) << vertical << count;
        EXPECT_TRUE(same(identity_matrix, strip->get_node()->get_transform()));
    }
}

TEST_F(command_strip_test, draws_each_cell_and_then_the_outline) {
    make_strip(false, {30, 20}, 3);
    EXPECT_EQ((lines{"cell 0: enabled", "cell 1: enabled", "cell 2: enabled", "outline: enabled"}), calls());
}

TEST_F(command_strip_test, places_the_labels_in_the_middle_of_their_cells) {
    struct {
        bool vertical;
        D2D_POINT_2F middles[3];
    } const cases[] = {{false, {{15, 10}, {45, 10}, {75, 10}}}, {true, {{15, 10}, {15, 30}, {15, 50}}}};
    for (const auto& [vertical, middles] : cases) {
        show_strip(vertical, {30, 20}, 3);
        for (std::size_t i = 0; i < 3; ++i) {
            const auto& node = labels[i]->node;
            EXPECT_TRUE(same(translation_matrix(middles[i].x, middles[i].y), node->get_transform()));
            ASSERT_TRUE(node->get_parent());
            EXPECT_EQ(strip->get_node(), node->get_parent()->get_parent());
            EXPECT_TRUE(same(identity_matrix, node->get_parent()->get_transform()));
            EXPECT_EQ(nullptr, labels[i]->brush);
        }
        EXPECT_NE(labels[0]->node->get_parent(), labels[1]->node->get_parent());
    }
}

TEST_F(command_strip_test, puts_the_outline_in_front_of_the_cells_and_their_labels) {
    in_default_style = true;
    show_strip(false, {30, 20}, 2);
    fill(labels[0]->node, {0, 0, 1, 1});
    EXPECT_EQ((lines{"FillGeometry geometry brush(1 1 1 1)", "FillGeometry rectangle(0 0 1 1) brush(1 0 0 1)",
                     "FillGeometry geometry brush(1 1 1 1)",
                     "DrawGeometry rounded_rectangle(0.5 0.5 59.5 19.5 5 5) brush(0.5 0.5 0.5 1) 1 null"}),
              drawing());
}

TEST_F(command_strip_test, has_no_place_in_a_layout) {
    show_strip(false, {30, 20}, 2);
    EXPECT_EQ("not implemented", thrown_by([&] { static_cast<void>(strip->measure()); }));
    EXPECT_EQ("not implemented", thrown_by([&] { strip->arrange({1, 2, 3, 4}); }));
    EXPECT_TRUE(same(D2D_RECT_F{0, 0, 60, 20}, strip->get_rect()));
    EXPECT_EQ((lines{}), calls());
}

TEST_F(command_strip_test, without_cells_is_an_outline_that_does_no_harm) {
    for (const bool vertical : {false, true}) {
        for (const D2D_SIZE_F cell : {D2D_SIZE_F{30, 20}, {0, 0}, {1, 1}}) {
            show_strip(vertical, cell, 0);
            static_cast<void>(painted());
            for (const D2D_POINT_2F point : {D2D_POINT_2F{0, 0}, {15, 10}, {0, 10}}) {
                move(point.x, point.y);
                press_at(point);
            }
            move(90, 90);
        }
        in_default_style = true;
        show_strip(vertical, {30, 20}, 0);
        static_cast<void>(painted());
        in_default_style = false;
    }
}

TEST_F(command_strip_test, of_cells_without_an_area_does_no_harm) {
    for (const bool vertical : {false, true}) {
        for (const D2D_SIZE_F cell : {D2D_SIZE_F{0, 0}, {1, 1}, {0.5f, 20}, {30, 0}, {-5, -5}}) {
            for (const bool in_default : {false, true}) {
                SCOPED_TRACE(call_text(vertical, cell, in_default));
                in_default_style = in_default;
                ASSERT_NO_THROW(show_strip(vertical, cell, 2));
                EXPECT_TRUE(same(vertical ? D2D_RECT_F{0, 0, cell.width, 2 * cell.height}
                                          : D2D_RECT_F{0, 0, 2 * cell.width, cell.height},
                                 strip->get_rect()));
                EXPECT_NO_THROW(static_cast<void>(painted()));
                for (const D2D_POINT_2F point : {D2D_POINT_2F{0, 0}, {0.5f, 0.5f}, {15, 10}, {90, 90}}) {
                    EXPECT_NO_THROW(move(point.x, point.y));
                    EXPECT_NO_THROW(press_at(point));
                }
            }
        }
    }
}

// The mouse

TEST_F(command_strip_test, shows_the_mouse_over_the_strip_and_over_a_cell) {
    show_strip(false, {30, 20}, 3);
    move(10, 10);
    EXPECT_EQ("outline: enabled hot, cell 0: enabled hot", drawn());
    move(20, 12);
    EXPECT_EQ("", drawn());
    move(40, 10);
    EXPECT_EQ("cell 0: enabled, cell 1: enabled hot", drawn());
    move(10, 50);
    EXPECT_EQ("cell 1: enabled, outline: enabled", drawn());
}

TEST_F(command_strip_test, goes_on_showing_it_over_a_label) {
    show_strip(true, {30, 20}, 3);
    fill(labels[1]->node, {-3, -3, 3, 3});
    forget();
    move(5, 35);
    EXPECT_EQ("outline: enabled hot, cell 1: enabled hot", drawn());
    for (const D2D_POINT_2F point : {D2D_POINT_2F{15, 30}, {5, 35}, {15, 30}}) {
        move(point.x, point.y);
        EXPECT_EQ("", drawn());
    }
    move(50, 30);
    EXPECT_EQ("cell 1: enabled, outline: enabled", drawn());
    move(15, 30);
    EXPECT_EQ("outline: enabled hot, cell 1: enabled hot", drawn());
    move(15, 50);
    EXPECT_EQ("cell 1: enabled, cell 2: enabled hot", drawn());
}

TEST_F(command_strip_test, damages_the_cell_or_the_outline_alone) {
    show_strip(false, {30, 20}, 3);
    move(10, 10);
    EXPECT_EQ(
        (lines{"outline: enabled hot", "invalidate_rect 0 0 90 20", "invalidate_rect 0 0 90 20",
               "cell 0: enabled hot", "invalidate_rect 0.5 0.5 30 19.5", "invalidate_rect 0.5 0.5 30 19.5"}),
        calls());
    move(40, 10);
    EXPECT_EQ(
        (lines{"cell 0: enabled", "invalidate_rect 0.5 0.5 30 19.5", "invalidate_rect 0.5 0.5 30 19.5",
               "cell 1: enabled hot", "invalidate_rect 30 0.5 60 19.5", "invalidate_rect 30 0.5 60 19.5"}),
        calls());
}

TEST_F(command_strip_test, press_holds_one_cell_down_until_the_release) {
    show_strip(false, {30, 20}, 3);
    move(40, 10);
    forget();
    while_pressed([&](const auto& moved) {
        EXPECT_EQ("cell 1: enabled hot down", drawn());
        EXPECT_FALSE(moved({41, 10}));
        EXPECT_EQ("", drawn());
        EXPECT_FALSE(moved({10, 10}));  // over another
        EXPECT_EQ("cell 1: enabled hot", drawn());
        EXPECT_FALSE(moved({40, 60}));
        EXPECT_EQ("", drawn());
        EXPECT_FALSE(moved({40, 10}));
        EXPECT_EQ("cell 1: enabled hot down", drawn());
    });
    press_at({40, 10});
    EXPECT_EQ("cell 1: enabled hot", drawn());
    move(40, 60);
    EXPECT_EQ("cell 1: enabled, outline: enabled", drawn());
}

TEST_F(command_strip_test, press_without_an_entering_ends_as_it_began) {
    show_strip(false, {30, 20}, 3);
    while_pressed([&](const auto& moved) { moved({40, 60}); });
    press_at({70, 10});
    EXPECT_EQ("cell 2: enabled hot down, cell 2: enabled hot, cell 2: enabled", drawn());
}

TEST_F(command_strip_test, press_takes_no_focus_and_asks_for_the_whole_drag) {
    show_strip(false, {30, 20}, 2);
    press_at({40, 10});
    std::string asked;
    for (const auto& line : calls()) {
        if (!line.starts_with("cell") && !line.starts_with("invalidate")) asked += line + ";";
    }
    EXPECT_EQ("drag_loop 40 10 0 1 0 0 1 0 0;", asked);
}

TEST_F(command_strip_test, press_of_another_button_does_nothing) {
    show_strip(false, {30, 20}, 2);
    for (const std::optional<mouse_button> other :
         {std::optional(mouse_button::right), std::optional(mouse_button::middle),
          std::optional(mouse_button::extended), std::optional<mouse_button>()}) {
        press_at({40, 10}, other);
        EXPECT_EQ((lines{}), calls());
    }
}

TEST_F(command_strip_test, press_between_strip_and_corner_hits_nothing) {
    show_strip(false, {60, 60}, 1);
    press_at({0.25f, 0.25f});
    press_at({59.75f, 59.75f});
    press_at({61, 30});
    EXPECT_EQ((lines{}), calls());
    press_at({30, 30});
    EXPECT_NE("", drawn());
}

TEST_F(command_strip_test, cell_keeps_its_events_from_the_label_and_from_above) {
    show_strip(false, {30, 20}, 2);
    fill(labels[0]->node, {-3, -3, 3, 3});
    name(root, "root");
    name(strip->get_node(), "strip");
    name(labels[0]->node, "label");
    for (const auto& node : {root, strip->get_node(), labels[0]->node}) hear_mouse(node, words::type);
    forget();
    const auto others = [this] {
        std::string text;
        for (const auto& line : calls()) {
            if (line.starts_with("root") || line.starts_with("strip") || line.starts_with("label"))
                text += line + ", ";
        }
        return text;
    };
    for (const int type : {event_type::button_up, event_type::double_click, event_type::wheel,
                           event_type::horizontal_wheel, event_type::hover}) {
        mouse(type, 15, 10);
        EXPECT_EQ(call_text("root", type, -3) + ", " + call_text("strip", type, -2) + ", ", others());
        mouse(type, 40, 10);
        EXPECT_EQ(call_text("root", type, -2) + ", " + call_text("strip", type, -1) + ", ", others());
    }
    press_at({15, 10});
    EXPECT_EQ("root 3 -3, strip 3 -2, ", others());
    // Entering and leaving are told to each node on its own.
    move(15, 10);
    EXPECT_EQ("root 0 0, root 0 -1, strip 0 0, root 0 -2, strip 0 -1, root 0 -3, strip 0 -2, label 0 0, ",
              others());
    move(16, 10);
    EXPECT_EQ("root 1 -3, strip 1 -2, ", others());
}

TEST_F(command_strip_test, outline_shows_the_focus_when_something_else_draws_it) {
    show_strip(false, {30, 20}, 2);
    edge->on_focus_gained();
    strip->get_node()->set_focus();
    EXPECT_EQ("", drawn());
    move(10, 10);
    EXPECT_EQ("outline: enabled hot focused, cell 0: enabled hot", drawn());
    root->set_focus();
    EXPECT_EQ("", drawn());
    move(10, 60);
    EXPECT_EQ("cell 0: enabled, outline: enabled", drawn());
}

TEST_F(command_strip_test, look_of_each_state_is_that_of_the_default_style) {
    in_default_style = true;
    show_strip(false, {30, 20}, 1);
    const auto look = [this](const char* background, const char* outline) {
        return lines{std::string("FillGeometry geometry brush(") + background + ")",
                     std::string("DrawGeometry rounded_rectangle(0.5 0.5 29.5 19.5 5 5) brush(") + outline +
                         ") 1 null"};
    };
    EXPECT_EQ(look("1 1 1 1", "0.5 0.5 0.5 1"), drawing());
    while_pressed([&](const auto& moved) {
        EXPECT_EQ(look("0.3 0.3 0.7 1", "0.5 0.5 0.5 1"), drawing());
        moved({90, 90});
        EXPECT_EQ(look("0.9 0.9 1 1", "0.5 0.5 0.5 1"), drawing());
    });
    press_at({10, 10});
    EXPECT_EQ(look("1 1 1 1", "0.5 0.5 0.5 1"), drawing());
    move(10, 10);
    EXPECT_EQ(look("0.9 0.9 1 1", "0.3 0.3 0.7 1"), drawing());
}

}  // namespace
}  // namespace d2d
