#include "scene/shadow_effect_resource.h"

#include "com/error.h"
#include "d2d/scene/IBrush.h"
#include "d2d/scene/IDrawingContext.h"
#include "scene/testing/pixel_target.h"
#include "scene/testing/recording_render_target.h"
#include "scene/testing/shown_view.h"
#include "support/leak_checked_test.h"

#include <gtest/gtest.h>

#include <cmath>
#include <optional>

namespace d2d::scene {
namespace {

using fakes::pixel_target;
using fakes::recording_render_target;
using fakes::shown_view;

constexpr _D3DCOLORVALUE black{0, 0, 0, 1};
constexpr _D3DCOLORVALUE red{1, 0, 0, 1};

class shadow_effect_test : public test_support::leak_checked_test {
protected:
    static void SetUpTestSuite() {
        graphics.emplace();
        static_cast<void>(pixel_target(1, 1));  // the first one leaves a hidden window of Wine's behind
    }
    static void TearDownTestSuite() { graphics.reset(); }

    /// A node with a filled rectangle and a shadow.
    static com::ptr<INode> shadowed_node(const D2D_RECT_F& rect, const _D3DCOLORVALUE& color, float blur) {
        auto node = create_node();
        node->draw(true)->fill_geometry(factory::create_rectangle_geometry(rect).get(),
                                        create_solid_color_brush(red).get());
        node->set_effect(create_shadow_effect(color, blur).get());
        return node;
    }

private:
    static inline std::optional<factory> graphics;  // a third of a second each time
};

TEST_F(shadow_effect_test, shadows_are_not_shared_and_are_effects_only) {
    const auto first = create_shadow_effect(black, 3);
    const auto second = create_shadow_effect(black, 3);
    EXPECT_NE(first, second);
    EXPECT_TRUE(first.try_as<IResource>());
    EXPECT_TRUE(first.try_as<resource<IMaterializedEffect>>());
    EXPECT_FALSE(first.try_as<resource<ID2D1Brush>>());
    EXPECT_FALSE(first.try_as<resource<IMaterializedEffect>>()->is_animated());
}

TEST_F(shadow_effect_test, a_target_that_is_no_device_context_is_refused) {
    recording_render_target target;
    const com::ptr<resource<IMaterializedEffect>> shadow(create_shadow_effect(black, 3));
    try {
        static_cast<void>(shadow->create(&target));
        ADD_FAILURE() << "no failure";
    } catch (const com::error& refused) {
        EXPECT_EQ(E_NOINTERFACE, refused.hresult);
    }
}

TEST_F(shadow_effect_test, two_views_have_an_effect_each_and_a_view_has_one) {
    const pixel_target target(8, 8);
    const shown_view first(target.get());
    const shown_view second(target.get());
    const com::ptr<resource<IMaterializedEffect>> shadow(create_shadow_effect(black, 3));
    const auto binding = shadow->bind_typed(first.get());
    EXPECT_EQ(binding, shadow->bind_typed(first.get()));
    EXPECT_NE(binding, shadow->bind_typed(second.get()));
}

TEST_F(shadow_effect_test, the_output_stays_the_same_for_any_input) {
    const pixel_target target(8, 8);
    const com::ptr<resource<IMaterializedEffect>> shadow(create_shadow_effect(black, 3));
    const auto effect = shadow->create(target.get());
    constexpr D2D1_BITMAP_PROPERTIES properties{
        {DXGI_FORMAT_B8G8R8A8_UNORM, D2D1_ALPHA_MODE_PREMULTIPLIED}, 96, 96};
    com::ptr<ID2D1Bitmap> first;
    com::ptr<ID2D1Bitmap> second;
    com::check(target->CreateBitmap({2, 2}, nullptr, 0, &properties, first.put()));
    com::check(target->CreateBitmap({4, 4}, nullptr, 0, &properties, second.put()));
    ID2D1Image* const output = effect->apply(first.get());
    EXPECT_NE(nullptr, output);
    EXPECT_EQ(output, effect->apply(second.get()));
}

TEST_F(shadow_effect_test, a_shadow_is_painted_around_and_beneath_the_recording) {
    const pixel_target target(40, 40);
    const shown_view view(target.get());
    view->set_root(shadowed_node({14, 14, 26, 26}, {0, 0, 1, 1}, 2));
    target.paint(*view.get());
    const auto picture = target.picture();
    EXPECT_EQ(0xFFFF0000u, picture.at(20, 20)) << "the recording covers its shadow";
    EXPECT_EQ(0u, picture.at(1, 1));
    // At the middle of a long edge, half the shadow's weight lies outside; it falls off like a Gaussian.
    for (unsigned distance = 0; distance < 6; ++distance) {
        const double deviations = (distance + 0.5) / 2.0;
        const double expected = 255 * 0.5 * std::erfc(deviations / std::sqrt(2.0));
        const std::uint32_t pixel = picture.at(26 + distance, 20);
        EXPECT_NEAR(expected, pixel >> 24, 10) << distance;
        EXPECT_NEAR(pixel >> 24, pixel & 0xFF, 1) << "blue, premultiplied, at " << distance;
        EXPECT_EQ(0u, pixel >> 8 & 0xFFFF) << distance;
    }
}

}  // namespace
}  // namespace d2d::scene
