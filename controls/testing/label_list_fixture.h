#pragma once

#include "controls/testing/fake_label.h"
#include "controls/testing/named_style.h"
#include "d2d/ui/ILabelList.h"
#include "scene/testing/input_test.h"

#include <optional>
#include <string>
#include <vector>

namespace d2d::fakes {

/// A fixture: a list of 100 by 100 with a style that names its keys, in a window with the focus. Labels are
/// 20 by 10, so rows are 34 by 14, one below the other from 0 on, and the first label lies at (6, 1, 28, 13).
class label_list_fixture : public scene::fakes::input_test {
protected:
    using mouse_button = input::mouse::button;

    void SetUp() override {
        input_test::SetUp();
        look.emplace();
        make_list(look->get());
        show();
        edge->on_focus_gained();
    }
    void TearDown() override {
        for (const auto& each : labels) each->on_measure = each->on_arrange = each->on_set_brush = nullptr;
        drop_list();
        labels.clear();
        look.reset();
        input_test::TearDown();
    }
    void make_list(ui::IStyle* style) {
        list = ui::create_label_list(style);
        list->arrange({0, 0, 100, 100});
        own = list->get_node();
        root->add_child(own);
    }
    void drop_list() {
        list.reset();
        if (own && own->get_parent()) root->remove_child(own);
        own.reset();
    }

    /// A label that is filled, and writes down "<number>: set_brush", counted from 0.
    fake_label& make_label() {
        const auto number = labels.size();
        labels.push_back(
            com::create_object<fake_label>(D2D_RECT_F{}, [this, number](const std::string& line) {
                site.calls.push_back(std::to_string(number) + ": " + line);
            }));
        fake_label& made = *labels.back();
        made.measured.max_size = made.measured.preferred_size = {20, 10};
        return made;
    }
    /// Rows with labels that cover their places, and the values 10, 11 and so on.
    void fill(int count) {
        for (int i = 0; i < count; ++i) append();
        for (const auto& each : labels) record(each->node, each->rect);
        forget();
    }
    void append() {
        const int value = 10 + static_cast<int>(labels.size());
        list->insert_item(-1, &make_label(), value);
    }

    [[nodiscard]] static D2D_POINT_2F on_label(int row) { return {16, 7 + 14 * static_cast<float>(row)}; }
    [[nodiscard]] static D2D_POINT_2F beside_label(int row) { return {3, 7 + 14 * static_cast<float>(row)}; }
    static constexpr D2D_POINT_2F outside{90, 90};

    void move_to(D2D_POINT_2F point) { move(point.x, point.y); }
    void press_at(D2D_POINT_2F point, std::optional<mouse_button> pressed = mouse_button::left) {
        edge->on_mouse_event({input::mouse::event_type::button_down, pressed, 1, point, 0});
    }
    /// The node that has the rows, and takes the focus.
    [[nodiscard]] static com::ptr<scene::INode> content_of(const fake_label& label) {
        return label.node->get_parent()->get_parent();
    }
    [[nodiscard]] std::string place(std::size_t row) const {
        return scene::fakes::call_text(labels[row]->rect);
    }
    [[nodiscard]] std::string color(std::size_t row) const {
        scene::IBrush* const brush = labels[row]->brush.get();
        return brush ? look->settings->key_of(brush) : "none";
    }
    [[nodiscard]] lines shapes() { return look->shapes_of(painted()); }

    std::optional<named_style> look;
    com::ptr<ui::ILabelList> list;
    com::ptr<scene::INode> own;  // the list's
    std::vector<com::ptr<fake_label>> labels;
};

}  // namespace d2d::fakes
