#include "d2d/lower_edge_host.h"

#include "com/error.h"
#include "com/object.h"
#include "host/testing/fake_service.h"
#include "host/testing/host_fixture.h"

#include <limits>
#include <stdexcept>
#include <thread>

#include <gmock/gmock.h>

namespace {

using namespace d2d;
using testing::ElementsAre;
using testing::IsEmpty;

class lower_edge : public fakes::host_fixture {
protected:
    void show() {
        host->set_lower_edge(&edge);
        edge.calls.clear();
    }
};

class host_clock : public lower_edge {};
class host_services : public lower_edge {};

TEST_F(lower_edge, a_view_is_told_of_its_site_and_then_of_the_target) {
    render_layer->attach_render_target(&target);
    EXPECT_EQ(nullptr, host->set_lower_edge(&edge));
    EXPECT_THAT(edge.take_calls(), ElementsAre("attach_site", "attach_render_target"));
    EXPECT_EQ(&target, edge.target);
    EXPECT_NE(nullptr, edge.site);

    EXPECT_EQ(&edge, host->set_lower_edge(nullptr));
    EXPECT_THAT(edge.take_calls(), ElementsAre("detach_render_target", "detach_site"));
}

TEST_F(lower_edge, without_a_target_a_view_is_told_of_its_site_alone) {
    host->set_lower_edge(&edge);
    host->set_lower_edge(nullptr);
    EXPECT_THAT(edge.calls, ElementsAre("attach_site", "detach_site"));
}

TEST_F(lower_edge, a_view_gives_its_place_to_another) {
    fakes::fake_lower_edge next;
    render_layer->attach_render_target(&target);
    show();
    const com::ptr<IViewLowerEdge> former = host->set_lower_edge(&next);
    EXPECT_EQ(&edge, former);
    EXPECT_THAT(edge.calls, ElementsAre("detach_render_target", "detach_site"));
    EXPECT_THAT(next.calls, ElementsAre("attach_site", "attach_render_target"));
    EXPECT_EQ(1u, edge.references());
    host->set_lower_edge(nullptr);
}

TEST_F(lower_edge, the_target_comes_and_goes_below_a_view) {
    show();
    render_layer->attach_render_target(&target);
    render_layer->detach_render_target(nullptr);
    render_layer->attach_render_target(&target);
    EXPECT_THAT(edge.calls,
                ElementsAre("attach_render_target", "detach_render_target", "attach_render_target"));
    EXPECT_EQ(&target, edge.target);
}

TEST_F(lower_edge, uninitialize_takes_the_site_away_and_nothing_else) {
    render_layer->attach_render_target(&target);
    show();
    static_cast<lower_edge_host*>(host.get())->uninitialize();
    EXPECT_THAT(edge.take_calls(), ElementsAre("detach_site"));
    EXPECT_EQ(0u, edge.references());
    static_cast<lower_edge_host*>(host.get())->uninitialize();
    EXPECT_EQ(nullptr, host->set_lower_edge(nullptr));
    EXPECT_THAT(edge.calls, IsEmpty());
}

TEST_F(lower_edge, clears_to_white_and_paints_the_view_from_the_origin) {
    render_layer->attach_render_target(&target);
    show();
    host->set_origin({10, 20});
    EXPECT_THAT(edge.calls, IsEmpty());
    edge.on_render = [&] { target.note("the view"); };
    render_layer->render({1, 2, 3, 4});
    EXPECT_THAT(target.take_calls(), ElementsAre("Clear 1 1 1 1", "the view"));
    EXPECT_THAT(edge.take_calls(), ElementsAre("render 1 2 3 4 at 10 20"));
    host->enable_clear_background(false);
    render_layer->render({1, 2, 3, 4});
    EXPECT_THAT(target.take_calls(), ElementsAre("the view"));
}

TEST_F(lower_edge, without_a_view_only_clears) {
    render_layer->attach_render_target(&target);
    host->set_background_color({0.25f, 0.5f, 0.75f, 0.5f});
    render_layer->render({0, 0, 10, 10});
    EXPECT_THAT(target.take_calls(), ElementsAre("Clear 0.25 0.5 0.75 0.5"));
}

bool is_everything(const RECT& rect) {
    return rect.left == std::numeric_limits<LONG>::min() && rect.top == std::numeric_limits<LONG>::min() &&
           rect.right == std::numeric_limits<LONG>::max() && rect.bottom == std::numeric_limits<LONG>::max();
}

TEST_F(lower_edge, another_background_repaints_everything) {
    host->set_background_color({0, 0, 0, 1});  // nobody to ask yet
    attach_window();
    host->set_background_color({0, 0, 0, 1});
    EXPECT_TRUE(invalid.empty());
    const _D3DCOLORVALUE others[] = {{1, 0, 0, 1}, {1, 1, 0, 1}, {1, 1, 1, 1}, {1, 1, 1, 0}};
    for (const auto& color : others) {
        invalid.clear();
        host->set_background_color(color);
        ASSERT_EQ(1u, invalid.size());
        EXPECT_TRUE(is_everything(invalid[0]));
    }
}

TEST_F(lower_edge, asks_the_window_for_whole_pixels) {
    show();
    edge.site->invalidate_rect({0, 0, 1, 1});  // no window yet
    attach_window();
    host->set_origin({10, -20});
    edge.site->invalidate_rect({0.2f, 0.2f, 0.4f, 1e6f});
    ASSERT_EQ(1u, invalid.size());
    EXPECT_EQ(10, invalid[0].left);
    EXPECT_EQ(-20, invalid[0].top);
    EXPECT_EQ(11, invalid[0].right);
    EXPECT_EQ(32766, invalid[0].bottom);
}

TEST_F(lower_edge, keeps_the_invalidate_function_without_the_window) {
    show();
    attach_window();
    window_layer->detach_hwnd(window->get());
    edge.site->invalidate_rect({0, 0, 1, 1});
    EXPECT_EQ(1u, invalid.size());
}

TEST_F(lower_edge, messages_reach_the_view_with_origin_and_cursor) {
    EXPECT_EQ(std::nullopt, send(WM_CHAR, 'a'));
    show();
    attach_window();
    EXPECT_EQ(0, send(WM_CHAR, 'a'));
    host->set_origin({10, 20});
    send(WM_LBUTTONDOWN, MK_LBUTTON, MAKELPARAM(10, 20));
    EXPECT_THAT(edge.calls, ElementsAre("char 97", "mouse 0 flags 1 at 0.5 0.5 delta 0",
                                        "mouse 3 button 0 flags 1 at 0.5 0.5 delta 0"));
    host->set_default_cursor(nullptr);
    EXPECT_EQ(std::nullopt, send(WM_SETCURSOR, 0, HTCLIENT));
    host->set_default_cursor(LoadCursorW(nullptr, IDC_HAND));
    EXPECT_EQ(1, send(WM_SETCURSOR, 0, HTCLIENT));
    EXPECT_EQ(LoadCursorW(nullptr, IDC_HAND), GetCursor());
}

TEST_F(lower_edge, bounds_of_the_scene_change_nothing) {
    attach_window();
    show();
    edge.site->bounds_changed({0, 0, 10, 10});
    EXPECT_TRUE(invalid.empty());
    EXPECT_THAT(edge.calls, IsEmpty());
}

TEST_F(host_clock, tells_the_time_of_the_timer) {
    show();
    timer.now = 12.5;
    EXPECT_EQ(12.5, edge.site->get_current_time());
    timer.time_result = E_FAIL;
    timer.now = 13.0;
    EXPECT_EQ(13.0, edge.site->get_current_time());
}

TEST_F(host_clock, is_reported_busy_once_and_idle_once) {
    show();
    edge.site->set_animation_clock(0.0, 0.0);
    EXPECT_THAT(timer.take_calls(), IsEmpty());
    edge.site->set_animation_clock(0.0, static_cast<double>(0.05f));
    EXPECT_THAT(timer.take_calls(), ElementsAre("threshold 20", "status busy from idle"));
    edge.site->set_animation_clock(0.0, static_cast<double>(0.05f));
    EXPECT_THAT(timer.take_calls(), ElementsAre("threshold 20"));
    edge.site->set_animation_clock(0.0, 0.0);
    EXPECT_THAT(timer.take_calls(), ElementsAre("status idle from busy"));
    edge.site->set_animation_clock(0.0, -0.0);
    EXPECT_THAT(timer.take_calls(), IsEmpty());
}

TEST_F(host_clock, reports_to_the_client_that_it_was_given_last) {
    show();
    EXPECT_EQ(S_OK, timer.handler->ClearTimerClientEventHandler());
    edge.site->set_animation_clock(0.0, 0.05);
    EXPECT_THAT(timer.take_calls(), ElementsAre("threshold 20"));
    EXPECT_EQ(S_OK, timer.handler->SetTimerClientEventHandler(&timer));
    edge.site->set_animation_clock(0.0, 0.0);
    EXPECT_THAT(timer.take_calls(), ElementsAre("status idle from busy"));
}

TEST_F(host_clock, takes_the_next_whole_rate_for_an_interval) {
    show();
    const std::pair<double, const char*> cases[] = {
        {1.0, "threshold 1"}, {0.3, "threshold 4"}, {2.0, "threshold 1"}, {1.0 / 60, "threshold 60"}};
    for (const auto& [interval, call] : cases) {
        edge.site->set_animation_clock(0.0, interval);
        EXPECT_EQ(call, timer.take_calls().front());
    }
    edge.site->set_animation_clock(0.0, 0.0);
}

TEST_F(host_clock, ignores_an_interval_that_is_none) {
    show();
    edge.site->set_animation_clock(0.0, -1.0);
    edge.site->set_animation_clock(0.0, std::numeric_limits<double>::quiet_NaN());
    EXPECT_THAT(timer.take_calls(), IsEmpty());
}

TEST_F(host_clock, each_frame_of_the_timer_is_a_tick) {
    drop_host();
    timer.now = 1.0;
    make_host();
    show();
    EXPECT_EQ(UI_ANIMATION_UPDATE_VARIABLES_CHANGED, timer.update(1.5));
    EXPECT_EQ(UI_ANIMATION_UPDATE_VARIABLES_CHANGED, timer.update(1.75));
    EXPECT_THAT(edge.calls, ElementsAre("tick 1.5 0.5", "tick 1.75 0.25"));
}

TEST_F(host_clock, a_frame_without_a_view_is_none) {
    EXPECT_EQ(UI_ANIMATION_UPDATE_VARIABLES_CHANGED, timer.update(1.5));
}

TEST_F(host_clock, ends_with_the_last_release_of_the_host) {
    show();
    edge.site->set_animation_clock(0.0, 0.05);
    host->set_lower_edge(nullptr);
    timer.calls.clear();
    const com::ptr<IUIAnimationTimerUpdateHandler> handler = timer.handler;
    drop_host();
    EXPECT_THAT(timer.calls, ElementsAre("clear_handler"));
    EXPECT_EQ(nullptr, timer.handler);
    // Whoever still holds the handler meets nobody behind it.
    auto result = UI_ANIMATION_UPDATE_NO_CHANGE;
    EXPECT_EQ(S_OK, handler->OnUpdate(3.0, &result));
    EXPECT_EQ(S_OK, handler->SetTimerClientEventHandler(&timer));
    EXPECT_EQ(S_OK, handler->ClearTimerClientEventHandler());
}

TEST_F(host_clock, a_host_without_a_clock_is_not_made) {
    timer.handler_result = E_OUTOFMEMORY;
    try {
        static_cast<void>(create_win32_view_lower_edge_host());
        FAIL() << "made without a clock";
    } catch (const com::error& e) {
        EXPECT_EQ(E_OUTOFMEMORY, e.hresult);
    }
    timer.handler_result = S_OK;
}

constexpr GUID some_id = com::guid("0B1C2D3E-4F50-6172-8394-A5B6C7D8E9FA");
constexpr GUID other_id = com::guid("0B1C2D3E-4F50-6172-8394-A5B6C7D8E9FB");

TEST_F(host_services, deferred_execution_is_the_hosts_own) {
    const GUID& id = com::guid_of<scene::IDeferredExecutionService>();
    fakes::fake_service impostor;
    host->install_service(id, &impostor);
    com::ptr<scene::IDeferredExecutionService> found;
    EXPECT_EQ(S_OK, services->QueryService(id, id, found.put_void()));
    EXPECT_EQ(com::ptr<scene::IDeferredExecutionService>(host), found);
    void* none = &found;
    EXPECT_EQ(E_NOINTERFACE, services->QueryService(id, some_id, &none));
    host->uninstall_service(id);
}

TEST_F(host_services, deferred_calls_come_with_the_messages_of_the_window) {
    const com::ptr<scene::IDeferredExecutionService> deferred(host);
    show();
    attach_window();
    int called = 0;
    deferred->defer_execution(&called, [](void* data) { ++*static_cast<int*>(data); });
    EXPECT_EQ(0, called);
    MSG posted{};
    ASSERT_TRUE(PeekMessageW(&posted, window->get(), WM_USER, WM_USER, PM_REMOVE));
    EXPECT_EQ(0, send(posted.message, posted.wParam, posted.lParam));
    EXPECT_EQ(1, called);
}

TEST_F(host_services, calls_deferred_on_another_thread_run_on_that_of_the_window) {
    const com::ptr<scene::IDeferredExecutionService> deferred(host);
    show();
    attach_window();
    DWORD ran_on = 0;
    std::thread([&] {
        deferred->defer_execution(&ran_on,
                                  [](void* data) { *static_cast<DWORD*>(data) = GetCurrentThreadId(); });
    }).join();
    EXPECT_EQ(0u, ran_on);
    MSG posted{};
    ASSERT_TRUE(PeekMessageW(&posted, window->get(), WM_USER, WM_USER, PM_REMOVE));
    EXPECT_EQ(0, send(posted.message, posted.wParam, posted.lParam));
    EXPECT_EQ(GetCurrentThreadId(), ran_on);
}

TEST_F(host_services, an_installed_service_is_found_until_it_is_taken_back) {
    fakes::fake_service service;
    com::ptr<IServiceProvider> found;
    EXPECT_EQ(E_NOINTERFACE,
              services->QueryService(some_id, com::guid_of<IServiceProvider>(), found.put_void()));
    host->install_service(some_id, &service);
    EXPECT_EQ(S_OK, services->QueryService(some_id, com::guid_of<IServiceProvider>(), found.put_void()));
    EXPECT_EQ(&service, found);
    EXPECT_EQ(E_NOINTERFACE,
              services->QueryService(other_id, com::guid_of<IServiceProvider>(), found.put_void()));
    host->uninstall_service(some_id);
    EXPECT_EQ(E_NOINTERFACE,
              services->QueryService(some_id, com::guid_of<IServiceProvider>(), found.put_void()));
    EXPECT_EQ(0u, service.references());
}

TEST_F(host_services, another_service_of_the_same_id_replaces_the_first) {
    fakes::fake_service first;
    fakes::fake_service second;
    host->install_service(some_id, &first);
    host->install_service(some_id, &second);
    EXPECT_EQ(0u, first.references());
    EXPECT_EQ(1u, second.references());
    drop_host();
    EXPECT_EQ(0u, second.references());
}

TEST_F(host_services, a_service_that_is_not_there_cannot_be_taken_back) {
    fakes::fake_service service;
    host->install_service(some_id, &service);
    try {
        host->uninstall_service(other_id);
        FAIL() << "taken back";
    } catch (const std::logic_error& e) {
        EXPECT_STREQ("Service not installed", e.what());
    }
    EXPECT_EQ(1u, service.references());
    host->uninstall_service(some_id);
}

TEST_F(host_services, what_is_not_installed_is_asked_upstream) {
    fakes::fake_service upstream(other_id);
    fakes::fake_service installed;
    host->set_upstream_service_provider(&upstream);
    host->install_service(some_id, &installed);
    com::ptr<IServiceProvider> found;
    EXPECT_EQ(S_OK, services->QueryService(other_id, com::guid_of<IServiceProvider>(), found.put_void()));
    EXPECT_EQ(&upstream, found);
    EXPECT_EQ(S_OK, services->QueryService(some_id, com::guid_of<IServiceProvider>(), found.put_void()));
    EXPECT_EQ(&installed, found);
    found.reset();
    host->set_upstream_service_provider(nullptr);
    EXPECT_EQ(0u, upstream.references());
    host->uninstall_service(some_id);
}

TEST_F(host_services, a_view_asks_its_site) {
    fakes::fake_service service;
    host->install_service(some_id, &service);
    show();
    com::ptr<IServiceProvider> found;
    EXPECT_EQ(S_OK, edge.site->QueryService(some_id, com::guid_of<IServiceProvider>(), found.put_void()));
    found.reset();
    host->uninstall_service(some_id);
}

TEST_F(lower_edge, is_one_object_with_five_interfaces) {
    const com::ptr<IUnknown> identity(com::ptr<scene::IDeferredExecutionService>(host).get());
    for (IUnknown* const face :
         {static_cast<IUnknown*>(render_layer.get()), static_cast<IUnknown*>(window_layer.get()),
          static_cast<IUnknown*>(services.get()), static_cast<IUnknown*>(host.get())}) {
        com::ptr<IUnknown> asked;
        EXPECT_EQ(S_OK, face->QueryInterface(com::guid_of<IUnknown>(), asked.put_void()));
        EXPECT_EQ(identity, asked);
    }
    show();
    const com::ptr<IUnknown> site(static_cast<IUnknown*>(edge.site));  // counted like the other faces
    EXPECT_EQ(nullptr, host.try_as<IViewLowerEdge>());
}

}  // namespace
