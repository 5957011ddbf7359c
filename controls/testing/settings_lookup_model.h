#pragma once

#include <algorithm>
#include <cstddef>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace d2d::fakes {

using keys = std::vector<std::string>;
using answer = std::optional<std::string>;

/// The lookup of settings once more, a step at a time and without binary searches: what the library's own is
/// compared with.
class settings_lookup_model {
public:
    explicit settings_lookup_model(keys of_table) : table(std::move(of_table)) {
        std::sort(table.begin(), table.end(), comes_first);
    }

    /// The keys in the order of lookups.
    [[nodiscard]] const keys& sorted() const noexcept { return table; }

    [[nodiscard]] answer find(std::string_view key) const {
        answer best;
        std::size_t current = key.size() - 1;
        std::size_t depth = 1;
        keys range = having(table, key[current], 0);
        while (!range.empty()) {
            const std::string& first = range.front();
            const std::string& last = range.back();
            while (current > 0 && depth < first.size() && depth < last.size() &&
                   from_end(first, depth) == key[current - 1] && from_end(last, depth) == key[current - 1]) {
                --current;
                ++depth;
            }
            if (current > 0 && key[current - 1] == '.' && depth == first.size()) best = first;
            if (current == 0 || range.size() < 2) break;
            --current;
            range = having(range, key[current], depth);
            ++depth;
        }
        if (range.empty() || (current > 0 && key[current - 1] != '.')) return best;
        const std::string& first = range.front();
        return depth == first.size() || first[depth] == '.' ? first : best;
    }

    /// What a lookup is there for: the longest dotted tail of the key.
    [[nodiscard]] answer longest_tail(std::string_view key) const {
        answer best;
        for (const std::string& entry : table) {
            if (is_tail(entry, key) && (!best || entry.size() > best->size())) best = entry;
        }
        return best;
    }

    /// Is there a key that ends in a dotted tail of `key`, is longer than it, and has a dot where that tail
    /// has its end, both counted from the front? Only then a lookup may answer something else.
    [[nodiscard]] bool has_longer_forms(std::string_view key) const {
        return std::any_of(table.begin(), table.end(), [&](const std::string& entry) {
            for (std::size_t length = 1; length <= key.size() && length < entry.size(); ++length) {
                const std::string_view tail = key.substr(key.size() - length);
                if (is_tail(tail, key) && entry.ends_with(tail) && entry[length] == '.') return true;
            }
            return false;
        });
    }

private:
    [[nodiscard]] static char from_end(const std::string& entry, std::size_t distance) {
        return entry[entry.size() - 1 - distance];
    }
    [[nodiscard]] static bool comes_first(const std::string& a, const std::string& b) {
        for (std::size_t i = 0; i < a.size() && i < b.size(); ++i) {
            const int left = static_cast<signed char>(from_end(a, i));
            const int right = static_cast<signed char>(from_end(b, i));
            if (left != right) return left < right;
        }
        return a.size() < b.size();
    }
    [[nodiscard]] static keys having(const keys& range, char character, std::size_t distance) {
        keys kept;
        for (const std::string& entry : range) {
            if (distance < entry.size() && from_end(entry, distance) == character) kept.push_back(entry);
        }
        return kept;
    }
    [[nodiscard]] static bool is_tail(std::string_view tail, std::string_view key) {
        return key.ends_with(tail) && (tail.size() == key.size() || key[key.size() - 1 - tail.size()] == '.');
    }

    keys table;
};

}  // namespace d2d::fakes
