#pragma once

#include "controls/testing/fake_label.h"
#include "controls/testing/named_style.h"
#include "d2d/ui/ILabelTable.h"
#include "scene/testing/input_test.h"

#include <map>
#include <optional>
#include <string>
#include <vector>

namespace d2d::fakes {

/// A fixture: a table of two columns in a scroll area of 100 by 100, with a style that names its keys. Labels
/// are 20 by 10 without content, so columns lie at 8 to 28 and 36 to 56, and rows at 2 to 12, 14 to 24 and so
/// on. A row is known by its key.
class label_table_fixture : public scene::fakes::input_test {
protected:
    using mouse_button = input::mouse::button;
    using ILabelTable = ui::ILabelTable;
    using keys = std::vector<ILabelTable::row_key>;
    using labels = std::vector<com::ptr<fake_label>>;

    static constexpr int header = ILabelTable::header;
    static constexpr int body = ILabelTable::body;
    static constexpr int footer = ILabelTable::footer;
    static constexpr std::uint32_t left_held = 1, shift = 4, control = 8;  // as the events have them

    void SetUp() override {
        input_test::SetUp();
        look.emplace();
        look->settings->numbers["selection.corner.radius"] = 3;
        table = ui::create_label_table(look->get());
        table->arrange({0, 0, 100, 100});
        own = table->get_node();
        root->add_child(own);
        show();
    }
    void TearDown() override {
        site.drag = nullptr;
        site.while_detecting = nullptr;
        for (const auto& [key, of_row] : rows) {
            for (const auto& each : of_row)
                each->on_measure = each->on_arrange = each->on_set_brush = nullptr;
        }
        drop_table();
        rows.clear();
        look.reset();
        input_test::TearDown();
    }
    void drop_table() {
        table.reset();
        if (own && own->get_parent()) root->remove_child(own);
        own.reset();
    }

    /// Two labels for a row, which write down "<key>: set_brush".
    const labels& make_labels(int key) {
        labels made;
        for (int i = 0; i < 2; ++i) {
            made.push_back(com::create_object<fake_label>(D2D_RECT_F{}, [this, key](const std::string& line) {
                site.calls.push_back(std::to_string(key) + ": " + line);
            }));
            made.back()->measured.preferred_size = {20, 10};
        }
        return rows[key] = made;
    }
    void add(int key, int section = body, int value = 0) {
        const labels& made = make_labels(key);
        table->add_row(value, key, section, {made[0].get(), made[1].get()});
    }
    void insert(unsigned index, int key, int section = body, int value = 0) {
        const labels& made = make_labels(key);
        table->insert_row(index, section, value, key, {made[0].get(), made[1].get()});
    }
    /// Rows of the body with the keys 1 to `count`, shown.
    void fill(int count) {
        for (int key = 1; key <= count; ++key) add(key);
        lay_out();
        forget();
    }
    void lay_out() {
        table->begin_update();
        table->end_update();
    }
    [[nodiscard]] fake_label& label(int key, std::size_t column = 0) { return *rows.at(key)[column]; }
    /// "8 2 28 12"
    [[nodiscard]] std::string place(int key, std::size_t column = 0) {
        return scene::fakes::call_text(label(key, column).rect);
    }
    /// The key that the labels of a row have their brush by, "none" ahead of the first.
    [[nodiscard]] std::string color(int key) {
        const auto& of_row = rows.at(key);
        EXPECT_EQ(of_row[0]->brush, of_row[1]->brush);
        return of_row[0]->brush ? look->settings->key_of(of_row[0]->brush.get()) : "none";
    }
    /// A point in the middle of a row of the body, counted from 0, while the body is not scrolled and there
    /// is no header.
    [[nodiscard]] static D2D_POINT_2F in_row(int index) {
        return {20, 7.0f + 12.0f * static_cast<float>(index)};
    }

    void move_to(D2D_POINT_2F point) { move(point.x, point.y); }
    void leave() { mouse(input::mouse::event_type::leave, 0, 0); }
    void press_at(D2D_POINT_2F point, std::uint32_t flags = left_held,
                  std::optional<mouse_button> pressed = mouse_button::left) {
        edge->on_mouse_event({input::mouse::event_type::button_down, pressed, flags, point, 0});
    }
    void press_row(int index, std::uint32_t flags = left_held) { press_at(in_row(index), flags); }

    [[nodiscard]] keys selected() const { return table->get_selected_keys(); }
    [[nodiscard]] lines shapes() { return look->shapes_of(painted()); }

    std::optional<named_style> look;
    com::ptr<ILabelTable> table;
    com::ptr<scene::INode> own;  // the table's
    std::map<int, labels> rows;
};

}  // namespace d2d::fakes
