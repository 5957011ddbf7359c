#pragma once

#include "d2d/IRenderTargetLayer.h"
#include "d2d/IViewLowerEdgeHost.h"
#include "d2d/IWin32InterfaceLayer.h"
#include "d2d/factory.h"
#include "d2d/lower_edge_host.h"
#include "host/testing/fake_lower_edge.h"
#include "host/testing/fake_timer.h"
#include "host/testing/hidden_window.h"
#include "scene/testing/recording_render_target.h"
#include "support/leak_checked_test.h"

#include <optional>
#include <vector>

namespace d2d::fakes {

/// A fixture: a host with a timer that the test plays, without view, window and target.
class host_fixture : public test_support::leak_checked_test {
protected:
    static void SetUpTestSuite() { token.emplace(); }
    static void TearDownTestSuite() { token.reset(); }

    void SetUp() override {
        leak_checked_test::SetUp();
        make_host();
    }
    void TearDown() override {
        if (host) host->set_lower_edge(nullptr);
        drop_host();
        window.reset();
        EXPECT_EQ(0u, edge.references());
        EXPECT_EQ(0u, target.references());
        leak_checked_test::TearDown();
    }

    void make_host() {
        host = create_win32_view_lower_edge_host();
        render_layer = com::ptr<IRenderTargetLayer>(host);
        window_layer = com::ptr<IWin32InterfaceLayer>(host);
        services = com::ptr<IServiceProvider>(host);
        timer.calls.clear();
    }
    void drop_host() {
        services.reset();
        window_layer.reset();
        render_layer.reset();
        host.reset();
    }

    /// Attaches a hidden window; what is to be repainted is kept in `invalid`.
    void attach_window() {
        window.emplace();
        window_layer->attach_hwnd(window->get(), [this](RECT rect) { invalid.push_back(rect); });
    }

    std::optional<long> send(UINT message, WPARAM wparam = 0, LPARAM lparam = 0) {
        MSG sent{};
        sent.hwnd = window ? window->get() : nullptr;
        sent.message = message;
        sent.wParam = wparam;
        sent.lParam = lparam;
        return window_layer->on_window_message(sent);
    }

    static inline std::optional<factory> token;

    fake_timer timer;
    fake_lower_edge edge;
    scene::fakes::recording_render_target target;
    std::optional<hidden_window> window;
    std::vector<RECT> invalid;
    com::ptr<IViewLowerEdgeHost> host;
    com::ptr<IRenderTargetLayer> render_layer;
    com::ptr<IWin32InterfaceLayer> window_layer;
    com::ptr<IServiceProvider> services;
};

}  // namespace d2d::fakes
