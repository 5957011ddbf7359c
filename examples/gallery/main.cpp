// The controls of the scene, a page for each family, everything in it live.

#include "gallery_window.h"

#include <exception>

namespace {

int run() {
    gallery::gallery_window window;
    window.create_window(0, L"Gallery", WS_OVERLAPPEDWINDOW, 120, 80, 960, 700, nullptr, nullptr);
    window.show_window(SW_SHOW);
    window.root_node()->set_focus();
    const int result = d2d::win32_scene_window::run_message_loop([&](MSG&) {
        window.update();
        return false;
    });
    window.destroy_window();
    return result;
}

}  // namespace

int WINAPI WinMain(HINSTANCE, HINSTANCE, LPSTR, int) {
    try {
        return run();
    } catch (const std::exception& failure) {
        MessageBoxA(nullptr, failure.what(), "gallery", MB_ICONERROR);
        return 1;
    }
}
