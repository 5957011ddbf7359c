#pragma once

#include "controls/control_impl.h"
#include "controls/scroll_bar_geometry.h"
#include "d2d/ui/IScrollBarStyle.h"

#include <list>

namespace d2d {

/// The node is the track; the thumb is a child of it, drawn at its own origin and moved by its transform.
class scroll_bar : public control_impl<scroll_bar, ui::IScrollBarStyle, ui::IScrollBar> {
public:
    scroll_bar(orientation bar_orientation, const range& bar_range, const D2D_RECT_F& bar_rect,
               IUnknown* style_source);
    void final_construct();
    /// A track that outlives its bar shows no thumb.
    void final_release();

    // IElement
    scene::layout::metrics measure() override;
    void arrange(D2D_RECT_F new_rect) override;

    // IScrollBar
    void set_position(float position) override;
    float get_position() override { return current.position; }
    range get_range() override { return current; }
    void set_range(range new_range) override;
    position_token add_position_listener(position_function listener) override;
    void remove_position_listener(position_token token) override;

protected:
    ~scroll_bar() = default;

private:
    [[nodiscard]] scroll_bar_geometry geometry() const noexcept { return {axis, current, rect}; }

    void draw_track();
    void draw_thumb();
    void place_thumb();
    void place_thumb(D2D_POINT_2F place);

    void press_track(const input::mouse::event& event);
    void drag_thumb(D2D_POINT_2F grip);
    void drag_to(const scroll_bar_geometry::drag_result& target);
    void move_to(float position);
    template <class Place>
    void tell_listeners(float position, Place place);

    const com::ptr<scene::INode> thumb_node = scene::create_node();
    range current;
    const orientation axis;
    std::list<position_function> listeners;
};

}  // namespace d2d
