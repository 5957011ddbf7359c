#pragma once

#include <cstdint>
#include <string>
#include <utility>

namespace d2d::line_edit {

/// What a line edit edits, apart from its looks: a text, a cursor and a selection, and what keys, characters
/// and clicks do to them. A position is an index into the text in UTF-16 units and lies ahead of that unit.
class edit_model {
public:
    /// Where the cursor is until something gives it a position. Edits take it, as every position behind the
    /// text, for the end.
    static constexpr std::uint32_t no_position = 0xFFFFFFFF;

    struct range {
        std::uint32_t start = 0;
        std::uint32_t end = 0;

        bool operator==(const range&) const = default;
    };

    /// What has become of a key or character.
    struct reaction {
        bool handled = false;       ///< it goes no further
        bool text_changed = false;  ///< there is something new to lay out
        bool edited = false;        ///< it counts as an edit, even if it found nothing to erase
    };

    explicit edit_model(std::wstring initial) noexcept : text_(std::move(initial)) {}

    [[nodiscard]] const std::wstring& text() const noexcept { return text_; }
    [[nodiscard]] std::uint32_t cursor() const noexcept { return cursor_; }
    /// Empty and at 0 when nothing is selected. May reach behind a text that was replaced.
    [[nodiscard]] range selection() const noexcept { return has_selection_ ? selected_ : range{}; }

    void set_text(std::wstring text) noexcept;
    /// `modifiers` are bits of `input::key::modifier`. Throws `std::out_of_range`, with nothing changed, when
    /// a selection to erase starts behind the text.
    [[nodiscard]] reaction press_key(std::uint32_t key, std::uint8_t modifiers);
    /// Takes the selection's place. Throws like `press_key`.
    [[nodiscard]] reaction type(wchar_t character);
    void click(std::uint32_t position, bool extend) noexcept;

private:
    enum class side { left, right };

    [[nodiscard]] std::uint32_t length() const noexcept { return static_cast<std::uint32_t>(text_.size()); }
    [[nodiscard]] std::uint32_t edit_position() const noexcept;

    void move_caret(bool extend, std::uint32_t position) noexcept;
    void collapse(side to) noexcept;
    void end_selection() noexcept;
    [[nodiscard]] reaction erase_selection();
    [[nodiscard]] reaction erase_backwards();
    [[nodiscard]] reaction erase_forwards();

    std::wstring text_;
    std::uint32_t cursor_ = no_position;
    std::uint32_t anchor_ = 0;  // the fixed end, while selecting
    bool selecting_ = false;    // at least while there is a selection
    bool has_selection_ = false;
    range selected_;
};

}  // namespace d2d::line_edit
