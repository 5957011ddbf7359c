#include "d2d/IWin32InputLayer.h"

#include "host/testing/fake_lower_edge.h"
#include "host/testing/hidden_window.h"
#include "support/input.h"
#include "support/leak_checked_test.h"

#include <gmock/gmock.h>

namespace {

using namespace d2d;
using testing::ElementsAre;
using testing::IsEmpty;

class input_layer : public test_support::leak_checked_test {
protected:
    void SetUp() override {
        leak_checked_test::SetUp();
        layer = create_win32_input_layer();
    }
    void TearDown() override {
        layer.reset();
        EXPECT_EQ(0u, edge.references());
        window.reset();
        leak_checked_test::TearDown();
    }
    void take_focus() {
        window.emplace(WS_POPUP | WS_VISIBLE);
        test_support::bring_to_front(window->get());
        SetFocus(window->get());
        ASSERT_EQ(window->get(), GetFocus());
    }

    std::optional<fakes::hidden_window> window;
    fakes::fake_lower_edge edge;
    com::ptr<IWin32InputLayer> layer;
};

TEST_F(input_layer, hands_messages_to_its_view_and_nothing_else) {
    MSG message{};
    message.message = WM_CHAR;
    message.wParam = 'a';
    EXPECT_EQ(std::nullopt, layer->on_window_message(message));
    EXPECT_EQ(nullptr, layer->set_lower_edge(&edge));
    EXPECT_EQ(0, layer->on_window_message(message));
    EXPECT_THAT(edge.take_calls(), ElementsAre("char 97"));
    EXPECT_EQ(&edge, layer->set_lower_edge(nullptr));
    EXPECT_THAT(edge.calls, IsEmpty());
}

TEST_F(input_layer, has_origin_and_cursor) {
    layer->set_lower_edge(&edge);
    layer->set_origin({10, 20});
    layer->set_default_cursor(nullptr);
    MSG message{};
    message.message = WM_MOUSEMOVE;
    message.lParam = MAKELPARAM(10, 20);
    EXPECT_EQ(std::nullopt, layer->on_window_message(message));
    message.message = WM_SETCURSOR;
    message.lParam = HTCLIENT;
    EXPECT_EQ(std::nullopt, layer->on_window_message(message));
    EXPECT_EQ("mouse 0 flags 0 at 0.5 0.5 delta 0", edge.calls.at(0));
}

TEST_F(input_layer, without_focus_tells_of_none) {
    window.emplace();
    layer->attach_hwnd(window->get(), nullptr);
    layer->set_lower_edge(&edge);
    layer->detach_hwnd(window->get());
    EXPECT_THAT(edge.calls, IsEmpty());
}

TEST_F(input_layer, the_focus_of_the_window_is_the_views_while_both_are_attached) {
    take_focus();
    layer->set_lower_edge(&edge);
    EXPECT_THAT(edge.take_calls(), IsEmpty());
    bool called = false;
    layer->attach_hwnd(window->get(), [&](RECT) { called = true; });
    EXPECT_THAT(edge.take_calls(), ElementsAre("focus_gained"));
    fakes::fake_lower_edge next;
    EXPECT_EQ(&edge, layer->set_lower_edge(&next));
    EXPECT_THAT(edge.take_calls(), ElementsAre("focus_lost"));
    EXPECT_THAT(next.take_calls(), ElementsAre("focus_gained"));
    layer->detach_hwnd(window->get());
    EXPECT_THAT(next.take_calls(), ElementsAre("focus_lost"));
    layer->set_lower_edge(nullptr);
    EXPECT_THAT(next.take_calls(), IsEmpty());
    EXPECT_FALSE(called);
}

TEST_F(input_layer, is_an_interface_layer) {
    EXPECT_NE(nullptr, layer.try_as<IWin32InterfaceLayer>());
    EXPECT_EQ(nullptr, layer.try_as<IViewLowerEdge>());
}

}  // namespace
