#pragma once

#include <functional>
#include <string>
#include <vector>

#include <windows.h>

namespace ui::mossHarbour {

/// What a window was asked to be, as its class's procedure may change it.
struct window_creation {
    std::wstring class_name;  // empty for one given by number
    ATOM class_atom;          // 0 for one given by name
    DWORD style;
    DWORD ex_style;
    bool has_title;
    HWND parent;
    HINSTANCE module;
};

/// Writes down the windows that this thread creates, for its lifetime; `refused` may forbid one. One at a
/// time.
class window_creations {
public:
    using condition = std::function<bool(const window_creation&)>;

    explicit window_creations(condition forbids = {}) : refused(std::move(forbids)) {
        current() = this;
        hook = SetWindowsHookExW(WH_CBT, &on_event, nullptr, GetCurrentThreadId());
    }
    window_creations(const window_creations&) = delete;
    window_creations& operator=(const window_creations&) = delete;
    ~window_creations() {
        UnhookWindowsHookEx(hook);
        current() = nullptr;
    }

    std::vector<window_creation> all;

private:
    static window_creations*& current() noexcept {
        static window_creations* recorder = nullptr;
        return recorder;
    }

    static LRESULT CALLBACK on_event(int code, WPARAM wparam, LPARAM lparam) {
        if (code != HCBT_CREATEWND) return CallNextHookEx(nullptr, code, wparam, lparam);
        const CREATESTRUCTW& asked = *reinterpret_cast<const CBT_CREATEWNDW*>(lparam)->lpcs;
        window_creation creation{{},
                                 0,
                                 static_cast<DWORD>(asked.style),
                                 asked.dwExStyle,
                                 asked.lpszName != nullptr,
                                 asked.hwndParent,
                                 asked.hInstance};
        const auto name = reinterpret_cast<ULONG_PTR>(asked.lpszClass);
        if (name <= 0xffff) {
            creation.class_atom = static_cast<ATOM>(name);
        } else {
            creation.class_name = asked.lpszClass;
        }
        window_creations& self = *current();
        const bool is_refused = self.refused && self.refused(creation);
        self.all.push_back(std::move(creation));
        return is_refused;
    }

    condition refused;
    HHOOK hook = nullptr;
};

}  // namespace ui::mossHarbour
