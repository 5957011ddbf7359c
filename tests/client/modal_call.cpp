#include "modal_call.h"

#include "support/input.h"
#include "support/message_pump.h"

#include <gtest/gtest.h>

#include <atomic>
#include <stdexcept>
#include <string>
#include <thread>
#include <utility>

namespace client_test {
namespace {

constexpr std::chrono::seconds patience{20};
constexpr wchar_t class_name[] = L"mossHarbour test owner";

/// In the thread of actions: has the call ended?
thread_local const std::atomic<bool>* call_has_ended = nullptr;

/// Ends and joins a thread on every way out.
class companion {
public:
    explicit companion(const std::function<void()>& actions)
        : thread([this, &actions, caller = GetCurrentThreadId()] { run(actions, caller); }) {}
    companion(const companion&) = delete;
    companion& operator=(const companion&) = delete;
    ~companion() {
        ended = true;
        thread.join();
        MSG message{};
        while (has_quit && PeekMessageW(&message, nullptr, WM_QUIT, WM_QUIT, PM_REMOVE)) continue;
    }

private:
    void run(const std::function<void()>& actions, DWORD caller) {
        call_has_ended = &ended;
        try {
            actions();
        } catch (const std::exception& failure) {
            ADD_FAILURE() << failure.what();
        }
        if (test_support::pump_until([this] { return ended.load(); }, patience)) return;
        ADD_FAILURE() << "the call has not ended by itself";
        has_quit = true;
        while (!ended) {
            PostThreadMessageW(caller, WM_QUIT, 0, 0);
            Sleep(50);
        }
    }

    std::atomic<bool> ended = false;
    std::atomic<bool> has_quit = false;
    std::thread thread;
};

/// Goes through the windows of a kind until `visit` has had enough.
template <class Enumerate>
void each_window(Enumerate&& enumerate, const std::function<bool(HWND)>& visit) {
    const auto step = [](HWND found, LPARAM parameter) -> BOOL {
        return (*reinterpret_cast<const std::function<bool(HWND)>*>(parameter))(found);
    };
    enumerate(static_cast<WNDENUMPROC>(step), reinterpret_cast<LPARAM>(&visit));
}

void each_owned(HWND owner, const std::function<bool(HWND)>& visit) {
    each_window(
        [owner](WNDENUMPROC step, LPARAM parameter) {
            EnumThreadWindows(GetWindowThreadProcessId(owner, nullptr), step, parameter);
        },
        [&](HWND found) { return GetWindow(found, GW_OWNER) != owner || visit(found); });
}

}  // namespace

void while_shown(const std::function<void()>& actions, const std::function<void()>& call) {
    const companion beside(actions);
    call();
}

HWND window_above(HWND owner) {
    HWND result = nullptr;
    expect_soon(
        [&] {
            each_owned(owner, [&](HWND found) {
                result = found;
                return !IsWindowVisible(found);
            });
            return result && IsWindowVisible(result) && GetForegroundWindow() == result;
        },
        "a window above its owner");
    return result;
}

HWND child_window(HWND parent, const wchar_t* kind, const wchar_t* text) {
    HWND result = nullptr;
    expect_soon(
        [&] {
            each_window([=](auto... visit) { EnumChildWindows(parent, visit...); },
                        [&](HWND found) {
                            // By its parent, which knows the text of its windows without asking them.
                            for (HWND next = nullptr;
                                 !result && (next = FindWindowExW(GetParent(found), next, kind, text));) {
                                if (next == found) result = found;
                            }
                            return !result;
                        });
            RECT size{};
            return GetClientRect(result, &size) && size.right > 0;
        },
        "a child window");
    return result;
}

void expect_soon(const std::function<bool()>& condition, const char* what) {
    bool holds = false;
    static_cast<void>(test_support::pump_until(
        [&] { return (holds = condition()) || (call_has_ended && *call_has_ended); }, patience));
    EXPECT_TRUE(holds || condition()) << "there is not " << what;
}

owner_window::owner_window() {
    WNDCLASSW description{};
    description.lpfnWndProc = &procedure;
    description.hInstance = GetModuleHandleW(nullptr);
    description.hbrBackground = reinterpret_cast<HBRUSH>(COLOR_WINDOW + 1);
    description.lpszClassName = class_name;
    RegisterClassW(&description);
    window = CreateWindowExW(0, class_name, L"owner", WS_POPUP | WS_CAPTION | WS_SYSMENU, 200, 150, 601, 455,
                             nullptr, nullptr, description.hInstance, this);
    inside = CreateWindowExW(0, L"STATIC", L"", WS_CHILD | WS_VISIBLE, 10, 10, 50, 30, window, nullptr,
                             description.hInstance, nullptr);
    test_support::bring_to_front(window);
}

owner_window::~owner_window() {
    DestroyWindow(window);
}

int owner_window::owned() const {
    int result = 0;
    each_owned(window, [&](HWND) {
        ++result;
        return true;
    });
    return result;
}

LRESULT CALLBACK owner_window::procedure(HWND window, UINT id, WPARAM wparam, LPARAM lparam) {
    if (id == WM_NCCREATE) {
        const auto& created = *reinterpret_cast<const CREATESTRUCTW*>(lparam);
        SetWindowLongPtrW(window, GWLP_USERDATA, reinterpret_cast<LONG_PTR>(created.lpCreateParams));
    }
    auto* const self = reinterpret_cast<owner_window*>(GetWindowLongPtrW(window, GWLP_USERDATA));
    if (self && id == WM_ENABLE) ++self->times;
    return id == WM_CLOSE ? 0 : DefWindowProcW(window, id, wparam, lparam);
}

}  // namespace client_test
