#include "d2d/win32_window_host.h"

#include "host/testing/fake_lower_edge.h"
#include "host/testing/fake_service.h"
#include "support/input.h"
#include "support/leak_checked_test.h"
#include "support/message_pump.h"
#include "support/shown.h"

#include <optional>
#include <stdexcept>

#include <gmock/gmock.h>

namespace {

using namespace d2d;
using testing::Contains;
using testing::ElementsAre;

class window_host : public test_support::leak_checked_test {
protected:
    static void SetUpTestSuite() { token.emplace(); }
    static void TearDownTestSuite() { token.reset(); }
    void TearDown() override {
        EXPECT_EQ(0u, edge.references());
        leak_checked_test::TearDown();
    }

    static void open(win32_window_host& opened) {
        opened.create_window(0, L"host", WS_POPUP, 40, 40, 200, 100, nullptr, nullptr);
    }
    static void take_focus(const win32_window_host& shown) {
        test_support::bring_to_front(shown.get_window_handle());
        SetFocus(shown.get_window_handle());
        test_support::pump_until_idle();
        ASSERT_EQ(shown.get_window_handle(), GetFocus());
    }

    static inline std::optional<factory> token;
    fakes::fake_lower_edge edge;
};

TEST_F(window_host, paints_its_view_from_the_first_paint_to_its_end) {
    {
        win32_window_host opened{com::ptr<IViewLowerEdge>(&edge)};
        EXPECT_THAT(edge.take_calls(), ElementsAre("attach_site"));
        open(opened);
        EXPECT_THAT(edge.take_calls(), testing::IsEmpty());
        ShowWindow(opened.get_window_handle(), SW_SHOWNA);
        UpdateWindow(opened.get_window_handle());
        EXPECT_THAT(edge.take_calls(), ElementsAre("attach_render_target", "render 0 0 200 100 at 0 0"));
        EXPECT_EQ(opened.render_target(), edge.target);
        opened.destroy_window();
        EXPECT_THAT(edge.take_calls(), Contains("detach_render_target"));
        EXPECT_NE(nullptr, edge.site);
    }
    EXPECT_THAT(edge.calls, ElementsAre("detach_site"));
}

TEST_F(window_host, a_view_that_comes_late_meets_the_target) {
    win32_window_host opened;
    open(opened);
    ShowWindow(opened.get_window_handle(), SW_SHOWNA);
    UpdateWindow(opened.get_window_handle());
    test_support::pump_until_idle();  // the screen wants all of a new window painted, some time
    EXPECT_EQ(nullptr, opened.set_lower_edge(&edge));
    EXPECT_THAT(edge.take_calls(), ElementsAre("attach_site", "attach_render_target"));
    edge.site->invalidate_rect({1.5f, 2, 3, 4});
    UpdateWindow(opened.get_window_handle());
    EXPECT_THAT(edge.take_calls(), ElementsAre("render 1 2 3 4 at 0 0"));
    EXPECT_EQ(&edge, opened.set_lower_edge(nullptr));
    EXPECT_THAT(edge.take_calls(), ElementsAre("detach_render_target", "detach_site"));
    opened.destroy_window();
}

TEST_F(window_host, the_background_is_white_or_what_was_asked_for) {
    win32_window_host shown;
    open(shown);
    test_support::bring_to_front(shown.get_window_handle());
    test_support::pump_until_idle();
    EXPECT_TRUE(test_support::shows(shown.get_window_handle(), 0xFFFFFFFF, 100, 50));
    shown.set_background_color({1, 0, 0, 1});
    test_support::pump_until_idle();
    EXPECT_TRUE(test_support::shows(shown.get_window_handle(), 0xFFFF0000, 100, 50));
    shown.enable_clear_background(false);
    shown.set_background_color({0, 0, 1, 1});
    test_support::pump_until_idle();
    EXPECT_NE(0xFF0000FFu, test_support::grab_client_area(shown.get_window_handle()).at(100, 50));
    shown.destroy_window();
    shown.set_background_color({0, 1, 0, 1});  // nothing to repaint, and not the whole screen
}

TEST_F(window_host, the_keyboard_focus_of_the_window_is_the_views) {
    win32_window_host shown;
    open(shown);
    take_focus(shown);
    shown.set_lower_edge(&edge);
    EXPECT_THAT(edge.take_calls(), ElementsAre("attach_site", "attach_render_target", "focus_gained"));
    EXPECT_FALSE(edge.site->request_focus());  // it had the focus
    SetFocus(nullptr);
    EXPECT_THAT(edge.take_calls(), ElementsAre("focus_lost"));
    EXPECT_TRUE(edge.site->request_focus());
    EXPECT_THAT(edge.take_calls(), ElementsAre("focus_gained"));
    shown.set_lower_edge(nullptr);
    EXPECT_THAT(edge.take_calls(), ElementsAre("detach_render_target", "focus_lost", "detach_site"));
    shown.destroy_window();
}

TEST_F(window_host, real_input_reaches_the_view) {
    win32_window_host shown;
    open(shown);
    take_focus(shown);
    shown.set_lower_edge(&edge);
    test_support::move_mouse(shown.get_window_handle(), {10, 20});
    test_support::click(shown.get_window_handle(), {30, 40});
    EXPECT_THAT(edge.calls, Contains("mouse 3 button 0 flags 1 at 30.5 40.5 delta 0"));
    EXPECT_THAT(edge.calls, Contains("mouse 4 button 0 flags 0 at 30.5 40.5 delta 0"));
    test_support::strike_key('A', {VK_SHIFT});
    EXPECT_THAT(edge.calls, Contains("key 65 down 1 repeat 0 modifiers 2"));
    EXPECT_THAT(edge.calls, Contains("char 65"));
    shown.set_lower_edge(nullptr);
    shown.destroy_window();
}

TEST_F(window_host, services_go_to_the_host) {
    constexpr GUID id = com::guid("0B1C2D3E-4F50-6172-8394-A5B6C7D8E9FC");
    constexpr GUID upstream_id = com::guid("0B1C2D3E-4F50-6172-8394-A5B6C7D8E9FD");
    fakes::fake_service service;
    fakes::fake_service upstream(upstream_id);
    win32_window_host opened{com::ptr<IViewLowerEdge>(&edge)};
    opened.install_service(id, &service);
    opened.set_upstream_service_provider(&upstream);
    com::ptr<IServiceProvider> found;
    EXPECT_EQ(S_OK, edge.site->QueryService(id, com::guid_of<IServiceProvider>(), found.put_void()));
    EXPECT_EQ(&service, found);
    EXPECT_EQ(S_OK, edge.site->QueryService(upstream_id, com::guid_of<IServiceProvider>(), found.put_void()));
    EXPECT_EQ(&upstream, found);
    opened.uninstall_service(id);
    EXPECT_THROW(opened.uninstall_service(id), std::logic_error);
    opened.set_upstream_service_provider(nullptr);
}

}  // namespace
