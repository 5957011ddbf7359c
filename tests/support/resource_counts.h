#pragma once

#include <functional>
#include <iosfwd>

namespace test_support {

/// What this process holds of the system's objects.
struct resource_counts {
    unsigned windows = 0;      ///< with the child windows, without those that the system adds
    unsigned gdi_objects = 0;  ///< Wine spends a few on each window of its own accord
    unsigned handles = 0;      ///< kernel handles

    bool operator==(const resource_counts&) const = default;
};

std::ostream& operator<<(std::ostream& out, const resource_counts& counts);

/// The `windows` of `current_resources()` alone, which cost far less than the rest.
[[nodiscard]] unsigned own_windows();

/// Counted on the spot; some milliseconds under Wine, whose answers to `GetGuiResources` and
/// `GetProcessHandleCount` are always 0, so that the objects are counted one by one there.
[[nodiscard]] resource_counts current_resources();

/// Does `work` twice to fill what is made once and kept, and then `rounds` times more; fails the test when a
/// count has grown by `rounds` or more meanwhile, that is, when each round leaves something behind.
void expect_no_growth(const std::function<void()>& work, unsigned rounds = 8);

}  // namespace test_support
