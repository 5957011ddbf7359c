// Label lists and label tables on the screen, used with a real mouse.

#include "controls/testing/control_window.h"
#include "controls/testing/fake_label.h"
#include "d2d/scene/IDrawingContext.h"
#include "d2d/ui/ILabelList.h"
#include "d2d/ui/ILabelTable.h"

#include <optional>
#include <vector>

#include <gtest/gtest.h>

namespace d2d {
namespace {

using fakes::fake_label;
using test_support::mouse_button;

/// A control of 150 by 110 in the corner of the window.
class list_control_on_screen : public fakes::control_window {
protected:
    static constexpr D2D_RECT_F rect{0, 0, 150, 110};
    static constexpr POINT off_it{190, 60};

    void TearDown() override {
        labels.clear();
        control_window::TearDown();
    }
    fake_label& make_label() {
        labels.push_back(com::create_object<fake_label>());
        auto& measured = labels.back()->measured;
        measured.max_size = measured.preferred_size = {20, 10};
        return *labels.back();
    }
    void point_at(POINT point) const { move_mouse(point.x, point.y); }
    void click(POINT point, mouse_button button = mouse_button::left) const {
        test_support::click(handle(), point, button);
    }
    void leave() const { test_support::move_mouse(GetDesktopWindow(), {700, 600}); }

    std::vector<com::ptr<fake_label>> labels;
};

/// Rows of 34 by 14 from the top down, with the values 10, 11 and so on. The labels, at (6, 1), are white.
class label_list_on_screen : public list_control_on_screen {
protected:
    void SetUp() override {
        list_control_on_screen::SetUp();
        list = ui::create_label_list(nullptr);
        list->arrange(rect);
        for (int i = 0; i < 30; ++i) list->insert_item(-1, &make_label(), 10 + i);
        for (const auto& label : labels) {
            const auto context = label->node->draw(false);
            context->fill_geometry(factory::create_rectangle_geometry(label->rect).get(),
                                   scene::create_solid_color_brush({1, 1, 1, 1}).get());
            context->commit();
        }
        show(list->get_node());
        ASSERT_TRUE(shows(white, 16, 7));
    }
    void TearDown() override {
        list.reset();
        list_control_on_screen::TearDown();
    }
    [[nodiscard]] static POINT on_label(LONG row) { return {16, 7 + 14 * row}; }
    /// Beside the label.
    [[nodiscard]] testing::AssertionResult row_is(std::uint32_t color, unsigned row) const {
        return shows(color, 3, 7 + 14 * row);
    }
    [[nodiscard]] bool selects(int value) const {
        return becomes([&] { return list->get_selection() == value; });
    }

    com::ptr<ui::ILabelList> list;
};

TEST_F(label_list_on_screen, lights_up_under_the_mouse) {
    EXPECT_TRUE(row_is(green, 1));
    point_at(on_label(1));
    EXPECT_TRUE(row_is(pale, 1));
    point_at({3, 21});
    point_at(on_label(3));
    EXPECT_TRUE(row_is(pale, 3));
    EXPECT_TRUE(row_is(green, 1));
    leave();
    EXPECT_TRUE(row_is(green, 3));
}

TEST_F(label_list_on_screen, selects_by_the_left_button_and_takes_the_focus) {
    SetFocus(nullptr);
    click(on_label(1));
    EXPECT_TRUE(selects(11));
    EXPECT_EQ(handle(), GetFocus());
    EXPECT_TRUE(row_is(dark, 1));
    click(on_label(3), mouse_button::right);
    EXPECT_TRUE(row_is(pale, 3));
    EXPECT_EQ(11, list->get_selection());
    click(on_label(2));
    EXPECT_TRUE(selects(12));
    point_at(off_it);
    EXPECT_TRUE(row_is(dark, 2));
    EXPECT_TRUE(row_is(green, 1));
}

TEST_F(label_list_on_screen, scrolls_under_the_mouse) {
    point_at(on_label(0));
    test_support::turn_wheel(-1);  // 11 of the 110 that are seen
    EXPECT_TRUE(shows(white, 16, 14)) << "the second label, from 4 to 16";
    click({16, 14});
    EXPECT_TRUE(selects(11));
    test_support::turn_wheel(1);
    EXPECT_TRUE(row_is(dark, 1));
}

/// Rows 12 apart, each 14 high with its margins, from 8 to 56, with the keys 1, 2 and so on below a header
/// of 14 and its separator. The labels show nothing.
class label_table_on_screen : public list_control_on_screen {
protected:
    using keys = std::vector<ui::ILabelTable::row_key>;

    void SetUp() override {
        list_control_on_screen::SetUp();
        table = ui::create_label_table(nullptr);
        table->arrange(rect);
        table->begin_update();
        add(ui::ILabelTable::header, 100);
        for (int key = 1; key <= 30; ++key) add(ui::ILabelTable::body, key);
        table->end_update();
        table->enable_multi_select();
        table->get_node()->add_mouse_handler([this](scene::INode*, int, input::mouse::event event) {
            if (event.type == input::mouse::event_type::button_down) pressed_with = event.flags;
            return false;
        });
        show(table->get_node());
        ASSERT_TRUE(shows(0xFF708090, 30, 14)) << "the separator";
    }
    void TearDown() override {
        table.reset();
        list_control_on_screen::TearDown();
    }
    void add(int section, int key) {
        fake_label& one = make_label();
        fake_label& other = make_label();
        table->add_row(0, key, section, {&one, &other});
    }
    [[nodiscard]] static POINT in_row(LONG row, LONG x = 30) { return {x, 22 + 12 * row}; }
    [[nodiscard]] testing::AssertionResult row_is(std::uint32_t color, unsigned row) const {
        return shows(color, 32, 22 + 12 * row);
    }
    [[nodiscard]] bool selects(const keys& wanted) const {
        return becomes([&] { return table->get_selected_keys() == wanted; });
    }
    /// Clicks while a key is held. False when the press came without it: a late report of the screen about an
    /// earlier movement releases keys under Wine.
    [[nodiscard]] bool click_with(WORD key, std::uint32_t wanted_flags, POINT point) {
        point_at(point);
        test_support::press_key(key);
        pressed_with = 0;
        click(point);
        test_support::release_key(key);
        EXPECT_TRUE(becomes([&] { return pressed_with != 0; }));
        return pressed_with == wanted_flags;
    }
    /// Selects rows by all three ways of clicking. False when a key was not held.
    [[nodiscard]] bool select_rows() {
        click(in_row(0));
        EXPECT_TRUE(selects({1}));
        if (!click_with(VK_CONTROL, MK_LBUTTON | MK_CONTROL, in_row(2))) return false;
        EXPECT_TRUE(selects({1, 3}));
        if (!click_with(VK_SHIFT, MK_LBUTTON | MK_SHIFT, in_row(5))) return false;
        EXPECT_TRUE(selects({3, 4, 5, 6}));
        if (!click_with(VK_CONTROL, MK_LBUTTON | MK_CONTROL, in_row(4))) return false;
        EXPECT_TRUE(selects({3, 4, 6}));
        return true;
    }

    std::uint32_t pressed_with = 0;  // the flags of the latest press
    com::ptr<ui::ILabelTable> table;
};

TEST_F(label_table_on_screen, lights_up_under_the_mouse) {
    EXPECT_TRUE(row_is(green, 1));
    point_at(in_row(1));
    EXPECT_TRUE(row_is(pale, 1));
    point_at(in_row(3, 100));
    EXPECT_TRUE(row_is(pale, 3)) << "beside the columns, too";
    EXPECT_TRUE(row_is(green, 1));
    leave();
    EXPECT_TRUE(row_is(green, 3));
}

TEST_F(label_table_on_screen, selects_by_clicks_alone_and_with_shift_and_control) {
    bool selected = false;
    for (int attempt = 0; !selected && attempt < 5; ++attempt) selected = select_rows();
    ASSERT_TRUE(selected);
    point_at(off_it);
    EXPECT_TRUE(row_is(green, 0));
    EXPECT_TRUE(row_is(dark, 2));
    EXPECT_TRUE(row_is(dark, 3));
    EXPECT_TRUE(row_is(green, 4));
    EXPECT_TRUE(row_is(dark, 5));
    click(in_row(6), mouse_button::right);
    click(in_row(1));
    EXPECT_TRUE(selects({2}));
}

TEST_F(label_table_on_screen, scrolls_its_body_under_the_mouse) {
    point_at(in_row(0));
    test_support::turn_wheel(-1);  // 9.5 of the 95 that are seen
    point_at(in_row(2));
    EXPECT_TRUE(shows(pale, 32, 43)) << "the fourth row, from 51 to 65, less 10";
    click({30, 52});
    EXPECT_TRUE(selects({4}));
    EXPECT_TRUE(shows(0xFF708090, 30, 14)) << "the header has stayed";
}

TEST_F(label_table_on_screen, row_is_selected_where_a_drag_begins) {
    test_support::drag(handle(), in_row(1), {120, 90});
    EXPECT_TRUE(selects({2}));
    click(in_row(3));
    EXPECT_TRUE(selects({4})) << "the drag has ended";
}

TEST_F(label_table_on_screen, header_tells_of_a_click_and_of_a_drag) {
    keys clicked;
    table->set_on_header_click([&](ui::ILabelTable::row_key key) { clicked.push_back(key); });
    click({30, 7});
    EXPECT_TRUE(becomes([&] { return clicked == keys{100}; }));
    test_support::drag(handle(), {20, 7}, {120, 90});
    EXPECT_TRUE(becomes([&] { return clicked == keys{100, 100}; }));
    EXPECT_TRUE(selects({}));
}

}  // namespace
}  // namespace d2d
