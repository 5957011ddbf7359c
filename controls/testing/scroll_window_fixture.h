#pragma once

#include "d2d/factory.h"
#include "d2d/scene/IBrush.h"
#include "d2d/scene/IDrawingContext.h"
#include "d2d/ui/IStyle.h"
#include "d2d/win32_scene_window.h"
#include "support/input.h"
#include "support/leak_checked_test.h"
#include "support/message_pump.h"
#include "support/picture.h"
#include "support/shown.h"

#include <functional>
#include <optional>

namespace d2d::fakes {

/// A fixture: a real window of 300 by 240 with a white scene, for real input into scroll bars and areas of
/// the default style.
class scroll_window_fixture : public test_support::leak_checked_test {
protected:
    // As they come to the screen.
    static constexpr std::uint32_t track_pixel = 0xFFD3D3D3;
    static constexpr std::uint32_t thumb_pixel = 0xFF708090;
    static constexpr std::uint32_t white_pixel = 0xFFFFFFFF;
    static constexpr std::uint32_t red_pixel = 0xFFFF0000;
    static constexpr std::uint32_t blue_pixel = 0xFF0000FF;
    static constexpr _D3DCOLORVALUE red{1, 0, 0, 1};
    static constexpr _D3DCOLORVALUE blue{0, 0, 1, 1};

    // Kept for all tests of a suite: making the graphics anew takes long.
    static void SetUpTestSuite() { token.emplace(); }
    static void TearDownTestSuite() { token.reset(); }

    void SetUp() override {
        leak_checked_test::SetUp();
        test_support::move_mouse(GetDesktopWindow(), {700, 600});  // where the window will not be
        window.emplace();
        window->create_window(0, L"scroll", WS_POPUP, 60, 60, 300, 240, nullptr, nullptr);
    }
    void TearDown() override {
        window->destroy_window();
        window.reset();
        leak_checked_test::TearDown();
    }

    void show(const com::ptr<scene::INode>& node) {
        window->addContent(node.get());
        test_support::bring_to_front(handle());
        test_support::pump_until_idle();
    }
    [[nodiscard]] HWND handle() const { return window->get_window_handle(); }
    /// What the window shows once it has a colour at a point, or never has.
    [[nodiscard]] test_support::picture picture_with(std::uint32_t color, unsigned x, unsigned y) const {
        test_support::pump_until_idle();
        return test_support::grab_when(handle(), color, x, y);
    }

    static com::ptr<scene::INode> square(const D2D_RECT_F& rect, const _D3DCOLORVALUE& color) {
        auto made = scene::create_node();
        const auto context = made->draw(false);
        context->fill_geometry(factory::create_rectangle_geometry(rect).get(),
                               scene::create_solid_color_brush(color).get());
        context->commit();
        return made;
    }

    static inline std::optional<factory> token;
    std::optional<win32_scene_window> window;
};

}  // namespace d2d::fakes
