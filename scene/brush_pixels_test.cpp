#include "d2d/scene/IBrush.h"
#include "d2d/scene/IDrawingContext.h"
#include "scene/testing/pixel_target.h"
#include "scene/testing/shown_view.h"
#include "support/leak_checked_test.h"

#include <gtest/gtest.h>

#include <optional>

namespace d2d::scene {
namespace {

using fakes::pixel_target;
using fakes::shown_view;

constexpr _D3DCOLORVALUE red{1, 0, 0, 1};
constexpr _D3DCOLORVALUE blue{0, 0, 1, 1};

class brush_pixels_test : public test_support::leak_checked_test {
protected:
    static void SetUpTestSuite() {
        graphics.emplace();
        static_cast<void>(pixel_target(1, 1));  // the first one leaves a hidden window of Wine's behind
    }
    static void TearDownTestSuite() { graphics.reset(); }

    static com::ptr<INode> filled_node(const D2D_RECT_F& rect, IBrush* brush) {
        auto node = create_node();
        node->draw(true)->fill_geometry(factory::create_rectangle_geometry(rect).get(), brush);
        return node;
    }

    /// The upper left pixel of a frame at `time`.
    static std::uint32_t pixel_at(double time, shown_view& view, const pixel_target& target) {
        view.site.time = time;
        target.paint(*view.get());
        return target.picture().at(0, 0);
    }

private:
    static inline std::optional<factory> graphics;  // a third of a second each time
};

TEST_F(brush_pixels_test, a_brush_paints_its_colour) {
    const struct {
        _D3DCOLORVALUE color;
        std::uint32_t pixel;
    } cases[] = {{red, 0xFFFF0000},
                 {{0, 1, 0, 1}, 0xFF00FF00},
                 {{0.2f, 0.4f, 0.6f, 1}, 0xFF336699},
                 {{1, 1, 1, 0.2f}, 0x33333333},
                 {{0, 0, 1, 0}, 0}};
    for (const auto& [color, pixel] : cases) {
        const pixel_target target(2, 1);
        shown_view view(target.get());
        view->set_root(filled_node({0, 0, 1, 1}, create_solid_color_brush(color).get()));
        EXPECT_EQ(pixel, pixel_at(0.0, view, target));
        EXPECT_EQ(0u, target.picture().at(1, 0));
    }
}

TEST_F(brush_pixels_test, a_blinking_brush_follows_the_time_of_the_frame) {
    const pixel_target target(1, 1);
    shown_view view(target.get());
    view->set_root(filled_node({0, 0, 1, 1}, create_blinking_solid_color_brush(red, blue, 0.5f).get()));
    EXPECT_EQ(0xFFFF0000u, pixel_at(0.0, view, target));
    EXPECT_EQ(0xFFFF0000u, pixel_at(0.49, view, target));
    EXPECT_EQ(0xFF0000FFu, pixel_at(0.5, view, target));
    EXPECT_EQ(0xFF0000FFu, pixel_at(0.99, view, target));
    EXPECT_EQ(0xFFFF0000u, pixel_at(1.0, view, target));
    EXPECT_EQ(0xFF0000FFu, pixel_at(0.75, view, target)) << "nothing is remembered of earlier frames";
}

TEST_F(brush_pixels_test, a_pulsating_brush_follows_the_time_of_the_frame) {
    const pixel_target target(1, 1);
    shown_view view(target.get());
    view->set_root(filled_node({0, 0, 1, 1}, create_pulsating_solid_color_brush(red, blue, 4.0, 1.0).get()));
    EXPECT_EQ(0xFF800080u, pixel_at(0.0, view, target));
    EXPECT_EQ(0xFF0000FFu, pixel_at(1.0, view, target));
    EXPECT_EQ(0xFFFF0000u, pixel_at(3.0, view, target));
}

TEST_F(brush_pixels_test, one_brush_paints_on_the_targets_of_two_views) {
    const pixel_target first(1, 1);
    const pixel_target second(1, 1);
    shown_view first_view(first.get());
    shown_view second_view(second.get());
    const auto brush = create_blinking_solid_color_brush(red, blue, 0.5f);
    first_view->set_root(filled_node({0, 0, 1, 1}, brush.get()));
    second_view->set_root(filled_node({0, 0, 1, 1}, brush.get()));
    EXPECT_EQ(0xFF0000FFu, pixel_at(0.5, first_view, first));
    EXPECT_EQ(0xFFFF0000u, pixel_at(0.0, second_view, second));
    EXPECT_EQ(0xFF0000FFu, pixel_at(0.7, first_view, first));
}

}  // namespace
}  // namespace d2d::scene
