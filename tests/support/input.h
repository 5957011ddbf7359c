#pragma once

#include <windows.h>

#include <functional>
#include <initializer_list>
#include <string_view>

namespace test_support {

enum class mouse_button { left, right, middle };

// Real input, sent with `SendInput` to whatever is on the screen at that place or has the focus; then
// messages are dispatched until it has arrived. Points are client coordinates of `window`. Tests that send
// input are added with SCREEN: there is one mouse.
//
// A press may start a modal loop that ends with the release (a button does, and every drag). `click` sends
// both at once, so it is safe on the window's thread; other sequences that meet a modal loop go through
// `meanwhile`.

/// Runs `actions` in a thread of their own while this thread dispatches messages, modal loops included.
void meanwhile(const std::function<void()>& actions);

/// Shows `window`, brings it to the front and waits until it is the foreground window.
void bring_to_front(HWND window);

void move_mouse(HWND window, POINT point);
void press_mouse(mouse_button button = mouse_button::left);
void release_mouse(mouse_button button = mouse_button::left);
/// With keys held: `click(window, point, mouse_button::left, {VK_SHIFT})`.
void click(HWND window, POINT point, mouse_button button = mouse_button::left,
           std::initializer_list<WORD> held = {});
void double_click(HWND window, POINT point, mouse_button button = mouse_button::left);

/// Presses at `from`, moves in `steps` steps, and releases; uses `meanwhile`.
void drag(HWND window, POINT from, POINT to, int steps = 4);

/// One notch is `WHEEL_DELTA`; positive is away from the user.
void turn_wheel(int notches);
void turn_horizontal_wheel(int notches);

void press_key(WORD virtual_key);
void release_key(WORD virtual_key);
/// Presses and releases a key while others are held: `strike_key(VK_LEFT, {VK_SHIFT, VK_CONTROL})`.
void strike_key(WORD virtual_key, std::initializer_list<WORD> held = {});
/// Types UTF-16 text, each unit as a character of its own whatever the keyboard's layout.
void type_text(std::wstring_view text);

}  // namespace test_support
