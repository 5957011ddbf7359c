#pragma once

#include "com/interface_traits.h"

#include <d2d1.h>

namespace d2d {

/// The face of a host towards the render target of its window.
struct IRenderTargetLayer : IUnknown {
    /// The target is there, and is borrowed until `detach_render_target`.
    virtual void attach_render_target(ID2D1RenderTarget* target) = 0;
    virtual void detach_render_target(ID2D1RenderTarget* target) = 0;
    /// Paints what shows in `invalid` (window pixels), between `BeginDraw` and `EndDraw` of the target.
    virtual void render(D2D_RECT_F invalid) = 0;
};

}  // namespace d2d

template <>
struct com::interface_traits<d2d::IRenderTargetLayer> : com::extends<> {
    static constexpr GUID id = com::guid("A95D3E20-6B1D-4F7A-8E4C-5C7B0D9F2361");
};
