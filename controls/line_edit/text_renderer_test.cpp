// What paints a line edit's text: its visual, the renderer of the glyphs, and the effect of selected ones.

#include "controls/line_edit/text_renderer.h"

#include "com/error.h"
#include "controls/line_edit/colored_text_effect.h"
#include "controls/line_edit/text_visual.h"
#include "controls/testing/line_edit_fixture.h"
#include "scene/testing/forwarding_target.h"

#include <optional>

#include <gtest/gtest.h>

namespace d2d {
namespace {

using scene::fakes::call_text;
using scene::fakes::same;

class text_renderer_test : public fakes::line_edit_fixture {
protected:
    void SetUp() override {
        line_edit_fixture::SetUp();
        constexpr D2D1_COLOR_F white{1, 1, 1, 1};
        ASSERT_EQ(S_OK, target.CreateSolidColorBrush(&white, nullptr, brush.put()));
        renderer.emplace(target, *brush);
        static_cast<void>(target.take_calls());
    }
    void TearDown() override {
        renderer.reset();
        brush.reset();
        line_edit_fixture::TearDown();
    }
    [[nodiscard]] lines drawn_with(IUnknown* effect) {
        const DWRITE_GLYPH_RUN run{};
        EXPECT_EQ(S_OK, renderer->DrawGlyphRun(nullptr, 4, 5, DWRITE_MEASURING_MODE_GDI_NATURAL, &run,
                                               nullptr, effect));
        return target.take_calls();
    }

    com::ptr<ID2D1SolidColorBrush> brush;
    std::optional<line_edit::text_renderer> renderer;
};

/// An effect that answers as a test says.
class answering_effect : public IUnknown {
public:
    explicit answering_effect(HRESULT will_answer) : answer(will_answer) {}
    HRESULT STDMETHODCALLTYPE QueryInterface(const IID&, void** out) override {
        *out = nullptr;
        return answer;
    }
    ULONG STDMETHODCALLTYPE AddRef() override { return 1; }
    ULONG STDMETHODCALLTYPE Release() override { return 1; }

private:
    HRESULT answer;
};

TEST_F(text_renderer_test, draws_glyphs_in_the_color_of_their_effect) {
    EXPECT_EQ((lines{"SetColor 0 0 0 1", "DrawGlyphRun 4 5 0 brush(0 0 0 1) 2"}), drawn_with(nullptr));
    const auto effect =
        com::create_object<line_edit::colored_text_effect>(_D3DCOLORVALUE{0.5f, 0.25f, 1, 0.5f});
    EXPECT_EQ((lines{"SetColor 0.5 0.25 1 0.5", "DrawGlyphRun 4 5 0 brush(0.5 0.25 1 0.5) 2"}),
              drawn_with(effect->get_IUnknown()));
    EXPECT_EQ((lines{"SetColor 0 0 0 1", "DrawGlyphRun 4 5 0 brush(0 0 0 1) 2"}), drawn_with(nullptr))
        << "black again";
}

TEST_F(text_renderer_test, passes_over_effects_of_others) {
    answering_effect other(E_NOINTERFACE);
    EXPECT_EQ((lines{"SetColor 0 0 0 1", "DrawGlyphRun 4 5 0 brush(0 0 0 1) 2"}), drawn_with(&other));
}

TEST_F(text_renderer_test, throws_when_an_effect_fails) {
    answering_effect failing(E_OUTOFMEMORY);
    const DWRITE_GLYPH_RUN run{};
    try {
        static_cast<void>(
            renderer->DrawGlyphRun(nullptr, 4, 5, DWRITE_MEASURING_MODE_NATURAL, &run, nullptr, &failing));
        FAIL() << "nothing was thrown";
    } catch (const com::error& failed) {
        EXPECT_EQ(E_OUTOFMEMORY, failed.hresult);
    }
    EXPECT_EQ((lines{}), target.take_calls());
}

TEST_F(text_renderer_test, leaves_pixel_snapping_to_the_caller) {
    for (const BOOL before : {FALSE, TRUE}) {
        BOOL disabled = before;
        EXPECT_EQ(S_OK, renderer->IsPixelSnappingDisabled(nullptr, &disabled));
        EXPECT_EQ(before, disabled);
    }
}

TEST_F(text_renderer_test, tells_the_targets_transform_and_scale) {
    const D2D1_MATRIX_3X2_F matrix{{{1, 2, 3, 4, 5, 6}}};
    target.SetTransform(&matrix);
    DWRITE_MATRIX told{};
    EXPECT_EQ(S_OK, renderer->GetCurrentTransform(nullptr, &told));
    EXPECT_EQ("1 2 3 4 5 6", call_text(told.m11, told.m12, told.m21, told.m22, told.dx, told.dy));
    float horizontal = 0;
    float vertical = 0;
    target.GetDpi(&horizontal, &vertical);
    float pixels = 0;
    EXPECT_EQ(S_OK, renderer->GetPixelsPerDip(nullptr, &pixels));
    EXPECT_EQ(horizontal / 96, pixels);
}

/// A target of 144 dots per inch across and 120 down.
class fine_target final : public scene::fakes::forwarding_target<ID2D1RenderTarget> {
public:
    explicit fine_target(ID2D1RenderTarget& forward_to) : forwarding_target(forward_to) {}
    HRESULT STDMETHODCALLTYPE QueryInterface(const IID&, void** out) override {
        *out = nullptr;
        return E_NOINTERFACE;
    }
    ULONG STDMETHODCALLTYPE AddRef() override { return 1; }
    ULONG STDMETHODCALLTYPE Release() override { return 1; }
    void STDMETHODCALLTYPE GetDpi(FLOAT* x, FLOAT* y) const override {
        *x = 144;
        *y = 120;
    }
};

TEST_F(text_renderer_test, tells_the_scale_of_a_fine_target) {
    fine_target fine(target);
    line_edit::text_renderer on_it(fine, *brush);
    float pixels = 0;
    EXPECT_EQ(S_OK, on_it.GetPixelsPerDip(nullptr, &pixels));
    EXPECT_EQ(1.5f, pixels);
}

TEST_F(text_renderer_test, draws_glyphs_alone) {
    EXPECT_EQ(E_NOTIMPL, renderer->DrawUnderline(nullptr, 0, 0, nullptr, nullptr));
    EXPECT_EQ(E_NOTIMPL, renderer->DrawStrikethrough(nullptr, 0, 0, nullptr, nullptr));
    EXPECT_EQ(E_NOTIMPL, renderer->DrawInlineObject(nullptr, 0, 0, nullptr, FALSE, FALSE, nullptr));
}

TEST_F(text_renderer_test, counts_no_references) {
    EXPECT_EQ(renderer->AddRef(), renderer->AddRef());
    EXPECT_EQ(renderer->Release(), renderer->Release());
    void* found = nullptr;
    EXPECT_EQ(S_OK, renderer->QueryInterface(com::guid_of<IDWritePixelSnapping>(), &found));
    EXPECT_EQ(static_cast<IDWritePixelSnapping*>(&*renderer), found);
    EXPECT_EQ(E_NOINTERFACE, renderer->QueryInterface(com::guid_of<ID2D1RenderTarget>(), &found));
    EXPECT_EQ(nullptr, found);
}

TEST(text_visual_test, is_hit_inside_its_bounds_and_on_the_edges_left_and_above) {
    const auto visual = com::create_object<line_edit::text_visual>(D2D_RECT_F{10, 20, 210, 42});
    EXPECT_TRUE(same({10, 20, 210, 42}, visual->get_bounds()));
    EXPECT_FALSE(visual->get_animation());
    constexpr float tolerance = 1;  // counts for nothing
    EXPECT_TRUE(visual->hit_test(10, 20, tolerance));
    EXPECT_TRUE(visual->hit_test(209.5f, 41.5f, tolerance));
    EXPECT_FALSE(visual->hit_test(9.5f, 30, tolerance));
    EXPECT_FALSE(visual->hit_test(30, 19.5f, tolerance));
    EXPECT_FALSE(visual->hit_test(210, 30, tolerance));
    EXPECT_FALSE(visual->hit_test(30, 42, tolerance));
}

TEST(colored_text_effect_test, has_its_own_interface) {
    EXPECT_EQ(com::guid("81FF3EBB-BFA1-44A6-AD96-1474B07B60D3"),
              com::guid_of<line_edit::IColoredTextEffect>());
    const auto effect = com::create_object<line_edit::colored_text_effect>(_D3DCOLORVALUE{1, 0, 0, 1});
    const com::ptr<IUnknown> unknown(effect->get_IUnknown());
    EXPECT_TRUE(unknown.try_as<line_edit::IColoredTextEffect>());
}

}  // namespace
}  // namespace d2d
