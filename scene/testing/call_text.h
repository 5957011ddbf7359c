#pragma once

#include <string>
#include <string_view>
#include <type_traits>

#include <d2d1.h>

namespace d2d::scene::fakes {

/// Appends a number in its shortest form that reads back as the same number.
void append(std::string& line, float number);
void append(std::string& line, double number);
void append(std::string& line, long long number);
void append(std::string& line, std::string_view text);
void append(std::string& line, const D2D_POINT_2F& point);
void append(std::string& line, const D2D_RECT_F& rect);
void append(std::string& line, const D2D_SIZE_F& size);
void append(std::string& line, const D2D_SIZE_U& size);
void append(std::string& line, const D2D_MATRIX_3X2_F& matrix);
void append(std::string& line, const _D3DCOLORVALUE& color);

template <class Word>
void append_word(std::string& line, const Word& word) {
    if (!line.empty()) line += ' ';
    if constexpr (std::is_pointer_v<Word> && !std::is_convertible_v<Word, std::string_view>) {
        if (word) {
            append(line, *word);
        } else {
            append(line, std::string_view("null"));
        }
    } else if constexpr (std::is_integral_v<Word> || std::is_enum_v<Word>) {
        append(line, static_cast<long long>(word));
    } else if constexpr (std::is_convertible_v<const Word&, std::string_view>) {
        append(line, std::string_view(word));
    } else {
        append(line, word);
    }
}

/// A call as one line: `call_text("DrawBox", D2D_RECT_F{0, 0, 10, 10}, 0.5f)` is "DrawBox 0 0 10 10 0.5".
/// Enumerators and booleans are written as their numbers, a null pointer to a structure as "null".
template <class... Words>
[[nodiscard]] std::string call_text(const Words&... words) {
    std::string line;
    (append_word(line, words), ...);
    return line;
}

}  // namespace d2d::scene::fakes
