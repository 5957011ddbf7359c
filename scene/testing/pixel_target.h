#pragma once

#include "com/ptr.h"
#include "d2d/IViewLowerEdge.h"
#include "d2d/factory.h"
#include "support/picture.h"

#include <d2d1.h>
#include <wincodec.h>

namespace d2d::scene::fakes {

/// A real render target without a window, whose pixels can be read: 32 bits, premultiplied.
class pixel_target {
public:
    pixel_target(unsigned width, unsigned height);

    [[nodiscard]] ID2D1RenderTarget* get() const noexcept { return target.get(); }
    ID2D1RenderTarget* operator->() const noexcept { return target.get(); }

    /// One frame of a view that is attached to this target: cleared to transparent and rendered whole.
    void paint(IViewLowerEdge& view) const;
    /// What has been drawn, as 0xAARRGGBB.
    [[nodiscard]] test_support::picture picture() const;

private:
    factory graphics;
    com::ptr<IWICBitmap> bitmap;
    com::ptr<ID2D1RenderTarget> target;
};

}  // namespace d2d::scene::fakes
