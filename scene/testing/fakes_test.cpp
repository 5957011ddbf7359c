#include "scene/testing/fake_site.h"
#include "scene/testing/pixel_target.h"
#include "scene/testing/recording_render_target.h"

#include "com/ptr.h"
#include "d2d/factory.h"

#include <gtest/gtest.h>

namespace {

using d2d::scene::fakes::call_text;
using d2d::scene::fakes::fake_site;
using d2d::scene::fakes::pixel_target;
using d2d::scene::fakes::recording_render_target;
using lines = std::vector<std::string>;

constexpr D2D1_BITMAP_PROPERTIES bitmap_properties{
    {DXGI_FORMAT_B8G8R8A8_UNORM, D2D1_ALPHA_MODE_PREMULTIPLIED}, 96.0f, 96.0f};

TEST(call_text, numbers_are_exact_and_as_short_as_that_allows) {
    EXPECT_EQ("call 0 -1.5 0.1 0.05000000074505806 7 1",
              call_text("call", 0.0f, -1.5f, 0.1f, static_cast<double>(0.05f), 7u, true));
    EXPECT_EQ("call null", call_text("call", static_cast<const D2D_RECT_F*>(nullptr)));
    const D2D_RECT_F rect{1, 2, 3, 4.25f};
    EXPECT_EQ("call 1 2 3 4.25 1 2 3 4.25", call_text("call", rect, &rect));
}

TEST(recording_render_target, writes_calls_down_with_what_objects_are) {
    const d2d::factory graphics;
    const auto rectangle = d2d::factory::create_rectangle_geometry({0, 0, 10, 20});
    const auto ellipse = d2d::factory::create_ellipse_geometry({{5, 6}, 2, 3});
    const auto path = d2d::factory::create_path_geometry();
    recording_render_target target;
    com::ptr<ID2D1SolidColorBrush> brush;
    com::ptr<ID2D1Bitmap> bitmap;
    constexpr D2D1_COLOR_F red{1, 0, 0, 1};
    constexpr D2D1_COLOR_F blue{0, 0, 1, 0.5f};
    constexpr D2D_RECT_F destination{10, 20, 26, 28};
    ASSERT_EQ(S_OK, target.CreateSolidColorBrush(&red, nullptr, brush.put()));
    ASSERT_EQ(S_OK, target.CreateBitmap({16, 8}, nullptr, 0, &bitmap_properties, bitmap.put()));
    target.FillGeometry(rectangle.get(), brush.get(), nullptr);
    brush->SetColor(&blue);
    target.DrawGeometry(ellipse.get(), brush.get(), 2.0f, nullptr);
    target.name(path.get(), "heart");
    target.FillGeometry(path.get(), brush.get(), nullptr);
    target.DrawBitmap(bitmap.get(), &destination, 1.0f, D2D1_BITMAP_INTERPOLATION_MODE_LINEAR, nullptr);
    EXPECT_EQ((lines{
                  "CreateSolidColorBrush 1 0 0 1",
                  "CreateBitmap 16 8 0 87 1 96 96",
                  "FillGeometry rectangle(0 0 10 20) brush(1 0 0 1)",
                  "SetColor 0 0 1 0.5",
                  "DrawGeometry ellipse(5 6 2 3) brush(0 0 1 0.5) 2 null",
                  "FillGeometry heart brush(0 0 1 0.5)",
                  "DrawBitmap bitmap(16 8) 10 20 26 28 1 1 null",
              }),
              target.take_calls());
    EXPECT_EQ(lines{}, target.calls());
}

TEST(recording_render_target, counts_what_it_made_and_what_of_it_lives) {
    recording_render_target target;
    constexpr D2D1_COLOR_F red{1, 0, 0, 1};
    {
        com::ptr<ID2D1SolidColorBrush> first;
        com::ptr<ID2D1SolidColorBrush> second;
        ASSERT_EQ(S_OK, target.CreateSolidColorBrush(&red, nullptr, first.put()));
        ASSERT_EQ(S_OK, target.CreateSolidColorBrush(&red, nullptr, second.put()));
        EXPECT_EQ(2, target.live_brushes());
        first.reset();
        EXPECT_EQ(1, target.live_brushes());
    }
    EXPECT_EQ(0, target.live_brushes());
    EXPECT_EQ(2, target.created_brushes());
}

TEST(recording_render_target, fails_creations_on_request) {
    recording_render_target target;
    constexpr D2D1_COLOR_F red{1, 0, 0, 1};
    com::ptr<ID2D1SolidColorBrush> brush;
    target.fail_creations_after(1, E_OUTOFMEMORY);
    EXPECT_EQ(S_OK, target.CreateSolidColorBrush(&red, nullptr, brush.put()));
    EXPECT_EQ(E_OUTOFMEMORY, target.CreateSolidColorBrush(&red, nullptr, brush.put()));
    EXPECT_EQ(E_OUTOFMEMORY, target.CreateSolidColorBrush(&red, nullptr, brush.put()));
    target.fail_creations_after(0, S_OK);
    EXPECT_EQ(S_OK, target.CreateSolidColorBrush(&red, nullptr, brush.put()));
    EXPECT_EQ(2, target.created_brushes());
}

TEST(recording_render_target, sends_calls_on_to_a_real_target) {
    const pixel_target real(4, 4);
    recording_render_target target(real.get());
    constexpr D2D1_COLOR_F blue{0, 0, 1, 1};
    constexpr D2D1_COLOR_F red{1, 0, 0, 1};
    constexpr D2D_RECT_F left_half{0, 0, 2, 4};
    com::ptr<ID2D1SolidColorBrush> brush;
    com::check(target.CreateSolidColorBrush(&red, nullptr, brush.put()));
    target.BeginDraw();
    target.Clear(&blue);
    target.FillRectangle(&left_half, brush.get());
    ASSERT_EQ(S_OK, target.EndDraw(nullptr, nullptr));
    EXPECT_EQ((lines{"CreateSolidColorBrush 1 0 0 1", "BeginDraw", "Clear 0 0 1 1",
                     "FillRectangle 0 0 2 4 brush(1 0 0 1)", "EndDraw"}),
              target.calls());
    const auto picture = real.picture();
    EXPECT_EQ(0xFFFF0000u, picture.at(0, 0));
    EXPECT_EQ(0xFF0000FFu, picture.at(3, 3));
    const ID2D1RenderTarget& interface_of_it = target;
    const D2D1_SIZE_U size = interface_of_it.GetPixelSize();
    EXPECT_EQ(4u, size.width);
    EXPECT_EQ(4u, size.height);
}

TEST(fake_site, writes_down_what_is_asked_of_it) {
    fake_site site;
    site.focus_granted = false;
    site.drag = [](const auto& moved) { return moved({3, 4}); };
    site.invalidate_rect({1, 2, 3, 4});
    site.set_animation_clock(0.0, static_cast<double>(0.05f));
    EXPECT_FALSE(site.request_focus());
    EXPECT_TRUE(site.drag_loop({5, 5}, d2d::input::mouse::button::middle, {{{1, 0, 0, 1, 7, 8}}},
                               [](D2D_POINT_2F at) { return at.x == 3.0f && at.y == 4.0f; }));
    EXPECT_EQ((lines{"invalidate_rect 1 2 3 4", "set_animation_clock 0 0.05000000074505806", "request_focus",
                     "drag_loop 5 5 4 1 0 0 1 7 8"}),
              site.take_calls());
}

}  // namespace
