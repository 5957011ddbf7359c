#pragma once

#include "controls/control_impl.h"
#include "controls/mouse_state.h"
#include "d2d/ui/ICommandStrip.h"
#include "d2d/ui/ICommandStripStyle.h"

#include <memory>
#include <span>
#include <vector>

namespace d2d {

/// The strip's node draws the outline over the nodes of the cells, its children.
class command_strip : public control_impl<command_strip, ui::ICommandStripStyle, ui::ICommandStrip> {
public:
    command_strip(bool is_vertical, D2D_SIZE_F cell, std::span<const ui::ICommandStrip::button> shown,
                  IUnknown* style_source);
    void final_construct();

    // IElement
    scene::layout::metrics measure() override;
    void arrange(D2D_RECT_F new_rect) override;

protected:
    ~command_strip() = default;

private:
    struct button;

    void add_button(D2D_POINT_2F centre, const com::ptr<ID2D1PathGeometry>& shape, ui::ILabel& label);
    [[nodiscard]] com::ptr<ID2D1PathGeometry> cell_shape(const D2D_RECT_F& area) const;
    void draw_outline();
    void redraw(const button& drawn);
    void handle_mouse(button& at, const input::mouse::event& event);

    mouse_state mouse;
    std::vector<std::shared_ptr<button>> buttons;
    com::ptr<ID2D1RoundedRectangleGeometry> outline_shape;
};

}  // namespace d2d
