#pragma once

#include <chrono>
#include <functional>

namespace test_support {

/// Dispatches this thread's messages as they come until `done()` holds, asked ahead of each wait. False when
/// `limit` passes first. A `WM_QUIT` is put back at the end for the test to see.
[[nodiscard]] bool pump_until(const std::function<bool()>& done,
                              std::chrono::milliseconds limit = std::chrono::seconds(10));

/// Dispatches messages until none has come for `quiet`: input that was sent has arrived and windows are
/// painted. A thread with a busy timer is never idle; this returns after `limit` then.
void pump_until_idle(std::chrono::milliseconds quiet = std::chrono::milliseconds(30),
                     std::chrono::milliseconds limit = std::chrono::seconds(2));

/// Dispatches messages for a time.
void pump_for(std::chrono::milliseconds time);

}  // namespace test_support
