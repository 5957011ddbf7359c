// What the example of a settings form asks, in both forms of its controls.

#include "modal_call.h"
#include "onlooker.h"
#include "portable_forms.h"
#include "running_program.h"
#include "support/input.h"
#include "support/message_pump.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <filesystem>
#include <fstream>
#include <sstream>
#include <string>

namespace {

using client_test::child_window;
using client_test::expect_soon;
using client_test::form;
using client_test::window_above;
using std::filesystem::path;
using testing::HasSubstr;

constexpr int file_name = 0x47C;  // the control of the file dialogs with that number

constexpr POINT away{30, 12};  // a place without a control

class settings_dialogs : public testing::TestWithParam<form> {
protected:
    void SetUp() override {
        create_directory(folder);
        SetForegroundWindow(window);
        ASSERT_TRUE(test_support::pump_until([&] { return GetForegroundWindow() == window; }));
        test_support::move_mouse(window, away);
        constexpr test_support::tolerance fonts{.channel = 24, .pixels = 300};
        ASSERT_TRUE(
            eye.shows_golden(GetParam() == form::scene ? "settings/start" : "settings/native", fonts));
    }
    void TearDown() override { remove_all(folder); }

    /// Presses a button: the text counts in the native form, the place on the scene.
    static void press(HWND above, const wchar_t* text, POINT place) {
        if (GetParam() == form::native) {
            test_support::click(child_window(above, L"BUTTON", text), {8, 8});
        } else {
            test_support::click(above, place);
        }
    }
    void press_ports() const { press(window, L"Ports...", {243, 214}); }
    /// Waits until the form has taken it: what is posted goes ahead of input.
    void press_horn() {
        press(window, L"Sound the horn in fog", {16, 170});
        test_support::move_mouse(window, away);
        constexpr test_support::tolerance less_than_a_mark{.channel = 24, .pixels = 20};
        EXPECT_TRUE(
            eye.shows_golden(GetParam() == form::scene ? "settings/with_horn" : "settings/native_with_horn",
                             less_than_a_mark));
    }
    /// The first of a dialog's two buttons, or the second.
    static void answer(HWND question, bool first) {
        RECT client{};
        GetClientRect(question, &client);
        press(question, first ? L"Yes" : L"No", {client.right - (first ? 115 : 45), client.bottom - 20});
    }
    /// Leaves by a file dialog with a name.
    void choose_file(const path& name) const {
        const HWND dialog = window_above(window);
        SetDlgItemTextW(dialog, file_name, name.c_str());
        PostMessageW(dialog, WM_COMMAND, IDOK, reinterpret_cast<LPARAM>(GetDlgItem(dialog, IDOK)));
        expect_soon([&] { return !IsWindow(dialog) && IsWindowEnabled(window); }, "an end of the dialog");
    }

    [[nodiscard]] static std::string text_of(const path& written) {
        std::ostringstream text;
        text << std::ifstream(written, std::ios::binary).rdbuf();
        return text.str();
    }

    const path folder = std::filesystem::temp_directory_path() /
                        (L"mossHarbour settings " + std::to_wstring(GetCurrentProcessId()));
    const path file = folder / L"settings.txt";
    client_test::running_program program{
        L"settings.exe", L"Settings",
        (GetParam() == form::scene ? L"--scene \"" : L"--native \"") + file.wstring() + L"\""};
    const HWND window = program.window();
    client_test::onlooker eye{window};
};

INSTANTIATE_TEST_SUITE_P(forms, settings_dialogs, testing::ValuesIn(client_test::all_forms),
                         client_test::name_of<testing::TestParamInfo<form>>);

TEST_P(settings_dialogs, ask_ahead_of_leaving_what_was_changed) {
    press_horn();
    for (const bool agreed : {false, true}) {
        PostMessageW(window, WM_CLOSE, 0, 0);
        const HWND question = window_above(window);
        answer(question, agreed);
        expect_soon([&] { return !IsWindow(question); }, "an end of the question");
        EXPECT_TRUE(agreed || IsWindowVisible(window));
    }
    EXPECT_EQ(program.exit_code(), 0u);
    EXPECT_FALSE(exists(file));
}

TEST_P(settings_dialogs, offer_ports_in_a_popup) {
    press_ports();
    const HWND popup = window_above(window);
    EXPECT_TRUE(IsWindowEnabled(window));
    RECT client{};
    GetClientRect(popup, &client);
    press(popup, L"L\u00fcbeck", {20, client.bottom * 3 / 8});  // the second of four
    expect_soon([&] { return !IsWindow(popup); }, "an end of the popup");
    press(window, L"Save", {314, 214});
    EXPECT_EQ(program.exit_code(), 0u);
    EXPECT_THAT(text_of(file), HasSubstr("\nnext port=L\xC3\xBC"
                                         "beck\n"));
}

TEST_P(settings_dialogs, save_and_open_other_files) {
    const path copy = folder / L"K\u00fcste.txt";
    press_horn();
    press(window, L"Save as...", {172, 214});
    choose_file(folder / L"K\u00fcste");
    // It is written when the dialog has gone.
    expect_soon([&] { return text_of(copy).find("\nwatch=") != std::string::npos; }, "a whole file");
    EXPECT_THAT(text_of(copy), HasSubstr("\nhorn=yes\n"));
    std::ofstream(copy, std::ios::binary) << "ship=Kalliope\nhorn=no\nunits=imperial\nwatch=dog watches\n";
    press(window, L"Open...", {101, 214});
    choose_file(copy);
    press(window, L"Save", {314, 214});
    EXPECT_EQ(program.exit_code(), 0u);
    EXPECT_THAT(text_of(file), HasSubstr("ship=Kalliope\ncall sign=DK7\xC3\x98S\n"));
    EXPECT_THAT(text_of(file), HasSubstr("\nhorn=no\nlog=yes\nunits=imperial\nwatch=dog watches\n"));
}

}  // namespace
