// Sizes of a scroll area: which bars it shows, and where its parts lie.

#include "controls/node_placement.h"
#include "controls/scroll_area.h"

#include <utility>

namespace d2d {
namespace {

constexpr float line_step = 16;  // kept in the bars' ranges

void place(scene::INode& node, const scroll_area_part& part) {
    node.set_clip_rect({0, 0, part.size.width, part.size.height});
    place_node(node, part.origin);
}

void place_fixed_part(const scroll_area_margin& margin, const scroll_area_part& part) {
    place(*margin.fixed_node, part);
    const com::ptr<scene::layout::IElement> element = margin.element;
    if (!element) return;
    const D2D_RECT_F& inset = margin.element_inset;
    element->arrange({inset.left, inset.top, part.size.width - inset.right, part.size.height - inset.bottom});
}

}  // namespace

scene::layout::metrics scroll_area::measure() {
    using scene::layout::unlimited;
    return {{},
            {scroll_area_bar_thickness, scroll_area_bar_thickness},
            {unlimited, unlimited},
            scene::size_of(content_bounds)};
}

void scroll_area::arrange(D2D_RECT_F new_rect) {
    if (scene::same_edges(new_rect, rect)) return;
    const D2D_SIZE_F old_size = scene::size_of(rect);
    const D2D_SIZE_F new_size = scene::size_of(new_rect);
    const bool is_move = new_size.width == old_size.width && new_size.height == old_size.height;
    reporting_view([&] {
        rect = new_rect;
        if (!is_move) return update(true);
        // Kept: a move draws nothing, the separators stay as they were drawn.
        view = view_in_area();
        place_parts();
    });
}

void scroll_area::set_content_bounds(D2D_RECT_F bounds) {
    if (scene::same_edges(bounds, content_bounds)) return;
    reporting_view([&] {
        content_bounds = bounds;
        update(false);
    });
}

void scroll_area::set_margin_scrolled_size(int number, float size) {
    margin& changed = margin_at(number);
    resize_part(&margin::scrolled_size, *changed.scrolled_clip_node, changed, size);
}

void scroll_area::set_margin_fixed_size(int number, float size) {
    margin& changed = margin_at(number);
    resize_part(&margin::fixed_size, *changed.fixed_node, changed, size);
}

void scroll_area::set_margin_element(int number, com::ptr<scene::layout::IElement> element,
                                     D2D_RECT_F inset) {
    margin& changed = margin_at(number);
    if (changed.element == element && scene::same_edges(changed.element_inset, inset)) return;
    changed.element_inset = inset;
    std::swap(changed.element, element);  // the former one may hold the area: it goes at the end
    if (!changed.element) return;
    reporting_view([&] { update(true); });
}

void scroll_area::resize_part(float margin::*size, scene::INode& part, margin& of, float new_size) {
    if (of.*size == new_size) return;
    reporting_view([&] {
        const float old_size = std::exchange(of.*size, new_size);
        if (old_size == 0) node->add_child(&part);
        if (new_size == 0) node->remove_child(&part);
        update(true);
    });
}

D2D_RECT_F scroll_area::margin_sums() const noexcept {
    const auto sum = [this](side which) { return at(which).fixed_size + at(which).scrolled_size; };
    return {sum(side::left), sum(side::top), sum(side::right), sum(side::bottom)};
}

D2D_RECT_F scroll_area::view_in_area() const {
    return style->content_rect(without_scroll_bars(rect, bars), margin_sums());
}

void scroll_area::update(bool force) {
    const D2D_RECT_F without_bars = style->content_rect(rect, margin_sums());
    const scroll_bars_shown former =
        std::exchange(bars, needed_scroll_bars(scene::size_of(without_bars), scene::size_of(content_bounds)));
    const bool place_all = force || bars != former;
    hide_bars();
    view = view_in_area();
    view_size = scene::size_of(view);
    update_ranges();
    if (place_all) {
        draw_separators();
        place_parts();
    }
    show_bars();
}

void scroll_area::hide_bars() {
    if (!bars.vertical) node->remove_child(vertical_bar->get_node());
    if (!bars.horizontal) node->remove_child(horizontal_bar->get_node());
}

void scroll_area::show_bars() {
    const auto show = [this](const com::ptr<scene::INode>& bar) {
        if (!bar->get_parent()) node->add_child(bar);
    };
    if (bars.vertical) show(vertical_bar->get_node());
    if (bars.horizontal) show(horizontal_bar->get_node());
}

void scroll_area::update_ranges() {
    apply(clamped_scroll_position(scroll_position, content_bounds, view_size));
    const D2D_RECT_F& content = content_bounds;
    horizontal_bar->set_range(
        {scroll_position.x, content.left, content.right - view_size.width, view_size.width, line_step});
    vertical_bar->set_range(
        {scroll_position.y, content.top, content.bottom - view_size.height, view_size.height, line_step});
}

void scroll_area::draw_separators() {
    const auto context = node->draw(false);
    style->draw_separators(context.get(), without_scroll_bars(rect, bars), margin_sums());
    context->commit();
}

scroll_area_layout scroll_area::layout() const noexcept {
    return {rect,
            bars,
            view,
            {at(side::left).fixed_size, at(side::top).fixed_size, at(side::right).fixed_size,
             at(side::bottom).fixed_size}};
}

/// Works the layout out anew for each part: an element that is laid out may change the area.
void scroll_area::place_parts() {
    place(*viewport_node, layout().viewport());
    place_margins();
    horizontal_bar->arrange(layout().horizontal_bar());
    vertical_bar->arrange(layout().vertical_bar());
}

void scroll_area::place_margins() {
    for (const side which : scroll_area_sides) {
        const margin& placed = at(which);
        if (placed.scrolled_size != 0) {
            place(*placed.scrolled_clip_node, layout().scrolled_part(which, placed.scrolled_size));
        }
    }
    for (const side which : scroll_area_sides) {
        const margin& placed = at(which);
        // Kept: what is laid out on the left is told of a part without width, too.
        if (placed.fixed_size != 0 || which == side::left) {
            place_fixed_part(placed, layout().fixed_part(which, placed.fixed_size));
        }
    }
}

}  // namespace d2d
