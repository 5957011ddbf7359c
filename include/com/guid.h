#pragma once

#include <array>
#include <bit>
#include <cstdint>
#include <stdexcept>

#include <guiddef.h>

namespace com {

/// A GUID from its text without braces, "39ACCC9F-E227-4AD5-8382-7E4D6437D236". Evaluated by the compiler:
/// a text of another form does not compile.
[[nodiscard]] consteval GUID guid(const char (&text)[37]) {
    std::array<std::uint8_t, 16> bytes{};
    std::size_t digits = 0;
    for (std::size_t i = 0; i < 36; ++i) {
        const char c = text[i];
        if (i == 8 || i == 13 || i == 18 || i == 23) {
            if (c != '-')
                throw std::invalid_argument("a GUID has its hyphens behind digits 8, 12, 16 and 20");
            continue;
        }
        unsigned value = 0;
        if (c >= '0' && c <= '9') {
            value = static_cast<unsigned>(c - '0');
        } else if (c >= 'A' && c <= 'F') {
            value = static_cast<unsigned>(c - 'A') + 10;
        } else if (c >= 'a' && c <= 'f') {
            value = static_cast<unsigned>(c - 'a') + 10;
        } else {
            throw std::invalid_argument("a GUID is written in hexadecimal digits");
        }
        bytes[digits / 2] = static_cast<std::uint8_t>(bytes[digits / 2] * 16u + value);
        ++digits;
    }
    const auto word = [&](std::size_t at) {
        return static_cast<std::uint16_t>(bytes[at] << 8 | bytes[at + 1]);
    };
    GUID result{};
    result.Data1 = static_cast<decltype(result.Data1)>(word(0)) << 16 | word(2);
    result.Data2 = word(4);
    result.Data3 = word(6);
    for (std::size_t i = 0; i < 8; ++i) result.Data4[i] = bytes[8 + i];
    return result;
}

/// The four 32-bit words of a GUID, in memory order.
using guid_words = std::array<std::uint32_t, 4>;

[[nodiscard]] constexpr guid_words words_of(const GUID& id) noexcept {
    return std::bit_cast<guid_words>(id);
}

/// True when all 16 bytes are equal.
[[nodiscard]] constexpr bool same_guid(const GUID& a, const GUID& b) noexcept {
    return words_of(a) == words_of(b);
}

}  // namespace com
