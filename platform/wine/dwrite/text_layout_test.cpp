#include "layout_fixture.h"

#include <chrono>

/// What else a line edit, a label and a table ask of a layout.
class text_layout : public layout_fixture {};

namespace {

/// Stands in for characters, with a size of its own.
class box_object final : public IDWriteInlineObject {
public:
    HRESULT STDMETHODCALLTYPE QueryInterface(REFIID, void** result) override {
        *result = nullptr;
        return E_NOINTERFACE;
    }
    ULONG STDMETHODCALLTYPE AddRef() override { return ++references; }
    ULONG STDMETHODCALLTYPE Release() override { return --references; }
    HRESULT STDMETHODCALLTYPE Draw(void*, IDWriteTextRenderer*, FLOAT, FLOAT, BOOL, BOOL,
                                   IUnknown*) override {
        return S_OK;
    }
    HRESULT STDMETHODCALLTYPE GetMetrics(DWRITE_INLINE_OBJECT_METRICS* metrics) override {
        *metrics = {20.0f, 8.0f, 8.0f, FALSE};
        return S_OK;
    }
    HRESULT STDMETHODCALLTYPE GetOverhangMetrics(DWRITE_OVERHANG_METRICS* overhang) override {
        *overhang = {};
        return S_OK;
    }
    HRESULT STDMETHODCALLTYPE GetBreakConditions(DWRITE_BREAK_CONDITION* before,
                                                 DWRITE_BREAK_CONDITION* after) override {
        *before = *after = DWRITE_BREAK_CONDITION_NEUTRAL;
        return S_OK;
    }

    ULONG references = 1;
};

}  // namespace

TEST_F(text_layout, an_inline_object_is_hit_and_is_no_text) {
    box_object object;
    {
        const tested_layout layout = make(L"ab_c_");
        ASSERT_EQ(S_OK, layout->SetInlineObject(&object, {2, 1}));
        ASSERT_EQ(S_OK, layout->SetInlineObject(&object, {4, 1}));
        for (const UINT32 position : {2u, 4u}) {
            const position_result place = layout.position(position);
            EXPECT_EQ(position, place.metrics.textPosition);
            EXPECT_EQ(FALSE, place.metrics.isText);
            EXPECT_NEAR(20.0f, place.metrics.width, tolerance);
            EXPECT_NEAR(layout.position(position - 1, true).x, place.x, tolerance);
            EXPECT_EQ(position, layout.point(place.middle(), 5.0f).metrics.textPosition);
        }
    }
    EXPECT_EQ(1u, object.references);
}

TEST_F(text_layout, trimmed_text_is_hit_as_one_at_the_sign) {
    const tested_layout layout =
        make(L"abcdefghijklmnopqrstuvwxyz", {.width = 60.0f, .wrapping = DWRITE_WORD_WRAPPING_NO_WRAP});
    Microsoft::WRL::ComPtr<IDWriteInlineObject> sign;
    ASSERT_EQ(S_OK, factory->CreateEllipsisTrimmingSign(layout.operator->(), &sign));
    const DWRITE_TRIMMING trimming{DWRITE_TRIMMING_GRANULARITY_CHARACTER, 0, 0};
    ASSERT_EQ(S_OK, layout->SetTrimming(&trimming, sign.Get()));
    EXPECT_EQ(FALSE, layout.point(2.0f, 5.0f).metrics.isTrimmed);
    const point_result hit = layout.point(layout.metrics().width - 1.0f, 5.0f);
    EXPECT_EQ(TRUE, hit.metrics.isTrimmed);
    EXPECT_EQ(26u, hit.metrics.textPosition + hit.metrics.length);
    EXPECT_GT(hit.metrics.textPosition, 3u);
}

TEST_F(text_layout, cluster_metrics_tell_how_many_there_are) {
    const tested_layout layout = make(L"F\u00e4hre");
    DWRITE_CLUSTER_METRICS few[2]{};
    UINT32 count = 0;
    EXPECT_EQ(HRESULT_FROM_WIN32(ERROR_INSUFFICIENT_BUFFER), layout->GetClusterMetrics(few, 2, &count));
    EXPECT_EQ(5u, count);
    EXPECT_EQ(HRESULT_FROM_WIN32(ERROR_INSUFFICIENT_BUFFER), layout->GetClusterMetrics(nullptr, 0, &count));
    EXPECT_EQ(5u, count);
}

TEST_F(text_layout, a_layout_of_a_gdi_device_answers_too) {
    Microsoft::WRL::ComPtr<IDWriteTextFormat> format;
    ASSERT_EQ(S_OK, factory->CreateTextFormat(L"Tahoma", nullptr, DWRITE_FONT_WEIGHT_NORMAL,
                                              DWRITE_FONT_STYLE_NORMAL, DWRITE_FONT_STRETCH_NORMAL, 12.0f,
                                              L"", &format));
    Microsoft::WRL::ComPtr<IDWriteTextLayout> layout;
    ASSERT_EQ(S_OK, factory->CreateGdiCompatibleTextLayout(L"abc", 3, format.Get(), 100.0f, 100.0f, 1.0f,
                                                           nullptr, FALSE, &layout));
    position_result place;
    EXPECT_EQ(S_OK, layout->HitTestTextPosition(3, FALSE, &place.x, &place.y, &place.metrics));
    EXPECT_GT(place.x, 10.0f);
}

TEST_F(text_layout, every_factory_makes_layouts_that_answer) {
    Microsoft::WRL::ComPtr<IDWriteFactory> isolated;
    ASSERT_EQ(S_OK, DWriteCreateFactory(DWRITE_FACTORY_TYPE_ISOLATED, __uuidof(IDWriteFactory),
                                        reinterpret_cast<IUnknown**>(isolated.GetAddressOf())));
    EXPECT_GT(tested_layout(isolated, L"abc").position(3).x, 10.0f);
    IUnknown* nothing = factory.Get();
    EXPECT_EQ(E_NOINTERFACE, DWriteCreateFactory(DWRITE_FACTORY_TYPE_SHARED, __uuidof(IDispatch), &nothing));
}

TEST_F(text_layout, a_thousand_characters_are_hit_fast_enough_for_each_key_press) {
    std::wstring text;
    while (text.size() < 1000) {
        text += L"F\u00e4hre \u05d0\u05d1 lorem ipsum ";
    }
    const tested_layout layout = make(text, {.width = 400.0f});
    static_cast<void>(layout.position(0));
    constexpr int times = 20;
    const auto start = std::chrono::steady_clock::now();
    for (int i = 0; i < times; ++i) {
        static_cast<void>(layout.position(static_cast<UINT32>(text.size())));
        static_cast<void>(layout.range(10, 900));
    }
    const std::chrono::duration<double, std::milli> elapsed = std::chrono::steady_clock::now() - start;
    RecordProperty("milliseconds_per_query", std::to_string(elapsed.count() / (2 * times)));
    EXPECT_LT(elapsed.count() / (2 * times), 16.0) << "a frame";
}
