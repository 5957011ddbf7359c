#pragma once

#include <cstddef>
#include <limits>
#include <string_view>

namespace d2d {

/// What `utf16_length` answers for text that is no UTF-8.
inline constexpr unsigned malformed_utf8 = std::numeric_limits<unsigned>::max();

/// The number of UTF-16 units that `text` is laid out as, or `malformed_utf8`. Sequences of up to six bytes
/// are accepted, and so are overlong ones. A value above 0x10FFFF counts two units.
[[nodiscard]] unsigned utf16_length(std::string_view text) noexcept;

/// Writes the UTF-16 units of `text`, up to its first malformed sequence, and returns how many. A value above
/// 0x10FFFF and a surrogate are each the one unit 0xFFFF, so that fewer units than `utf16_length` says can
/// come out: kept, clients rely on the length. There has to be room for a unit for each byte.
std::size_t fill_utf16(std::string_view text, wchar_t* units) noexcept;

}  // namespace d2d
