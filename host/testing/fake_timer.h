#pragma once

#include "com/check.h"
#include "com/interface_traits.h"
#include "com/ptr.h"
#include "scene/testing/call_text.h"

#include <string>
#include <utility>
#include <vector>

#include <objbase.h>
#include <uianimation.h>

namespace d2d::fakes {

/// The system's animation timer, played by a test: while it lives, `CoCreateInstance` of the timer's class in
/// this thread gives this one. Writes down what a host asks of it:
///
///     set_handler            a handler is set, and is given a client
///     clear_handler
///     threshold 20
///     status busy from idle
///
/// Stands on the stack of a test, and is not destroyed by its count. Requires a COM apartment.
class fake_timer final : public IUIAnimationTimer,
                         public IUIAnimationTimerClientEventHandler,
                         public IClassFactory {
public:
    fake_timer() {
        com::check(CoRegisterClassObject(CLSID_UIAnimationTimer, static_cast<IClassFactory*>(this),
                                         CLSCTX_INPROC_SERVER, REGCLS_MULTIPLEUSE, &registration));
    }
    fake_timer(const fake_timer&) = delete;
    fake_timer& operator=(const fake_timer&) = delete;
    ~fake_timer() { CoRevokeClassObject(registration); }

    std::vector<std::string> calls;
    [[nodiscard]] std::vector<std::string> take_calls() { return std::exchange(calls, {}); }

    /// What `GetTime` gives.
    double now = 0.0;
    /// What `GetTime` and `SetTimerUpdateHandler` answer.
    HRESULT time_result = S_OK;
    HRESULT handler_result = S_OK;
    com::ptr<IUIAnimationTimerUpdateHandler> handler;

    /// A frame: tells the handler the time, which becomes `now`.
    UI_ANIMATION_UPDATE_RESULT update(double time) {
        now = time;
        auto result = UI_ANIMATION_UPDATE_NO_CHANGE;
        com::check(handler->OnUpdate(time, &result));
        return result;
    }

    HRESULT STDMETHODCALLTYPE SetTimerUpdateHandler(IUIAnimationTimerUpdateHandler* given,
                                                    UI_ANIMATION_IDLE_BEHAVIOR idle) override {
        calls.emplace_back(given ? "set_handler" : "clear_handler");
        if (idle != UI_ANIMATION_IDLE_BEHAVIOR_DISABLE) calls.emplace_back("another idle behaviour");
        if (handler_result < 0) return handler_result;
        const com::ptr<IUIAnimationTimerUpdateHandler> former = std::exchange(handler, given);
        if (former) former->ClearTimerClientEventHandler();
        if (handler) handler->SetTimerClientEventHandler(this);
        return S_OK;
    }
    HRESULT STDMETHODCALLTYPE SetTimerEventHandler(IUIAnimationTimerEventHandler*) override {
        return E_NOTIMPL;
    }
    HRESULT STDMETHODCALLTYPE Enable() override { return E_NOTIMPL; }
    HRESULT STDMETHODCALLTYPE Disable() override { return E_NOTIMPL; }
    HRESULT STDMETHODCALLTYPE IsEnabled() override { return E_NOTIMPL; }
    HRESULT STDMETHODCALLTYPE GetTime(UI_ANIMATION_SECONDS* seconds) override {
        *seconds = now;
        return time_result;
    }
    HRESULT STDMETHODCALLTYPE SetFrameRateThreshold(UINT32 frames) override {
        calls.push_back(scene::fakes::call_text("threshold", frames));
        return S_OK;
    }
    HRESULT STDMETHODCALLTYPE OnTimerClientStatusChanged(UI_ANIMATION_TIMER_CLIENT_STATUS to,
                                                         UI_ANIMATION_TIMER_CLIENT_STATUS from) override {
        calls.push_back(scene::fakes::call_text("status", name_of(to), "from", name_of(from)));
        return S_OK;
    }

    HRESULT STDMETHODCALLTYPE CreateInstance(IUnknown*, const GUID& id, void** out) noexcept override {
        return QueryInterface(id, out);
    }
    HRESULT STDMETHODCALLTYPE LockServer(BOOL) noexcept override { return S_OK; }

    HRESULT STDMETHODCALLTYPE QueryInterface(const GUID& id, void** out) noexcept override {
        *out = nullptr;
        if (com::same_guid(id, com::guid_of<IUIAnimationTimer>()))
            *out = static_cast<IUIAnimationTimer*>(this);
        if (com::same_guid(id, com::guid_of<IClassFactory>())) *out = static_cast<IClassFactory*>(this);
        if (com::same_guid(id, com::guid_of<IUnknown>())) *out = static_cast<IClassFactory*>(this);
        if (!*out) return E_NOINTERFACE;
        AddRef();
        return S_OK;
    }
    ULONG STDMETHODCALLTYPE AddRef() noexcept override { return ++reference_count; }
    ULONG STDMETHODCALLTYPE Release() noexcept override { return --reference_count; }

private:
    static const char* name_of(UI_ANIMATION_TIMER_CLIENT_STATUS status) noexcept {
        return status == UI_ANIMATION_TIMER_CLIENT_BUSY ? "busy" : "idle";
    }

    DWORD registration = 0;
    ULONG reference_count = 0;
};

}  // namespace d2d::fakes
