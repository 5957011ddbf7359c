#include "scene/shadow_effect_resource.h"

#include <utility>

#include <d2d1_1.h>
// Ahead of the effects: their class identifiers are in no import library of MinGW.
#include <initguid.h>

#include <d2d1effects.h>

namespace d2d::scene {
namespace {

template <class T>
void set_property(ID2D1Effect* effect, UINT32 index, D2D1_PROPERTY_TYPE type, const T& value) {
    com::check(effect->SetValue(index, type, reinterpret_cast<const BYTE*>(&value), sizeof(value)));
}

}  // namespace

/// The two effects of one device: the composite paints the input over the shadow of the input.
class shadow_effect_resource::materialized : public com::base_object<com::object_base, IMaterializedEffect> {
public:
    materialized(com::ptr<ID2D1Effect> composite_effect, com::ptr<ID2D1Effect> shadow_effect) noexcept
        : composite(std::move(composite_effect)), shadow(std::move(shadow_effect)) {
        composite->GetOutput(output.put());
    }

    ID2D1Image* apply(ID2D1Image* input) override {
        com::ptr<ID2D1Image> beneath;
        shadow->SetInput(0, input, TRUE);
        shadow->GetOutput(beneath.put());
        composite->SetInput(0, beneath.get(), TRUE);
        composite->SetInput(1, input, TRUE);
        return output.get();
    }

protected:
    ~materialized() = default;

private:
    com::ptr<ID2D1Effect> composite;
    com::ptr<ID2D1Effect> shadow;
    com::ptr<ID2D1Image> output;
};

com::ptr<IMaterializedEffect> shadow_effect_resource::create_device_object(ID2D1RenderTarget* target) const {
    const com::ptr<ID2D1DeviceContext> context(target);
    com::ptr<ID2D1Effect> shadow;
    com::ptr<ID2D1Effect> composite;
    com::check(context->CreateEffect(CLSID_D2D1Shadow, shadow.put()));
    com::check(context->CreateEffect(CLSID_D2D1Composite, composite.put()));
    set_property(shadow.get(), D2D1_SHADOW_PROP_COLOR, D2D1_PROPERTY_TYPE_VECTOR4, color);
    set_property(shadow.get(), D2D1_SHADOW_PROP_BLUR_STANDARD_DEVIATION, D2D1_PROPERTY_TYPE_FLOAT, blur);
    return com::create_object<materialized>(std::move(composite), std::move(shadow));
}

com::ptr<IEffect> create_shadow_effect(_D3DCOLORVALUE color, float blur) {
    return com::create_object<shadow_effect_resource>(color, blur);
}

}  // namespace d2d::scene
