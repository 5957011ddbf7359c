#pragma once

#include "com/api.h"
#include "com/ptr.h"
#include "d2d/factory.h"
#include "win32/window.h"

#include <d2d1_1.h>
#include <dxgi1_2.h>

namespace d2d {

/// A native window that is drawn with Direct2D: override `render`. It has a swap chain of its own and draws
/// with the device context that all windows share, at 96 dpi, so that a unit is a pixel.
///
/// Resources come in three tiers. Independent ones live from `WM_CREATE` to `WM_DESTROY`; those that depend
/// on the render target from the first paint to its loss or to `WM_DESTROY`; those that depend on its size
/// are renewed at each change of size, too. A lost target (`D2DERR_RECREATE_TARGET`) is given up, and the
/// next paint, which is asked for at once, makes another. For the thread of the user interface alone.
class MOSSHARBOUR_API window : public win32::window {
public:
    window() = default;
    /// Lets go of the render target, and destroys the native window if that is still there.
    ~window();

    /// Acts on creation, size, paint and destruction, and leaves the message to the default treatment; only a
    /// paint that has lost the target is answered, since the default treatment would validate the window.
    /// Throws `com::error` when the render target cannot be made. What `render` throws passes on, with the
    /// drawing ended and the shared context without a target.
    std::optional<long> on_window_message(MSG message) override;

    /// Draws what shows in `invalid` (window pixels), between `BeginDraw` and `EndDraw`, clipped to it. The
    /// default fills the window with green.
    virtual void render(ID2D1RenderTarget* target, D2D_RECT_F invalid);
    virtual void acquire_independant_resources();
    virtual void release_independant_resources();
    virtual void acquire_render_target_dependant_resources(ID2D1RenderTarget* target);
    virtual void release_render_target_dependant_resources(ID2D1RenderTarget* target);
    /// `resized`: the target has been there, and has another size now.
    virtual void acquire_render_target_size_dependant_resources(ID2D1RenderTarget* target, bool resized);
    virtual void release_render_target_size_dependant_resources(ID2D1RenderTarget* target, bool resized);

    /// The device context that all windows share; no reference is added. It has this window's target only
    /// while this window paints.
    [[nodiscard]] ID2D1RenderTarget* render_target() const noexcept;
    /// The size of the client area as last told, in pixels.
    [[nodiscard]] D2D_SIZE_U render_target_size() const noexcept { return {width, height}; }

    /// The same as `factory::d2d1` and `factory::dwrite`.
    [[nodiscard]] static ID2D1Factory* d2d1_factory() noexcept { return factory::d2d1(); }
    [[nodiscard]] static IDWriteFactory* dwrite_factory() noexcept { return factory::dwrite(); }

protected:
    /// Makes the swap chain, in the place of a former one, and its bitmap. Throws `com::error`.
    void acquire_render_target();
    void release_render_target() noexcept;
    /// Makes the bitmap that is the back buffer of the swap chain. Throws `com::error`.
    void acquire_d2d_bitmap();
    void release_d2d_bitmap() noexcept;

private:
    void on_create();
    void on_size(UINT new_width, UINT new_height);
    [[nodiscard]] bool on_paint();
    void on_destroy();
    void start_target(ID2D1DeviceContext* context);
    [[nodiscard]] HRESULT paint_frame(ID2D1DeviceContext* context);
    void lose_target(ID2D1DeviceContext* context);

    com::ptr<ID2D1Bitmap1> d2d_bitmap;     // the back buffer
    com::ptr<IDXGISwapChain1> swap_chain;  // null: there is no render target
    unsigned width = 0;                    // of the client area
    unsigned height = 0;
    [[no_unique_address]] factory graphics_token;
};

}  // namespace d2d
