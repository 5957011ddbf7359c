#include "host/mouse_message.h"

#include <array>
#include <stdexcept>

namespace d2d {
namespace {

using input::mouse::button;
namespace event_type = input::mouse::event_type;

struct meaning {
    std::int32_t type;
    std::optional<button> pressed;
};

/// By the distance from the first mouse message.
constexpr std::array<meaning, 15> meanings{{
    {event_type::move, {}},                        // WM_MOUSEMOVE
    {event_type::button_down, button::left},       // WM_LBUTTONDOWN
    {event_type::button_up, button::left},         // WM_LBUTTONUP
    {event_type::double_click, button::left},      // WM_LBUTTONDBLCLK
    {event_type::button_down, button::right},      // WM_RBUTTONDOWN
    {event_type::button_up, button::right},        // WM_RBUTTONUP
    {event_type::double_click, button::right},     // WM_RBUTTONDBLCLK
    {event_type::button_down, button::middle},     // WM_MBUTTONDOWN
    {event_type::button_up, button::middle},       // WM_MBUTTONUP
    {event_type::double_click, button::middle},    // WM_MBUTTONDBLCLK
    {event_type::wheel, {}},                       // WM_MOUSEWHEEL
    {event_type::button_down, button::extended},   // WM_XBUTTONDOWN
    {event_type::button_up, button::extended},     // WM_XBUTTONUP
    {event_type::double_click, button::extended},  // WM_XBUTTONDBLCLK
    {event_type::horizontal_wheel, {}},            // WM_MOUSEHWHEEL
}};
static_assert(WM_MOUSEHWHEEL - WM_MOUSEFIRST + 1 == meanings.size());

bool is_wheel(UINT message) noexcept {
    return message == WM_MOUSEWHEEL || message == WM_MOUSEHWHEEL;
}

}  // namespace

POINT message_point(LPARAM packed) noexcept {
    return {static_cast<short>(LOWORD(packed)), static_cast<short>(HIWORD(packed))};
}

input::mouse::event mouse_event_of(const MSG& message, HWND window, D2D_POINT_2F origin) {
    if (!is_mouse_message(message.message)) throw std::logic_error("unexpected message type");
    const meaning& means = meanings[message.message - WM_MOUSEFIRST];
    POINT point = message_point(message.lParam);
    std::int32_t delta = 0;
    if (is_wheel(message.message)) {
        delta = static_cast<short>(HIWORD(message.wParam));
        MapWindowPoints(nullptr, window, &point, 1);  // a wheel's position is that on the screen
    }
    return {.type = means.type,
            .button = means.pressed,
            .flags = static_cast<std::uint32_t>(message.wParam & 0xFF),
            .position = pixel_centre(point, origin),
            .wheel_delta = delta};
}

}  // namespace d2d
