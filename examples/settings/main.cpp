// A settings form as a program would have it, described once by portable controls.
//
//     settings [file]      file: where to save, settings.txt unless given

#include "settings_form.h"
#include "ui/mossHarbour/IHwndPanel.h"

#include <exception>
#include <filesystem>

#include <windows.h>

#include <shellapi.h>

namespace {

namespace portable = ui::mossHarbour;

void show(portable::IHwndPanel& panel) {
    const int around = portable::font_percent(50);
    panel.set_padding(around, around, around, around);
    panel.measure();
    const SIZE size = panel.get_window_sizes().preferred;
    SetWindowPos(panel.get_window_handle(), nullptr, 120, 120, size.cx, size.cy, SWP_NOZORDER);
    ShowWindow(panel.get_window_handle(), SW_SHOW);
}

void run_message_loop(portable::IHwndPanel& panel) {
    MSG message{};
    while (GetMessageW(&message, nullptr, 0, 0) > 0) {
        if (panel.translate_message(message)) continue;
        TranslateMessage(&message);
        DispatchMessageW(&message);
    }
}

void run(const std::filesystem::path& file) {
    harbour::settings_form form;
    const auto panel = portable::create_d2d_hwnd_panel(nullptr);
    panel->set_content(form.layout());
    panel->create_window(0, L"Settings", WS_OVERLAPPEDWINDOW, nullptr);
    form.show({});  // texts belong to the controls on the screen, and those to what is measured
    show(*panel);
    bool is_saved = false;
    form.on_save = [&] {
        is_saved = true;
        PostQuitMessage(0);
    };
    form.on_cancel = [] { PostQuitMessage(0); };
    panel->set_on_close(form.on_cancel);
    run_message_loop(*panel);
    if (is_saved) harbour::save(form.read(), file);
    panel->destroy_window();
    panel->set_content(nullptr);
}

/// The first argument of the command line, or a name in the current folder.
std::filesystem::path chosen_file() {
    int count = 0;
    wchar_t** const arguments = CommandLineToArgvW(GetCommandLineW(), &count);
    std::filesystem::path result = count > 1 ? arguments[1] : L"settings.txt";
    LocalFree(arguments);
    return result;
}

}  // namespace

int WINAPI WinMain(HINSTANCE, HINSTANCE, LPSTR, int) {
    try {
        run(chosen_file());
        return 0;
    } catch (const std::exception& failure) {
        MessageBoxA(nullptr, failure.what(), "Settings", MB_ICONERROR);
        return 1;
    }
}
