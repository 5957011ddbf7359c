#include "client_event_handler.h"

#include "animation_timer.h"

namespace completion {

HRESULT client_event_handler::QueryInterface(REFIID iid, void** result) {
    if (!result) {
        return E_POINTER;
    }
    if (iid == __uuidof(IUnknown) || iid == __uuidof(IUIAnimationTimerClientEventHandler)) {
        *result = static_cast<IUIAnimationTimerClientEventHandler*>(this);
        AddRef();
        return S_OK;
    }
    *result = nullptr;
    return E_NOINTERFACE;
}

ULONG client_event_handler::AddRef() {
    return ++references_;
}

ULONG client_event_handler::Release() {
    const ULONG remaining = --references_;
    if (remaining == 0) {
        delete this;
    }
    return remaining;
}

HRESULT client_event_handler::OnTimerClientStatusChanged(UI_ANIMATION_TIMER_CLIENT_STATUS status,
                                                         UI_ANIMATION_TIMER_CLIENT_STATUS) {
    return timer_ ? timer_->set_client_status(status) : RPC_E_DISCONNECTED;
}

}  // namespace completion
