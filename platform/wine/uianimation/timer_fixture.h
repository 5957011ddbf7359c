#pragma once

#include <windows.h>

#include <gtest/gtest.h>
#include <uianimation.h>
#include <wrl/client.h>

#include <chrono>
#include <functional>
#include <vector>

/// A client of the timer that keeps what it is told. Lives on the stack or in the fixture; its count only
/// counts.
class recording_client final : public IUIAnimationTimerUpdateHandler {
public:
    std::vector<double> updates;
    std::vector<DWORD> threads;
    std::function<void()> during_update = [] {};
    Microsoft::WRL::ComPtr<IUIAnimationTimerClientEventHandler> status;
    HRESULT connect_result = S_OK;
    ULONG references = 1;
    int connected = 0;
    int cleared = 0;

    HRESULT report_busy() {
        return status->OnTimerClientStatusChanged(UI_ANIMATION_TIMER_CLIENT_BUSY,
                                                  UI_ANIMATION_TIMER_CLIENT_IDLE);
    }
    HRESULT report_idle() {
        return status->OnTimerClientStatusChanged(UI_ANIMATION_TIMER_CLIENT_IDLE,
                                                  UI_ANIMATION_TIMER_CLIENT_BUSY);
    }

    HRESULT STDMETHODCALLTYPE QueryInterface(REFIID iid, void** result) override {
        if (iid == __uuidof(IUnknown) || iid == __uuidof(IUIAnimationTimerUpdateHandler)) {
            *result = this;
            AddRef();
            return S_OK;
        }
        *result = nullptr;
        return E_NOINTERFACE;
    }
    ULONG STDMETHODCALLTYPE AddRef() override { return ++references; }
    ULONG STDMETHODCALLTYPE Release() override { return --references; }

    HRESULT STDMETHODCALLTYPE OnUpdate(DOUBLE now, UI_ANIMATION_UPDATE_RESULT* result) override {
        updates.push_back(now);
        threads.push_back(GetCurrentThreadId());
        *result = UI_ANIMATION_UPDATE_VARIABLES_CHANGED;
        during_update();
        return S_OK;
    }
    HRESULT STDMETHODCALLTYPE
    SetTimerClientEventHandler(IUIAnimationTimerClientEventHandler* handler) override {
        ++connected;
        if (SUCCEEDED(connect_result)) {
            status = handler;
        }
        return connect_result;
    }
    HRESULT STDMETHODCALLTYPE ClearTimerClientEventHandler() override {
        ++cleared;
        status.Reset();
        return S_OK;
    }
};

/// COM on this thread, and a message loop for it.
class timer_fixture : public testing::Test {
protected:
    using timer_pointer = Microsoft::WRL::ComPtr<IUIAnimationTimer>;

    timer_fixture() { EXPECT_TRUE(SUCCEEDED(CoInitializeEx(nullptr, COINIT_APARTMENTTHREADED))); }
    ~timer_fixture() override { CoUninitialize(); }

    static timer_pointer make_timer() {
        timer_pointer timer;
        EXPECT_EQ(S_OK, CoCreateInstance(__uuidof(UIAnimationTimer), nullptr, CLSCTX_INPROC_SERVER,
                                         IID_PPV_ARGS(&timer)));
        return timer;
    }

    /// A timer with this client, at 20 updates a second, that follows whether the client is busy.
    static timer_pointer make_timer(recording_client& client) {
        timer_pointer timer = make_timer();
        EXPECT_EQ(S_OK, timer->SetTimerUpdateHandler(&client, UI_ANIMATION_IDLE_BEHAVIOR_DISABLE));
        EXPECT_EQ(S_OK, timer->SetFrameRateThreshold(20));
        return timer;
    }

    static double now(const timer_pointer& timer) {
        double seconds = -1.0;
        EXPECT_EQ(S_OK, timer->GetTime(&seconds));
        return seconds;
    }

    /// Runs a message loop for that long, or until `done`; gives how many messages it dispatched.
    static int pump(
        std::chrono::milliseconds duration, const std::function<bool()>& done = [] { return false; }) {
        int dispatched = 0;
        const ULONGLONG end = GetTickCount64() + static_cast<ULONGLONG>(duration.count());
        for (ULONGLONG present = GetTickCount64(); present < end && !done(); present = GetTickCount64()) {
            MSG message{};
            if (PeekMessageW(&message, nullptr, 0, 0, PM_REMOVE)) {
                TranslateMessage(&message);
                DispatchMessageW(&message);
                ++dispatched;
            } else {
                MsgWaitForMultipleObjectsEx(0, nullptr, static_cast<DWORD>(end - present), QS_ALLINPUT,
                                            MWMO_INPUTAVAILABLE);
            }
        }
        return dispatched;
    }
};
