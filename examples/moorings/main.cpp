// A list whose entries are edited in place. A click selects a row, another one edits a cell; Tab goes on to
// the next, and a click on a header sorts. Lists are native controls.

#include "moorings_form.h"
#include "ui/mossHarbour/IHwndPanel.h"

#include <exception>

#include <windows.h>

namespace {

using namespace ui::mossHarbour;

void show_window(IHwndPanel& panel) {
    panel.measure();
    const SIZE size = panel.get_window_sizes().preferred;
    SetWindowPos(panel.get_window_handle(), nullptr, 120, 120, size.cx, size.cy, SWP_NOZORDER);
    ShowWindow(panel.get_window_handle(), SW_SHOW);
}

void run_loop(IHwndPanel& panel) {
    MSG message{};
    while (GetMessageW(&message, nullptr, 0, 0) > 0) {
        if (panel.translate_message(message)) continue;
        TranslateMessage(&message);
        DispatchMessageW(&message);
    }
}

}  // namespace

int WINAPI WinMain(HINSTANCE, HINSTANCE, LPSTR, int) {
    try {
        harbour::moorings_form form;
        const auto panel = create_win32_hwnd_panel(nullptr);
        panel->set_content(form.layout());
        panel->set_on_close([] { PostQuitMessage(0); });
        panel->create_window(0, L"Moorings", WS_OVERLAPPEDWINDOW, nullptr);
        form.show();  // the list is there from here on
        show_window(*panel);
        run_loop(*panel);
        panel->destroy_window();
        return 0;
    } catch (const std::exception& failure) {
        MessageBoxA(nullptr, failure.what(), "Moorings", MB_ICONERROR);
        return 1;
    }
}
