#pragma once

#include "d2d/input/key.h"

#include <algorithm>
#include <cstdint>
#include <stdexcept>
#include <string>
#include <utility>

#include <windows.h>

namespace d2d::fakes {

/// A line edit's rules over again, step by step and with nothing to draw.
class line_edit_model {
public:
    static constexpr std::uint32_t nowhere = 0xFFFFFFFF;

    explicit line_edit_model(std::wstring initial) : text(std::move(initial)) {}

    std::wstring text;
    std::uint32_t cursor = nowhere;
    std::uint32_t anchor = 0;
    bool selecting = false;
    std::uint32_t selected_start = 0;
    std::uint32_t selected_end = 0;
    bool has_selection = false;
    int changes = 0;

    [[nodiscard]] std::uint32_t length() const { return static_cast<std::uint32_t>(text.size()); }

    /// Whether the key is taken.
    bool key(std::uint32_t code, std::uint8_t modifiers) {
        constexpr std::uint8_t shift = input::key::modifier::shift;
        if (modifiers != 0 && modifiers != shift) return false;
        const bool extend = modifiers == shift;
        if (code == VK_END) return move(extend, length()), true;
        if (code == VK_HOME) return move(extend, 0), true;
        if (code == VK_LEFT) return left(extend), true;
        if (code == VK_RIGHT) return right(extend), true;
        if (code == VK_UP || code == VK_DOWN) {
            if (!extend && selecting) collapse(code == VK_UP);
            return false;
        }
        if (extend) return false;
        if (code == VK_BACK) return backspace(), true;
        if (code == VK_DELETE) return erase_next(), true;
        return false;
    }

    void character(wchar_t unit) {
        if (unit < 32) return;
        std::uint32_t position = std::min(cursor, length());
        if (has_selection) {
            text.erase(selected_start, selected_end - selected_start);
            position = selected_start;
        }
        text.insert(position, 1, unit);
        selecting = false;
        has_selection = false;
        cursor = position + 1;
        ++changes;
    }

    void click(std::uint32_t position, bool extend) {
        if (position != cursor) move(extend, position);
    }

    void set_text(std::wstring changed) {
        text = std::move(changed);
        cursor = std::min(cursor, length());
    }

private:
    void left(bool extend) {
        if (!extend && selecting) return collapse(true);
        if (cursor != 0) move(extend, cursor - 1);
    }
    void right(bool extend) {
        if (!extend && selecting) return collapse(false);
        if (cursor < length()) move(extend, cursor + 1);
    }
    void move(bool extend, std::uint32_t position) {
        if (extend && !selecting) {
            anchor = std::min(cursor, length());  // one that is nowhere starts at the end
            selecting = true;
        }
        if (!extend && selecting) selecting = has_selection = false;
        cursor = position;
        if (!extend) return;
        if (anchor == position) {
            selecting = has_selection = false;
        } else {
            selected_start = std::min(anchor, position);
            selected_end = std::max(anchor, position);
            has_selection = true;
        }
    }
    /// Behind a deletion there is nothing to go to the end of.
    void collapse(bool to_left) {
        if (has_selection) cursor = to_left ? std::min(cursor, anchor) : std::max(cursor, anchor);
        selecting = false;
        has_selection = false;
    }
    void erase_selection() {
        text.erase(selected_start, selected_end - selected_start);
        if (cursor != selected_start) selecting = false;
        cursor = selected_start;
        has_selection = false;
        ++changes;
    }
    void backspace() {
        if (has_selection) return erase_selection();
        const std::uint32_t from = std::min(cursor, length());
        if (from == 0) return;
        selecting = false;
        cursor = from - 1;
        text.erase(cursor, 1);
        ++changes;
    }
    void erase_next() {
        if (has_selection) return erase_selection();
        if (cursor < length()) text.erase(cursor, 1);
        ++changes;
    }
};

}  // namespace d2d::fakes
