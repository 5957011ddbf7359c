// The system's file dialogs, driven as a user drives them.

#include "modal_call.h"
#include "portable_forms.h"
#include "support/input.h"
#include "ui/mossHarbour/IFileSelectionService.h"
#include "ui/mossHarbour/IHwndPanel.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <array>
#include <filesystem>
#include <fstream>
#include <optional>
#include <string>

namespace {

using namespace ui::mossHarbour;
using client_test::expect_soon;
using client_test::form;
using client_test::while_shown;
using client_test::window_above;
using std::filesystem::path;
using details = IFileSelectionService::details;
using selection = path (*)(HWND, details);

// Controls of the dialogs, by the numbers that the system gives them.
constexpr int ok_button = IDOK;
constexpr int cancel_button = IDCANCEL;
constexpr int file_name = 0x47C;
constexpr int file_type = 0x470;

constexpr wchar_t charts[] = L"Charts\0*.chart\0All files\0*.*\0";

class file_selection : public testing::Test {
protected:
    void SetUp() override { create_directory(folder); }
    void TearDown() override {
        EXPECT_EQ(owner.owned(), 0);
        EXPECT_TRUE(IsWindowEnabled(owner.handle()));
        current_path(folder.parent_path());  // the dialogs change it
        remove_all(folder);
    }

    path make_file(const std::wstring& name) const {
        const path result = folder / name;
        std::ofstream(result) << "depths";
        EXPECT_TRUE(exists(result));
        return result;
    }
    /// Selects above the owner while `actions(the dialog)` run.
    template <class Actions>
    path select(selection kind, details choice, Actions&& actions) {
        path result = L"none";
        while_shown([&] { actions(window_above(owner.handle())); },
                    [&] { result = kind(owner.handle(), choice); });
        return result;
    }
    static void enter(HWND dialog, const path& name) {
        SetDlgItemTextW(dialog, file_name, name.c_str());
        expect_soon([&] { return entered(dialog) == name.wstring(); }, "the name");
    }
    [[nodiscard]] static std::wstring entered(HWND dialog) {
        std::array<wchar_t, 400> text{};
        GetDlgItemTextW(dialog, file_name, text.data(), static_cast<int>(text.size()));
        return text.data();
    }
    /// By message: the dialogs may move their buttons for some time.
    static void press(HWND dialog, int button) {
        PostMessageW(dialog, WM_COMMAND, static_cast<WPARAM>(button),
                     reinterpret_cast<LPARAM>(GetDlgItem(dialog, button)));
    }

    const path folder = std::filesystem::temp_directory_path() /
                        (L"K\u00fcste und Meer " + std::to_wstring(GetCurrentProcessId()));
    client_test::owner_window owner;
};

TEST_F(file_selection, gives_an_existing_file_with_a_long_name_in_many_scripts) {
    const std::wstring names[] = {L"a.chart", L"M\u00fcggelsee bei Nacht.chart",
                                  L"\u6a2a\u6d5c\u6e2f \u05d7\u05d9\u05e4\u05d4.chart",
                                  std::wstring(120, L'\u00f6') + L".chart"};
    for (const auto& name : names) {
        const path file = make_file(name);
        EXPECT_EQ(select(&selectInputFile, {L"", charts, L"chart"},
                         [&](HWND dialog) {
                             enter(dialog, file);
                             press(dialog, ok_button);
                         }),
                  file);
    }
}

TEST_F(file_selection, is_empty_when_it_is_cancelled) {
    for (const selection kind : {&selectInputFile, &selectOutputFile}) {
        const path chosen = select(kind, {L"name", charts, L"chart"}, [&](HWND dialog) {
            EXPECT_FALSE(IsWindowEnabled(owner.handle()));
            press(dialog, cancel_button);
        });
        EXPECT_TRUE(chosen.empty());
        const path closed = select(kind, {nullptr, nullptr, nullptr},
                                   [](HWND dialog) { PostMessageW(dialog, WM_SYSCOMMAND, SC_CLOSE, 0); });
        EXPECT_TRUE(closed.empty());
    }
}

TEST_F(file_selection, starts_with_the_name_and_the_types_that_it_is_given) {
    const path initial = folder / L"L\u00fcbeck.chart";
    const path chosen = select(&selectOutputFile, {initial.c_str(), charts, L"chart"}, [&](HWND dialog) {
        EXPECT_EQ(path(entered(dialog)).filename(), initial.filename());
        EXPECT_EQ(SendDlgItemMessageW(dialog, file_type, CB_GETCOUNT, 0, 0), 2);
        EXPECT_EQ(SendDlgItemMessageW(dialog, file_type, CB_GETCURSEL, 0, 0), 0);
        press(dialog, ok_button);
    });
    EXPECT_EQ(chosen, initial);
}

TEST_F(file_selection, adds_the_default_extension_to_a_name_without_one_to_write) {
    const path named = select(&selectOutputFile, {L"", charts, L"chart"}, [&](HWND dialog) {
        enter(dialog, folder / L"new");
        press(dialog, ok_button);
    });
    EXPECT_EQ(named, folder / L"new.chart");
    const path other = select(&selectOutputFile, {L"", charts, L"chart"}, [&](HWND dialog) {
        enter(dialog, folder / L"new.text");
        press(dialog, ok_button);
    });
    EXPECT_EQ(other, folder / L"new.text");
}

TEST_F(file_selection, takes_no_file_to_read_that_is_not_there) {
    const path chosen = select(&selectInputFile, {L"", charts, L"chart"}, [&](HWND dialog) {
        enter(dialog, folder / L"missing.chart");
        press(dialog, ok_button);
        const HWND complaint = window_above(dialog);
        PostMessageW(complaint, WM_COMMAND, IDOK, 0);
        expect_soon([&] { return !IsWindow(complaint) && IsWindowEnabled(dialog); }, "the dialog again");
        press(dialog, cancel_button);
    });
    EXPECT_TRUE(chosen.empty());
}

TEST_F(file_selection, asks_ahead_of_replacing_a_file) {
    const path file = make_file(L"old.chart");
    const path chosen = select(&selectOutputFile, {L"", charts, L"chart"}, [&](HWND dialog) {
        for (const int answer : {IDNO, IDYES}) {
            enter(dialog, file);
            press(dialog, ok_button);
            const HWND question = window_above(dialog);
            PostMessageW(question, WM_COMMAND, static_cast<WPARAM>(answer), 0);
            expect_soon([&] { return !IsWindow(question); }, "an end of the question");
            if (answer == IDNO) expect_soon([&] { return IsWindowEnabled(dialog); }, "the dialog again");
        }
    });
    EXPECT_EQ(chosen, file);
    EXPECT_TRUE(exists(file));
}

class file_selection_of_panel : public file_selection, public testing::WithParamInterface<form> {};

INSTANTIATE_TEST_SUITE_P(forms, file_selection_of_panel, testing::ValuesIn(client_test::all_forms),
                         client_test::name_of<testing::TestParamInfo<form>>);

TEST_P(file_selection_of_panel, is_above_its_window) {
    const auto panel =
        GetParam() == form::scene ? create_d2d_hwnd_panel(nullptr) : create_win32_hwnd_panel(nullptr);
    const HWND window = panel->create_window(0, L"panel", WS_OVERLAPPEDWINDOW, nullptr);
    test_support::bring_to_front(window);
    com::ptr<IFileSelectionService> service;
    ASSERT_EQ(panel->QueryService(com::guid_of<IFileSelectionService>(),
                                  com::guid_of<IFileSelectionService>(), service.put_void()),
              S_OK);
    const path file = make_file(L"old.chart");
    const auto choose = [&](const path& name) {
        const HWND dialog = window_above(window);
        EXPECT_FALSE(IsWindowEnabled(window));
        enter(dialog, name);
        press(dialog, ok_button);
    };
    path chosen;
    while_shown([&] { choose(file); }, [&] { chosen = service->selectInputFile({L"", charts, L"chart"}); });
    EXPECT_EQ(chosen, file);
    while_shown([&] { choose(folder / L"new"); },
                [&] {
                    chosen = service->selectOutputFile({L"", charts, L"chart"});
                });
    EXPECT_EQ(chosen, folder / L"new.chart");
    service.reset();
    panel->destroy_window();
}

}  // namespace
