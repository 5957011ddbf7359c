#include "effect.h"

#include <d2d1effects.h>

namespace completion {

namespace {

class shadow_effect final : public effect {
public:
    explicit shadow_effect(owned<ID2D1Factory> factory) : effect(std::move(factory), 1, 1) {}

    [[nodiscard]] std::optional<pixel_image> picture(ID2D1DeviceContext* context) const override {
        const auto input = input_picture(0, context);
        return input ? std::optional(shadow_of(*input, deviation_, color_)) : std::nullopt;
    }

protected:
    [[nodiscard]] std::span<const effect_property> properties() const noexcept override {
        return properties_;
    }

private:
    float deviation_ = 3;
    D2D1_VECTOR_4F color_{0, 0, 0, 1};
    /// Speed against quality: has no effect here.
    UINT32 optimization_ = 1;
    std::array<effect_property, 3> properties_{
        {{L"BlurStandardDeviation", D2D1_PROPERTY_TYPE_FLOAT, sizeof deviation_, &deviation_},
         {L"Color", D2D1_PROPERTY_TYPE_VECTOR4, sizeof color_, &color_},
         {L"Optimization", D2D1_PROPERTY_TYPE_ENUM, sizeof optimization_, &optimization_}}};
};

static_assert(D2D1_SHADOW_PROP_BLUR_STANDARD_DEVIATION == 0 && D2D1_SHADOW_PROP_COLOR == 1 &&
              D2D1_SHADOW_PROP_OPTIMIZATION == 2);

}  // namespace

owned<ID2D1Effect> make_shadow_effect(owned<ID2D1Factory> factory) {
    return owned<ID2D1Effect>(new shadow_effect(std::move(factory)));
}

}  // namespace completion
