#pragma once

#include "ui/mossHarbour/IHwndPanel.h"

#include <windows.h>

namespace ui::mossHarbour {

/// For its lifetime the panel gets each of this thread's messages ahead of the dispatch, whoever runs the
/// loop; as a program's own loop does it. One at a time.
class dialog_keys {
public:
    explicit dialog_keys(com::ptr<IHwndPanel> asked) {
        panel() = std::move(asked);
        hook = SetWindowsHookExW(WH_GETMESSAGE, &on_message, nullptr, GetCurrentThreadId());
    }
    dialog_keys(const dialog_keys&) = delete;
    dialog_keys& operator=(const dialog_keys&) = delete;
    ~dialog_keys() {
        UnhookWindowsHookEx(hook);
        panel().reset();
    }

private:
    static com::ptr<IHwndPanel>& panel() noexcept {
        static com::ptr<IHwndPanel> asked;
        return asked;
    }

    static LRESULT CALLBACK on_message(int code, WPARAM removal, LPARAM lparam) {
        MSG& message = *reinterpret_cast<MSG*>(lparam);
        const auto asked = panel();
        if (code >= 0 && removal == PM_REMOVE && message.hwnd && asked->translate_message(message)) {
            message = {};  // nothing is left for the loop
        }
        return CallNextHookEx(nullptr, code, removal, lparam);
    }

    HHOOK hook = nullptr;
};

}  // namespace ui::mossHarbour
