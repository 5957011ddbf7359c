#pragma once

#include <windows.h>

#include <functional>
#include <utility>

namespace test_support {

/// For its lifetime calls a function with each message that is sent to this thread's windows, ahead of their
/// procedures. One at a time.
class sent_messages {
public:
    using listener = std::function<void(const CWPSTRUCT&)>;

    explicit sent_messages(listener told) {
        current() = std::move(told);
        hook = SetWindowsHookExW(WH_CALLWNDPROC, &on_message, nullptr, GetCurrentThreadId());
    }
    sent_messages(const sent_messages&) = delete;
    sent_messages& operator=(const sent_messages&) = delete;
    ~sent_messages() {
        UnhookWindowsHookEx(hook);
        current() = nullptr;
    }

private:
    static listener& current() {
        static listener told;
        return told;
    }
    static LRESULT CALLBACK on_message(int code, WPARAM wparam, LPARAM lparam) {
        if (code == HC_ACTION) current()(*reinterpret_cast<const CWPSTRUCT*>(lparam));
        return CallNextHookEx(nullptr, code, wparam, lparam);
    }

    HHOOK hook = nullptr;
};

}  // namespace test_support
