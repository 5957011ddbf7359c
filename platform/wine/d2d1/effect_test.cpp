#include "geometry_test.h"
#include "surface_test.h"

#include <d2d1effects.h>

#include <map>
#include <memory>
#include <string>

namespace completion::test {

namespace {

/// On a WIC bitmap or on a Direct3D device.
class effects : public geometry_test, public testing::WithParamInterface<std::string> {
protected:
    void SetUp() override {
        auto& shared = surfaces_[GetParam()];
        if (!shared) {
            shared =
                GetParam() == "wic" ? make_wic_surface(factory_.get()) : make_device_surface(factory_.get());
        }
        surface_ = shared.get();
        context_ = query<ID2D1DeviceContext>(surface_->target());
        ASSERT_TRUE(context_);
        shadow_ = create(CLSID_D2D1Shadow);
        composite_ = create(CLSID_D2D1Composite);
    }

    void TearDown() override {
        composite_.reset();
        shadow_.reset();
        context_.reset();
    }

    static void SetUpTestSuite() { ASSERT_TRUE(SUCCEEDED(CoInitialize(nullptr))); }

    static void TearDownTestSuite() {
        surfaces_.clear();
        CoUninitialize();
    }

    [[nodiscard]] owned<ID2D1Effect> create(REFCLSID id) const {
        return make<ID2D1Effect>([&](ID2D1Effect** result) { return context_->CreateEffect(id, result); });
    }

    template <typename Value>
    static HRESULT set(ID2D1Effect* effect, UINT32 index, const Value& value) {
        return effect->SetValue(index, D2D1_PROPERTY_TYPE_UNKNOWN, reinterpret_cast<const BYTE*>(&value),
                                UINT32{sizeof value});
    }

    void set_shadow(float deviation, const D2D1_VECTOR_4F& shade) const {
        EXPECT_EQ(set(shadow_.get(), D2D1_SHADOW_PROP_BLUR_STANDARD_DEVIATION, deviation), S_OK);
        EXPECT_EQ(set(shadow_.get(), D2D1_SHADOW_PROP_COLOR, shade), S_OK);
    }

    /// A bitmap of a compatible target, all in one colour.
    [[nodiscard]] owned<ID2D1Bitmap> filled(float w, float h, const D2D1_COLOR_F& fill) const {
        const D2D1_SIZE_F size{w, h};
        const auto target = make<ID2D1BitmapRenderTarget>([&](ID2D1BitmapRenderTarget** result) {
            return surface_->target()->CreateCompatibleRenderTarget(
                &size, nullptr, nullptr, D2D1_COMPATIBLE_RENDER_TARGET_OPTIONS_NONE, result);
        });
        target->BeginDraw();
        target->Clear(&fill);
        EXPECT_EQ(target->EndDraw(), S_OK);
        return make<ID2D1Bitmap>([&](ID2D1Bitmap** result) { return target->GetBitmap(result); });
    }

    [[nodiscard]] static owned<ID2D1Image> output_of(ID2D1Effect* effect) {
        return make<ID2D1Image>([&](ID2D1Image** result) {
            effect->GetOutput(result);
            return S_OK;
        });
    }

    [[nodiscard]] picture drawn(ID2D1Image* image, D2D1_POINT_2F offset, const D2D1_RECT_F* part = nullptr,
                                const D2D1_MATRIX_3X2_F& transform = D2D1::Matrix3x2F::Identity()) const {
        ID2D1RenderTarget* const target = surface_->target();
        target->BeginDraw();
        target->Clear(nullptr);
        target->SetTransform(&transform);
        context_->DrawImage(image, &offset, part, D2D1_INTERPOLATION_MODE_LINEAR,
                            D2D1_COMPOSITE_MODE_SOURCE_OVER);
        const D2D1_MATRIX_3X2_F identity = D2D1::Matrix3x2F::Identity();
        target->SetTransform(&identity);
        EXPECT_EQ(target->EndDraw(), S_OK);
        return surface_->read();
    }

    /// The output of the shadow under its input, as a window draws it.
    [[nodiscard]] owned<ID2D1Image> with_shadow(ID2D1Image* input) const {
        shadow_->SetInput(0, input);
        composite_->SetInput(0, output_of(shadow_.get()).get());
        composite_->SetInput(1, input);
        return output_of(composite_.get());
    }

    /// Devices take long to make: one surface of each kind serves all tests.
    static inline std::map<std::string, std::unique_ptr<surface>> surfaces_;
    surface* surface_ = nullptr;
    owned<ID2D1DeviceContext> context_;
    owned<ID2D1Effect> shadow_;
    owned<ID2D1Effect> composite_;
};

/// How much of a bell curve of the deviation lies between two edges, seen from the middle of a pixel.
double share(int at, double from, double to, double deviation) {
    const double scale = deviation * std::numbers::sqrt2;
    return (std::erf((to - at - 0.5) / scale) - std::erf((from - at - 0.5) / scale)) / 2;
}

TEST_P(effects, a_shadow_fades_across_an_edge_as_the_error_function_does) {
    set_shadow(4, {0, 0, 0, 1});
    shadow_->SetInput(0, filled(40, 30, {1, 1, 1, 1}).get());
    const picture result = drawn(output_of(shadow_.get()).get(), {40, 35});
    for (int x = 30; x < 90; ++x) {
        for (const int y : {36, 50, 60}) {
            const double expected = 255 * share(x, 40, 80, 4) * share(y, 35, 65, 4);
            EXPECT_NEAR(result.at(x, y).alpha, expected, 3) << x << ' ' << y;
        }
    }
}

TEST_P(effects, a_shadow_conserves_what_covers_and_is_symmetric) {
    set_shadow(5, {0, 0, 0, 0.5f});
    shadow_->SetInput(0, filled(40, 30, {0, 1, 0, 0.8f}).get());
    const picture result = drawn(output_of(shadow_.get()).get(), {40, 35});
    const double mass = 40 * 30 * 204 * 0.5;
    EXPECT_NEAR(static_cast<double>(result.alpha_sum()), mass, mass * 0.01);
    for (int x = 20; x < 60; ++x) {
        for (int y = 15; y < 50; ++y) {
            EXPECT_NEAR(result.at(x, y).alpha, result.at(119 - x, y).alpha, 1);
            EXPECT_NEAR(result.at(x, y).alpha, result.at(x, 99 - y).alpha, 1);
        }
    }
}

TEST_P(effects, a_shadow_has_its_own_colour_alone) {
    set_shadow(3, {1, 0.5f, 0.25f, 0.8f});
    shadow_->SetInput(0, filled(40, 40, {0, 0, 1, 1}).get());
    const color middle = drawn(output_of(shadow_.get()).get(), {40, 30}).at(60, 50);
    EXPECT_NEAR(middle.red, 204, 1);
    EXPECT_NEAR(middle.green, 102, 1);
    EXPECT_NEAR(middle.blue, 51, 1);
    EXPECT_NEAR(middle.alpha, 204, 1);
}

TEST_P(effects, a_shadow_reaches_three_deviations) {
    set_shadow(6, {0, 0, 0, 1});
    shadow_->SetInput(0, filled(40, 40, {1, 1, 1, 1}).get());
    const picture result = drawn(output_of(shadow_.get()).get(), {40, 30});
    EXPECT_GT(result.at(40 - 12, 50).alpha, 0);
    EXPECT_EQ(result.at(40 - 20, 50).alpha, 0);
}

TEST_P(effects, a_shadow_without_blur_is_the_silhouette) {
    set_shadow(0, {0, 0, 0, 1});
    shadow_->SetInput(0, filled(10, 10, {1, 1, 1, 1}).get());
    const picture result = drawn(output_of(shadow_.get()).get(), {40, 30});
    EXPECT_EQ(result.alpha_sum(), 10 * 10 * 255);
    EXPECT_EQ(result.at(40, 30).alpha, 255);
    EXPECT_EQ(result.at(40, 30).red, 0);
}

TEST_P(effects, the_input_lies_upon_its_shadow) {
    set_shadow(4, {0, 0, 0, 1});
    const auto input = filled(40, 40, {0, 0, 1, 1});
    const picture result = drawn(with_shadow(input.get()).get(), {40, 30});
    const color inside = result.at(60, 50);
    EXPECT_EQ(inside.blue, 255);
    EXPECT_EQ(inside.alpha, 255);
    const color beside = result.at(38, 50);
    EXPECT_EQ(beside.blue, 0);
    EXPECT_NEAR(beside.alpha, 255 * share(38, 40, 80, 4), 3);
}

TEST_P(effects, a_translucent_input_lets_its_shadow_through) {
    set_shadow(0, {1, 0, 0, 1});
    const auto input = filled(40, 40, {0, 0, 1, 0.5f});
    const color inside = drawn(with_shadow(input.get()).get(), {40, 30}).at(60, 50);
    // Half blue over half red.
    EXPECT_NEAR(inside.blue, 128, 1);
    EXPECT_NEAR(inside.red, 64, 1);
    EXPECT_NEAR(inside.alpha, 191, 2);
}

TEST_P(effects, an_output_follows_a_change_of_the_input) {
    set_shadow(0, {0, 0, 0, 1});
    const auto output = with_shadow(filled(10, 10, {1, 0, 0, 1}).get());
    EXPECT_EQ(drawn(output.get(), {40, 30}).at(45, 35).red, 255);
    const auto other = filled(20, 20, {0, 1, 0, 1});
    shadow_->SetInput(0, other.get());
    composite_->SetInput(1, other.get());
    const picture result = drawn(output.get(), {40, 30});
    EXPECT_EQ(result.at(55, 45).green, 255);
    EXPECT_EQ(result.at(45, 35).red, 0);
}

TEST_P(effects, the_origin_of_a_bitmap_of_odd_size_stays_at_the_offset) {
    set_shadow(2, {0, 0, 0, 1});
    const auto input = filled(20.4f, 20.4f, {0, 0, 1, 1});
    const picture result = drawn(with_shadow(input.get()).get(), {40, 30});
    EXPECT_EQ(result.at(41, 31).blue, 255);
    EXPECT_EQ(result.at(59, 49).blue, 255);
    EXPECT_LT(result.at(38, 40).blue, 10);
    EXPECT_LT(result.at(62, 40).blue, 10);
    EXPECT_NEAR(result.at(38, 40).alpha, result.at(61, 40).alpha, 40);
}

TEST_P(effects, an_image_rectangle_cuts_and_takes_the_offset) {
    set_shadow(0, {0, 0, 0, 1});
    const auto input = filled(20, 20, {0, 0, 1, 1});
    const D2D1_RECT_F part{5, 5, 15, 12};
    const auto shaded = with_shadow(input.get());
    for (ID2D1Image* image : {static_cast<ID2D1Image*>(input.get()), shaded.get()}) {
        const picture result = drawn(image, {40, 30}, &part);
        EXPECT_EQ(result.alpha_sum(), 10 * 7 * 255);
        EXPECT_EQ(result.at(40, 30).blue, 255);
        EXPECT_EQ(result.at(49, 36).blue, 255);
        EXPECT_EQ(result.at(50, 30).alpha, 0);
    }
}

TEST_P(effects, drawing_follows_the_transform) {
    set_shadow(0, {0, 0, 0, 1});
    const auto input = filled(10, 10, {0, 0, 1, 1});
    const D2D1::Matrix3x2F twice = D2D1::Matrix3x2F::Scale(2, 2) * D2D1::Matrix3x2F::Translation(10, 10);
    const picture result = drawn(with_shadow(input.get()).get(), {5, 5}, nullptr, twice);
    EXPECT_EQ(result.at(30, 30).blue, 255);
    EXPECT_EQ(result.at(38, 38).blue, 255);
    EXPECT_EQ(result.at(17, 30).alpha, 0);
    EXPECT_EQ(result.at(43, 30).alpha, 0);
}

TEST_P(effects, properties_keep_what_they_are_given) {
    set_shadow(7.5f, {0.1f, 0.2f, 0.3f, 0.4f});
    float deviation = 0;
    D2D1_VECTOR_4F shade{};
    EXPECT_EQ(shadow_->GetValue(UINT32{D2D1_SHADOW_PROP_BLUR_STANDARD_DEVIATION}, D2D1_PROPERTY_TYPE_FLOAT,
                                reinterpret_cast<BYTE*>(&deviation), UINT32{sizeof deviation}),
              S_OK);
    EXPECT_EQ(deviation, 7.5f);
    EXPECT_EQ(shadow_->GetValueByName(L"Color", D2D1_PROPERTY_TYPE_VECTOR4, reinterpret_cast<BYTE*>(&shade),
                                      UINT32{sizeof shade}),
              S_OK);
    EXPECT_EQ(shade.z, 0.3f);
    EXPECT_EQ(set(shadow_.get(), 99, 1.0f), static_cast<HRESULT>(D2DERR_INVALID_PROPERTY));
    EXPECT_NE(set(shadow_.get(), D2D1_SHADOW_PROP_COLOR, 1.0f), S_OK);
    EXPECT_EQ(shadow_->GetInputCount(), 1u);
    EXPECT_EQ(composite_->GetInputCount(), 2u);
}

struct mode_case {
    D2D1_COMPOSITE_MODE mode;
    /// Where both are, of blue 0.5 upon red 0.8, premultiplied.
    double blue;
    double red;
};

TEST_P(effects, composite_modes_weigh_source_and_destination) {
    const auto red = filled(20, 20, {1, 0, 0, 0.8f});
    const auto blue = filled(20, 20, {0, 0, 1, 0.5f});
    composite_->SetInput(0, red.get());
    composite_->SetInput(1, blue.get());
    for (const mode_case& each :
         {mode_case{D2D1_COMPOSITE_MODE_SOURCE_OVER, 0.5, 0.4},
          mode_case{D2D1_COMPOSITE_MODE_DESTINATION_OVER, 0.1, 0.8},
          mode_case{D2D1_COMPOSITE_MODE_SOURCE_IN, 0.4, 0},
          mode_case{D2D1_COMPOSITE_MODE_DESTINATION_IN, 0, 0.4},
          mode_case{D2D1_COMPOSITE_MODE_SOURCE_OUT, 0.1, 0},
          mode_case{D2D1_COMPOSITE_MODE_DESTINATION_OUT, 0, 0.4},
          mode_case{D2D1_COMPOSITE_MODE_SOURCE_ATOP, 0.4, 0.4},
          mode_case{D2D1_COMPOSITE_MODE_DESTINATION_ATOP, 0.1, 0.4},
          mode_case{D2D1_COMPOSITE_MODE_XOR, 0.1, 0.4}, mode_case{D2D1_COMPOSITE_MODE_SOURCE_COPY, 0.5, 0}}) {
        ASSERT_EQ(set(composite_.get(), D2D1_COMPOSITE_PROP_MODE, each.mode), S_OK);
        const color both = drawn(output_of(composite_.get()).get(), {40, 30}).at(50, 40);
        EXPECT_NEAR(both.blue, 255 * each.blue, 2) << each.mode;
        EXPECT_NEAR(both.red, 255 * each.red, 2) << each.mode;
        EXPECT_NEAR(both.alpha, both.blue + both.red, 2) << each.mode;
    }
}

TEST_P(effects, an_output_keeps_its_effect_and_input_alive) {
    set_shadow(0, {0, 0, 0, 1});
    owned<ID2D1Bitmap> input = filled(10, 10, {0, 0, 1, 1});
    shadow_->SetInput(0, input.get());
    const auto output = output_of(shadow_.get());
    input.reset();
    shadow_.reset();
    EXPECT_EQ(drawn(output.get(), {40, 30}).at(45, 35).alpha, 255);
}

TEST_P(effects, an_effect_without_input_draws_nothing) {
    EXPECT_EQ(drawn(output_of(composite_.get()).get(), {40, 30}).alpha_sum(), 0);
}

TEST_P(effects, a_wide_blur_is_a_bell_curve_too) {
    set_shadow(30, {0, 0, 0, 1});
    shadow_->SetInput(0, filled(40, 30, {1, 1, 1, 1}).get());
    const picture result = drawn(output_of(shadow_.get()).get(), {40, 35});
    EXPECT_NEAR(result.at(60, 50).alpha, 255 * share(60, 40, 80, 30) * share(50, 35, 65, 30), 3);
}

/// What the calling thread has worked, whatever else the machine does.
double thread_milliseconds() {
    FILETIME begin{};
    FILETIME end{};
    FILETIME kernel{};
    FILETIME user{};
    GetThreadTimes(GetCurrentThread(), &begin, &end, &kernel, &user);
    const auto milliseconds = [](FILETIME time) {
        return (static_cast<double>(time.dwHighDateTime) * 4294967296.0 +
                static_cast<double>(time.dwLowDateTime)) /
               10000;
    };
    return milliseconds(kernel) + milliseconds(user);
}

TEST_P(effects, a_shadow_of_300_by_200_is_drawn_without_delay) {
    set_shadow(10, {0, 0, 0, 1});
    const auto output = with_shadow(filled(300, 200, {1, 1, 1, 1}).get());
    EXPECT_GT(drawn(output.get(), {0, 0}).alpha_sum(), 0);
    const double start = thread_milliseconds();
    constexpr int times = 5;
    for (int i = 0; i < times; ++i) {
        static_cast<void>(drawn(output.get(), {0, 0}));
    }
    const double each = (thread_milliseconds() - start) / times;
    RecordProperty("milliseconds", std::to_string(each));
    EXPECT_LT(each, 100);
}

INSTANTIATE_TEST_SUITE_P(on, effects, testing::Values("wic", "device"),
                         [](const auto& each) { return each.param; });

}  // namespace

}  // namespace completion::test
