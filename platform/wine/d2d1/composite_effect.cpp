#include "effect.h"

#include <d2d1effects.h>

namespace completion {

namespace {

class composite_effect final : public effect {
public:
    explicit composite_effect(owned<ID2D1Factory> factory) : effect(std::move(factory), 2, UINT32_MAX) {}

    [[nodiscard]] std::optional<pixel_image> picture(ID2D1DeviceContext* context) const override {
        auto result = input_picture(0, context);
        for (UINT32 i = 1; result && i < GetInputCount(); ++i) {
            const auto above = input_picture(i, context);
            result = above ? std::optional(composite_of(*result, *above, mode_)) : std::nullopt;
        }
        return result;
    }

protected:
    [[nodiscard]] std::span<const effect_property> properties() const noexcept override {
        return properties_;
    }

private:
    D2D1_COMPOSITE_MODE mode_ = D2D1_COMPOSITE_MODE_SOURCE_OVER;
    std::array<effect_property, 1> properties_{{{L"Mode", D2D1_PROPERTY_TYPE_ENUM, sizeof mode_, &mode_}}};
};

static_assert(D2D1_COMPOSITE_PROP_MODE == 0);

}  // namespace

owned<ID2D1Effect> make_composite_effect(owned<ID2D1Factory> factory) {
    return owned<ID2D1Effect>(new composite_effect(std::move(factory)));
}

}  // namespace completion
