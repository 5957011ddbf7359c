// A window that scrolls a drawing of GDI under strips of headers: the heights of the tide at forty ports.

#include "tide_table.h"

#include <exception>

namespace {

int run() {
    tide_table::window window;
    window.create_window(0, L"Tide table", WS_OVERLAPPEDWINDOW | WS_HSCROLL | WS_VSCROLL, 120, 90, 900, 600,
                         nullptr, nullptr);
    window.show_window(SW_SHOW);
    MSG message{};
    while (GetMessageW(&message, nullptr, 0, 0) > 0) {
        TranslateMessage(&message);
        DispatchMessageW(&message);
    }
    window.destroy_window();
    return static_cast<int>(message.wParam);
}

}  // namespace

int WINAPI WinMain(HINSTANCE, HINSTANCE, LPSTR, int) {
    try {
        return run();
    } catch (const std::exception& failure) {
        MessageBoxA(nullptr, failure.what(), "scroll_window", MB_ICONERROR);
        return 1;
    }
}
