#pragma once

#include <algorithm>
#include <climits>
#include <cstddef>
#include <span>
#include <string_view>
#include <vector>

namespace d2d {

/// One named value. The text of the key is not copied and has to outlive the record: it is a literal.
template <class Value>
struct setting {
    std::string_view key;
    Value value;
};

template <class Value>
using settings_table = std::vector<setting<Value>>;

/// Orders keys as they are looked up: read from the last character to the first, as signed bytes, a key that
/// runs out first ahead of the other.
[[nodiscard]] constexpr bool reads_ahead(std::string_view a, std::string_view b) noexcept {
    return std::lexicographical_compare(a.rbegin(), a.rend(), b.rbegin(), b.rend(), [](char x, char y) {
        return static_cast<signed char>(x) < static_cast<signed char>(y);
    });
}

template <class Value>
void sort_settings(settings_table<Value>& table) {
    std::sort(table.begin(), table.end(),
              [](const auto& a, const auto& b) { return reads_ahead(a.key, b.key); });
}

/// What stands `distance` characters before the last one of a key, as the order takes it; less than any
/// character where the key has run out.
[[nodiscard]] constexpr int character_from_end(std::string_view key, std::size_t distance) noexcept {
    if (distance >= key.size()) return SCHAR_MIN - 1;
    return static_cast<signed char>(key[key.size() - 1 - distance]);
}

/// The part of `range`, whose keys have the same `distance` last characters, with `character` before those.
template <class Value>
[[nodiscard]] std::span<const setting<Value>> narrow(std::span<const setting<Value>> range,
                                                     std::size_t distance, int character) noexcept {
    const auto before = [distance](const auto& entry) { return character_from_end(entry.key, distance); };
    const auto first = std::ranges::lower_bound(range, character, {}, before);
    const auto last = std::ranges::upper_bound(first, range.end(), character, {}, before);
    return {first, last};
}

/// The entry of a sorted table that answers `key`: the one with the longest dotted tail of it, starting at
/// the front of the key or behind a dot. Null when there is none. Allocates nothing.
///
/// A key of which the table has only longer forms is answered by the first of those, but only when a dot
/// stands in it, counted from its front, where the key would have its end: "radius" finds "corner.radius".
/// Kept: clients rely on it.
template <class Value>
[[nodiscard]] const setting<Value>* find_setting(const settings_table<Value>& table,
                                                 std::string_view key) noexcept {
    if (key.empty()) return nullptr;
    const setting<Value>* best = nullptr;
    std::span<const setting<Value>> range(table);
    std::size_t matched = 0;  // how many characters from its end the key has in common with all of the range
    const auto next = [&] { return character_from_end(key, matched); };
    const auto at_component = [&] { return matched == key.size() || next() == '.'; };
    do {
        range = narrow(range, matched, next());
        if (range.empty()) return best;
        ++matched;
        const std::string_view first = range.front().key;
        const std::string_view last = range.back().key;
        while (matched < key.size() && character_from_end(first, matched) == next() &&
               character_from_end(last, matched) == next()) {
            ++matched;
        }
        if (matched < key.size() && at_component() && matched == first.size()) best = &range.front();
    } while (matched < key.size() && range.size() >= 2);

    const std::string_view first = range.front().key;
    if (at_component() && (matched == first.size() || first[matched] == '.')) return &range.front();
    return best;
}

}  // namespace d2d
