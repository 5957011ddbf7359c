#pragma once

#include "com/object.h"
#include "controls/control_impl.h"
#include "controls/scroll_area_geometry.h"
#include "controls/scroll_area_margin.h"
#include "d2d/ui/IScrollArea.h"
#include "d2d/ui/IScrollAreaStyle.h"
#include "d2d/ui/IScrollBar.h"
#include "scene/handler_slot.h"
#include "scene/rectangle.h"

#include <array>
#include <memory>

namespace d2d {

/// A viewport on a content node, with bars and margins around it. A step of scrolling changes transforms
/// alone, so that it costs the same whatever the content.
///
/// The node tree:
///
///     node ── viewport ── content
///       ├──── of each margin, while it has a size: fixed part, clip of the scrolled part ── scrolled part
///       └──── the bars that are shown
class scroll_area : public control_impl<scroll_area, ui::IScrollAreaStyle, ui::IScrollArea> {
public:
    scroll_area(const D2D_RECT_F& initial_rect, IUnknown* style_source);
    void final_construct();

    // IElement
    scene::layout::metrics measure() override;
    void arrange(D2D_RECT_F new_rect) override;

    // IScrollArea
    void reserved() override;
    void set_content_bounds(D2D_RECT_F bounds) override;
    D2D_POINT_2F get_scroll_position() override { return scroll_position; }
    void set_scroll_position(float x, float y) override;
    void add_content(com::ptr<scene::INode> added) override;
    void remove_content(com::ptr<scene::INode> removed) override;
    void set_margin_scrolled_size(int number, float size) override;
    void add_margin_scrolled_node(int number, com::ptr<scene::INode> added) override;
    void remove_margin_scrolled_node(int number, com::ptr<scene::INode> removed) override;
    void set_margin_fixed_size(int number, float size) override;
    void set_margin_element(int number, com::ptr<scene::layout::IElement> element, D2D_RECT_F inset) override;
    void add_margin_fixed_node(int number, com::ptr<scene::INode> added) override;
    void remove_margin_fixed_node(int number, com::ptr<scene::INode> removed) override;
    void set_wheel_mode(int mode) override;
    void set_alignment(int x, int y) override;
    D2D_RECT_F get_view_rect() override;
    void set_view_changed_handler(view_function handler) override;

protected:
    ~scroll_area();

private:
    using margin = scroll_area_margin;
    using side = scroll_area_side;
    using orientation = ui::IScrollBar::orientation;

    /// Does work that can change what is visible, and tells the owner if it has, also when the work throws.
    template <class Work>
    void reporting_view(Work&& work);
    void report_view_since(const D2D_RECT_F& before);

    // Layout.
    /// Chooses the bars and brings everything up to date that follows from sizes. The parts are placed when
    /// the bars have changed, or by `force`.
    void update(bool force);
    [[nodiscard]] D2D_RECT_F margin_sums() const noexcept;
    /// What margins and bars leave of the area.
    [[nodiscard]] D2D_RECT_F view_in_area() const;
    void hide_bars();
    void show_bars();
    void update_ranges();
    void draw_separators();
    [[nodiscard]] scroll_area_layout layout() const noexcept;
    void place_parts();
    void place_margins();
    [[nodiscard]] margin& margin_at(int number);
    [[nodiscard]] margin& at(side which) noexcept { return margins[static_cast<std::size_t>(which)]; }
    [[nodiscard]] const margin& at(side which) const noexcept {
        return margins[static_cast<std::size_t>(which)];
    }
    void resize_part(float margin::*size, scene::INode& part, margin& of, float new_size);

    // Scrolling.
    void listen_to_bars();
    [[nodiscard]] ui::IScrollBar::position_function make_listener(orientation of);
    void show_bar_position(orientation of, float value);
    void listen_to_wheel();
    [[nodiscard]] bool handle_wheel(int depth, const input::mouse::event& event);
    void scroll_to(D2D_POINT_2F position);
    /// Shows a position as it is, and moves what has to move.
    void apply(D2D_POINT_2F position);

    const com::ptr<scene::INode> viewport_node = scene::create_node();
    const com::ptr<scene::INode> content_node = scene::create_node();
    std::array<margin, 4> margins;
    const com::ptr<ui::IScrollBar> vertical_bar;
    const com::ptr<ui::IScrollBar> horizontal_bar;
    ui::IScrollBar::position_token vertical_listener = nullptr;
    ui::IScrollBar::position_token horizontal_listener = nullptr;
    // How many listeners are running. They read it when the area may be gone.
    const std::shared_ptr<int> running_listeners = std::make_shared<int>(0);
    scroll_bars_shown bars;
    D2D_RECT_F view{0, 0, 1, 1};  // in the node's space
    D2D_SIZE_F view_size{1, 1};
    D2D_RECT_F content_bounds{0, 0, 1, 1};
    D2D_POINT_2F scroll_position{};
    D2D_POINT_2F applied_offset{};  // what the content has been moved back by
    scroll_wheel_mode wheel_mode = scroll_wheel_mode::down;
    scroll_area_alignment alignment;
    scene::handler_slot<view_function> view_changed;
};

template <class Work>
void scroll_area::reporting_view(Work&& work) {
    const com::ptr<scroll_area> keep = this;  // elements, and who hears of the view, may drop the area
    if (!view_changed) return work();
    const D2D_RECT_F before = get_view_rect();
    try {
        work();
    } catch (...) {
        try {
            report_view_since(before);
        } catch (...) {
            // Of two failures the first passes on: what the owner meets in a view half changed follows from
            // it.
        }
        throw;
    }
    report_view_since(before);
}

}  // namespace d2d
