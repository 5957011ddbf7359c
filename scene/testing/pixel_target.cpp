#include "scene/testing/pixel_target.h"

#include "host/imaging.h"

namespace d2d::scene::fakes {

pixel_target::pixel_target(unsigned width, unsigned height) {
    com::check(imaging_hold::wic_factory()->CreateBitmap(width, height, GUID_WICPixelFormat32bppPBGRA,
                                                         WICBitmapCacheOnDemand, bitmap.put()));
    const D2D1_RENDER_TARGET_PROPERTIES properties{D2D1_RENDER_TARGET_TYPE_DEFAULT, {}, 96.0f, 96.0f, {},
                                                   D2D1_FEATURE_LEVEL_DEFAULT};
    com::check(factory::d2d1()->CreateWicBitmapRenderTarget(bitmap.get(), &properties, target.put()));
}

void pixel_target::paint(IViewLowerEdge& view) const {
    constexpr D2D1_MATRIX_3X2_F identity{{{1, 0, 0, 1, 0, 0}}};
    constexpr D2D1_COLOR_F transparent{};
    UINT width = 0;
    UINT height = 0;
    com::check(bitmap->GetSize(&width, &height));
    target->BeginDraw();
    target->SetTransform(&identity);
    target->Clear(&transparent);
    view.render({0, 0, static_cast<float>(width), static_cast<float>(height)}, identity);
    com::check(target->EndDraw(nullptr, nullptr));
}

test_support::picture pixel_target::picture() const {
    return test_support::picture_of(bitmap.get());
}

}  // namespace d2d::scene::fakes
