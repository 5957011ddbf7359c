#include "mooring.h"

#include <algorithm>

namespace harbour {
namespace {

constexpr std::size_t most_digits = 3;

bool is_number(const std::wstring& text) {
    return text.size() <= most_digits &&
           std::all_of(text.begin(), text.end(), [](wchar_t unit) { return unit >= L'0' && unit <= L'9'; });
}

}  // namespace

std::wstring text_of(const mooring& from, mooring_field field) {
    switch (field) {
        case mooring_field::place:
            return from.place;
        case mooring_field::ship:
            return from.ship;
        case mooring_field::days:
            break;
    }
    return std::to_wstring(from.days);
}

bool take_text(mooring& to, mooring_field field, const std::wstring& text) {
    if (text.empty()) return false;
    if (field == mooring_field::days) {
        if (!is_number(text)) return false;
        to.days = std::stoi(text);
    } else {
        (field == mooring_field::place ? to.place : to.ship) = text;
    }
    return true;
}

int compare(const mooring& first, const mooring& second, mooring_field by) {
    if (by == mooring_field::days) return first.days - second.days;
    return text_of(first, by).compare(text_of(second, by));
}

}  // namespace harbour
