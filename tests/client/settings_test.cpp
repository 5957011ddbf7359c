// The example of a settings form, as its user sees it: real input, what shows of it, and what it saves.

#include "onlooker.h"
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

using client_test::onlooker;
using client_test::running_program;
using test_support::click;
using testing::HasSubstr;

// Text may be smoothed a little differently from one version of the fonts to the next.
constexpr test_support::tolerance fonts{.channel = 24, .pixels = 300};
constexpr test_support::tolerance less_than_a_mark{.channel = 24, .pixels = 40};

constexpr POINT away{30, 12};  // a place without a control
constexpr POINT ship{196, 33};
constexpr POINT horn{16, 170};
constexpr POINT miles{176, 170};
constexpr POINT save_button{314, 214};
constexpr POINT cancel_button{384, 214};

class settings_example : public testing::Test {
protected:
    void SetUp() override {
        SetForegroundWindow(window);
        ASSERT_TRUE(test_support::pump_until([&] { return GetForegroundWindow() == window; }));
        test_support::move_mouse(window, away);
    }
    void TearDown() override { std::filesystem::remove(file); }

    void expect_shown(std::string_view golden, test_support::tolerance allowed = fonts) {
        EXPECT_TRUE(eye.shows_golden("settings/" + std::string(golden), allowed));
    }

    [[nodiscard]] std::string saved() const {
        std::ostringstream text;
        text << std::ifstream(file, std::ios::binary).rdbuf();
        return text.str();
    }

    const std::filesystem::path file =
        std::filesystem::temp_directory_path() /
        ("mossHarbour-settings-" + std::to_string(GetCurrentProcessId()) + ".txt");
    running_program program{L"settings.exe", L"Settings", L"--scene \"" + file.wstring() + L"\""};
    HWND window = program.window();
    onlooker eye{window};
};

TEST_F(settings_example, shows_its_form) {
    expect_shown("start");
}

TEST(settings_example_of_native_controls, shows_its_form) {
    const running_program native{L"settings.exe", L"Settings", L"--native"};
    test_support::move_mouse(native.window(), away);
    EXPECT_TRUE(onlooker(native.window()).shows_golden("settings/native", fonts));
}

TEST_F(settings_example, lays_its_form_out_anew_when_it_is_sized) {
    program.set_position(0, 0, 640, 400, SWP_NOMOVE | SWP_NOZORDER);
    expect_shown("large");
}

TEST_F(settings_example, is_never_smaller_than_its_controls) {
    RECT before{};
    GetWindowRect(window, &before);
    program.set_position(0, 0, 20, 20, SWP_NOMOVE | SWP_NOZORDER);
    RECT smallest{};
    GetWindowRect(window, &smallest);
    EXPECT_GT(smallest.right - smallest.left, 200);
    EXPECT_LE(smallest.right - smallest.left, before.right - before.left);
}

TEST_F(settings_example, saves_what_has_been_chosen_and_typed) {
    click(window, horn);
    click(window, miles);
    test_support::move_mouse(window, away);
    expect_shown("chosen", less_than_a_mark);
    click(window, ship);
    test_support::strike_key(VK_END);
    test_support::type_text(L" II");
    expect_shown("typed");
    click(window, save_button);
    EXPECT_EQ(program.exit_code(), 0u);
    EXPECT_THAT(saved(), HasSubstr("ship=M\xC3\xBCggelsee II\n"));
    EXPECT_THAT(saved(), HasSubstr("greeting=Ahoy \xF0\x9F\x9A\xA2!\n"));
    EXPECT_THAT(saved(), HasSubstr("horn=yes\n"));
    EXPECT_THAT(saved(), HasSubstr("units=imperial\n"));
    EXPECT_THAT(saved(), HasSubstr("watch=four hours\n"));
}

TEST_F(settings_example, saves_nothing_when_it_is_cancelled) {
    click(window, cancel_button);
    EXPECT_EQ(program.exit_code(), 0u);
    EXPECT_FALSE(std::filesystem::exists(file));
}

TEST_F(settings_example, saves_nothing_when_it_is_closed) {
    PostMessageW(window, WM_CLOSE, 0, 0);
    EXPECT_EQ(program.exit_code(), 0u);
    EXPECT_FALSE(std::filesystem::exists(file));
}

}  // namespace
