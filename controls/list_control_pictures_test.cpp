// How label lists and label tables look in the default style, one sheet for each with a cell for a state.

#include "controls/testing/sheet.h"
#include "d2d/ui/ILabelList.h"
#include "d2d/ui/ILabelTable.h"
#include "d2d/ui/ITextLabel.h"
#include "scene/testing/input_test.h"
#include "scene/testing/pixel_target.h"
#include "support/golden.h"

#include <cmath>
#include <functional>
#include <optional>
#include <string>
#include <vector>

#include <gtest/gtest.h>

namespace d2d {
namespace {

using fakes::sheet;
using input::mouse::button;

class list_control_pictures : public scene::fakes::input_test {
protected:
    static constexpr unsigned width = 170;
    static constexpr unsigned height = 110;
    static constexpr unsigned columns = 3;
    // Small differences of the machine that paints count as equal.
    static constexpr test_support::tolerance allowed{.channel = 8, .pixels = 60};
    static constexpr D2D_RECT_F place{4, 4, 166, 106};

    void SetUp() override {
        input_test::SetUp();
        show();
        edge->detach_render_target(&target);
        edge->attach_render_target(real.get());
        edge->on_focus_gained();
    }
    void TearDown() override {
        drop();
        edge->detach_render_target(real.get());
        input_test::TearDown();
    }

    void show_control(const com::ptr<scene::INode>& node) {
        own = node;
        root->add_child(node);
    }
    void drop() {
        labels.clear();
        if (own) root->remove_child(own);
        own.reset();
        mouse(input::mouse::event_type::leave, 0, 0);
    }
    void put(sheet& into) {
        real.paint(*edge.get());
        into.put(count % columns, count / columns, real.picture());
        ++count;
    }
    com::ptr<ui::ITextLabel> label(const std::string& text, float size = 0) {
        const auto format = size > 0 ? scene::ITextFormat::get(L"Sans Serif", DWRITE_FONT_WEIGHT_BOLD,
                                                               DWRITE_FONT_STYLE_NORMAL, size)
                                     : nullptr;
        labels.push_back(ui::create_text_label(text, format.get(), nullptr));
        return labels.back();
    }
    /// The middle of a label, in root space.
    [[nodiscard]] D2D_POINT_2F on(std::size_t wanted) const {
        const D2D_RECT_F at = labels[wanted]->get_rect();
        D2D_POINT_2F middle{(at.left + at.right) / 2, (at.top + at.bottom) / 2};
        scene::map_points(labels[wanted]->get_node().get(), root.get(), &middle, 1);
        return middle;
    }
    void hover(std::size_t wanted) { move(on(wanted).x, on(wanted).y); }
    void press_label(std::size_t wanted, std::uint32_t flags = MK_LBUTTON) {
        edge->on_mouse_event({input::mouse::event_type::button_down, button::left, flags, on(wanted), 0});
    }
    void wheel(std::int32_t type, D2D_POINT_2F point, std::int32_t delta) {
        edge->on_mouse_event({type, std::nullopt, 0, point, delta});
    }

    const scene::fakes::pixel_target real{width, height};
    com::ptr<scene::INode> own;  // the control's
    std::vector<com::ptr<ui::ITextLabel>> labels;
    unsigned count = 0;
};

class label_list_pictures : public list_control_pictures {
protected:
    void make(int rows) {
        drop();
        list = ui::create_label_list(nullptr);
        list->arrange(place);
        for (int i = 0; i < rows; ++i) add(label("Harbour " + std::string(static_cast<std::size_t>(i), 'i')));
        show_control(list->get_node());
    }
    void add(const com::ptr<ui::ITextLabel>& shown, int index = -1) {
        list->insert_item(index, shown.get(), 0);
    }
    void TearDown() override {
        list.reset();
        list_control_pictures::TearDown();
    }
    com::ptr<ui::ILabelList> list;
};

TEST_F(label_list_pictures, of_all_states) {
    sheet states(columns, 4, width, height);
    make(4);
    put(states);  // idle
    hover(1);
    put(states);  // hot
    press_label(1);
    put(states);  // selected, hot
    hover(3);
    put(states);  // selected, another one hot
    mouse(input::mouse::event_type::leave, 0, 0);
    put(states);  // selected
    press_label(2);
    put(states);  // another one selected, the former one with its color again
    add(label("came later"), 0);
    put(states);  // ahead of the selected one
    hover(2);
    put(states);  // hot, too
    list->clear();
    put(states);  // empty
    make(2);
    add(label("two\nlines", 14), 1);
    add(label("a label that is wider than the list is"));
    press_label(2);
    hover(3);
    put(states);  // rows of different sizes, a bar
    make(30);
    press_label(1);
    hover(3);
    put(states);  // more than there is room for
    wheel(input::mouse::event_type::wheel, on(3), -120);
    wheel(input::mouse::event_type::wheel, {20, 20}, -120);
    put(states);  // scrolled
    EXPECT_TRUE(test_support::matches_golden(states.image(), "controls/label_list", allowed));
}

class label_table_pictures : public list_control_pictures {
protected:
    static constexpr std::uint32_t with_control = MK_LBUTTON | MK_CONTROL;

    void make(int rows) {
        drop();
        table = ui::create_label_table(nullptr);
        table->arrange(place);
        table->enable_multi_select();
        for (int i = 0; i < rows; ++i) {
            add(ui::ILabelTable::body, "row " + std::to_string(i), std::to_string(i * i), 100 - i);
        }
        show_control(table->get_node());
        lay_out();
    }
    void add(int section, const std::string& first, const std::string& second, int value = 0,
             float size = 0) {
        const auto one = label(first, size);
        const auto other = label(second, size);
        table->add_row(value, 0, section, {one.get(), other.get()});
    }
    void add_header_and_footer() {
        add(ui::ILabelTable::header, "Name", "Square", 0, 13);
        add(ui::ILabelTable::footer, "Sum", "many", 0, 13);
        lay_out();
    }
    void lay_out() {
        table->begin_update();
        table->end_update();
    }
    void TearDown() override {
        table.reset();
        list_control_pictures::TearDown();
    }
    com::ptr<ui::ILabelTable> table;
};

TEST_F(label_table_pictures, of_all_states) {
    sheet states(columns, 4, width, height);
    make(4);
    put(states);  // idle
    hover(2);
    put(states);  // hot
    press_label(2);
    put(states);  // selected, hot
    hover(6);
    put(states);  // selected, another one hot
    mouse(input::mouse::event_type::leave, 0, 0);
    press_label(4, with_control);
    put(states);  // two neighbours
    press_label(2, with_control);
    press_label(0, with_control);
    put(states);  // the first and the third one, the second one with its color again
    table->set_compare([](int a, int b) { return a - b; });
    lay_out();
    put(states);  // sorted
    make(3);
    add_header_and_footer();
    press_label(0);
    put(states);  // with a header and a footer
    table->clear();
    lay_out();
    put(states);  // empty
    make(0);
    add(ui::ILabelTable::body, "two\nlines", "and a column that is wide", 0, 14);
    add(ui::ILabelTable::body, "row", "1");
    add(ui::ILabelTable::body, "row", "2");
    add_header_and_footer();
    press_label(0);
    hover(2);
    put(states);  // rows of different sizes, wider than the table
    make(30);
    add_header_and_footer();
    press_label(2);
    hover(4);
    put(states);  // more than there is room for
    wheel(input::mouse::event_type::wheel, on(4), -120);
    wheel(input::mouse::event_type::horizontal_wheel, {20, 40}, -120);
    put(states);  // scrolled
    EXPECT_TRUE(test_support::matches_golden(states.image(), "controls/label_table", allowed));
}

}  // namespace
}  // namespace d2d
