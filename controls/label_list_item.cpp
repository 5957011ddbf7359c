#include "controls/label_list_item.h"

#include "com/object.h"
#include "d2d/factory.h"
#include "scene/layout_distribution.h"
#include "scene/rectangle.h"

#include <algorithm>
#include <utility>

namespace d2d::ui {
namespace {

struct look {
    const char* fill;
    const char* outline;
};

look look_of(bool is_selected, bool is_hot) noexcept {
    if (!is_selected) return {"hot.background", "hot.outline"};
    if (!is_hot) return {"selected.background", "selected.outline"};
    return {"hot.selected.background", "hot.selected.outline"};
}

com::ptr<ID2D1RoundedRectangleGeometry> outline_of(const D2D_RECT_F& row) {
    constexpr float half_stroke = 0.5f;
    constexpr float radius = 2;
    return factory::create_rounded_rect_geometry({scene::inset(row, half_stroke), radius, radius});
}

}  // namespace

label_list::item::item(label_list& owner, ILabel* shown, int row_value)
    : label(shown), value(row_value), list(&owner) {}

label_list::item::~item() {
    if (watched) watched->end_watch();
}

void label_list::item::final_construct() {
    node->add_child(label->get_node());
    if (label.try_as<com::IObjectInternal<text_label>>()) {
        auto own = com::internal_object<text_label>(label.get());
        if (own->watch(*this)) watched = std::move(own);
    }
    node->add_mouse_handler(
        [self = com::weak_ptr<item>(this)](scene::INode*, int, input::mouse::event event) {
            const auto alive = self.lock();
            const com::ptr<label_list> owner = alive ? alive->list : nullptr;
            if (owner) alive->handle_mouse(*owner, event);
            return false;
        });
}

scene::layout::metrics label_list::item::measure() {
    constexpr float beside = 6;
    constexpr float above = 1;
    constexpr float border = 2;
    const auto inner = label->measure();
    margin = {std::max(beside, inner.margin.left), std::max(above, inner.margin.top),
              std::max(beside, inner.margin.right), std::max(above, inner.margin.bottom)};
    const auto grown = [](D2D_SIZE_F size, float width, float height) {
        using scene::layout::saturating_sum;
        return D2D_SIZE_F{saturating_sum(width, size.width), saturating_sum(height, size.height)};
    };
    const auto outer = [&](D2D_SIZE_F size) {
        const auto spaced = grown(size, margin.left + margin.right, margin.top + margin.bottom);
        return grown(spaced, border, border);
    };
    return {
        {}, outer(inner.min_size), outer(inner.max_size), grown(outer(inner.preferred_size), border, border)};
}

void label_list::item::arrange(D2D_RECT_F new_rect) {
    const bool moves = !scene::same_edges(rect, new_rect);
    rect = new_rect;
    placing = static_cast<bool>(watched);
    label->arrange({rect.left + margin.left, rect.top + margin.top, rect.right - margin.right,
                    rect.bottom - margin.bottom});
    // What it draws lies around the label.
    if (moves && list && is_filled(*list)) redraw(*list);
}

void label_list::item::add_to(scene::layout::stack& rows, std::size_t index) {
    using scene::layout::element_changes;
    place = rows.insert_item(index, this, true, {},
                             watched ? element_changes::announced : element_changes::unknown);
}

void label_list::item::label_changed() {
    if (std::exchange(placing, false)) return;
    if (list && place) list->announce(place);
}

bool label_list::item::is_filled(const label_list& owner) const {
    return owner.is_selected(*this) || mouse.is_hot();
}

void label_list::item::redraw(const label_list& owner) {
    const auto context = node->draw(false);
    if (is_filled(owner)) {
        const look chosen = look_of(owner.is_selected(*this), mouse.is_hot());
        const auto shape = outline_of(rect);
        context->fill_geometry(shape.get(), owner.brush(chosen.fill).get());
        context->draw_geometry(shape.get(), owner.brush(chosen.outline).get(), 1, nullptr);
    }
    context->commit();
}

void label_list::item::handle_mouse(label_list& owner, const input::mouse::event& event) {
    mouse.count_hover(event, [&] { redraw(owner); });
    if (event.type == input::mouse::event_type::button_down) owner.press(*this, event);
}

}  // namespace d2d::ui
