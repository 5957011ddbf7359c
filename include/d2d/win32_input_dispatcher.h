#pragma once

#include "com/api.h"
#include "com/ptr.h"
#include "d2d/IViewLowerEdge.h"

#include <cstdint>
#include <optional>

#include <windows.h>

namespace d2d {

/// Turns the messages of one window into calls of a view: mouse, keys, characters, focus, cursor and deferred
/// calls. `lower_edge_host` and the input layer each have one inside. `WM_SYSKEYDOWN`, `WM_SYSKEYUP` and
/// `WM_SYSCHAR` (F10, and keys with Alt) are left to the default treatment.
///
/// The mouse is outside until its first message, which is reported as its entering. Inside, a move to another
/// place starts a timer of 400 ms, whose end is reported as hovering. `WM_MOUSELEAVE` ends both. The state
/// stays when another view is attached.
struct MOSSHARBOUR_API win32_input_dispatcher {
    com::ptr<IViewLowerEdge> lower_edge;  ///< receives all events; null leaves every message alone
    HWND hwnd = nullptr;                  ///< the attached window
    D2D_POINT_2F origin{};                ///< where the scene's (0, 0) lies in the window, in pixels
    bool tracking = false;                ///< the mouse is inside
    bool hovering = false;                ///< hovering was reported and has not ended
    std::uint32_t last_flags = 0;         ///< of the last mouse message
    D2D_POINT_2F last_point{};            ///< of the last mouse message, in the scene
    HCURSOR default_cursor =
        LoadCursorW(nullptr, MAKEINTRESOURCEW(32512));  ///< without a view's opinion: the arrow

    /// Empty: the message goes on to the default treatment. A value: it was handled, and this is the result.
    /// `WM_CLOSE` posts the end of the message loop, unless somebody above has answered it. Handlers of the
    /// scene run in here, and what they throw passes on.
    std::optional<long> on_window_message(const MSG& message);

    /// Attaches a view and returns the former one. Each is told of the keyboard focus if the attached window
    /// has it.
    com::ptr<IViewLowerEdge> set_lower_edge(com::ptr<IViewLowerEdge> edge);
    /// Is there a window, and does it have the keyboard focus?
    [[nodiscard]] bool window_has_focus() const noexcept;

private:
    std::optional<long> on_set_cursor(IViewLowerEdge& edge, const MSG& message) const;
    void on_mouse_message(IViewLowerEdge& edge, const MSG& message);
    void on_hover_timer(IViewLowerEdge& edge);
    void on_mouse_leave(IViewLowerEdge& edge);
    void report(IViewLowerEdge& edge, std::int32_t type) const;
};

}  // namespace d2d
