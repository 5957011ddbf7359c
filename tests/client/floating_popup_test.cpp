// Popups beside nodes of a scene.

#include "d2d/factory.h"
#include "d2d/scene/IBrush.h"
#include "d2d/scene/IDrawingContext.h"
#include "d2d/scene/IFloatingUiService.h"
#include "d2d/win32_scene_window.h"
#include "modal_call.h"
#include "portable_forms.h"
#include "support/input.h"
#include "support/leak_checked_test.h"

#include <gtest/gtest.h>

#include <optional>

namespace {

namespace scene = d2d::scene;
using scene::IFloatingUiService;
using ui::mossHarbour::popup_alignment;
using ui::mossHarbour::popup_side;

com::ptr<scene::INode> box(const D2D_RECT_F& rect) {
    auto node = scene::create_node();
    const auto context = node->draw(false);
    context->fill_geometry(d2d::factory::create_rectangle_geometry(rect).get(),
                           scene::create_solid_color_brush({0, 0, 1, 1}).get());
    context->commit();
    return node;
}

class floating_popup : public test_support::leak_checked_test {
protected:
    static void SetUpTestSuite() { graphics.emplace(); }
    static void TearDownTestSuite() { graphics.reset(); }
    void SetUp() override {
        leak_checked_test::SetUp();
        window.emplace();
        window->create_window(0, L"scene", WS_POPUP | WS_CAPTION, 201, 152, 500, 400, nullptr, nullptr);
        window->install_service(com::guid_of<IFloatingUiService>(),
                                scene::create_floating_ui_service(handle()).get());
        test_support::bring_to_front(handle());
    }
    void TearDown() override {
        window->destroy_window();
        window.reset();
        leak_checked_test::TearDown();
    }

    [[nodiscard]] HWND handle() const { return window->get_window_handle(); }

    /// Where a popup of a node has its upper left corner, in the window's client area.
    [[nodiscard]] POINT place_beside(scene::INode* node, popup_side side, popup_alignment align) const {
        com::ptr<IFloatingUiService> service;
        EXPECT_EQ(
            com::ptr<IServiceProvider>(node)->QueryService(
                com::guid_of<IFloatingUiService>(), com::guid_of<IFloatingUiService>(), service.put_void()),
            S_OK);
        RECT place{};
        client_test::while_shown(
            [&] {
                const HWND popup = client_test::window_above(handle());
                GetWindowRect(popup, &place);
                test_support::click(handle(), {480, 360});
            },
            [&] {
                constexpr RECT elsewhere{9, 9, 9, 9};
                EXPECT_FALSE(
                    service->show_popup(node, {client_test::blank(60, 40), {}, {}, elsewhere, side, align}));
            });
        POINT result{place.left, place.top};
        ScreenToClient(handle(), &result);
        return result;
    }

    static inline std::optional<d2d::factory> graphics;
    std::optional<d2d::win32_scene_window> window;
};

TEST_F(floating_popup, stands_beside_the_pixels_around_its_node) {
    const auto outer = scene::create_node();
    outer->set_transform({{{1.5f, 0, 0, 1.5f, 20.3f, 30.7f}}});
    const auto anchor = box({3, 5, 40, 25});
    anchor->add_child(box({40, 25, 50, 30}));
    outer->add_child(anchor);
    window->addContent(outer.get());
    const POINT right = place_beside(anchor.get(), popup_side::right, popup_alignment::near_edges);
    EXPECT_EQ(right.x, 96);  // 1.5 * 50 + 20.3
    EXPECT_EQ(right.y, 38);  // 1.5 * 5 + 30.7
    const POINT below = place_beside(anchor.get(), popup_side::below, popup_alignment::near_edges);
    EXPECT_EQ(below.x, 24);  // 1.5 * 3 + 20.3
    EXPECT_EQ(below.y, 76);  // 1.5 * 30 + 30.7
}

TEST_F(floating_popup, follows_a_node_beyond_the_corner_of_its_window) {
    const auto anchor = box({0, 0, 10, 10});
    anchor->set_transform({{{1, 0, 0, 1, -3.5f, -2.25f}}});
    window->addContent(anchor.get());
    const POINT right = place_beside(anchor.get(), popup_side::right, popup_alignment::near_edges);
    EXPECT_EQ(right.x, 7);
    EXPECT_EQ(right.y, -3);
    const POINT below = place_beside(anchor.get(), popup_side::below, popup_alignment::near_edges);
    EXPECT_EQ(below.x, -4);
    EXPECT_EQ(below.y, 8);
}

}  // namespace
