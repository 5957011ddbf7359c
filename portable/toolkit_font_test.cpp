#include "portable/toolkit_font.h"

#include "support/user_key.h"

#include <cstddef>
#include <cstdint>
#include <cstring>
#include <vector>

#include <gtest/gtest.h>

namespace {

using namespace ui::mossHarbour;

class stored_font : public testing::Test {
protected:
    void expect(const std::wstring& face, DWORD size, const char* what) const {
        const font_defaults found = read_font_defaults(HKEY_CURRENT_USER, key.path());
        EXPECT_EQ(found.face, face) << what;
        EXPECT_EQ(found.size, size) << what;
    }

    // The same test may run in another process just now.
    const test_support::user_key key{L"Software\\mossHarbour.tests.font." +
                                     std::to_wstring(GetCurrentProcessId())};
};

TEST_F(stored_font, has_defaults_without_a_key_or_values) {
    expect(L"MS Shell Dlg", 10, "no key");
    key.create();
    expect(L"MS Shell Dlg", 10, "no values");
}

TEST_F(stored_font, has_a_face_that_is_a_text_of_no_more_than_256_bytes) {
    key.set_text(L"FontFace", L"Tahoma");
    expect(L"Tahoma", 10, "a text");
    key.set_text(L"FontFace", std::wstring(127, L'x'));
    expect(std::wstring(127, L'x'), 10, "256 bytes");
    key.set(L"FontFace", REG_SZ, std::wstring(200, L'x').c_str(), 256);
    expect(std::wstring(128, L'x'), 10, "256 bytes without a terminator");
    key.set_text(L"FontFace", std::wstring(128, L'x'));
    expect(L"MS Shell Dlg", 10, "258 bytes");
    key.set(L"FontFace", REG_EXPAND_SZ, L"Tahoma", 14);
    expect(L"MS Shell Dlg", 10, "a text to be expanded");
    key.set(L"FontFace", REG_BINARY, L"Tahoma", 14);
    expect(L"MS Shell Dlg", 10, "bytes");
    key.set_number(L"FontFace", 7);
    expect(L"MS Shell Dlg", 10, "a number");
    key.set_text(L"FontFace", {});
    expect({}, 10, "an empty text");
}

TEST_F(stored_font, has_a_size_that_is_a_number_whatever_the_face_is) {
    key.set_number(L"FontSize", 17);
    expect(L"MS Shell Dlg", 17, "no face");
    key.set_number(L"FontFace", 7);
    expect(L"MS Shell Dlg", 17, "a face of another type");
    key.set_text(L"FontFace", L"Tahoma");
    expect(L"Tahoma", 17, "both");
    key.set_number(L"FontSize", 0);
    expect(L"Tahoma", 0, "zero");
    key.set_number(L"FontSize", 0x80000000);
    expect(L"Tahoma", 0x80000000, "the largest that is negative");
    key.set_text(L"FontSize", L"17");
    expect(L"Tahoma", 10, "a text");
    const std::uint8_t bytes[8] = {17};
    key.set(L"FontSize", REG_BINARY, bytes, 4);
    expect(L"Tahoma", 10, "bytes");
    key.set(L"FontSize", REG_QWORD, bytes, 8);
    expect(L"Tahoma", 10, "a number of eight bytes");
}

TEST(toolkit_font, is_there_from_the_start_with_the_height_of_its_lines) {
    LOGFONTW found{};
    ASSERT_NE(GetObjectW(toolkit_font, sizeof found, &found), 0);
    LOGFONTW height_alone{};  // all else but the face is left to the system
    height_alone.lfHeight = found.lfHeight;
    EXPECT_EQ(std::memcmp(&found, &height_alone, offsetof(LOGFONTW, lfFaceName)), 0);
    EXPECT_LT(found.lfHeight, 0);
    EXPECT_EQ(font_height, line_height(toolkit_font));
    EXPECT_GT(font_height, 0);
    EXPECT_EQ(decode_length(0x1000064), font_height);
}

}  // namespace
