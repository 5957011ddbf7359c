#include "controls/line_edit/edit_model.h"

#include "d2d/input/key.h"

#include <algorithm>
#include <utility>

#include <windows.h>

namespace d2d::line_edit {

void edit_model::set_text(std::wstring text) noexcept {
    text_ = std::move(text);
    cursor_ = edit_position();
}

edit_model::reaction edit_model::press_key(std::uint32_t key, std::uint8_t modifiers) {
    const bool extend = modifiers == input::key::modifier::shift;
    if (modifiers != 0 && !extend) return {};
    const bool ends_selection = selecting_ && !extend;
    switch (key) {
        case VK_HOME:
            move_caret(extend, 0);
            return {.handled = true};
        case VK_END:
            move_caret(extend, length());
            return {.handled = true};
        case VK_LEFT:
            if (ends_selection) {
                collapse(side::left);
            } else if (cursor_ != 0) {
                move_caret(extend, cursor_ - 1);
            }
            return {.handled = true};
        case VK_RIGHT:
            if (ends_selection) {
                collapse(side::right);
            } else if (cursor_ < length()) {
                move_caret(extend, cursor_ + 1);
            }
            return {.handled = true};
        case VK_UP:  // these two are the owner's
            if (ends_selection) collapse(side::left);
            return {};
        case VK_DOWN:
            if (ends_selection) collapse(side::right);
            return {};
        case VK_BACK:
            return extend ? reaction{} : erase_backwards();
        case VK_DELETE:
            return extend ? reaction{} : erase_forwards();
        default:
            return {};
    }
}

edit_model::reaction edit_model::type(wchar_t character) {
    constexpr wchar_t first_printable = 32;
    if (character < first_printable) return {};
    const std::uint32_t at = has_selection_ ? selected_.start : edit_position();
    const std::uint32_t replaced = has_selection_ ? selected_.end - selected_.start : 0;
    text_.replace(at, replaced, 1, character);
    end_selection();
    cursor_ = at + 1;
    return {.handled = true, .text_changed = true, .edited = true};
}

/// A click where the cursor is leaves a selection alone.
void edit_model::click(std::uint32_t position, bool extend) noexcept {
    const std::uint32_t target = std::min(position, length());
    if (target != cursor_) move_caret(extend, target);
}

std::uint32_t edit_model::edit_position() const noexcept {
    return std::min(cursor_, length());
}

void edit_model::move_caret(bool extend, std::uint32_t position) noexcept {
    if (!extend) {
        end_selection();
    } else if (!selecting_) {
        anchor_ = edit_position();
        selecting_ = true;
    }
    cursor_ = position;
    if (!extend) return;
    has_selection_ = selecting_ = anchor_ != position;
    if (has_selection_) selected_ = {std::min(anchor_, position), std::max(anchor_, position)};
}

/// Ends the selecting with the cursor at one end of what is selected.
void edit_model::collapse(side to) noexcept {
    if (has_selection_) {
        cursor_ = to == side::left ? std::min(cursor_, anchor_) : std::max(cursor_, anchor_);
    }
    end_selection();
}

void edit_model::end_selection() noexcept {
    selecting_ = has_selection_ = false;
}

/// Where the selection was made backwards the selecting goes on, with nothing selected: kept, the next arrow
/// key ends it without a move.
edit_model::reaction edit_model::erase_selection() {
    text_.erase(selected_.start, selected_.end - selected_.start);
    if (cursor_ != selected_.start) selecting_ = false;
    has_selection_ = false;
    cursor_ = selected_.start;
    return {.handled = true, .text_changed = true, .edited = true};
}

edit_model::reaction edit_model::erase_backwards() {
    if (has_selection_) return erase_selection();
    const std::uint32_t end = edit_position();
    if (end == 0) return {.handled = true};
    text_.erase(end - 1, 1);
    selecting_ = false;
    cursor_ = end - 1;
    return {.handled = true, .text_changed = true, .edited = true};
}

edit_model::reaction edit_model::erase_forwards() {
    if (has_selection_) return erase_selection();
    const std::uint32_t at = edit_position();
    const bool found = at < length();
    if (found) text_.erase(at, 1);
    return {.handled = true, .text_changed = found, .edited = true};
}

}  // namespace d2d::line_edit
