// The user's settings of the font of dialogs, as a program that starts finds them.

#include "program_output.h"

#include "support/user_key.h"

#include <string>

#include <windows.h>

#include <gtest/gtest.h>

namespace {

class chosen_font : public testing::Test {
protected:
    [[nodiscard]] static std::string probe() {
        return client_test::output_of_program(L"toolkit_font_probe.exe");
    }

    test_support::user_key key{L"Software\\Tarnwick\\mossHarbour\\defaults"};
};

/// What the probe says of a font.
std::string described(const std::string& face, int size) {
    const std::wstring name(face.begin(), face.end());
    const HFONT font = CreateFontW(-size, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, name.c_str());
    const HDC screen = GetDC(nullptr);
    const HGDIOBJ former = SelectObject(screen, font);
    TEXTMETRICW metrics{};
    GetTextMetricsW(screen, &metrics);
    SelectObject(screen, former);
    ReleaseDC(nullptr, screen);
    DeleteObject(font);
    return face + " " + std::to_string(-size) + " " + std::to_string(metrics.tmHeight);
}

TEST_F(chosen_font, is_the_system_s_in_ten_pixels_without_settings) {
    EXPECT_EQ(probe(), described("MS Shell Dlg", 10));
    key.create();
    EXPECT_EQ(probe(), described("MS Shell Dlg", 10));
}

TEST_F(chosen_font, is_what_the_settings_say) {
    key.set_text(L"FontFace", L"Liberation Serif");
    key.set_number(L"FontSize", 23);
    EXPECT_EQ(probe(), described("Liberation Serif", 23));
}

TEST_F(chosen_font, takes_no_setting_of_another_type_and_the_other_one_still) {
    key.set_number(L"FontFace", 7);
    key.set_number(L"FontSize", 17);
    EXPECT_EQ(probe(), described("MS Shell Dlg", 17));
    key.set_text(L"FontFace", L"Liberation Mono");
    key.set_text(L"FontSize", L"17");
    EXPECT_EQ(probe(), described("Liberation Mono", 10));
}

}  // namespace
