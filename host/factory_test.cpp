#include "d2d/factory.h"

#include "com/error.h"
#include "d2d/layered_window.h"
#include "d2d/scene/INode.h"
#include "d2d/scene/IView.h"
#include "d2d/window.h"
#include "host/graphics.h"
#include "host/imaging.h"

#include <cfloat>
#include <cmath>
#include <limits>
#include <memory>
#include <optional>
#include <type_traits>

#include <gtest/gtest.h>

namespace {

using d2d::factory;
using d2d::imaging_hold;
namespace graphics = d2d::graphics;

static_assert(std::is_empty_v<factory>);
static_assert(sizeof(factory) == 1);

TEST(factory_token, the_first_makes_the_graphics_objects_and_the_last_releases_them) {
    ASSERT_EQ(nullptr, factory::d2d1());
    {
        const factory first;
        EXPECT_EQ(1u, graphics::users());
        EXPECT_NE(nullptr, graphics::d3d_device);
        EXPECT_NE(nullptr, graphics::d3d_context);
        EXPECT_NE(nullptr, graphics::dxgi_factory);
        EXPECT_NE(nullptr, graphics::d2d_device);
        EXPECT_NE(nullptr, graphics::d2d_context);
        EXPECT_NE(D3D_FEATURE_LEVEL{}, graphics::d3d_feature_level);
        EXPECT_EQ(graphics::d2d_factory, factory::d2d1());
        EXPECT_EQ(graphics::dwrite_factory, factory::dwrite());
        EXPECT_EQ(factory::d2d1(), d2d::window::d2d1_factory());
        EXPECT_EQ(factory::dwrite(), d2d::window::dwrite_factory());
        EXPECT_NE(nullptr, imaging_hold::wic_factory());
    }
    EXPECT_EQ(0u, graphics::users());
    EXPECT_EQ(nullptr, factory::d2d1());
    EXPECT_EQ(nullptr, factory::dwrite());
    EXPECT_EQ(nullptr, graphics::d2d_device);
    EXPECT_EQ(nullptr, graphics::d2d_context);
    EXPECT_EQ(D3D_FEATURE_LEVEL{}, graphics::d3d_feature_level);
    EXPECT_EQ(nullptr, imaging_hold::wic_factory());
}

TEST(factory_token, the_last_leaves_stale_what_the_next_first_one_overwrites) {
    std::optional<factory> token(std::in_place);
    ID3D11Device* const device = graphics::d3d_device;
    ID3D11DeviceContext* const context = graphics::d3d_context;
    IDXGIFactory2* const dxgi = graphics::dxgi_factory;
    token.reset();
    EXPECT_EQ(device, graphics::d3d_device);
    EXPECT_EQ(context, graphics::d3d_context);
    EXPECT_EQ(dxgi, graphics::dxgi_factory);
}

TEST(factory_token, another_keeps_the_same_objects_alive) {
    auto* const first = new factory;
    auto* const second = new factory(*first);
    ID2D1Factory* const made = factory::d2d1();
    delete first;
    EXPECT_EQ(made, factory::d2d1());
    EXPECT_EQ(1u, graphics::users());
    *second = factory();
    EXPECT_EQ(1u, graphics::users());
    EXPECT_EQ(made, factory::d2d1());
    delete second;
    EXPECT_EQ(nullptr, factory::d2d1());
}

/// Whether what is made holds a token for as long as it lives, and one only.
template <class Make>
void expect_holds_one(const char* what, Make make) {
    {
        const auto made = make();
        EXPECT_EQ(2u, graphics::users()) << what;
    }
    EXPECT_EQ(1u, graphics::users()) << what;
}

TEST(factory_token, is_held_by_each_window_view_and_node) {
    const factory token;  // what comes and goes makes nothing anew
    expect_holds_one("window", [] { return std::make_unique<d2d::window>(); });
    expect_holds_one("layered window", [] { return std::make_unique<d2d::layered_window>(); });
    expect_holds_one("view", [] { return d2d::scene::create_view(); });
    expect_holds_one("node", [] { return d2d::scene::create_node(); });
}

TEST(factory_token, the_objects_can_come_and_go_many_times) {
    for (int round = 0; round < 5; ++round) {
        const factory token;
        EXPECT_TRUE(factory::create_path_geometry()) << round;
    }
    EXPECT_EQ(nullptr, factory::d2d1());
}

TEST(imaging_hold_token, needs_no_graphics_and_outlives_the_tokens) {
    const imaging_hold held;
    IWICImagingFactory* const made = imaging_hold::wic_factory();
    EXPECT_NE(nullptr, made);
    EXPECT_EQ(nullptr, factory::d2d1());
    {
        const factory token;
        EXPECT_EQ(made, imaging_hold::wic_factory());
    }
    EXPECT_EQ(made, imaging_hold::wic_factory());
}

class factory_maker : public testing::Test {
protected:
    const factory token;
};

TEST_F(factory_maker, text_formats_are_normal_unless_said_otherwise) {
    const auto expect = [](const com::ptr<IDWriteTextFormat>& format, DWRITE_FONT_WEIGHT weight,
                           DWRITE_FONT_STYLE style) {
        EXPECT_EQ(weight, format->GetFontWeight());
        EXPECT_EQ(style, format->GetFontStyle());
        EXPECT_EQ(DWRITE_FONT_STRETCH_NORMAL, format->GetFontStretch());
        EXPECT_EQ(12.5f, format->GetFontSize());
        wchar_t text[32]{};
        format->GetFontFamilyName(text, 32);
        EXPECT_STREQ(L"Tahoma", text);
        format->GetLocaleName(text, 32);
        // The platform may keep names of locales in lower case.
        EXPECT_EQ(0, _wcsicmp(L"en-US", text));
    };
    expect(factory::create_text_format(L"Tahoma", 12.5f), DWRITE_FONT_WEIGHT_NORMAL,
           DWRITE_FONT_STYLE_NORMAL);
    expect(factory::create_text_format(L"Tahoma", DWRITE_FONT_WEIGHT_BOLD, 12.5f), DWRITE_FONT_WEIGHT_BOLD,
           DWRITE_FONT_STYLE_NORMAL);
    expect(factory::create_text_format(L"Tahoma", DWRITE_FONT_STYLE_ITALIC, 12.5f), DWRITE_FONT_WEIGHT_NORMAL,
           DWRITE_FONT_STYLE_ITALIC);
    expect(factory::create_text_format(L"Tahoma", DWRITE_FONT_WEIGHT_THIN, DWRITE_FONT_STYLE_OBLIQUE, 12.5f),
           DWRITE_FONT_WEIGHT_THIN, DWRITE_FONT_STYLE_OBLIQUE);
}

TEST_F(factory_maker, a_text_format_of_a_bad_size_throws) {
    EXPECT_THROW(static_cast<void>(factory::create_text_format(L"Tahoma", -1.0f)), com::error);
}

class text_layout : public factory_maker {
protected:
    static DWRITE_TEXT_METRICS metrics_of(const com::ptr<IDWriteTextLayout>& layout) {
        DWRITE_TEXT_METRICS metrics{};
        EXPECT_EQ(S_OK, layout->GetMetrics(&metrics));
        return metrics;
    }

    com::ptr<IDWriteTextFormat> format = factory::create_text_format(L"Tahoma", 20.0f);
};

TEST_F(text_layout, a_dimension_that_is_given_stays) {
    const auto layout = factory::create_text_layout(L"harbour", format.get(), 150.0f, 100.0f);
    EXPECT_EQ(150.0f, layout->GetMaxWidth());
    EXPECT_EQ(100.0f, layout->GetMaxHeight());
}

TEST_F(text_layout, a_dimension_of_zero_becomes_the_measured_one) {
    const auto wide = metrics_of(factory::create_text_layout(L"harbour", format.get(), FLT_MAX, 100.0f));
    const auto by_width = factory::create_text_layout(L"harbour", format.get(), 0.0f, 100.0f);
    EXPECT_EQ(wide.width, by_width->GetMaxWidth());
    EXPECT_EQ(100.0f, by_width->GetMaxHeight());

    const auto by_height = factory::create_text_layout(L"harbour", format.get(), 150.0f, -0.0f);
    EXPECT_EQ(150.0f, by_height->GetMaxWidth());
    EXPECT_EQ(metrics_of(by_height).height, by_height->GetMaxHeight());

    const auto by_both = factory::create_text_layout(L"harbour", format.get(), 0.0f, 0.0f);
    EXPECT_EQ(wide.width, by_both->GetMaxWidth());
    EXPECT_EQ(wide.height, by_both->GetMaxHeight());
}

TEST_F(text_layout, an_empty_text_is_laid_out) {
    const auto layout = factory::create_text_layout(L"", format.get(), 0.0f, 0.0f);
    EXPECT_EQ(metrics_of(layout).width, layout->GetMaxWidth());
    EXPECT_EQ(metrics_of(layout).height, layout->GetMaxHeight());
    EXPECT_TRUE(factory::create_text_layout(std::string_view(), format.get(), 0.0f, 0.0f));
    EXPECT_TRUE(factory::create_text_layout(std::wstring_view(), format.get(), 10.0f, 10.0f));
}

TEST_F(text_layout, dimensions_below_zero_are_the_platforms_to_judge) {
    com::ptr<IDWriteTextLayout> direct;
    const HRESULT expected =
        factory::dwrite()->CreateTextLayout(L"a", 1, format.get(), -1.0f, 10.0f, direct.put());
    if (expected < 0) {
        EXPECT_THROW(static_cast<void>(factory::create_text_layout(L"a", format.get(), -1.0f, 10.0f)),
                     com::error);
    } else {
        const auto layout = factory::create_text_layout(L"a", format.get(), -1.0f, 10.0f);
        EXPECT_EQ(direct->GetMaxWidth(), layout->GetMaxWidth());
    }
}

TEST_F(text_layout, a_dimension_that_is_no_number_is_the_platforms_to_judge) {
    constexpr float none = std::numeric_limits<float>::quiet_NaN();
    com::ptr<IDWriteTextLayout> direct;
    const HRESULT expected =
        factory::dwrite()->CreateTextLayout(L"a", 1, format.get(), none, 10.0f, direct.put());
    if (expected < 0) {
        EXPECT_THROW(static_cast<void>(factory::create_text_layout(L"a", format.get(), none, 10.0f)),
                     com::error);
    } else {
        const auto layout = factory::create_text_layout(L"a", format.get(), none, 10.0f);
        EXPECT_TRUE(std::isnan(layout->GetMaxWidth())) << "not measured, as for zero";
        EXPECT_EQ(10.0f, layout->GetMaxHeight());
    }
}

TEST_F(text_layout, utf8_is_laid_out_in_as_many_units_as_were_counted) {
    const struct {
        std::string_view text;
        UINT32 units;
    } cases[] = {
        {"A\xF0\x9F\x98\x80", 3},
        {"\xED\xA0\x80", 1},              // half a surrogate pair
        {"\xF4\x90\x80\x80z", 3},         // beyond the last code point: one unit more than there is text
        {std::string_view("\0a", 2), 2},  // a zero does not end it
    };
    for (const auto& each : cases) {
        const auto layout = factory::create_text_layout(each.text, format.get(), 0, 0);
        DWRITE_LINE_METRICS line{};
        UINT32 lines = 0;
        ASSERT_EQ(S_OK, layout->GetLineMetrics(&line, 1, &lines)) << each.text;
        EXPECT_EQ(each.units, line.length) << each.text;
    }
}

TEST_F(text_layout, all_forms_of_a_text_give_the_same_layout) {
    constexpr const wchar_t* wide = L"h\u00E4fen \u2013 \U0001F600";
    constexpr const char* narrow =
        "h\xC3\xA4"
        "fen \xE2\x80\x93 \xF0\x9F\x98\x80";
    const unsigned wide_length = static_cast<unsigned>(std::wstring_view(wide).size());
    const unsigned narrow_length = static_cast<unsigned>(std::string_view(narrow).size());
    const auto expected = metrics_of(factory::create_text_layout(wide, wide_length, format.get(), 0, 0));
    EXPECT_GT(expected.width, 0.0f);
    const com::ptr<IDWriteTextLayout> others[] = {
        factory::create_text_layout(narrow, narrow_length, format.get(), 0, 0),
        factory::create_text_layout(wide, format.get(), 0, 0),
        factory::create_text_layout(narrow, format.get(), 0, 0),
        factory::create_text_layout(std::string_view(narrow), format.get(), 0, 0),
        factory::create_text_layout(std::wstring_view(wide), format.get(), 0, 0)};
    for (const auto& layout : others) EXPECT_EQ(expected.width, metrics_of(layout).width);
}

TEST_F(text_layout, malformed_utf8_fails_whole) {
    for (const char* text : {"\x80", "abc\xFF", "abc\xE2\x82", "\xF0\x9F\x98"}) {
        EXPECT_THROW(static_cast<void>(factory::create_text_layout(text, format.get(), 0, 0)), com::error);
        EXPECT_THROW(static_cast<void>(factory::create_text_layout(text, format.get(), 10, 10)), com::error);
    }
}

TEST_F(factory_maker, geometries_are_what_was_asked_for) {
    D2D_RECT_F bounds{};
    const D2D1_ELLIPSE round{{10, 20}, 5, 8};
    D2D1_ELLIPSE ellipse{};
    factory::create_ellipse_geometry(round)->GetEllipse(&ellipse);
    EXPECT_EQ(8.0f, ellipse.radiusY);
    factory::create_rectangle_geometry({1, 2, 3, 4})->GetRect(&bounds);
    EXPECT_EQ(4.0f, bounds.bottom);
    D2D1_ROUNDED_RECT rounded{};
    factory::create_rounded_rect_geometry({{1, 2, 30, 40}, 5, 6})->GetRoundedRect(&rounded);
    EXPECT_EQ(6.0f, rounded.radiusY);
    com::ptr<ID2D1GeometrySink> sink;
    EXPECT_EQ(S_OK, factory::create_path_geometry()->Open(sink.put()));
}

TEST_F(factory_maker, a_stroke_style_has_one_cap_for_ends_and_dashes) {
    const auto style = factory::create_stroke_style(D2D1_DASH_STYLE_DASH_DOT, D2D1_CAP_STYLE_ROUND,
                                                    D2D1_LINE_JOIN_BEVEL, 3.5f, 0.25f);
    EXPECT_EQ(D2D1_CAP_STYLE_ROUND, style->GetStartCap());
    EXPECT_EQ(D2D1_CAP_STYLE_ROUND, style->GetEndCap());
    EXPECT_EQ(D2D1_CAP_STYLE_ROUND, style->GetDashCap());
    EXPECT_EQ(D2D1_LINE_JOIN_BEVEL, style->GetLineJoin());
    EXPECT_EQ(3.5f, style->GetMiterLimit());
    EXPECT_EQ(D2D1_DASH_STYLE_DASH_DOT, style->GetDashStyle());
    EXPECT_EQ(0.25f, style->GetDashOffset());
}

TEST_F(factory_maker, a_stroke_style_takes_dashes_of_its_own) {
    const float dashes[] = {1.0f, 2.0f, 3.0f};
    D2D1_STROKE_STYLE_PROPERTIES properties{};
    properties.dashStyle = D2D1_DASH_STYLE_CUSTOM;
    properties.miterLimit = 10.0f;
    const auto style = factory::create_stroke_style(properties, dashes, 3);
    ASSERT_EQ(3u, style->GetDashesCount());
    float copied[3]{};
    style->GetDashes(copied, 3);
    EXPECT_EQ(3.0f, copied[2]);
    properties.dashStyle = D2D1_DASH_STYLE_SOLID;
    EXPECT_THROW(static_cast<void>(factory::create_stroke_style(properties, dashes, 3)), com::error);
}

}  // namespace
