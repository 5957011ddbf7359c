// What the library does as it comes into a process, and as it goes.

#include <windows.h>

#include <gtest/gtest.h>

namespace {

constexpr wchar_t library[] = L"mossHarbour.ui.dll";
constexpr wchar_t panel_class[] = L"mossHarbour_panel";

bool is_registered(HMODULE module) {
    WNDCLASSEXW found{};
    found.cbSize = sizeof found;
    return GetClassInfoExW(module, panel_class, &found) != FALSE;
}

TEST(loading, registers_the_class_of_native_panels_for_the_time_that_the_library_is_there) {
    ASSERT_EQ(GetModuleHandleW(library), nullptr) << "this program is not linked with it";
    for (int round = 0; round < 2; ++round) {
        const HMODULE module = LoadLibraryW(library);
        ASSERT_NE(module, nullptr);
        EXPECT_TRUE(is_registered(module));
        const HWND window = CreateWindowExW(0, panel_class, L"bare", WS_POPUP, 0, 0, 100, 100, nullptr,
                                            nullptr, module, nullptr);
        EXPECT_NE(window, nullptr);
        DestroyWindow(window);
        FreeLibrary(module);
        EXPECT_EQ(GetModuleHandleW(library), nullptr);
        EXPECT_FALSE(is_registered(module));
    }
}

}  // namespace
