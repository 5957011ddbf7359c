#include "d2d/win32_scene_window.h"

#include "d2d/scene/IBrush.h"
#include "d2d/scene/IDrawingContext.h"
#include "support/input.h"
#include "support/leak_checked_test.h"
#include "support/message_pump.h"
#include "support/picture.h"

#include <vector>

namespace {

using namespace d2d;

class scene_window : public test_support::leak_checked_test {
protected:
    static constexpr DWORD popup = WS_POPUP;

    static void open(win32_scene_window& opened, int width = 200, int height = 100) {
        opened.create_window(0, L"scene", popup, 40, 40, width, height, nullptr, nullptr);
    }

    static com::ptr<scene::INode> square(D2D_RECT_F rect, _D3DCOLORVALUE color) {
        auto made = scene::create_node();
        const auto context = made->draw(false);
        context->fill_geometry(factory::create_rectangle_geometry(rect).get(),
                               scene::create_solid_color_brush(color).get());
        context->commit();
        return made;
    }

    const factory token;
};

TEST_F(scene_window, shows_its_nodes_on_white) {
    win32_scene_window shown;
    open(shown);
    shown.addContent(square({10, 20, 50, 60}, {1, 0, 0, 1}).get());
    test_support::bring_to_front(shown.get_window_handle());
    test_support::pump_until_idle();
    const auto picture = test_support::grab_client_area(shown.get_window_handle());
    EXPECT_EQ(0xFFFF0000u, picture.at(10, 20));
    EXPECT_EQ(0xFFFF0000u, picture.at(49, 59));
    EXPECT_EQ(0xFFFFFFFFu, picture.at(9, 20));
    EXPECT_EQ(0xFFFFFFFFu, picture.at(50, 59));
    EXPECT_EQ(0xFFFFFFFFu, picture.at(199, 99));
    shown.destroy_window();
}

}  // namespace
