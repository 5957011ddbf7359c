#pragma once

#include <windows.h>

#include <atomic>
#include <vector>

namespace test_support {

/// Presses at the first point, moves to each further one, and releases. A movement waits, five seconds at
/// most, until `heard` has grown by the one ahead of it: those that a busy program has not yet looked at
/// would become one. Uses `meanwhile`.
void drag_as_heard(HWND window, const std::vector<POINT>& points, const std::atomic<int>& heard);

}  // namespace test_support
