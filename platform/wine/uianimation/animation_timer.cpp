#include "animation_timer.h"

#include <new>
#include <utility>

namespace completion {

using Microsoft::WRL::ComPtr;

namespace {

constexpr UINT default_rate = 60;

double seconds_now() noexcept {
    LARGE_INTEGER ticks{};
    LARGE_INTEGER frequency{};
    QueryPerformanceCounter(&ticks);
    QueryPerformanceFrequency(&frequency);
    return static_cast<double>(ticks.QuadPart) / static_cast<double>(frequency.QuadPart);
}

/// Sets a flag for the length of a scope, also when an update throws.
class flag_scope {
public:
    explicit flag_scope(bool& flag) noexcept : flag_(flag) { flag_ = true; }
    ~flag_scope() { flag_ = false; }
    flag_scope(const flag_scope&) = delete;
    flag_scope& operator=(const flag_scope&) = delete;

private:
    bool& flag_;
};

}  // namespace

animation_timer::~animation_timer() {
    disconnect();
}

HRESULT animation_timer::QueryInterface(REFIID iid, void** result) {
    if (!result) {
        return E_POINTER;
    }
    if (iid == __uuidof(IUnknown) || iid == __uuidof(IUIAnimationTimer)) {
        *result = static_cast<IUIAnimationTimer*>(this);
        AddRef();
        return S_OK;
    }
    *result = nullptr;
    return E_NOINTERFACE;
}

ULONG animation_timer::AddRef() {
    return ++references_;
}

ULONG animation_timer::Release() {
    const ULONG remaining = --references_;
    if (remaining == 0) {
        references_ =
            1;  // the handler, told goodbye by the destructor, may still count this object up and down
        delete this;
    }
    return remaining;
}

HRESULT animation_timer::SetTimerUpdateHandler(IUIAnimationTimerUpdateHandler* handler,
                                               UI_ANIMATION_IDLE_BEHAVIOR behavior) {
    const ComPtr<IUIAnimationTimer> alive{this};
    const ComPtr<IUIAnimationTimerUpdateHandler> incoming{handler};
    disconnect();
    idle_behavior_ = behavior;
    return handler ? connect(handler) : S_OK;
}

HRESULT animation_timer::connect(IUIAnimationTimerUpdateHandler* handler) {
    const ComPtr<client_event_handler> client{new (std::nothrow) client_event_handler(*this)};
    if (!client) {
        return E_OUTOFMEMORY;
    }
    update_handler_ = handler;
    client_ = client;
    const HRESULT result = handler->SetTimerClientEventHandler(client.Get());
    if (FAILED(result) && client_ == client) {
        client_->disconnect();
        client_.Reset();
        update_handler_.Reset();
    }
    return FAILED(result) ? result : start_or_stop();
}

void animation_timer::disconnect() {
    const ComPtr<client_event_handler> client = std::move(client_);
    const ComPtr<IUIAnimationTimerUpdateHandler> handler = std::move(update_handler_);
    client_busy_ = false;
    if (idle_behavior_ == UI_ANIMATION_IDLE_BEHAVIOR_DISABLE) {
        enabled_ = false;
    }
    pulse_.stop();
    beating_ = false;
    if (client) {
        client->disconnect();
    }
    if (handler) {
        handler->ClearTimerClientEventHandler();
    }
}

HRESULT animation_timer::SetTimerEventHandler(IUIAnimationTimerEventHandler* handler) {
    const ComPtr<IUIAnimationTimer> alive{this};
    event_handler_ = handler;
    return S_OK;
}

HRESULT animation_timer::Enable() {
    enabled_ = true;
    return start_or_stop();
}

HRESULT animation_timer::Disable() {
    enabled_ = false;
    return start_or_stop();
}

HRESULT animation_timer::IsEnabled() {
    return enabled_ ? S_OK : S_FALSE;
}

HRESULT animation_timer::GetTime(DOUBLE* seconds) {
    if (!seconds) {
        return E_POINTER;
    }
    *seconds = seconds_now();
    return S_OK;
}

HRESULT animation_timer::SetFrameRateThreshold(UINT32 frames_per_second) {
    threshold_ = frames_per_second;
    return start_or_stop();
}

HRESULT animation_timer::set_client_status(UI_ANIMATION_TIMER_CLIENT_STATUS status) {
    client_busy_ = status == UI_ANIMATION_TIMER_CLIENT_BUSY;
    if (idle_behavior_ == UI_ANIMATION_IDLE_BEHAVIOR_DISABLE) {
        enabled_ = client_busy_;
    }
    return start_or_stop();
}

HRESULT animation_timer::start_or_stop() noexcept {
    const bool wanted = update_handler_ && enabled_ &&
                        (client_busy_ || idle_behavior_ == UI_ANIMATION_IDLE_BEHAVIOR_CONTINUE);
    if (!wanted) {
        pulse_.stop();
        beating_ = false;
        return S_OK;
    }
    if (!std::exchange(beating_, true)) {
        gauge_.restart(seconds_now());
    }
    return pulse_.start(period());
}

UINT animation_timer::period() const noexcept {
    const UINT rate = threshold_ == 0 ? default_rate : threshold_;
    return 1000 / rate + (1000 % rate != 0 ? 1 : 0);
}

void animation_timer::beat() {
    if (!updating_ && update_handler_) {
        update();
    }
}

void animation_timer::update() {
    const ComPtr<IUIAnimationTimer> alive{this};  // the handlers may release the timer or replace each other
    const flag_scope busy{updating_};
    const ComPtr<IUIAnimationTimerUpdateHandler> handler = update_handler_;
    const ComPtr<IUIAnimationTimerEventHandler> observer = event_handler_;
    if (observer) {
        observer->OnPreUpdate();
    }
    const double now = seconds_now();
    UI_ANIMATION_UPDATE_RESULT result = UI_ANIMATION_UPDATE_NO_CHANGE;
    handler->OnUpdate(now, &result);
    if (observer) {
        observer->OnPostUpdate();
    }
    const std::optional<UINT> rate = gauge_.count(now);
    if (observer && rate && *rate < threshold_) {
        observer->OnRenderingTooSlow(*rate);
    }
}

}  // namespace completion
