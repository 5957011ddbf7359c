#include "controls/popup_options/option_list.h"

#include "controls/node_placement.h"
#include "d2d/factory.h"
#include "scene/matrix.h"
#include "scene/rectangle.h"

#include <algorithm>
#include <utility>

namespace d2d::popup_options {
namespace {

constexpr float border = 1;

/// Rows have the height of what is inside the control's border, and touch.
D2D_SIZE_F row_size(const D2D_RECT_F& rect) noexcept {
    const D2D_SIZE_F size = scene::size_of(rect);
    return {size.width - 2 * border, size.height - 2 * border};
}

}  // namespace

std::shared_ptr<option_list> option_list::create(com::ptr<ui::IPopupOptionsStyle> style,
                                                 const D2D_RECT_F& rect, std::span<const option> options,
                                                 done_function done) {
    const std::shared_ptr<option_list> list(new option_list(std::move(style), std::move(done)));
    list->draw_frame(rect, options.size());
    list->add_rows(rect, options);
    list->listen();
    return list;
}

void option_list::float_above(scene::INode& control_node) {
    floating = scene::IFloatingNode::float_node(&control_node, node.get());
    node->set_focus();
}

void option_list::take_apart() {
    node->set_focus_handler(false, nullptr);
    for (const option_row& row : std::exchange(rows, {})) {
        row.release_label();
        node->remove_child(row.node);
    }
}

void option_list::end_floating() {
    take_apart();
    floating.reset();
}

void option_list::draw_frame(const D2D_RECT_F& rect, std::size_t count) {
    constexpr float radius = 2.5f;
    const float height = static_cast<float>(count) * row_size(rect).height + 2 * border;
    const D2D_RECT_F list_rect{rect.left, rect.top, rect.right, rect.top + height};
    const auto frame = factory::create_rounded_rect_geometry({scene::inset(list_rect, 0.5f), radius, radius});
    const auto context = node->draw(false);
    style->draw_frame(context.get(), frame.get(), false, true);
    context->commit();
}

void option_list::add_rows(const D2D_RECT_F& rect, std::span<const option> options) {
    const D2D_SIZE_F size = row_size(rect);
    D2D_POINT_2F place{rect.left + border, rect.top + border};
    rows.reserve(options.size());
    for (const option& each : options) {
        const option_row& row = rows.emplace_back(each, size, *style);
        move_node(*row.node, place);
        node->add_child(row.node);
        place.y += size.height;
    }
}

void option_list::listen() {
    const std::weak_ptr<option_list> self = weak_from_this();
    for (std::size_t i = 0; i < rows.size(); ++i) {
        rows[i].node->add_mouse_handler([self, i](scene::INode*, int, input::mouse::event event) {
            const auto alive = self.lock();
            if (alive && i < alive->rows.size()) alive->rows[i].count_hover(event, *alive->style);
            return false;
        });
    }
    node->add_mouse_handler([self](scene::INode*, int depth, input::mouse::event event) {
        const auto alive = self.lock();
        return alive && alive->handle_mouse(depth, event);
    });
    node->set_focus_handler(true, [self](scene::INode* old_focus, scene::INode*) {
        const auto alive = self.lock();
        if (alive && alive->node == old_focus) alive->finish({});
    });
}

bool option_list::handle_mouse(int depth, const input::mouse::event& event) {
    using input::mouse::button;
    namespace event_type = input::mouse::event_type;
    if (event.type != event_type::button_down || event.button != button::left || depth < 0) return false;
    for (option_row& row : rows) row.forget_mouse();
    hover_at(event.position);
    node->drag_loop(button::left, [this](D2D_POINT_2F point) {
        hover_at(point);
        return false;
    });
    finish(hovered_id());
    return true;
}

void option_list::hover_at(D2D_POINT_2F point) {
    bool found = false;
    for (option_row& row : rows) {
        const bool is_hit = !found && hits(row, point);
        row.set_hovered(is_hit, *style);
        found = found || is_hit;
    }
}

bool option_list::hits(const option_row& row, D2D_POINT_2F point) const {
    const auto matrix = scene::get_transformation_matrix(node.get(), row.node.get());
    return row.node->hit_test(scene::map_point(point, matrix));
}

std::optional<int> option_list::hovered_id() const {
    const auto found = std::ranges::find_if(rows, &option_row::is_hovered);
    return found == rows.end() ? std::nullopt : std::optional(found->id);
}

/// Ends the list once: what its end causes may reach it again.
void option_list::finish(std::optional<int> choice) {
    for (const option_row& row : rows) {
        if (row.is_hovered()) row.show_unhovered(*style);
    }
    if (!std::exchange(finished, true)) on_done(choice);
}

}  // namespace d2d::popup_options
