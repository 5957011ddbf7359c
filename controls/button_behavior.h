#pragma once

#include "com/ptr.h"
#include "controls/mouse_state.h"
#include "d2d/input/mouse.h"
#include "d2d/scene/INode.h"
#include "d2d/scene/layout/metrics.h"
#include "d2d/ui/ILabel.h"
#include "scene/handler_slot.h"

#include <functional>
#include <optional>
#include <utility>

namespace d2d {

/// What buttons of all kinds are apart from their looks: a label, a state, and what the mouse does to it.
class button_behavior {
public:
    using click_function = std::function<void(bool checked)>;

protected:
    button_behavior(com::ptr<ui::ILabel> shown, bool latches) noexcept
        : label(std::move(shown)), latching(latches) {}
    ~button_behavior() = default;

    /// Draws the button as its state stands.
    virtual void refresh() = 0;

    [[nodiscard]] bool is_enabled() const noexcept {
        return enabled_override.value_or(static_cast<bool>(on_click));
    }

    void change_checked(bool value);
    void override_enabled(bool value);
    void replace_on_click(click_function handler);

    /// A mouse event at `node`, which is the button's. Runs a press to its end. Whoever calls keeps the
    /// button alive.
    [[nodiscard]] bool handle_mouse(scene::INode& node, const input::mouse::event& event);

    /// The metrics of a button with a square mark of the label's height on the label's left.
    [[nodiscard]] scene::layout::metrics measure_with_mark() const;

    const com::ptr<ui::ILabel> label;
    scene::handler_slot<click_function> on_click;
    mouse_state mouse;
    const bool latching;
    bool checked = false;
    std::optional<bool> enabled_override;

private:
    void press(scene::INode& node, input::mouse::button button);
    template <class Change>
    void change_enabled(Change&& change);
};

}  // namespace d2d
