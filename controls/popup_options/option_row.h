#pragma once

#include "controls/mouse_state.h"
#include "d2d/ui/IPopupOptions.h"
#include "d2d/ui/IPopupOptionsStyle.h"

namespace d2d::popup_options {

/// A row of an open list: an option's label on a background that shows what the mouse does.
class option_row {
public:
    /// Takes the label from wherever it is.
    option_row(const ui::IPopupOptions::option& option, D2D_SIZE_F size, ui::IPopupOptionsStyle& style);
    /// Gives the label back, free.
    void release_label() const;

    void count_hover(const input::mouse::event& event, ui::IPopupOptionsStyle& style);
    void forget_mouse() noexcept { mouse = {}; }

    [[nodiscard]] bool is_hovered() const noexcept { return hovered; }
    void set_hovered(bool value, ui::IPopupOptionsStyle& style);
    void show_unhovered(ui::IPopupOptionsStyle& style) const;

    const com::ptr<scene::INode> node = scene::create_node();
    const int id;

private:
    void redraw(ui::IPopupOptionsStyle& style) const;

    const com::ptr<ui::ILabel> label;
    const com::ptr<ID2D1RoundedRectangleGeometry> geometry;
    mouse_state mouse;
    bool hovered = false;  // by the drag that chooses
};

}  // namespace d2d::popup_options
