#include "com/error.h"
#include "d2d/scene/IBitmap.h"
#include "d2d/scene/IDrawingContext.h"
#include "host/imaging.h"
#include "scene/testing/pixel_target.h"
#include "scene/testing/recording_render_target.h"
#include "scene/testing/shown_view.h"
#include "scene/testing/test_icon.h"
#include "support/leak_checked_test.h"
#include "support/resource_counts.h"
#include "wic/bitmap_source.h"
#include "win32/error.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <array>
#include <initializer_list>
#include <optional>

namespace d2d::scene {
namespace {

using fakes::make_icon;
using fakes::pixel_target;
using fakes::recording_render_target;
using fakes::shown_view;
using lines = std::vector<std::string>;

com::ptr<IBitmap> bitmap_of(D2D_SIZE_U size, std::initializer_list<unsigned int> pixels) {
    auto copy = std::make_unique<unsigned int[]>(pixels.size());
    std::copy(pixels.begin(), pixels.end(), copy.get());
    return IBitmap::create(size, std::move(copy));
}

com::ptr<INode> node_showing(IBitmap* bitmap, float x, float y) {
    auto node = create_node();
    node->draw(true)->draw_bitmap(x, y, bitmap);
    return node;
}

class bitmap_test : public test_support::leak_checked_test {
protected:
    static void SetUpTestSuite() {
        graphics.emplace();
        static_cast<void>(pixel_target(1, 1));  // the first one leaves a hidden window of Wine's behind
    }
    static void TearDownTestSuite() { graphics.reset(); }

private:
    static inline std::optional<factory> graphics;  // a third of a second each time
};

TEST_F(bitmap_test, a_raw_bitmap_gives_its_pixels_to_the_target) {
    recording_render_target target;
    const auto bitmap = bitmap_of({3, 2}, {1, 2, 3, 4, 5, 6});
    EXPECT_EQ(3u, bitmap->get_size().width);
    EXPECT_EQ(2u, bitmap->get_size().height);
    const shown_view view(&target);
    view->set_root(node_showing(bitmap.get(), 10, 20));
    EXPECT_EQ(lines{"CreateBitmap 3 2 12 87 1 96 96"}, target.take_calls());
    view->render({0, 0, 50, 50}, {{{1, 0, 0, 1, 0, 0}}});
    EXPECT_EQ("DrawBitmap bitmap(3 2) 10 20 13 22 1 1 0 0 3 2", target.calls().back());
}

TEST_F(bitmap_test, the_pixels_of_a_raw_bitmap_arrive_on_every_target) {
    const pixel_target first(4, 4);
    const pixel_target second(4, 4);
    shown_view view(first.get());
    // Opaque red, half-covering green (premultiplied), opaque blue, nothing.
    view->set_root(node_showing(bitmap_of({2, 2}, {0xFFFF0000, 0x80008000, 0xFF0000FF, 0}).get(), 1, 1));
    for (const pixel_target* target : {&first, &second, &first}) {
        view.replace_target(target->get());
        target->paint(*view.get());
        const auto picture = target->picture();
        EXPECT_EQ((std::vector<std::uint32_t>{0, 0, 0, 0,                    //
                                              0, 0xFFFF0000, 0x80008000, 0,  //
                                              0, 0xFF0000FF, 0, 0,           //
                                              0, 0, 0, 0}),
                  picture.pixels);
    }
}

TEST_F(bitmap_test, a_bitmap_is_never_asked_to_update) {
    recording_render_target target;
    shown_view view(&target);
    view->set_root(node_showing(bitmap_of({1, 1}, {0}).get(), 0, 0));
    view.site.time = 3.0;
    target.take_calls();
    view->render({0, 0, 1, 1}, {{{1, 0, 0, 1, 0, 0}}});
    EXPECT_EQ((lines{"SetTransform 1 0 0 1 0 0", "DrawBitmap bitmap(1 1) 0 0 1 1 1 1 0 0 1 1"}),
              target.calls());
    EXPECT_EQ(0.0, view.site.clock_interval);
}

TEST_F(bitmap_test, a_bitmap_answers_to_its_interfaces_and_to_no_brush) {
    const auto icon = make_icon(1, 1, {0});
    for (const auto& bitmap : {bitmap_of({1, 1}, {0}), IBitmap::create(icon.get())}) {
        EXPECT_TRUE(bitmap.try_as<IResource>());
        EXPECT_TRUE(bitmap.try_as<resource<ID2D1Bitmap>>());
        EXPECT_FALSE(bitmap.try_as<resource<ID2D1Brush>>());
        EXPECT_FALSE(bitmap.try_as<resource<ID2D1Bitmap>>()->is_animated());
    }
}

TEST_F(bitmap_test, an_icon_has_the_size_of_its_colour_bitmap) {
    const auto icon = make_icon(20, 12, std::vector<std::uint32_t>(240, 0xFF00FF00));
    const D2D_SIZE_U size = IBitmap::create(icon.get())->get_size();
    EXPECT_EQ(20u, size.width);
    EXPECT_EQ(12u, size.height);
}

TEST_F(bitmap_test, the_pixels_of_an_icon_arrive_premultiplied) {
    const auto icon = make_icon(2, 2, {0xFFFF0000, 0x8000FF00, 0xFF0000FF, 0x00FFFFFF});
    const pixel_target target(2, 2);
    recording_render_target recorded(target.get());
    const shown_view view(&recorded);
    view->set_root(node_showing(IBitmap::create(icon.get()).get(), 0, 0));
    EXPECT_EQ(lines{"CreateBitmapFromWicBitmap 2 2 87 1 96 96"}, recorded.calls());
    target.paint(*view.get());
    EXPECT_EQ((std::vector<std::uint32_t>{0xFFFF0000, 0x80008000, 0xFF0000FF, 0}), target.picture().pixels);
}

TEST_F(bitmap_test, an_icon_without_a_size_is_refused) {
    EXPECT_THROW(static_cast<void>(IBitmap::create(HICON(nullptr))), win32::error);
    const auto monochrome = fakes::make_monochrome_icon();
    EXPECT_THROW(static_cast<void>(IBitmap::create(monochrome.get())), win32::error);
}

TEST_F(bitmap_test, icons_leave_no_system_objects_behind) {
    const auto icon = make_icon(2, 2, {1, 2, 3, 4});
    const auto monochrome = fakes::make_monochrome_icon();
    test_support::expect_no_growth([&] {
        static_cast<void>(IBitmap::create(icon.get()));
        EXPECT_THROW(static_cast<void>(IBitmap::create(monochrome.get())), win32::error);
    });
}

TEST(bitmap_without_graphics, an_icon_keeps_the_imaging_factory_while_it_lives) {
    const auto icon = make_icon(1, 1, {0});
    ASSERT_EQ(nullptr, imaging_hold::wic_factory());
    auto bitmap = IBitmap::create(icon.get());
    EXPECT_NE(nullptr, imaging_hold::wic_factory());
    bitmap.reset();
    EXPECT_EQ(nullptr, imaging_hold::wic_factory());
    EXPECT_THROW(static_cast<void>(IBitmap::create(HICON(nullptr))), win32::error);
    EXPECT_EQ(nullptr, imaging_hold::wic_factory());
}

TEST(bitmap_without_graphics, conversions_have_the_imaging_factory_while_they_run) {
    const auto icon = make_icon(1, 1, {0xFFFFFFFF});
    // What is made lives in the platform's library, which goes with the last apartment.
    struct apartment {
        apartment() { com::check(CoInitialize(nullptr)); }
        apartment(const apartment&) = delete;
        ~apartment() { CoUninitialize(); }
    } const own_apartment;
    ASSERT_EQ(nullptr, imaging_hold::wic_factory());
    EXPECT_TRUE(wic::create_bitmap_source_from_icon(icon.get()));
    EXPECT_EQ(nullptr, imaging_hold::wic_factory());
    EXPECT_THROW(static_cast<void>(wic::create_bitmap_source_from_icon(nullptr)), com::error);
    EXPECT_EQ(nullptr, imaging_hold::wic_factory());
}

TEST_F(bitmap_test, an_icon_that_is_gone_fails_when_a_target_wants_it) {
    auto icon = make_icon(2, 2, {1, 2, 3, 4});
    const auto bitmap = IBitmap::create(icon.get());
    icon.reset();
    EXPECT_EQ(2u, bitmap->get_size().width);
    recording_render_target target;
    const com::ptr<resource<ID2D1Bitmap>> gone(bitmap);
    EXPECT_THROW(static_cast<void>(gone->create(&target)), com::error);
    EXPECT_EQ(lines{}, target.calls());
}

template <std::size_t Size>
std::array<std::uint8_t, Size> bytes_of(IWICBitmapSource* source, UINT stride) {
    std::array<std::uint8_t, Size> bytes{};
    com::check(source->CopyPixels(nullptr, stride, Size, bytes.data()));
    return bytes;
}

TEST_F(bitmap_test, a_source_from_an_icon_has_premultiplied_pixels) {
    com::ptr<IWICBitmapSource> source;
    {
        const auto icon = make_icon(2, 1, {0xFFFF8000, 0x800000FF});
        source = wic::create_bitmap_source_from_icon(icon.get());
    }
    WICPixelFormatGUID format{};
    UINT width = 0;
    UINT height = 0;
    com::check(source->GetPixelFormat(&format));
    com::check(source->GetSize(&width, &height));
    EXPECT_TRUE(com::same_guid(GUID_WICPixelFormat32bppPBGRA, format));
    EXPECT_EQ(2u, width);
    EXPECT_EQ(1u, height);
    EXPECT_EQ((std::array<std::uint8_t, 8>{0, 0x80, 0xFF, 0xFF, 0x80, 0, 0, 0x80}),
              bytes_of<8>(source.get(), 8));
}

TEST_F(bitmap_test, a_bitmap_is_converted_to_another_format) {
    com::ptr<IWICBitmap> bitmap;
    std::array<std::uint8_t, 8> pixels{1, 2, 3, 255, 4, 5, 6, 255};
    com::check(imaging_hold::wic_factory()->CreateBitmapFromMemory(2, 1, GUID_WICPixelFormat32bppBGRA, 8, 8,
                                                                   pixels.data(), bitmap.put()));
    const auto converted = wic::convert_bitmap(bitmap.get(), GUID_WICPixelFormat24bppBGR);
    EXPECT_EQ((std::array<std::uint8_t, 6>{1, 2, 3, 4, 5, 6}), bytes_of<6>(converted.get(), 6));
}

TEST_F(bitmap_test, what_cannot_be_converted_throws) {
    com::ptr<IWICBitmap> bitmap;
    com::check(imaging_hold::wic_factory()->CreateBitmap(1, 1, GUID_WICPixelFormat32bppBGRA,
                                                         WICBitmapCacheOnDemand, bitmap.put()));
    EXPECT_THROW(static_cast<void>(wic::convert_bitmap(bitmap.get(), GUID_NULL)), com::error);
    EXPECT_THROW(static_cast<void>(wic::create_bitmap_source_from_icon(nullptr)), com::error);
}

}  // namespace
}  // namespace d2d::scene
