#pragma once

#include "controls/control_impl.h"
#include "controls/mouse_state.h"
#include "controls/popup_options/option_list.h"
#include "scene/handler_slot.h"

namespace d2d::popup_options {

/// The control itself: closed, it draws its frame around the selected label; while the list is open, nothing.
class control : public control_impl<control, ui::IPopupOptionsStyle, ui::IPopupOptions> {
public:
    using change_function = std::function<void(std::optional<int>)>;

    control(const D2D_RECT_F& control_rect, std::span<const option> shown, IUnknown* style_source);
    void final_construct();
    /// A list that is open goes with its control, and chooses nothing.
    void final_release();

    // IElement
    scene::layout::metrics measure() override;
    void arrange(D2D_RECT_F new_rect) override;

    // IPopupOptions
    void set_on_change(change_function handler) override;
    void set_selected(std::optional<int> id) override;
    std::optional<int> get_selected() const override { return selected; }

protected:
    ~control() = default;

private:
    [[nodiscard]] com::ptr<scene::INode> selected_node() const;
    void show_selected();
    void hide_selected();
    void shape_outline();
    void refresh();

    [[nodiscard]] bool handle_mouse(int depth, const input::mouse::event& event);
    void open();
    void end(std::optional<int> choice);
    void close();

    const std::vector<option> options;
    std::optional<int> selected;
    mouse_state mouse;
    std::shared_ptr<option_list> list;  // while it is open
    scene::handler_slot<change_function> on_change;
    com::ptr<ID2D1RoundedRectangleGeometry> outline;
};

}  // namespace d2d::popup_options
