#include "d2d/win32_input_dispatcher.h"

#include "host/mouse_message.h"

#include <utility>

namespace d2d {
namespace {

namespace event_type = input::mouse::event_type;

constexpr UINT_PTR hover_timer = 2;
constexpr UINT hover_delay = 400;  // milliseconds, whatever the system's setting
constexpr UINT deferred_call = WM_USER;

bool is_down(int virtual_key) noexcept {
    return GetKeyState(virtual_key) < 0;
}

input::key::event key_event_of(const MSG& message) noexcept {
    namespace modifier = input::key::modifier;
    const auto bits = static_cast<std::uint32_t>(message.lParam);
    unsigned modifiers = 0;
    if (is_down(VK_MENU)) modifiers |= modifier::alt;
    if (is_down(VK_SHIFT)) modifiers |= modifier::shift;
    if (is_down(VK_CONTROL)) modifiers |= modifier::control;
    return {.down = (bits & 0x80000000u) == 0,
            .repeat = (bits & 0x40000000u) != 0,
            .key = static_cast<std::uint32_t>(message.wParam),
            .modifiers = static_cast<std::uint8_t>(modifiers)};
}

void call_deferred(const MSG& message) {
    const auto function = reinterpret_cast<void (*)(void*)>(message.lParam);
    function(reinterpret_cast<void*>(message.wParam));
}

bool same_point(D2D_POINT_2F a, D2D_POINT_2F b) noexcept {
    return a.x == b.x && a.y == b.y;
}

}  // namespace

std::optional<long> win32_input_dispatcher::on_window_message(const MSG& message) {
    if (!lower_edge) return {};
    const com::ptr<IViewLowerEdge> edge = lower_edge;  // a handler may attach another one
    switch (message.message) {
        case WM_SETFOCUS:
            edge->on_focus_gained();
            return {};
        case WM_KILLFOCUS:
            edge->on_focus_lost();
            return {};
        case WM_CLOSE:
            PostQuitMessage(0);
            return 0;
        case WM_SETCURSOR:
            return on_set_cursor(*edge, message);
        case WM_KEYDOWN:
        case WM_KEYUP:
            if (edge->on_key_event(key_event_of(message))) return 0;
            return {};
        case WM_CHAR:
            edge->on_char(static_cast<wchar_t>(message.wParam));
            return 0;
        case WM_TIMER:
            if (message.wParam == hover_timer) on_hover_timer(*edge);
            return {};
        case WM_MOUSELEAVE:
            on_mouse_leave(*edge);
            return {};
        case deferred_call:
            call_deferred(message);
            return 0;
        default:
            if (is_mouse_message(message.message)) on_mouse_message(*edge, message);
            return {};
    }
}

bool win32_input_dispatcher::window_has_focus() const noexcept {
    return hwnd && GetFocus() == hwnd;
}

com::ptr<IViewLowerEdge> win32_input_dispatcher::set_lower_edge(com::ptr<IViewLowerEdge> edge) {
    if (lower_edge && window_has_focus()) lower_edge->on_focus_lost();
    com::ptr<IViewLowerEdge> former = std::exchange(lower_edge, std::move(edge));
    if (lower_edge && window_has_focus()) lower_edge->on_focus_gained();
    return former;
}

std::optional<long> win32_input_dispatcher::on_set_cursor(IViewLowerEdge& edge, const MSG& message) const {
    if (LOWORD(message.lParam) != HTCLIENT) return {};
    POINT point{};
    GetCursorPos(&point);
    MapWindowPoints(nullptr, hwnd, &point, 1);
    HCURSOR cursor = edge.get_cursor(pixel_centre(point, origin));
    if (!cursor) cursor = default_cursor;
    if (!cursor) return {};
    SetCursor(cursor);
    return 1;
}

void win32_input_dispatcher::on_mouse_message(IViewLowerEdge& edge, const MSG& message) {
    input::mouse::event event = mouse_event_of(message, hwnd, origin);
    const auto report_ahead = [&](std::int32_t type) {
        input::mouse::event ahead = event;
        ahead.type = type;
        ahead.button.reset();
        edge.on_mouse_event(ahead);
    };
    if (!tracking) {
        TRACKMOUSEEVENT wanted{sizeof wanted, TME_LEAVE, hwnd, 0};
        TrackMouseEvent(&wanted);
        tracking = true;
        if (event.type == event_type::move) {
            event.type = event_type::enter;
        } else {
            report_ahead(event_type::enter);
        }
    }
    if (message.message == WM_MOUSEMOVE && !same_point(event.position, last_point)) {
        if (hovering) {
            report_ahead(event_type::hover_end);
            hovering = false;
        }
        SetTimer(hwnd, hover_timer, hover_delay, nullptr);
    }
    last_flags = event.flags;
    last_point = event.position;
    edge.on_mouse_event(event);
}

void win32_input_dispatcher::on_hover_timer(IViewLowerEdge& edge) {
    KillTimer(hwnd, hover_timer);
    hovering = true;
    report(edge, event_type::hover);
}

void win32_input_dispatcher::on_mouse_leave(IViewLowerEdge& edge) {
    if (hovering) {
        report(edge, event_type::hover_end);
        hovering = false;
    } else {
        KillTimer(hwnd, hover_timer);
    }
    report(edge, event_type::leave);
    tracking = false;
}

/// An event that no message of the mouse goes with.
void win32_input_dispatcher::report(IViewLowerEdge& edge, std::int32_t type) const {
    edge.on_mouse_event(
        {.type = type, .button = {}, .flags = last_flags, .position = last_point, .wheel_delta = 0});
}

}  // namespace d2d
