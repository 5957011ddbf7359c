// What is selected in a label table, and which row is under the mouse.

#include "controls/label_table/control.h"
#include "controls/style_brush.h"
#include "d2d/factory.h"

#include <algorithm>
#include <stdexcept>

#include <windows.h>

namespace d2d::ui::label_table {
namespace {

template <class Rows, class T>
std::vector<T> collect_selected(const Rows& rows, T row::*field) {
    std::vector<T> found;
    for (const row* const each : rows) {
        if (each->selected) found.push_back(each->*field);
    }
    return found;
}

template <class T>
std::optional<T> only_one(const std::vector<T>& found) {
    if (found.size() > 1) throw std::logic_error("more than one item selected");
    return found.empty() ? std::nullopt : std::optional(found.front());
}

}  // namespace

/// The brushes of labels, each fetched when it is needed first.
class control::label_brushes {
public:
    explicit label_brushes(const control& of) noexcept : of_(of) {}

    [[nodiscard]] const com::ptr<scene::IBrush>& get(bool selected) {
        auto& wanted = selected ? selected_ : other_;
        if (!wanted) wanted = of_.brush(selected ? "selected.text" : "text");
        return wanted;
    }

private:
    const control& of_;
    com::ptr<scene::IBrush> selected_;
    com::ptr<scene::IBrush> other_;
};

std::vector<ILabelTable::row_key> control::get_selected_keys() const {
    return collect_selected(body_rows(), &row::key);
}

std::vector<ILabelTable::sort_value> control::get_selected_values() const {
    return collect_selected(body_rows(), &row::value);
}

std::optional<ILabelTable::row_key> control::get_selected_key() const {
    return only_one(get_selected_keys());
}

std::optional<ILabelTable::sort_value> control::get_selected_value() const {
    return only_one(get_selected_values());
}

void control::select_by_click(std::size_t clicked, std::uint32_t flags) {
    if (!multi_select || flags == MK_LBUTTON) {
        select_range(clicked, clicked);
    } else if (flags == (MK_LBUTTON | MK_SHIFT)) {
        if (!anchor) anchor = clicked;
        select_range(std::min(*anchor, clicked), std::max(*anchor, clicked));
    } else if (flags == (MK_LBUTTON | MK_CONTROL)) {
        anchor = clicked;
        toggle(clicked);
    }
}

void control::select_range(std::size_t first, std::size_t last) {
    label_brushes brushes(*this);
    for (std::size_t i = 0; i < body_rows().size(); ++i) {
        set_selected(*body_rows()[i], i >= first && i <= last, brushes);
    }
    draw_selection();
    draw_hot_row();
}

void control::toggle(std::size_t index) {
    label_brushes brushes(*this);
    row& changed = *body_rows()[index];
    set_selected(changed, !changed.selected, brushes);
    draw_selection();
    draw_hot_row();
}

void control::set_selected(row& changed, bool selected, label_brushes& brushes) {
    if (changed.selected == selected) return;
    changed.selected = selected;
    for (const cell& each : changed.cells) each.label->set_brush(brushes.get(selected));
}

void control::set_hot_row(std::optional<std::size_t> index) {
    if (hot_row == index) return;
    hot_row = index;
    draw_hot_row();
}

com::ptr<scene::IBrush> control::brush(std::string_view key) const {
    return style_brush(*style->get_settings(), key);
}

com::ptr<ID2D1Geometry> control::shape_around(const row& first, const row& last, float shrunk_by) {
    const float radius = style->get_settings()->get_float("selection.corner.radius").value_or(0.0f);
    const D2D_RECT_F area{columns.all().front().start + shrunk_by, first.outer_start() + shrunk_by,
                          columns.all().back().end - shrunk_by, last.outer_end() - shrunk_by};
    return factory::create_rounded_rect_geometry({area, radius, radius});
}

/// Adjacent rows are drawn as one.
void control::draw_selection() {
    const auto context = background_node->draw(false);
    const auto is_selected = [](const row* each) { return each->selected; };
    const auto end = body_rows().end();
    auto first = std::find_if(body_rows().begin(), end, is_selected);
    if (!columns.empty() && first != end) {
        const auto filled_with = brush("selected.background");
        while (first != end) {
            const auto behind = std::find_if_not(first, end, is_selected);
            context->fill_geometry(shape_around(**first, *behind[-1], 0).get(), filled_with.get());
            first = std::find_if(behind, end, is_selected);
        }
    }
    context->commit();
}

void control::draw_hot_row() {
    if (!hot_row || *hot_row >= body_rows().size() || columns.empty()) {
        if (hot_node) background_node->remove_child(std::exchange(hot_node, nullptr));
        return;
    }
    if (!hot_node) {
        hot_node = scene::create_node();
        background_node->add_child(hot_node);
    }
    constexpr float half_stroke = 0.5f;
    const row& drawn = *body_rows()[*hot_row];
    const auto shape = shape_around(drawn, drawn, half_stroke);
    const auto context = hot_node->draw(false);
    context->fill_geometry(shape.get(),
                           brush(drawn.selected ? "hot.selected.background" : "hot.background").get());
    context->draw_geometry(shape.get(), brush(drawn.selected ? "hot.selected.outline" : "hot.outline").get(),
                           1, nullptr);
    context->commit();
}

}  // namespace d2d::ui::label_table
