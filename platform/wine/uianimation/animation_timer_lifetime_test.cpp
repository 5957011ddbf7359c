#include "timer_fixture.h"

#include <psapi.h>

#include <memory>
#include <thread>

using namespace std::chrono_literals;

class animation_timer_lifetime : public timer_fixture {
protected:
    recording_client client;
};

namespace {

using class_object_function = HRESULT WINAPI(REFCLSID, REFIID, void**);

/// GetGuiResources, which counts all there is on Windows, always answers 0 in Wine 8.
int message_windows_of_this_process() {
    int count = 0;
    HWND window = nullptr;
    while ((window = FindWindowExW(HWND_MESSAGE, window, nullptr, nullptr)) != nullptr) {
        DWORD process = 0;
        GetWindowThreadProcessId(window, &process);
        count += process == GetCurrentProcessId() ? 1 : 0;
    }
    return count;
}

DWORD kernel_handles() {
    DWORD count = 0;
    EXPECT_TRUE(GetProcessHandleCount(GetCurrentProcess(), &count));
    return count;
}

SIZE_T private_bytes() {
    PROCESS_MEMORY_COUNTERS counters{};
    EXPECT_TRUE(K32GetProcessMemoryInfo(GetCurrentProcess(), &counters, sizeof counters));
    return counters.PagefileUsage;
}

}  // namespace

TEST_F(animation_timer_lifetime, the_class_cannot_be_aggregated_and_has_no_other_interface) {
    Microsoft::WRL::ComPtr<IUIAnimationTimer> timer = make_timer();
    void* result = &result;
    EXPECT_EQ(CLASS_E_NOAGGREGATION, CoCreateInstance(__uuidof(UIAnimationTimer), timer.Get(),
                                                      CLSCTX_INPROC_SERVER, __uuidof(IUnknown), &result));
    EXPECT_EQ(E_NOINTERFACE, timer->QueryInterface(__uuidof(IDispatch), &result));
    EXPECT_EQ(nullptr, result);
    Microsoft::WRL::ComPtr<IUnknown> identity;
    EXPECT_EQ(S_OK, timer.As(&identity));
}

TEST_F(animation_timer_lifetime, the_dll_also_offers_the_animation_manager) {
    const HMODULE module = LoadLibraryW(L"uianimation.dll");
    ASSERT_NE(nullptr, module);
    const auto function = reinterpret_cast<class_object_function*>(
        reinterpret_cast<void*>(GetProcAddress(module, "DllGetClassObject")));
    ASSERT_NE(nullptr, function);
    {
        Microsoft::WRL::ComPtr<IClassFactory> factory;
        EXPECT_EQ(S_OK, function(__uuidof(UIAnimationManager), IID_PPV_ARGS(&factory)));
        Microsoft::WRL::ComPtr<IUIAnimationManager> manager;
        EXPECT_EQ(S_OK, factory->CreateInstance(nullptr, IID_PPV_ARGS(&manager)));
        Microsoft::WRL::ComPtr<IUnknown> unknown;
        EXPECT_EQ(CLASS_E_CLASSNOTAVAILABLE, function(__uuidof(IUnknown), IID_PPV_ARGS(&unknown)));
    }
    FreeLibrary(module);
}

TEST_F(animation_timer_lifetime, an_idle_timer_has_no_window) {
    const int before = message_windows_of_this_process();
    const timer_pointer timer = make_timer(client);
    EXPECT_LE(message_windows_of_this_process(), before + 1);
}

TEST_F(animation_timer_lifetime, the_last_release_takes_leave_of_the_client) {
    timer_pointer timer = make_timer(client);
    client.report_busy();
    EXPECT_EQ(0u, timer.Reset());
    EXPECT_EQ(1, client.cleared);
    EXPECT_EQ(1u, client.references);
    pump(100ms);
    EXPECT_EQ(0u, client.updates.size());
}

TEST_F(animation_timer_lifetime, a_client_that_keeps_the_event_handler_keeps_no_timer) {
    timer_pointer timer = make_timer(client);
    const auto kept = client.status;
    EXPECT_EQ(0u, timer.Reset());
    EXPECT_TRUE(FAILED(
        kept->OnTimerClientStatusChanged(UI_ANIMATION_TIMER_CLIENT_BUSY, UI_ANIMATION_TIMER_CLIENT_IDLE)));
    pump(100ms);
    EXPECT_EQ(0u, client.updates.size());
}

TEST_F(animation_timer_lifetime, the_last_release_may_come_inside_an_update) {
    timer_pointer timer = make_timer(client);
    client.during_update = [&] { timer.Reset(); };
    client.report_busy();
    pump(1000ms, [&] { return client.cleared > 0; });
    pump(200ms);
    EXPECT_EQ(1u, client.updates.size());
    EXPECT_EQ(1, client.cleared);
    EXPECT_EQ(1u, client.references);
    EXPECT_FALSE(client.status);
}

TEST_F(animation_timer_lifetime, an_update_may_detach_its_own_client_and_attach_another) {
    timer_pointer timer = make_timer(client);
    recording_client second;
    client.during_update = [&] {
        EXPECT_EQ(S_OK, timer->SetTimerUpdateHandler(&second, UI_ANIMATION_IDLE_BEHAVIOR_DISABLE));
        EXPECT_EQ(S_OK, second.report_busy());
        EXPECT_GT(client.references, 1u) << "the running update still holds the client it calls";
    };
    client.report_busy();
    pump(3000ms, [&] { return second.updates.size() >= 2; });
    EXPECT_EQ(1u, client.updates.size());
    EXPECT_EQ(2u, second.updates.size());
    EXPECT_EQ(1u, client.references);
    timer.Reset();
}

TEST_F(animation_timer_lifetime, an_update_may_report_idle) {
    timer_pointer timer = make_timer(client);
    client.during_update = [&] { EXPECT_EQ(S_OK, client.report_idle()); };
    client.report_busy();
    pump(300ms);
    EXPECT_EQ(1u, client.updates.size());
}

TEST_F(animation_timer_lifetime, the_cycle_of_owner_timer_and_handler_is_cut_by_detaching) {
    /// Owns the timer, and is kept by the handler, which the timer keeps.
    struct owner final : IUIAnimationTimerUpdateHandler {
        timer_pointer timer;
        Microsoft::WRL::ComPtr<IUIAnimationTimerClientEventHandler> status;
        ULONG references = 0;
        bool& gone;

        explicit owner(bool& flag) : gone(flag) {}
        HRESULT STDMETHODCALLTYPE QueryInterface(REFIID, void** result) override {
            *result = nullptr;
            return E_NOINTERFACE;
        }
        ULONG STDMETHODCALLTYPE AddRef() override { return ++references; }
        ULONG STDMETHODCALLTYPE Release() override {
            const ULONG remaining = --references;
            if (remaining == 0) {
                gone = true;
                delete this;
            }
            return remaining;
        }
        HRESULT STDMETHODCALLTYPE OnUpdate(DOUBLE, UI_ANIMATION_UPDATE_RESULT*) override { return S_OK; }
        HRESULT STDMETHODCALLTYPE
        SetTimerClientEventHandler(IUIAnimationTimerClientEventHandler* handler) override {
            status = handler;
            return S_OK;
        }
        HRESULT STDMETHODCALLTYPE ClearTimerClientEventHandler() override {
            status.Reset();
            return S_OK;
        }
    };
    bool gone = false;
    Microsoft::WRL::ComPtr<owner> host{new owner(gone)};
    host->timer = make_timer();
    const timer_pointer timer = host->timer;
    timer->SetTimerUpdateHandler(host.Get(), UI_ANIMATION_IDLE_BEHAVIOR_DISABLE);
    host->status->OnTimerClientStatusChanged(UI_ANIMATION_TIMER_CLIENT_BUSY, UI_ANIMATION_TIMER_CLIENT_IDLE);
    host.Reset();
    EXPECT_FALSE(gone);
    EXPECT_EQ(S_OK, timer->SetTimerUpdateHandler(nullptr, UI_ANIMATION_IDLE_BEHAVIOR_DISABLE));
    EXPECT_TRUE(gone);
}

TEST_F(animation_timer_lifetime, a_thousand_timers_leave_no_handle_behind) {
    const auto use_one = [&] {
        timer_pointer timer = make_timer(client);
        client.report_busy();
        timer->SetTimerUpdateHandler(nullptr, UI_ANIMATION_IDLE_BEHAVIOR_DISABLE);
    };
    use_one();
    const int windows = message_windows_of_this_process();
    const DWORD user_objects = GetGuiResources(GetCurrentProcess(), GR_USEROBJECTS);
    const DWORD handles = kernel_handles();
    for (int i = 0; i < 1000; ++i) {
        use_one();
    }
    EXPECT_EQ(windows, message_windows_of_this_process());
    EXPECT_LE(GetGuiResources(GetCurrentProcess(), GR_USEROBJECTS), user_objects);
    EXPECT_EQ(handles, kernel_handles());
    EXPECT_EQ(1u, client.references);
    EXPECT_EQ(0, pump(100ms));
}

TEST_F(animation_timer_lifetime, timers_give_their_memory_back) {
    Microsoft::WRL::ComPtr<IClassFactory> factory;
    ASSERT_EQ(S_OK, CoGetClassObject(__uuidof(UIAnimationTimer), CLSCTX_INPROC_SERVER, nullptr,
                                     IID_PPV_ARGS(&factory)));
    const auto use_many = [&](int count) {
        for (int i = 0; i < count; ++i) {
            timer_pointer timer;
            ASSERT_EQ(S_OK, factory->CreateInstance(nullptr, IID_PPV_ARGS(&timer)));
            timer->SetTimerUpdateHandler(&client, UI_ANIMATION_IDLE_BEHAVIOR_DISABLE);
        }
    };
    use_many(1000);
    const SIZE_T before = private_bytes();
    use_many(20'000);
    EXPECT_LT(private_bytes(), before + 20'000u * 16u) << "less than the smallest object each";
}

TEST_F(animation_timer_lifetime, a_thousand_timers_may_live_and_beat_at_once) {
    std::vector<std::unique_ptr<recording_client>> clients;
    std::vector<timer_pointer> timers;
    for (int i = 0; i < 1000; ++i) {
        clients.push_back(std::make_unique<recording_client>());
        timers.push_back(make_timer(*clients.back()));
        ASSERT_EQ(S_OK, clients.back()->report_busy());
    }
    pump(10'000ms, [&] { return !clients.front()->updates.empty() && !clients.back()->updates.empty(); });
    EXPECT_FALSE(clients.front()->updates.empty());
    EXPECT_FALSE(clients.back()->updates.empty());
}

TEST_F(animation_timer_lifetime, the_last_release_may_come_from_another_thread) {
    const int windows = message_windows_of_this_process();
    timer_pointer timer = make_timer(client);
    client.report_busy();
    std::thread([&] { timer.Reset(); }).join();
    pump(200ms);
    EXPECT_EQ(1, client.cleared);
    EXPECT_EQ(0u, client.updates.size());
    EXPECT_EQ(windows, message_windows_of_this_process());
}

TEST_F(animation_timer_lifetime, every_thread_has_timers_of_its_own) {
    const timer_pointer here = make_timer(client);
    client.report_busy();
    recording_client other;
    DWORD other_thread = 0;
    std::thread worker([&] {
        other_thread = GetCurrentThreadId();
        ASSERT_TRUE(SUCCEEDED(CoInitializeEx(nullptr, COINIT_APARTMENTTHREADED)));
        {
            const timer_pointer timer = make_timer(other);
            other.report_busy();
            pump(3000ms, [&] { return other.updates.size() >= 3; });
        }
        CoUninitialize();
    });
    pump(3000ms, [&] { return client.updates.size() >= 3; });
    worker.join();
    EXPECT_EQ(std::vector<DWORD>(3, other_thread), other.threads);
    EXPECT_EQ(std::vector<DWORD>(3, GetCurrentThreadId()), client.threads);
}
