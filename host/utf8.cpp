#include "host/utf8.h"

#include <bit>
#include <cstdint>
#include <optional>

namespace d2d {
namespace {

/// Reads one sequence after the other.
class utf8_decoder {
public:
    explicit utf8_decoder(std::string_view text) noexcept : text_(text) {}

    [[nodiscard]] bool at_end() const noexcept { return position_ == text_.size(); }

    /// The next code point; empty for a malformed sequence, behind which nothing more can be asked.
    [[nodiscard]] std::optional<std::uint32_t> next() noexcept {
        const std::uint8_t lead = take();
        if (lead < 0x80) return lead;
        const int ones = std::countl_one(lead);
        if (ones < 2 || ones > 6) return {};
        std::uint32_t value = lead & (0x7Fu >> ones);
        for (int pending = ones - 1; pending > 0; --pending) {
            if (at_end()) return {};
            const std::uint8_t byte = take();
            if ((byte & 0xC0u) != 0x80) return {};
            value = value << 6 | (byte & 0x3Fu);
        }
        return value;
    }

private:
    std::uint8_t take() noexcept { return static_cast<std::uint8_t>(text_[position_++]); }

    std::string_view text_;
    std::size_t position_ = 0;
};

constexpr bool is_scalar(std::uint32_t value) noexcept {
    return value <= 0x10FFFF && (value < 0xD800 || value > 0xDFFF);
}

}  // namespace

unsigned utf16_length(std::string_view text) noexcept {
    unsigned length = 0;
    for (utf8_decoder decoder(text); !decoder.at_end();) {
        const auto value = decoder.next();
        if (!value) return malformed_utf8;
        length += *value < 0x10000 ? 1u : 2u;
    }
    return length;
}

std::size_t fill_utf16(std::string_view text, wchar_t* units) noexcept {
    std::size_t filled = 0;
    const auto put = [&](std::uint32_t unit) { units[filled++] = static_cast<wchar_t>(unit); };
    for (utf8_decoder decoder(text); !decoder.at_end();) {
        const auto value = decoder.next();
        if (!value) break;
        if (!is_scalar(*value)) {
            put(0xFFFF);
        } else if (*value < 0x10000) {
            put(*value);
        } else {
            put(((*value - 0x10000) >> 10 & 0x3FF) + 0xD800);
            put((*value & 0x3FF) + 0xDC00);
        }
    }
    return filled;
}

}  // namespace d2d
