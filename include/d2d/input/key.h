#pragma once

#include <cstdint>

namespace d2d::input::key {

/// Bits of `event::modifiers`.
namespace modifier {
inline constexpr std::uint8_t alt = 1;
inline constexpr std::uint8_t shift = 2;
inline constexpr std::uint8_t control = 4;
}  // namespace modifier

/// A key event, passed by value.
struct event {
    /// The key went down; false: it went up.
    bool down;
    /// The key was down before.
    bool repeat;
    /// A virtual key code.
    std::uint32_t key;
    /// The modifier keys that are down, as `modifier` bits.
    std::uint8_t modifiers;
};

}  // namespace d2d::input::key
