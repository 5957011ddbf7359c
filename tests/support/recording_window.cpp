#include "support/recording_window.h"

#include <algorithm>
#include <stdexcept>

namespace test_support {

recording_window::recording_window() {
    WNDCLASSW window_class{};
    window_class.style = CS_DBLCLKS;
    window_class.lpfnWndProc = &procedure;
    window_class.hInstance = GetModuleHandleW(nullptr);
    window_class.lpszClassName = L"test_support_recording_window";
    window_class.hbrBackground = static_cast<HBRUSH>(GetStockObject(WHITE_BRUSH));
    window_class.hCursor = LoadCursorW(nullptr, IDC_ARROW);
    RegisterClassW(&window_class);  // refused, rightly, from the second window on
    window_ = CreateWindowExW(0, window_class.lpszClassName, L"recording window", WS_POPUP | WS_VISIBLE, 100,
                              80, 300, 200, nullptr, nullptr, window_class.hInstance, nullptr);
    if (!window_) throw std::runtime_error("the window cannot be made");
    SetWindowLongPtrW(window_, GWLP_USERDATA, reinterpret_cast<LONG_PTR>(this));
}

recording_window::~recording_window() {
    DestroyWindow(window_);
}

int recording_window::count(UINT id) const {
    return static_cast<int>(
        std::count_if(messages_.begin(), messages_.end(), [id](const MSG& m) { return m.message == id; }));
}

MSG recording_window::last(UINT id) const {
    const auto found =
        std::find_if(messages_.rbegin(), messages_.rend(), [id](const MSG& m) { return m.message == id; });
    if (found == messages_.rend()) throw std::runtime_error("no such message has come");
    return *found;
}

LRESULT CALLBACK recording_window::procedure(HWND window, UINT id, WPARAM wparam, LPARAM lparam) {
    if (auto* const self = reinterpret_cast<recording_window*>(GetWindowLongPtrW(window, GWLP_USERDATA))) {
        self->messages_.push_back({window, id, wparam, lparam, 0, {}});
        if (id == WM_LBUTTONDOWN && self->modal_while_pressed) self->run_modal_loop();
    }
    return DefWindowProcW(window, id, wparam, lparam);
}

void recording_window::run_modal_loop() {
    const int releases = count(WM_LBUTTONUP);
    MSG message{};
    while (count(WM_LBUTTONUP) == releases && GetMessageW(&message, nullptr, 0, 0) > 0)
        DispatchMessageW(&message);
}

}  // namespace test_support
