#include "timer_fixture.h"

#include <stdexcept>

using namespace std::chrono_literals;

class animation_timer : public timer_fixture {
protected:
    recording_client client;
};

namespace {

/// Counts what an observer of updates is told.
class recording_observer final : public IUIAnimationTimerEventHandler {
public:
    int before = 0;
    int after = 0;
    std::vector<UINT32> slow;

    HRESULT STDMETHODCALLTYPE QueryInterface(REFIID, void** result) override {
        *result = nullptr;
        return E_NOINTERFACE;
    }
    ULONG STDMETHODCALLTYPE AddRef() override { return ++references; }
    ULONG STDMETHODCALLTYPE Release() override { return --references; }
    HRESULT STDMETHODCALLTYPE OnPreUpdate() override { return ++before, S_OK; }
    HRESULT STDMETHODCALLTYPE OnPostUpdate() override { return ++after, S_OK; }
    HRESULT STDMETHODCALLTYPE OnRenderingTooSlow(UINT32 rate) override { return slow.push_back(rate), S_OK; }

    ULONG references = 1;
};

}  // namespace

TEST_F(animation_timer, tells_a_time_in_seconds_that_never_goes_back) {
    const timer_pointer timer = make_timer();
    const double start = now(timer);
    double last = start;
    for (int i = 0; i < 10'000; ++i) {
        const double present = now(timer);
        ASSERT_GE(present, last);
        last = present;
    }
    EXPECT_GT(last, start);
    const ULONGLONG slept_from = GetTickCount64();
    const double before = now(timer);
    Sleep(200);
    const double elapsed = now(timer) - before;
    EXPECT_NEAR(static_cast<double>(GetTickCount64() - slept_from) / 1000.0, elapsed, 0.04);
    EXPECT_EQ(now(make_timer()) > last, true) << "timers of a process share one time";
}

TEST_F(animation_timer, refuses_a_null_place_for_the_time) {
    EXPECT_EQ(E_POINTER, make_timer()->GetTime(nullptr));
}

TEST_F(animation_timer, hands_its_client_the_event_handler_and_takes_it_back) {
    const timer_pointer timer = make_timer(client);
    EXPECT_EQ(1, client.connected);
    EXPECT_TRUE(client.status);
    EXPECT_EQ(2u, client.references);
    EXPECT_EQ(S_OK, timer->SetTimerUpdateHandler(nullptr, UI_ANIMATION_IDLE_BEHAVIOR_DISABLE));
    EXPECT_EQ(1, client.cleared);
    EXPECT_EQ(1u, client.references);
}

TEST_F(animation_timer, clears_the_former_client_when_another_comes) {
    const timer_pointer timer = make_timer(client);
    client.report_busy();
    recording_client second;
    EXPECT_EQ(S_OK, timer->SetTimerUpdateHandler(&second, UI_ANIMATION_IDLE_BEHAVIOR_DISABLE));
    EXPECT_EQ(1, client.cleared);
    EXPECT_EQ(1, second.connected);
    pump(200ms);
    EXPECT_EQ(0u, client.updates.size());
    EXPECT_EQ(0u, second.updates.size()) << "the first one's being busy is not the second one's";
    timer->SetTimerUpdateHandler(nullptr, UI_ANIMATION_IDLE_BEHAVIOR_DISABLE);
}

TEST_F(animation_timer, keeps_no_client_that_refuses_to_be_connected) {
    const timer_pointer timer = make_timer();
    client.connect_result = E_ACCESSDENIED;
    EXPECT_EQ(E_ACCESSDENIED, timer->SetTimerUpdateHandler(&client, UI_ANIMATION_IDLE_BEHAVIOR_DISABLE));
    EXPECT_EQ(1u, client.references);
    EXPECT_EQ(S_FALSE, timer->IsEnabled());
}

TEST_F(animation_timer, wakes_nobody_while_its_client_is_idle) {
    const timer_pointer timer = make_timer(client);
    pump(100ms);
    EXPECT_EQ(0, pump(500ms));
    EXPECT_EQ(0u, client.updates.size());
    EXPECT_EQ(S_FALSE, timer->IsEnabled());
}

TEST_F(animation_timer, updates_a_busy_client_at_the_threshold_s_pace) {
    const timer_pointer timer = make_timer(client);
    client.report_busy();
    EXPECT_EQ(S_OK, timer->IsEnabled());
    const double start = now(timer);
    pump(1000ms);
    const double elapsed = now(timer) - start;  // a second, and more on a busy machine
    EXPECT_GE(client.updates.size(), 15u);
    EXPECT_LE(static_cast<double>(client.updates.size()), 20.0 * elapsed + 1.0);
}

TEST_F(animation_timer, stops_waking_when_the_client_becomes_idle) {
    const timer_pointer timer = make_timer(client);
    client.report_busy();
    pump(2000ms, [&] { return client.updates.size() >= 3; });
    client.report_idle();
    EXPECT_EQ(S_FALSE, timer->IsEnabled());
    const auto count = client.updates.size();
    ASSERT_GE(count, 3u);
    pump(100ms);
    EXPECT_EQ(0, pump(500ms)) << "no message of any kind";
    EXPECT_EQ(count, client.updates.size());
    client.report_busy();
    pump(2000ms, [&] { return client.updates.size() > count; });
    EXPECT_EQ(count + 1, client.updates.size());
}

TEST_F(animation_timer, updates_on_the_client_s_thread_with_the_timer_s_time) {
    const timer_pointer timer = make_timer(client);
    double last = now(timer);
    client.report_busy();
    client.during_update = [&] {
        EXPECT_GT(client.updates.back(), last);
        EXPECT_LE(client.updates.back(), now(timer));
        EXPECT_LT(now(timer) - client.updates.back(), 0.02);
        last = client.updates.back();
    };
    pump(3000ms, [&] { return client.updates.size() >= 8; });
    ASSERT_EQ(8u, client.updates.size());
    for (const DWORD thread : client.threads) {
        EXPECT_EQ(GetCurrentThreadId(), thread);
    }
}

TEST_F(animation_timer, keeps_its_phase_when_the_same_threshold_is_set_again) {
    const timer_pointer timer = make_timer(client);
    client.report_busy();
    for (int i = 0; i < 40; ++i) {
        timer->SetFrameRateThreshold(20);
        pump(20ms);
    }
    EXPECT_GE(client.updates.size(), 10u);
}

TEST_F(animation_timer, is_updated_by_a_nested_message_loop) {
    const timer_pointer timer = make_timer(client);
    client.report_busy();
    // The loop of a window's modal operation, entered from a window procedure.
    const HWND window =
        CreateWindowExW(0, L"STATIC", nullptr, 0, 0, 0, 0, 0, HWND_MESSAGE, nullptr, nullptr, nullptr);
    static std::function<void()> nested;
    nested = [&] { pump(300ms); };
    SetWindowLongPtrW(window, GWLP_WNDPROC,
                      reinterpret_cast<LONG_PTR>(static_cast<WNDPROC>(
                          [](HWND hwnd, UINT message, WPARAM wparam, LPARAM lparam) -> LRESULT {
                              if (message == WM_APP) {
                                  nested();
                                  return 0;
                              }
                              return DefWindowProcW(hwnd, message, wparam, lparam);
                          })));
    SendMessageW(window, WM_APP, 0, 0);
    EXPECT_GE(client.updates.size(), 4u);
    DestroyWindow(window);
}

TEST_F(animation_timer, never_begins_an_update_inside_an_update) {
    const timer_pointer timer = make_timer(client);
    int depth = 0;
    client.during_update = [&] {
        EXPECT_EQ(0, depth++);
        if (client.updates.size() == 1) {
            pump(300ms);
        }
        --depth;
    };
    client.report_busy();
    pump(3000ms, [&] { return client.updates.size() >= 3; });
    EXPECT_EQ(3u, client.updates.size());
}

TEST_F(animation_timer, goes_on_by_itself_when_it_is_to_continue_and_enabled) {
    const timer_pointer timer = make_timer();
    EXPECT_EQ(S_OK, timer->SetTimerUpdateHandler(&client, UI_ANIMATION_IDLE_BEHAVIOR_CONTINUE));
    timer->SetFrameRateThreshold(20);
    EXPECT_EQ(S_FALSE, timer->IsEnabled());
    pump(200ms);
    EXPECT_EQ(0u, client.updates.size());
    EXPECT_EQ(S_OK, timer->Enable());
    EXPECT_EQ(S_OK, timer->IsEnabled());
    pump(3000ms, [&] { return client.updates.size() >= 3; });
    EXPECT_EQ(3u, client.updates.size());
    client.report_busy();
    client.report_idle();
    pump(3000ms, [&] { return client.updates.size() >= 6; });
    EXPECT_EQ(6u, client.updates.size());
    EXPECT_EQ(S_OK, timer->Disable());
    EXPECT_EQ(S_FALSE, timer->IsEnabled());
    pump(200ms);
    EXPECT_EQ(6u, client.updates.size());
}

TEST_F(animation_timer, can_be_disabled_while_its_client_is_busy) {
    const timer_pointer timer = make_timer(client);
    client.report_busy();
    EXPECT_EQ(S_OK, timer->Disable());
    pump(200ms);
    EXPECT_EQ(0u, client.updates.size());
    EXPECT_EQ(S_OK, timer->Enable());
    pump(3000ms, [&] { return !client.updates.empty(); });
    EXPECT_EQ(1u, client.updates.size());
}

TEST_F(animation_timer, tells_an_observer_before_and_after_each_update) {
    const timer_pointer timer = make_timer(client);
    recording_observer observer;
    EXPECT_EQ(S_OK, timer->SetTimerEventHandler(&observer));
    client.during_update = [&] {
        EXPECT_EQ(static_cast<int>(client.updates.size()), observer.before);
        EXPECT_EQ(static_cast<int>(client.updates.size()) - 1, observer.after);
    };
    client.report_busy();
    pump(3000ms, [&] { return client.updates.size() >= 3; });
    EXPECT_EQ(3, observer.after);
    EXPECT_EQ(S_OK, timer->SetTimerEventHandler(nullptr));
    EXPECT_EQ(1u, observer.references);
}

TEST_F(animation_timer, tells_an_observer_that_updates_are_slower_than_the_threshold) {
    const timer_pointer timer = make_timer(client);
    recording_observer observer;
    timer->SetTimerEventHandler(&observer);
    client.during_update = [] { Sleep(150); };
    client.report_busy();
    pump(4000ms, [&] { return !observer.slow.empty(); });
    ASSERT_EQ(1u, observer.slow.size());
    EXPECT_GE(observer.slow[0], 3u);
    EXPECT_LE(observer.slow[0], 7u);
    timer->SetTimerEventHandler(nullptr);
}

TEST_F(animation_timer, lets_what_an_update_throws_reach_the_message_loop) {
    const timer_pointer timer = make_timer(client);
    client.during_update = [&] {
        if (client.updates.size() == 1) {
            throw std::runtime_error("thrown in an update");
        }
    };
    client.report_busy();
    EXPECT_THROW(pump(2000ms), std::runtime_error);
    EXPECT_EQ(1u, client.updates.size());
    pump(2000ms, [&] { return client.updates.size() >= 2; });
    EXPECT_EQ(2u, client.updates.size()) << "the next update comes as ever";
}
