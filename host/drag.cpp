// The modal loops of a host: does a press become a drag, and where does it go.

#include "d2d/lower_edge_host.h"
#include "host/mouse_message.h"
#include "scene/matrix.h"
#include "win32/scope_exit.h"

#include <functional>

namespace d2d {
namespace {

using input::mouse::button;
using win32::scope_exit;

constexpr UINT longest_press = 1000;  // milliseconds: a longer one is a drag

UINT ending_message(button pressed) noexcept {
    switch (pressed) {
        case button::right:
            return WM_RBUTTONUP;
        case button::middle:
            return WM_MBUTTONUP;
        case button::extended:
            return WM_XBUTTONUP;
        default:
            return WM_LBUTTONUP;
    }
}

void dispatch(const MSG& message) {
    TranslateMessage(&message);
    DispatchMessageW(&message);
}

bool is_escape(const MSG& message) noexcept {
    return message.message == WM_KEYUP && message.wParam == VK_ESCAPE;
}

/// The room that a press may move in: points on its edge are inside.
class press_area {
public:
    explicit press_area(POINT centre) noexcept
        : centre_(centre), width_(GetSystemMetrics(SM_CXDRAG)), height_(GetSystemMetrics(SM_CYDRAG)) {}

    [[nodiscard]] bool contains(POINT point) const noexcept {
        return point.x >= centre_.x - width_ && point.x <= centre_.x + width_ &&
               point.y >= centre_.y - height_ && point.y <= centre_.y + height_;
    }

private:
    POINT centre_;
    int width_;
    int height_;
};

// Without a window the system chooses the number of the timer, and it is no address.
void CALLBACK press_is_long(HWND window, UINT, UINT_PTR id, DWORD) {
    if (window) *reinterpret_cast<bool*>(id) = true;
}

void release_capture_of(HWND window) {
    if (GetCapture() == window) ReleaseCapture();
}

}  // namespace

POINT lower_edge_host::pixel_of(D2D_POINT_2F point) const noexcept {
    return {static_cast<LONG>(origin.x + point.x), static_cast<LONG>(origin.y + point.y)};
}

bool lower_edge_host::drag_detect(D2D_POINT_2F point, button pressed) {
    const com::ptr<lower_edge_host> alive(this);  // a message may end the window, and its hold on this
    const HWND captor = hwnd;
    const UINT release = ending_message(pressed);
    const press_area room(pixel_of(point));
    bool detected = false;
    const auto long_press = reinterpret_cast<UINT_PTR>(&detected);
    SetCapture(captor);
    const scope_exit end_capture([&] { release_capture_of(captor); });
    SetTimer(captor, long_press, longest_press, press_is_long);
    const scope_exit end_timer([&] { KillTimer(captor, long_press); });
    MSG message{};
    while (!detected && GetCapture() == captor) {
        if (!GetMessageW(&message, nullptr, 0, 0) || message.message == release || is_escape(message)) break;
        if (is_mouse_message(message.message)) {
            detected = !room.contains(message_point(message.lParam));
        } else if (!is_keyboard_message(message.message)) {
            dispatch(message);
        }
    }
    return detected;
}

bool lower_edge_host::drag_loop(D2D_POINT_2F point, button pressed, D2D_MATRIX_3X2_F transform,
                                std::function<bool(D2D_POINT_2F)> moved) {
    const com::ptr<lower_edge_host> alive(this);
    const HWND captor = hwnd;
    const UINT release = ending_message(pressed);
    POINT position = pixel_of(point);
    SetCapture(captor);
    const scope_exit end_capture([&] { release_capture_of(captor); });
    MSG message{};
    while (GetCapture() == captor) {
        if (!GetMessageW(&message, nullptr, 0, 0)) break;
        if (is_escape(message)) return false;
        if (is_mouse_message(message.message)) {
            const POINT next = message_point(message.lParam);
            if (next.x != position.x || next.y != position.y) {
                position = next;
                moved(scene::map_point(pixel_centre(position, origin), transform));
            }
            if (message.message == release) break;
        } else if (!is_keyboard_message(message.message)) {
            dispatch(message);
        }
    }
    return GetCapture() == captor;
}

}  // namespace d2d
