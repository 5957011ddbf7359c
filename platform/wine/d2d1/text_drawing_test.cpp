#include "geometry_test.h"
#include "surface_test.h"

#include <dwrite.h>

namespace completion::test {

namespace {

/// Something in a text that counts how often it is drawn.
class counting_object final : public IDWriteInlineObject {
public:
    ~counting_object() = default;

    int drawn = 0;

    HRESULT STDMETHODCALLTYPE QueryInterface(REFIID, void**) noexcept override { return E_NOINTERFACE; }
    ULONG STDMETHODCALLTYPE AddRef() noexcept override { return 1; }
    ULONG STDMETHODCALLTYPE Release() noexcept override { return 1; }
    HRESULT STDMETHODCALLTYPE Draw(void*, IDWriteTextRenderer*, FLOAT, FLOAT, WINBOOL, WINBOOL,
                                   IUnknown*) noexcept override {
        ++drawn;
        return S_OK;
    }
    HRESULT STDMETHODCALLTYPE GetMetrics(DWRITE_INLINE_OBJECT_METRICS* metrics) noexcept override {
        *metrics = {8, 8, 8, FALSE};
        return S_OK;
    }
    HRESULT STDMETHODCALLTYPE GetOverhangMetrics(DWRITE_OVERHANG_METRICS* overhang) noexcept override {
        *overhang = {};
        return S_OK;
    }
    HRESULT STDMETHODCALLTYPE GetBreakConditions(DWRITE_BREAK_CONDITION* before,
                                                 DWRITE_BREAK_CONDITION* after) noexcept override {
        *before = *after = DWRITE_BREAK_CONDITION_NEUTRAL;
        return S_OK;
    }
};

/// A slanted text, and where it is drawn.
class text_drawing : public geometry_test {
protected:
    void SetUp() override {
        ASSERT_TRUE(SUCCEEDED(CoInitialize(nullptr)));
        surface_ = make_wic_surface(factory_.get());
        constexpr D2D1_COLOR_F white{1, 1, 1, 1};
        brush_ = make<ID2D1SolidColorBrush>([&](ID2D1SolidColorBrush** result) {
            return surface_->target()->CreateSolidColorBrush(&white, nullptr, result);
        });
        const auto writer = make<IDWriteFactory>([](IDWriteFactory** result) {
            return DWriteCreateFactory(DWRITE_FACTORY_TYPE_ISOLATED, __uuidof(IDWriteFactory),
                                       reinterpret_cast<IUnknown**>(result));
        });
        const auto format = make<IDWriteTextFormat>([&](IDWriteTextFormat** result) {
            return writer->CreateTextFormat(L"Tahoma", nullptr, DWRITE_FONT_WEIGHT_BOLD,
                                            DWRITE_FONT_STYLE_ITALIC, DWRITE_FONT_STRETCH_NORMAL, 20, L"",
                                            result);
        });
        layout_ = make<IDWriteTextLayout>([&](IDWriteTextLayout** result) {
            return writer->CreateTextLayout(L"fWj!", 4, format.get(), 100, 100, result);
        });
        ASSERT_TRUE(brush_ && layout_);
    }

    void TearDown() override {
        layout_.reset();
        brush_.reset();
        surface_.reset();
        CoUninitialize();
    }

    template <typename Drawing>
    [[nodiscard]] picture drawn(Drawing drawing) const {
        surface_->target()->BeginDraw();
        surface_->target()->Clear(nullptr);
        drawing(*surface_->target());
        EXPECT_EQ(surface_->target()->EndDraw(), S_OK);
        return surface_->read();
    }

    void draw_text(ID2D1RenderTarget& target, float x, float y) const {
        target.DrawTextLayout({x, y}, layout_.get(), brush_.get());
    }

    /// How often the text is drawn at a place inside a clip.
    [[nodiscard]] int times_drawn(const D2D1_RECT_F& clip, float x, float y) const {
        counting_object counter;
        EXPECT_EQ(layout_->SetInlineObject(&counter, {3, 1}), S_OK);
        static_cast<void>(drawn([&](ID2D1RenderTarget& target) {
            target.PushAxisAlignedClip(clip, D2D1_ANTIALIAS_MODE_ALIASED);
            draw_text(target, x, y);
            target.PopAxisAlignedClip();
        }));
        EXPECT_EQ(layout_->SetInlineObject(nullptr, {3, 1}), S_OK);
        return counter.drawn;
    }

    std::unique_ptr<surface> surface_;
    owned<ID2D1SolidColorBrush> brush_;
    owned<IDWriteTextLayout> layout_;
};

TEST_F(text_drawing, shows_all_that_a_clip_leaves_of_a_text) {
    const picture all = drawn([&](ID2D1RenderTarget& target) { draw_text(target, 40, 40); });
    ASSERT_GT(all.alpha_sum(), 0);
    constexpr int side = 10;
    for (int top = 0; top < static_cast<int>(height); top += side) {
        for (int left = 0; left < static_cast<int>(width); left += side) {
            const picture part = drawn([&](ID2D1RenderTarget& target) {
                target.PushAxisAlignedClip(
                    D2D1_RECT_F{static_cast<float>(left), static_cast<float>(top),
                                static_cast<float>(left + side), static_cast<float>(top + side)},
                    D2D1_ANTIALIAS_MODE_ALIASED);
                draw_text(target, 40, 40);
                target.PopAxisAlignedClip();
            });
            long expected = 0;
            for (int y = top; y < top + side; ++y) {
                for (int x = left; x < left + side; ++x) {
                    EXPECT_EQ(part.at(x, y).alpha, all.at(x, y).alpha) << x << ", " << y;
                    expected += all.at(x, y).alpha;
                }
            }
            EXPECT_EQ(part.alpha_sum(), expected);
        }
    }
}

TEST_F(text_drawing, leaves_out_what_lies_outside_the_clip) {
    constexpr D2D1_RECT_F clip{0, 0, 40, 40};
    EXPECT_EQ(times_drawn(clip, 10, 10), 1);
    EXPECT_EQ(times_drawn(clip, 30, 30), 1);
    EXPECT_EQ(times_drawn(clip, 100, 10), 0);
    EXPECT_EQ(times_drawn(clip, 10, 90), 0);
    EXPECT_EQ(times_drawn(clip, -200, 10), 0);
    EXPECT_EQ(times_drawn(clip, 10, -90), 0);
    surface_->target()->SetTransform(D2D1::Matrix3x2F::Translation(-100, 0));
    EXPECT_EQ(times_drawn({100, 0, 140, 40}, 110, 10), 1);
    EXPECT_EQ(times_drawn({100, 0, 140, 40}, 10, 10), 0);
}

TEST_F(text_drawing, without_a_clip_goes_on_outside_the_target) {
    counting_object counter;
    EXPECT_EQ(layout_->SetInlineObject(&counter, {3, 1}), S_OK);
    static_cast<void>(drawn([&](ID2D1RenderTarget& target) { draw_text(target, 1000, 1000); }));
    EXPECT_EQ(layout_->SetInlineObject(nullptr, {3, 1}), S_OK);
    EXPECT_EQ(counter.drawn, 1);
}

}  // namespace

}  // namespace completion::test
