#pragma once

#include <string>

namespace harbour {

/// A ship at the quay.
struct mooring {
    std::wstring place;
    std::wstring ship;
    int days = 1;  // that it stays
};

enum class mooring_field { place, ship, days };

[[nodiscard]] std::wstring text_of(const mooring& from, mooring_field field);
/// False, and nothing is changed, for a text that does not fit: all need one, and days are a number.
[[nodiscard]] bool take_text(mooring& to, mooring_field field, const std::wstring& text);
/// Negative where `first` belongs ahead of `second`, zero where neither does.
[[nodiscard]] int compare(const mooring& first, const mooring& second, mooring_field by);

}  // namespace harbour
