#include "support/input.h"

#include "support/message_pump.h"

#include <gtest/gtest.h>

#include <atomic>
#include <exception>
#include <iterator>
#include <stdexcept>
#include <thread>
#include <vector>

namespace test_support {
namespace {

void send(std::vector<INPUT> inputs) {
    const auto count = static_cast<UINT>(inputs.size());
    if (SendInput(count, inputs.data(), sizeof(INPUT)) != count)
        throw std::runtime_error("SendInput was refused");
    pump_until_idle(std::chrono::milliseconds(15));
}

INPUT mouse_input(DWORD flags, int data = 0) {
    INPUT input{};
    input.type = INPUT_MOUSE;
    input.mi.dwFlags = flags;
    input.mi.mouseData = static_cast<DWORD>(data);
    return input;
}

INPUT key_input(WORD virtual_key, DWORD flags) {
    constexpr WORD extended[] = {VK_LEFT, VK_RIGHT, VK_UP,   VK_DOWN,   VK_HOME,
                                 VK_END,  VK_PRIOR, VK_NEXT, VK_INSERT, VK_DELETE};
    INPUT input{};
    input.type = INPUT_KEYBOARD;
    input.ki.wVk = virtual_key;
    input.ki.wScan = static_cast<WORD>(MapVirtualKeyW(virtual_key, MAPVK_VK_TO_VSC));
    input.ki.dwFlags = flags;
    for (const WORD key : extended)
        if (key == virtual_key) input.ki.dwFlags |= KEYEVENTF_EXTENDEDKEY;
    return input;
}

// The smallest of the 65536ths that stand for pixel `position` of `extent`.
LONG absolute_position(LONG position, int extent) {
    return static_cast<LONG>((static_cast<long long>(position) * 65536 + extent - 1) / extent);
}

INPUT move_to(POINT screen_point) {
    auto input = mouse_input(MOUSEEVENTF_MOVE | MOUSEEVENTF_ABSOLUTE);
    input.mi.dx = absolute_position(screen_point.x, GetSystemMetrics(SM_CXSCREEN));
    input.mi.dy = absolute_position(screen_point.y, GetSystemMetrics(SM_CYSCREEN));
    return input;
}

POINT mouse_position() {
    POINT position{};
    GetCursorPos(&position);
    return position;
}

// A late report of the screen about an earlier movement can put the mouse back under Wine: then once more.
// Where it does so afterwards, the movement has still come to pass.
void send_to(POINT screen_point) {
    POINT reached{};
    const auto is_there = [&] { return reached.x == screen_point.x && reached.y == screen_point.y; };
    int attempts = 50;
    do {
        send({move_to(screen_point)});
        reached = mouse_position();
    } while (!is_there() && --attempts > 0);
    EXPECT_TRUE(is_there()) << "the mouse is at " << reached.x << ", " << reached.y << " and was sent to "
                            << screen_point.x << ", " << screen_point.y;
}

struct button_flags {
    DWORD down;
    DWORD up;
};

button_flags flags_of(mouse_button button) {
    switch (button) {
        case mouse_button::left:
            return {MOUSEEVENTF_LEFTDOWN, MOUSEEVENTF_LEFTUP};
        case mouse_button::right:
            return {MOUSEEVENTF_RIGHTDOWN, MOUSEEVENTF_RIGHTUP};
        case mouse_button::middle:
            return {MOUSEEVENTF_MIDDLEDOWN, MOUSEEVENTF_MIDDLEUP};
    }
    throw std::logic_error("no such button");
}

// All at once: a late report of the screen about its own keyboard can release keys that are held under Wine.
void send_with_held(std::initializer_list<WORD> held, const std::vector<INPUT>& inputs) {
    std::vector<INPUT> all;
    for (const WORD key : held) all.push_back(key_input(key, 0));
    all.insert(all.end(), inputs.begin(), inputs.end());
    for (auto key = std::rbegin(held); key != std::rend(held); ++key)
        all.push_back(key_input(*key, KEYEVENTF_KEYUP));
    send(std::move(all));
}

void send_clicks(HWND window, POINT point, mouse_button button, int clicks,
                 std::initializer_list<WORD> held = {}) {
    ClientToScreen(window, &point);
    send_to(point);
    std::vector<INPUT> inputs{move_to(point)};  // the late report may come between
    for (int i = 0; i < clicks; ++i) {
        inputs.push_back(mouse_input(flags_of(button).down));
        inputs.push_back(mouse_input(flags_of(button).up));
    }
    send_with_held(held, inputs);
}

}  // namespace

void meanwhile(const std::function<void()>& actions) {
    std::exception_ptr failure;
    std::atomic<bool> done = false;
    std::thread sender([&] {
        try {
            actions();
        } catch (...) {
            failure = std::current_exception();
        }
        done = true;
    });
    const bool in_time = pump_until([&] { return done.load(); }, std::chrono::seconds(60));
    sender.join();
    EXPECT_TRUE(in_time) << "the input took more than a minute";
    if (failure) std::rethrow_exception(failure);
    pump_until_idle();
}

void bring_to_front(HWND window) {
    ShowWindow(window, SW_SHOW);
    SetForegroundWindow(window);
    EXPECT_TRUE(pump_until([window] { return GetForegroundWindow() == window; }))
        << "the window stays behind";
    pump_until_idle();
}

void move_mouse(HWND window, POINT point) {
    ClientToScreen(window, &point);
    send_to(point);
}

void press_mouse(mouse_button button) {
    send({mouse_input(flags_of(button).down)});
}

void release_mouse(mouse_button button) {
    send({mouse_input(flags_of(button).up)});
}

void click(HWND window, POINT point, mouse_button button, std::initializer_list<WORD> held) {
    send_clicks(window, point, button, 1, held);
}

void double_click(HWND window, POINT point, mouse_button button) {
    send_clicks(window, point, button, 2);
}

void drag(HWND window, POINT from, POINT to, int steps) {
    meanwhile([=] {
        move_mouse(window, from);
        press_mouse();
        for (int i = 1; i <= steps; ++i)
            move_mouse(window, {from.x + (to.x - from.x) * i / steps, from.y + (to.y - from.y) * i / steps});
        release_mouse();
    });
}

void turn_wheel(int notches) {
    send({mouse_input(MOUSEEVENTF_WHEEL, notches * WHEEL_DELTA)});
}

void turn_horizontal_wheel(int notches) {
    send({mouse_input(MOUSEEVENTF_HWHEEL, notches * WHEEL_DELTA)});
}

void press_key(WORD virtual_key) {
    send({key_input(virtual_key, 0)});
}

void release_key(WORD virtual_key) {
    send({key_input(virtual_key, KEYEVENTF_KEYUP)});
}

void strike_key(WORD virtual_key, std::initializer_list<WORD> held) {
    send_with_held(held, {key_input(virtual_key, 0), key_input(virtual_key, KEYEVENTF_KEYUP)});
}

void type_text(std::wstring_view text) {
    for (const wchar_t unit : text) {
        auto down = key_input(0, KEYEVENTF_UNICODE);
        down.ki.wScan = static_cast<WORD>(unit);
        auto up = down;
        up.ki.dwFlags |= KEYEVENTF_KEYUP;
        send({down, up});
    }
}

}  // namespace test_support
