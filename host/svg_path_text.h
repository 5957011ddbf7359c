#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <stdexcept>
#include <string_view>

namespace d2d {

/// Malformed path data.
[[noreturn]] inline void fail_bad_svg() {
    throw std::runtime_error("bad svg");
}

[[nodiscard]] constexpr bool is_letter(char byte) noexcept {
    return (byte >= 'A' && byte <= 'Z') || (byte >= 'a' && byte <= 'z');
}

/// The text of a path and a place in it. The byte behind the last one reads as NUL, which ends whatever is
/// being read.
class svg_path_text {
public:
    constexpr explicit svg_path_text(std::string_view text) noexcept
        : cursor_(text.data()), end_(text.data() + text.size()) {}

    [[nodiscard]] constexpr bool at_end() const noexcept { return cursor_ == end_; }
    [[nodiscard]] constexpr char peek() const noexcept { return at_end() ? '\0' : *cursor_; }
    /// Not at the end.
    constexpr char take() noexcept { return *cursor_++; }

    constexpr void skip_separators() noexcept {
        while (is_separator(peek())) ++cursor_;
    }

    /// The number behind any separators. A sign or a point alone is zero; there are no exponents. Throws
    /// `std::runtime_error` where no number stands.
    [[nodiscard]] constexpr float take_number() {
        skip_separators();
        const char* const start = cursor_;
        const char sign = peek();
        if (sign == '+' || sign == '-') ++cursor_;
        double value = take_whole_part();
        if (peek() == '.') {
            ++cursor_;
            value = take_fraction(value);
        }
        if (cursor_ == start) fail_bad_svg();
        return static_cast<float>(sign == '-' ? -value : value);
    }

private:
    static constexpr bool is_separator(char byte) noexcept {
        return byte == ' ' || byte == ',' || byte == '\n' || byte == '\r' || byte == '\t';
    }

    /// The digit at the cursor; 10 or more where none stands.
    [[nodiscard]] constexpr unsigned digit() const noexcept { return static_cast<unsigned>(peek()) - '0'; }

    constexpr double take_whole_part() noexcept {
        // As many digits as a double holds exactly are gathered as an integer, which is faster.
        constexpr int exact_digits = 15;
        std::int64_t exact = 0;
        int count = 0;
        for (unsigned next = digit(); next < 10 && count < exact_digits; next = digit(), ++count) {
            exact = exact * 10 + static_cast<int>(next);
            ++cursor_;
        }
        double value = static_cast<double>(exact);
        for (unsigned next = digit(); next < 10; next = digit()) {
            value = value * 10.0 + next;
            ++cursor_;
        }
        return value;
    }

    constexpr double take_fraction(double value) noexcept {
        std::size_t place = 0;
        double weight = 0.1;
        for (unsigned next = digit(); next < 10; next = digit()) {
            if (place < weights.size()) {
                weight = weights[place++];
            } else {
                weight *= 0.1;
            }
            value += next * weight;
            ++cursor_;
        }
        return value;
    }

    /// The weights of the first decimal places. Each is the one before times 0.1, rounding errors included:
    /// kept, so that a text gives the same floats everywhere.
    static constexpr auto weights = [] {
        std::array<double, 16> made{};
        double weight = 0.1;
        for (double& each : made) {
            each = weight;
            weight *= 0.1;
        }
        return made;
    }();

    const char* cursor_;
    const char* end_;
};

}  // namespace d2d
