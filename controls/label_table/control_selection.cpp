// What is selected in a label table, and which row is under the mouse.

#include "controls/label_table/control.h"
#include "controls/style_brush.h"
#include "d2d/factory.h"

#include <algorithm>
#include <stdexcept>
#include <utility>
#include <vector>

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

std::span<row* const> control::candidates() const noexcept {
    return body_rows().subspan(selection.first, selection.end - selection.first);
}

std::vector<ILabelTable::row_key> control::get_selected_keys() const {
    return collect_selected(candidates(), &row::key);
}

std::vector<ILabelTable::sort_value> control::get_selected_values() const {
    return collect_selected(candidates(), &row::value);
}

std::optional<ILabelTable::row_key> control::get_selected_key() const {
    return only_one(get_selected_keys());
}

std::optional<ILabelTable::sort_value> control::get_selected_value() const {
    return only_one(get_selected_values());
}

void control::select_by_click(std::size_t clicked, std::uint32_t flags) {
    if (!multi_select || flags == MK_LBUTTON) {
        select_only({clicked, clicked + 1});
    } else if (flags == (MK_LBUTTON | MK_SHIFT)) {
        if (!anchor) anchor = clicked;
        select_only({std::min(*anchor, clicked), std::max(*anchor, clicked) + 1});
    } else if (flags == (MK_LBUTTON | MK_CONTROL)) {
        anchor = clicked;
        toggle(clicked);
    }
}

void control::select_only(index_range wanted) {
    wanted.end = std::min(wanted.end, body_rows().size());  // a range may begin where rows have gone
    selection = range_around(selection, wanted);
    std::vector<row*> changed;  // none outside of the selection
    for (std::size_t i = selection.first; i < selection.end; ++i) {
        row* const each = body_rows()[i];
        if (each->selected != wanted.contains(i)) changed.push_back(each);
    }
    turn_over(changed);
}

void control::toggle(std::size_t index) {
    selection = range_around(selection, {index, index + 1});
    row* const changed = body_rows()[index];
    turn_over({&changed, 1});
}

void control::turn_over(std::span<row* const> changed) {
    label_brushes brushes(*this);
    std::vector<std::pair<com::ptr<ILabel>, com::ptr<scene::IBrush>>> colors;
    for (const row* const each : changed) {
        for (const cell& shows : each->cells) colors.emplace_back(shows.label, brushes.get(!each->selected));
    }
    for (row* const each : changed) each->selected = !each->selected;
    for (const auto& [label, color] : colors) label->set_brush(color);
    draw_selection();
    draw_hot_row();
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
    const auto runs = selected_runs(body_rows(), selection);
    selection = runs.empty() ? index_range{} : range_around(runs.front(), runs.back());
    const auto context = background_node->draw(false);
    if (!runs.empty() && !columns.empty()) {
        const auto filled_with = brush("selected.background");
        for (const index_range& run : runs) {
            const auto shape = shape_around(*body_rows()[run.first], *body_rows()[run.end - 1], 0);
            context->fill_geometry(shape.get(), filled_with.get());
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
