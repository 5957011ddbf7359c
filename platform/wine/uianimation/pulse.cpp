#include "pulse.h"

#include "module.h"

namespace completion {

namespace {

constexpr UINT_PTR timer_number = 1;
constexpr wchar_t class_name[] = L"animation timer pulse";

/// The registered window class: a DLL's classes outlive it unless it takes them back.
struct registered_class {
    explicit registered_class(WNDPROC procedure) noexcept {
        WNDCLASSEXW description{};
        description.cbSize = sizeof description;
        description.lpfnWndProc = procedure;
        description.hInstance = module_instance();
        description.lpszClassName = class_name;
        atom = RegisterClassExW(&description);
    }
    ~registered_class() { UnregisterClassW(class_name, module_instance()); }
    registered_class(const registered_class&) = delete;
    registered_class& operator=(const registered_class&) = delete;

    ATOM atom;
};

}  // namespace

pulse::~pulse() {
    if (!window_) {
        return;
    }
    stop();
    SetWindowLongPtrW(window_, GWLP_USERDATA, 0);
    if (!DestroyWindow(window_)) {
        PostMessageW(window_, WM_CLOSE, 0, 0);  // only its own thread can destroy it
    }
}

HRESULT pulse::start(UINT milliseconds) noexcept {
    if (period_ == milliseconds) {
        return S_OK;
    }
    if (!make_window() || !SetTimer(window_, timer_number, milliseconds, nullptr)) {
        return HRESULT_FROM_WIN32(GetLastError());
    }
    period_ = milliseconds;
    return S_OK;
}

void pulse::stop() noexcept {
    if (period_ != 0) {
        KillTimer(window_, timer_number);
        period_ = 0;
    }
}

bool pulse::make_window() noexcept {
    if (!window_ && window_class()) {
        window_ = CreateWindowExW(0, class_name, nullptr, 0, 0, 0, 0, 0, HWND_MESSAGE, nullptr,
                                  module_instance(), nullptr);
        if (window_) {
            SetWindowLongPtrW(window_, GWLP_USERDATA, reinterpret_cast<LONG_PTR>(listener_));
        }
    }
    return window_ != nullptr;
}

ATOM pulse::window_class() noexcept {
    static const registered_class registered{&window_procedure};
    return registered.atom;
}

LRESULT CALLBACK pulse::window_procedure(HWND window, UINT message, WPARAM wparam, LPARAM lparam) {
    if (message == WM_TIMER && wparam == timer_number) {
        const auto listener = reinterpret_cast<pulse_listener*>(GetWindowLongPtrW(window, GWLP_USERDATA));
        if (listener) {
            listener->beat();
        }
        return 0;
    }
    return DefWindowProcW(window, message, wparam, lparam);
}

}  // namespace completion
