#pragma once

#include "module.h"

#include <windows.h>

#include <uianimation.h>

namespace completion {

class animation_timer;

/// What an animation timer hands to its client, for it to say whether it is busy. Apart from the timer, and
/// with no count on it, so that a client that keeps it keeps no timer alive.
class client_event_handler final : public IUIAnimationTimerClientEventHandler {
public:
    /// Starts with no reference: the first pointer to it counts.
    explicit client_event_handler(animation_timer& timer) noexcept : timer_(&timer) {}

    /// The timer is gone, or has another client now.
    void disconnect() noexcept { timer_ = nullptr; }

    HRESULT STDMETHODCALLTYPE QueryInterface(REFIID iid, void** result) override;
    ULONG STDMETHODCALLTYPE AddRef() override;
    ULONG STDMETHODCALLTYPE Release() override;
    HRESULT STDMETHODCALLTYPE OnTimerClientStatusChanged(UI_ANIMATION_TIMER_CLIENT_STATUS status,
                                                         UI_ANIMATION_TIMER_CLIENT_STATUS previous) override;

private:
    ~client_event_handler() = default;

    module_reference module_;
    std::atomic<ULONG> references_{0};
    animation_timer* timer_;
};

}  // namespace completion
