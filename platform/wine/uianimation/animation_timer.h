#pragma once

#include "client_event_handler.h"
#include "frame_rate_gauge.h"
#include "module.h"
#include "pulse.h"

#include <windows.h>

#include <uianimation.h>
#include <wrl/client.h>

namespace completion {

/// The animation timer. It belongs to one thread: every operation is called there, and updates come there,
/// from whatever message loop runs.
///
/// It beats while it has an update handler, is enabled and, with the idle behaviour "disable", while its
/// client is busy; that behaviour also enables it when the client becomes busy and disables it when the
/// client becomes idle. The frame-rate threshold is, beside what it means on Windows, the pace: no more
/// updates a second than that. An update is never begun inside another one of the same timer.
class animation_timer final : public IUIAnimationTimer, private pulse_listener {
public:
    /// Starts with no reference: the first pointer to it counts.
    animation_timer() = default;

    /// The client reports itself busy or idle.
    [[nodiscard]] HRESULT set_client_status(UI_ANIMATION_TIMER_CLIENT_STATUS status);

    HRESULT STDMETHODCALLTYPE QueryInterface(REFIID iid, void** result) override;
    ULONG STDMETHODCALLTYPE AddRef() override;
    ULONG STDMETHODCALLTYPE Release() override;

    HRESULT STDMETHODCALLTYPE SetTimerUpdateHandler(IUIAnimationTimerUpdateHandler* handler,
                                                    UI_ANIMATION_IDLE_BEHAVIOR behavior) override;
    HRESULT STDMETHODCALLTYPE SetTimerEventHandler(IUIAnimationTimerEventHandler* handler) override;
    HRESULT STDMETHODCALLTYPE Enable() override;
    HRESULT STDMETHODCALLTYPE Disable() override;
    HRESULT STDMETHODCALLTYPE IsEnabled() override;
    HRESULT STDMETHODCALLTYPE GetTime(DOUBLE* seconds) override;
    HRESULT STDMETHODCALLTYPE SetFrameRateThreshold(UINT32 frames_per_second) override;

private:
    ~animation_timer();

    void beat() override;
    void update();
    [[nodiscard]] HRESULT start_or_stop() noexcept;
    [[nodiscard]] UINT period() const noexcept;
    [[nodiscard]] HRESULT connect(IUIAnimationTimerUpdateHandler* handler);
    void disconnect();

    module_reference module_;
    std::atomic<ULONG> references_{0};
    pulse pulse_{*this};
    frame_rate_gauge gauge_;
    Microsoft::WRL::ComPtr<IUIAnimationTimerUpdateHandler> update_handler_;
    Microsoft::WRL::ComPtr<IUIAnimationTimerEventHandler> event_handler_;
    Microsoft::WRL::ComPtr<client_event_handler> client_;
    UI_ANIMATION_IDLE_BEHAVIOR idle_behavior_ = UI_ANIMATION_IDLE_BEHAVIOR_CONTINUE;
    UINT32 threshold_ = 0;
    bool enabled_ = false;
    bool client_busy_ = false;
    bool beating_ = false;
    bool updating_ = false;
};

}  // namespace completion
