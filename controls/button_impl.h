#pragma once

#include "com/weak_ptr.h"
#include "controls/button_behavior.h"
#include "controls/control_impl.h"
#include "controls/node_placement.h"

#include <utility>

namespace d2d {

/// The one implementation of push button, check box and radio button. `Style` has the operations of
/// `ui::IButtonStyle` and decides all that is drawn; where things go is decided here and in `Derived`, which
/// may hide `content_rect`.
template <class Derived, class Style, class Interface>
class button_impl : public control_impl<Derived, Style, Interface>, protected button_behavior {
public:
    void final_construct() {
        place_label();
        node->add_child(label->get_node());
        const com::weak_ptr<button_impl> weak(this);
        node->add_mouse_handler([weak](scene::INode*, int, input::mouse::event event) {
            const auto self = weak.lock();
            return self && self->handle_mouse(*self->node, event);
        });
        node->set_focus_handler(false, [weak](scene::INode*, scene::INode*) {
            if (const auto self = weak.lock()) self->refresh();
        });
        refresh();
    }

    // IElement
    void arrange(D2D_RECT_F new_rect) override {
        rect = new_rect;
        place_label();
        refresh();
    }

    // IButton
    bool is_checked() override { return checked; }
    void set_checked(bool value) override { change_checked(value); }
    void set_enabled(bool value) override { override_enabled(value); }
    void set_on_click(click_function handler) override { replace_on_click(std::move(handler)); }

    /// Where the style places the label.
    [[nodiscard]] D2D_RECT_F content_rect() const noexcept { return rect; }

protected:
    using control = control_impl<Derived, Style, Interface>;
    using control::node;
    using control::rect;
    using control::style;

    button_impl(ui::ILabel* shown, D2D_RECT_F initial_rect, bool latches, IUnknown* style_source)
        : control(style_source, initial_rect), button_behavior(shown, latches) {}

    ~button_impl() {
        node->add_mouse_handler(nullptr);
        node->set_focus_handler(false, nullptr);
    }

private:
    void place_label() {
        const D2D_RECT_F content = this->derived()->content_rect();
        transform_node(*label->get_node(), style->place_label(content, label.get()));
    }

    void refresh() override {
        const auto context = node->draw(false);
        const bool enabled = is_enabled();
        const bool hot = mouse.is_hot();
        const bool down = mouse.is_down();
        label->set_brush(style->label_brush(enabled, hot, down, checked));
        style->draw(context.get(), rect, enabled, hot, down, checked, node->has_focus(false));
        context->commit();
    }
};

}  // namespace d2d
