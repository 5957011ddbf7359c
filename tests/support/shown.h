#pragma once

#include "support/picture.h"

#include <windows.h>

#include <cstdint>
#include <functional>

#include <gtest/gtest.h>

namespace test_support {

/// Do the channels of two colours differ by no more than `tolerance`?
[[nodiscard]] bool are_near(std::uint32_t a, std::uint32_t b, int tolerance) noexcept;

// What is painted comes onto the screen some time later, through its compositing manager. These pump this
// thread's messages until it has, and give up after ten seconds.

/// The picture of the window's client area that is `right`, or else the last one that was seen.
[[nodiscard]] picture grab_when(HWND window, const std::function<bool(const picture&)>& right);

/// The picture of the client area that has a colour at a point, or else the last one that was seen.
[[nodiscard]] picture grab_when(HWND window, std::uint32_t color, unsigned x, unsigned y);

/// Does the screen come to show a colour at a point of the client area?
[[nodiscard]] testing::AssertionResult shows(HWND window, std::uint32_t color, unsigned x, unsigned y);

}  // namespace test_support
