#pragma once

#include "support/golden.h"
#include "support/message_pump.h"
#include "support/picture.h"

#include <gtest/gtest.h>

#include <windows.h>

#include <algorithm>
#include <chrono>
#include <optional>
#include <string>
#include <string_view>

namespace client_test {

/// The part of a picture inside a rectangle.
[[nodiscard]] test_support::picture part(const test_support::picture& whole, RECT rect);

/// How near a picture comes to the one that is waited for.
enum class likeness { none, close, exact };

/// A golden picture that a window is to show, or a part of one.
class awaited_golden {
public:
    awaited_golden(std::string_view name, test_support::tolerance allowed);

    /// Close: within the tolerance. Where there is no golden yet, nothing is: what shows at rest is taken.
    [[nodiscard]] likeness likeness_of(const test_support::picture& seen) const;
    [[nodiscard]] testing::AssertionResult matches(const test_support::picture& seen) const;

private:
    std::string name_;
    test_support::tolerance allowed_;
    std::optional<test_support::picture> expected_;
};

/// Looks at the window of another program, which paints when it finds the time: on a busy machine seconds
/// pass between what it is sent and what it shows.
class onlooker {
public:
    explicit onlooker(HWND window) : window_(window) {}

    /// What the last look has seen.
    [[nodiscard]] const test_support::picture& shown() const noexcept { return shown_; }

    /// Looks once. Returns whether what shows is another picture than before.
    bool look();

    /// Looks until `like()` calls what shows exact, or nothing better is to be expected: it has been close
    /// for a second, or nothing has changed for `longest_rest`. `like` is asked once for each picture.
    /// Returns whether what shows is close at least.
    template <class Condition>
    bool look_until_like(Condition&& like, std::chrono::seconds longest_rest = std::chrono::seconds(10)) {
        using std::chrono::steady_clock;
        constexpr auto settling = std::chrono::seconds(1);
        constexpr auto limit = std::chrono::seconds(30);  // a caret that blinks never rests
        constexpr steady_clock::duration shortest_pause = std::chrono::milliseconds(20);
        const auto start = steady_clock::now();
        auto changed = start;
        std::optional<steady_clock::time_point> close_since;
        for (bool first = true;; first = false) {
            const auto looked = steady_clock::now();
            const bool changes = look();
            const auto now = steady_clock::now();
            if (changes) changed = now;
            if (changes || first) {
                const likeness found = like();
                if (found == likeness::exact) return true;
                if (found == likeness::none) {
                    close_since.reset();
                } else if (!close_since) {
                    close_since = now;
                }
            }
            if (close_since && now - *close_since >= settling) return true;
            if (now - changed >= longest_rest || now - start >= limit) return close_since.has_value();
            // The other program is to have the processor for half of the time at least.
            const auto pause = std::max(now - looked, shortest_pause);
            test_support::pump_for(std::chrono::ceil<std::chrono::milliseconds>(pause));
        }
    }

    /// Looks until `done()` holds for what shows, or nothing changes any more. Returns whether it holds.
    template <class Condition>
    bool look_until(Condition&& done) {
        return look_until_like([&] { return done() ? likeness::exact : likeness::none; });
    }

    /// Waits for the golden picture `name`, to the pixel or, after some time, with leave.
    [[nodiscard]] testing::AssertionResult shows_golden(std::string_view name,
                                                        test_support::tolerance allowed);

    /// Waits until the window shows `earlier` again, to the pixel.
    [[nodiscard]] testing::AssertionResult shows_again(const test_support::picture& earlier);

private:
    HWND window_;
    test_support::picture shown_;
};

}  // namespace client_test
