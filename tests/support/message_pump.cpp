#include "support/message_pump.h"

#include <windows.h>

#include <algorithm>
#include <optional>

namespace test_support {
namespace {

using clock = std::chrono::steady_clock;

class message_drain {
public:
    message_drain() = default;
    message_drain(const message_drain&) = delete;
    message_drain& operator=(const message_drain&) = delete;

    ~message_drain() {
        if (quit_code_) PostQuitMessage(*quit_code_);
    }

    /// Dispatches what has come; false when nothing had.
    bool drain() {
        bool any = false;
        MSG message{};
        while (PeekMessageW(&message, nullptr, 0, 0, PM_REMOVE)) {
            any = true;
            if (message.message == WM_QUIT) {
                quit_code_ = static_cast<int>(message.wParam);
                continue;
            }
            TranslateMessage(&message);
            DispatchMessageW(&message);
        }
        return any;
    }

private:
    std::optional<int> quit_code_;
};

void wait_for_message(clock::duration time) {
    const auto milliseconds = std::chrono::ceil<std::chrono::milliseconds>(time).count();
    if (milliseconds <= 0) return;
    MsgWaitForMultipleObjectsEx(0, nullptr, static_cast<DWORD>(milliseconds), QS_ALLINPUT,
                                MWMO_INPUTAVAILABLE);
}

}  // namespace

bool pump_until(const std::function<bool()>& done, std::chrono::milliseconds limit) {
    const auto end = clock::now() + limit;
    message_drain messages;
    for (;;) {
        messages.drain();
        if (done()) return true;
        const auto now = clock::now();
        if (now >= end) return false;
        // The condition may come true without a message, so it is asked every few milliseconds.
        wait_for_message(std::min<clock::duration>(end - now, std::chrono::milliseconds(5)));
    }
}

void pump_until_idle(std::chrono::milliseconds quiet, std::chrono::milliseconds limit) {
    const auto end = clock::now() + limit;
    auto last_message = clock::now();
    message_drain messages;
    while (clock::now() < end && clock::now() - last_message < quiet) {
        if (messages.drain()) last_message = clock::now();
        wait_for_message(std::min(last_message + quiet, end) - clock::now());
    }
}

void pump_for(std::chrono::milliseconds time) {
    (void)pump_until([] { return false; }, time);
}

}  // namespace test_support
