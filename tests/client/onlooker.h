#pragma once

#include "support/golden.h"
#include "support/message_pump.h"
#include "support/picture.h"

#include <gtest/gtest.h>

#include <windows.h>

#include <chrono>
#include <string_view>

namespace client_test {

/// The part of a picture inside a rectangle.
[[nodiscard]] test_support::picture part(const test_support::picture& whole, RECT rect);

/// The golden picture, or nothing where there is none yet.
[[nodiscard]] test_support::picture golden_picture(std::string_view name);

/// Looks at the window of another program, which paints when it finds the time: on a busy machine seconds
/// pass between what it is sent and what it shows.
class onlooker {
public:
    explicit onlooker(HWND window) : window_(window) {}

    /// What the last look has seen.
    [[nodiscard]] const test_support::picture& shown() const noexcept { return shown_; }

    /// Looks until `done()` holds for what shows, or nothing changes any more. Returns whether it holds.
    template <class Condition>
    bool look_until(Condition&& done) {
        // Nothing takes longer from one change to the next.
        constexpr auto rest = std::chrono::seconds(3);
        const auto now = [] { return std::chrono::steady_clock::now(); };
        for (auto changed = now(); now() - changed < rest;) {
            auto next = test_support::grab_client_area(window_);
            if (next != shown_) changed = now();
            shown_ = std::move(next);
            if (done()) return true;
            test_support::pump_for(std::chrono::milliseconds(50));
        }
        return false;
    }

    /// Looks until nothing changes any more.
    void look_until_rest() {
        look_until([] { return false; });
    }

    /// Waits for the golden picture `name`; where it does not come to the pixel, compares with leave.
    [[nodiscard]] testing::AssertionResult shows_golden(std::string_view name,
                                                        test_support::tolerance allowed);

    /// Waits until the window shows `earlier` again, to the pixel.
    [[nodiscard]] testing::AssertionResult shows_again(const test_support::picture& earlier);

private:
    HWND window_;
    test_support::picture shown_;
};

}  // namespace client_test
