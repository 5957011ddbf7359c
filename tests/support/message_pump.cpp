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

    /// Dispatches what has come.
    void drain() {
        MSG message{};
        while (PeekMessageW(&message, nullptr, 0, 0, PM_REMOVE)) {
            if (message.message == WM_QUIT) {
                quit_code_ = static_cast<int>(message.wParam);
                continue;
            }
            TranslateMessage(&message);
            DispatchMessageW(&message);
        }
    }

private:
    std::optional<int> quit_code_;
};

/// False when none comes within the time.
bool message_comes_within(clock::duration time) {
    const auto waited = std::chrono::ceil<std::chrono::milliseconds>(std::max(time, clock::duration::zero()));
    return MsgWaitForMultipleObjectsEx(0, nullptr, static_cast<DWORD>(waited.count()), QS_ALLINPUT,
                                       MWMO_INPUTAVAILABLE) != WAIT_TIMEOUT;
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
        (void)message_comes_within(std::min<clock::duration>(end - now, std::chrono::milliseconds(5)));
    }
}

void pump_until_idle(std::chrono::milliseconds quiet, std::chrono::milliseconds limit) {
    const auto end = clock::now() + limit;
    message_drain messages;
    do {
        messages.drain();
        // Waited for anew behind each look: a time that passed while others ran says nothing.
    } while (clock::now() < end &&
             message_comes_within(std::min<clock::duration>(quiet, end - clock::now())));
}

void pump_for(std::chrono::milliseconds time) {
    (void)pump_until([] { return false; }, time);
}

}  // namespace test_support
