#include "host/utf8.h"

#include <array>
#include <string>

#include <gtest/gtest.h>

namespace {

using namespace std::string_literals;

std::u16string filled(std::string_view text) {
    std::wstring units(text.size() + 1, L'?');
    units.resize(d2d::fill_utf16(text, units.data()));
    return {units.begin(), units.end()};
}

struct text_case {
    std::string bytes;
    unsigned length;
    std::u16string units;
};

class utf8_text : public testing::TestWithParam<text_case> {};

TEST_P(utf8_text, has_the_length_and_the_units) {
    EXPECT_EQ(GetParam().length, d2d::utf16_length(GetParam().bytes));
    EXPECT_EQ(GetParam().units, filled(GetParam().bytes));
}

constexpr unsigned malformed = d2d::malformed_utf8;

INSTANTIATE_TEST_SUITE_P(
    well_formed, utf8_text,
    testing::Values(text_case{"", 0, u""}, text_case{"A", 1, u"A"}, text_case{"A\0B"s, 3, u"A\0B"s},
                    text_case{"\x7F", 1, u"\x7F"}, text_case{"\xC2\x80", 1, u"\x80"},
                    text_case{"\xDF\xBF", 1, u"\x7FF"}, text_case{"\xE0\xA0\x80", 1, u"\x800"},
                    text_case{"\xEF\xBF\xBF", 1, u"\xFFFF"},
                    text_case{"A\xF0\x9F\x98\x80", 3, {u'A', char16_t{0xD83D}, char16_t{0xDE00}}},
                    text_case{"\xF0\x90\x80\x80", 2, {char16_t{0xD800}, char16_t{0xDC00}}},
                    text_case{"\xF4\x8F\xBF\xBF", 2, {char16_t{0xDBFF}, char16_t{0xDFFF}}}));

INSTANTIATE_TEST_SUITE_P(
    accepted_all_the_same, utf8_text,
    testing::Values(text_case{"\xC0\x80", 1, u"\0"s},                      // overlong
                    text_case{"\xE0\x80\x80", 1, u"\0"s},                  //
                    text_case{"\xC1\xBF", 1, u"\x7F"},                     //
                    text_case{"\xED\xA0\x80", 1, u"\xFFFF"},               // surrogates
                    text_case{"\xED\xBF\xBF", 1, u"\xFFFF"},               //
                    text_case{"\xED\x9F\xBF", 1, {char16_t{0xD7FF}}},      // their neighbours
                    text_case{"\xEE\x80\x80", 1, {char16_t{0xE000}}},      //
                    text_case{"\xF4\x90\x80\x80z", 3, u"\xFFFFz"},         // beyond the last code point:
                    text_case{"\xF8\x88\x80\x80\x80z", 3, u"\xFFFFz"},     // two units in the length, one
                    text_case{"\xFD\xBF\xBF\xBF\xBF\xBFz", 3, u"\xFFFFz"}  // in the text
                    ));

INSTANTIATE_TEST_SUITE_P(
    malformed_text, utf8_text,
    testing::Values(text_case{"\x80", malformed, u""}, text_case{"ab\xBFzz", malformed, u"ab"},
                    text_case{"\xFE", malformed, u""}, text_case{"a\xFFz", malformed, u"a"},
                    text_case{"\xC2", malformed, u""}, text_case{"a\xE2\x82", malformed, u"a"},
                    text_case{"\xF0\x9F\x98", malformed, u""},
                    text_case{"\xFD\xBF\xBF\xBF\xBF", malformed, u""}, text_case{"\xC2z", malformed, u""},
                    text_case{"\xE2\x82\xC2\x80", malformed, u""},
                    text_case{"ok\xC2\xC2\x80", malformed, u"ok"}));

std::string encoded(std::uint32_t value) {
    const auto byte = [](std::uint32_t bits) { return static_cast<char>(bits); };
    if (value < 0x80) return {byte(value)};
    if (value < 0x800) return {byte(0xC0 | value >> 6), byte(0x80 | (value & 0x3F))};
    if (value < 0x10000) {
        return {byte(0xE0 | value >> 12), byte(0x80 | (value >> 6 & 0x3F)), byte(0x80 | (value & 0x3F))};
    }
    return {byte(0xF0 | value >> 18), byte(0x80 | (value >> 12 & 0x3F)), byte(0x80 | (value >> 6 & 0x3F)),
            byte(0x80 | (value & 0x3F))};
}

TEST(utf8, every_code_point_comes_out_as_utf16_and_no_prefix_of_it_is_text) {
    for (std::uint32_t value = 0; value <= 0x10FFFF; ++value) {
        if (value >= 0xD800 && value <= 0xDFFF) continue;
        const std::string bytes = encoded(value);
        const std::u16string units = filled(bytes);
        ASSERT_EQ(units.size(), d2d::utf16_length(bytes)) << value;
        std::uint32_t back = units[0];
        if (units.size() == 2) back = 0x10000 + ((units[0] - 0xD800u) << 10) + (units[1] - 0xDC00u);
        ASSERT_EQ(value, back);
        for (std::size_t cut = 1; cut < bytes.size(); ++cut) {
            ASSERT_EQ(malformed, d2d::utf16_length(std::string_view(bytes).substr(0, cut))) << value;
        }
    }
}

TEST(utf8, never_fills_more_units_than_there_are_bytes) {
    for (unsigned first = 0; first < 256; ++first) {
        for (unsigned second = 0; second < 256; ++second) {
            const std::string bytes{static_cast<char>(first), static_cast<char>(second)};
            ASSERT_LE(filled(bytes).size(), bytes.size());
            const unsigned length = d2d::utf16_length(bytes);
            if (length == malformed) continue;
            ASSERT_GE(length, filled(bytes).size());
        }
    }
}

}  // namespace
