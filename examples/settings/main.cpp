// A settings form as a program would have it, described once by portable controls.
//
//     settings [--scene | --native] [file]
//
// --scene, --native: what shows the controls, whatever the user's choice in the registry is
// file: where to save, settings.txt unless given

#include "settings_window.h"
#include "ui/mossHarbour/IHwndPanel.h"

#include <exception>
#include <filesystem>
#include <string_view>

#include <windows.h>

#include <shellapi.h>

namespace {

namespace portable = ui::mossHarbour;

struct options {
    decltype(&portable::create_hwnd_panel) create_panel = &portable::create_hwnd_panel;
    std::filesystem::path file = L"settings.txt";
};

options read_command_line() {
    options result;
    int count = 0;
    wchar_t** const arguments = CommandLineToArgvW(GetCommandLineW(), &count);
    for (int i = 1; i < count; ++i) {
        const std::wstring_view argument = arguments[i];
        if (argument == L"--scene") {
            result.create_panel = &portable::create_d2d_hwnd_panel;
        } else if (argument == L"--native") {
            result.create_panel = &portable::create_win32_hwnd_panel;
        } else {
            result.file = argument;
        }
    }
    LocalFree(arguments);
    return result;
}

}  // namespace

int WINAPI WinMain(HINSTANCE, HINSTANCE, LPSTR, int) {
    try {
        const auto [create_panel, file] = read_command_line();
        harbour::settings_window(create_panel(nullptr), file).run();
        return 0;
    } catch (const std::exception& failure) {
        MessageBoxA(nullptr, failure.what(), "Settings", MB_ICONERROR);
        return 1;
    }
}
