#include "d2d/win32_scene_window.h"
#include "support/leak_checked_test.h"
#include "win32/error.h"

#include <optional>
#include <string>
#include <vector>

#include <gtest/gtest.h>

namespace {

using namespace d2d;

class stored_position : public test_support::leak_checked_test {
protected:
    static constexpr const wchar_t* key = L"Software\\mossHarbour.tests\\position";
    static constexpr const wchar_t* parent_key = L"Software\\mossHarbour.tests";

    void TearDown() override {
        RegDeleteKeyW(HKEY_CURRENT_USER, key);
        RegDeleteKeyW(HKEY_CURRENT_USER, parent_key);
        leak_checked_test::TearDown();
    }
    const factory token;

    static void open_framed(win32_scene_window& opened) {
        opened.create_window(0, L"scene", WS_OVERLAPPEDWINDOW, 100, 110, 300, 200, nullptr, nullptr);
    }
    static void store(const void* bytes, DWORD size, DWORD type = REG_BINARY) {
        HKEY made = nullptr;
        ASSERT_EQ(ERROR_SUCCESS, RegCreateKeyExW(HKEY_CURRENT_USER, key, 0, nullptr, 0, GENERIC_WRITE,
                                                 nullptr, &made, nullptr));
        EXPECT_EQ(ERROR_SUCCESS,
                  RegSetValueExW(made, L"main", 0, type, static_cast<const BYTE*>(bytes), size));
        RegCloseKey(made);
    }
    static RECT place_of(const win32_scene_window& asked) {
        RECT place{};
        GetWindowRect(asked.get_window_handle(), &place);
        return place;
    }
};

TEST_F(stored_position, comes_back_in_44_bytes) {
    win32_scene_window opened;
    open_framed(opened);
    opened.save_position(key, L"main");
    WINDOWPLACEMENT stored{};
    DWORD size = sizeof stored;
    DWORD type = 0;
    ASSERT_EQ(ERROR_SUCCESS,
              RegGetValueW(HKEY_CURRENT_USER, key, L"main", RRF_RT_ANY, &type, &stored, &size));
    EXPECT_EQ(static_cast<DWORD>(REG_BINARY), type);
    EXPECT_EQ(44u, size);
    EXPECT_EQ(44u, stored.length);
    const RECT before = place_of(opened);
    SetWindowPos(opened.get_window_handle(), nullptr, 400, 300, 250, 150, SWP_NOZORDER | SWP_NOACTIVATE);
    const auto shown_as = opened.load_position(key, L"main");
    EXPECT_EQ(std::optional<unsigned>(stored.showCmd), shown_as);
    const RECT after = place_of(opened);
    EXPECT_TRUE(EqualRect(&before, &after));
    EXPECT_FALSE(IsWindowVisible(opened.get_window_handle()));
    opened.destroy_window();
}

TEST_F(stored_position, is_none_where_nothing_was_stored) {
    win32_scene_window opened;
    open_framed(opened);
    const RECT before = place_of(opened);
    EXPECT_EQ(std::nullopt, opened.load_position(key, L"main"));
    opened.save_position(key, L"other");
    EXPECT_EQ(std::nullopt, opened.load_position(key, L"main"));
    const std::vector<BYTE> longer(45);
    store(longer.data(), 45);
    EXPECT_EQ(std::nullopt, opened.load_position(key, L"main"));
    const RECT after = place_of(opened);
    EXPECT_TRUE(EqualRect(&before, &after));
    opened.destroy_window();
}

TEST_F(stored_position, may_be_stored_as_any_type) {
    win32_scene_window opened;
    open_framed(opened);
    WINDOWPLACEMENT elsewhere{};
    elsewhere.length = sizeof elsewhere;
    GetWindowPlacement(opened.get_window_handle(), &elsewhere);
    OffsetRect(&elsewhere.rcNormalPosition, 70, 30);
    elsewhere.showCmd = SW_SHOWMINIMIZED;
    store(&elsewhere, sizeof elsewhere, REG_NONE);
    EXPECT_EQ(std::optional<unsigned>(SW_SHOWMINIMIZED), opened.load_position(key, L"main"));
    const RECT after = place_of(opened);
    EXPECT_EQ(170, after.left);
    EXPECT_EQ(140, after.top);
    EXPECT_FALSE(IsIconic(opened.get_window_handle()));
    opened.destroy_window();
}

TEST_F(stored_position, shows_no_hidden_window_and_hides_no_visible_one) {
    win32_scene_window opened;
    open_framed(opened);
    WINDOWPLACEMENT maximized{};
    maximized.length = sizeof maximized;
    GetWindowPlacement(opened.get_window_handle(), &maximized);
    maximized.showCmd = SW_SHOWMAXIMIZED;
    store(&maximized, sizeof maximized);
    EXPECT_EQ(std::optional<unsigned>(SW_SHOWMAXIMIZED), opened.load_position(key, L"main"));
    EXPECT_FALSE(IsWindowVisible(opened.get_window_handle()));
    opened.show_window(SW_SHOWNORMAL);
    EXPECT_EQ(std::optional<unsigned>(SW_SHOWMAXIMIZED), opened.load_position(key, L"main"));
    EXPECT_TRUE(IsWindowVisible(opened.get_window_handle()));
    EXPECT_FALSE(IsZoomed(opened.get_window_handle()));
    opened.destroy_window();
}

TEST_F(stored_position, failures_carry_the_code) {
    win32_scene_window none;
    EXPECT_THROW(none.save_position(key, L"main"), win32::error);
    win32_scene_window opened;
    open_framed(opened);
    try {
        const std::wstring too_long(300, L'x');
        opened.save_position(too_long.c_str(), L"main");
        FAIL() << "a key of 300 characters";
    } catch (const win32::error& e) {
        EXPECT_NE(0u, e.code);
    }
    opened.save_position(key, L"main");
    EXPECT_THROW(static_cast<void>(none.load_position(key, L"main")), win32::error);
    opened.destroy_window();
}

}  // namespace
