// A client that paints itself, in a real window.

#include "com/object.h"
#include "d2d/scene/IDeferredExecutionService.h"
#include "d2d/scene/IVisual.h"
#include "d2d/win32_scene_window.h"
#include "support/input.h"
#include "support/leak_checked_test.h"
#include "support/message_pump.h"
#include "support/shown.h"

#include <gtest/gtest.h>

#include <string>

namespace {

/// Fills a rectangle with a brush of its own, and notes what it is told.
class self_painter : public com::base_object<com::object_base, d2d::scene::IVisual> {
public:
    explicit self_painter(std::string& log) : log_(log) {}

    void attach(ISite*) override { log_ += "attach "; }
    void detach(ISite*) override { log_ += "detach "; }
    std::optional<animation> get_animation() override { return {}; }
    void render(ID2D1RenderTarget* target) override {
        const D2D_RECT_F area = get_bounds();
        target->FillRectangle(&area, brush_.get());
    }
    bool hit_test(float, float, float) override { return false; }
    void animate(double) override {}
    void bind(d2d::scene::IResourceBindingContext* context) override {
        log_ += "bind ";
        const D2D1_COLOR_F blue{0, 0, 1, 1};
        com::check(context->get_render_target()->CreateSolidColorBrush(&blue, nullptr, brush_.put()));
    }
    void unbind(d2d::scene::IResourceBindingContext*) override {
        log_ += "unbind ";
        brush_.reset();
    }
    D2D_RECT_F get_bounds() override { return {10, 10, 60, 40}; }

private:
    std::string& log_;
    com::ptr<ID2D1SolidColorBrush> brush_;
};

using visual_in_a_window = test_support::leak_checked_test;

TEST_F(visual_in_a_window, is_bound_painted_and_let_go) {
    std::string log;
    {
        d2d::win32_scene_window window;
        const auto node = d2d::scene::create_node();
        const auto context = node->draw(false);
        context->draw_visual(com::create_object<self_painter>(log).get());
        context->commit();
        window.addContent(node.get());
        window.create_window(0, L"visual", WS_POPUP, 30, 30, 120, 80, nullptr, nullptr);
        EXPECT_EQ("attach ", log);
        test_support::bring_to_front(window.get_window_handle());
        test_support::pump_until_idle();
        EXPECT_EQ("attach bind ", log);
        const auto shown = test_support::grab_when(window.get_window_handle(), 0xFF0000FF, 10, 10);
        EXPECT_EQ(0xFF0000FFu, shown.at(10, 10));
        EXPECT_EQ(0xFF0000FFu, shown.at(59, 39));
        EXPECT_EQ(0xFFFFFFFFu, shown.at(60, 40));
        window.destroy_window();
        EXPECT_EQ("attach bind unbind ", log);
    }
}

TEST_F(visual_in_a_window, a_node_finds_the_service_that_runs_things_later) {
    d2d::win32_scene_window window;
    window.create_window(0, L"later", WS_POPUP, 30, 30, 120, 80, nullptr, nullptr);
    const com::ptr<IServiceProvider> asked(window.root_node());
    com::ptr<d2d::scene::IDeferredExecutionService> service;
    const GUID& id = com::guid_of<d2d::scene::IDeferredExecutionService>();
    ASSERT_EQ(S_OK, asked->QueryService(id, id, service.put_void()));
    int calls = 0;
    service->defer_execution(&calls, [](void* data) { ++*static_cast<int*>(data); });
    EXPECT_EQ(0, calls);
    EXPECT_TRUE(test_support::pump_until([&] { return calls == 1; }));
    window.destroy_window();
}

TEST_F(visual_in_a_window, closing_the_window_ends_the_loop_and_leaves_the_window) {
    d2d::win32_scene_window window;
    int asked = 0;
    window.on_close = [&] { return ++asked > 1; };
    window.create_window(0, L"loop", WS_POPUP, 30, 30, 120, 80, nullptr, nullptr);
    PostMessageW(window.get_window_handle(), WM_CLOSE, 0, 0);
    PostMessageW(window.get_window_handle(), WM_CLOSE, 0, 0);
    EXPECT_EQ(0, d2d::win32_scene_window::run_message_loop([](MSG&) { return false; }));
    EXPECT_EQ(2, asked);
    EXPECT_TRUE(IsWindow(window.get_window_handle()));
    window.destroy_window();
}

}  // namespace
