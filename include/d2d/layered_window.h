#pragma once

#include "com/api.h"
#include "com/ptr.h"
#include "d2d/factory.h"
#include "win32/window.h"

#include <d2d1.h>
#include <wincodec.h>

namespace d2d {

/// A window with an alpha of its own for each pixel: override `render`. It draws with Direct2D on a bitmap in
/// memory, at once and whole, and shows the bitmap over what is on the screen. There is no paint message:
/// call `redraw`. Its target has no device to lose. For the thread of the user interface alone.
class MOSSHARBOUR_API layered_window : public win32::window {
public:
    layered_window() = default;
    /// Lets go of the bitmap, and destroys the native window if that is still there.
    ~layered_window();

    /// Creates the native window, hidden, with its bitmap and a first picture. `rect` is on the screen, in
    /// pixels; `transparent` lets the mouse through. Throws `win32::error` and `com::error`.
    void create(HWND parent, const wchar_t* title, RECT rect, bool transparent, bool topmost);

    /// Acts on creation and destruction, and always leaves the message to the default treatment.
    std::optional<long> on_window_message(MSG message) override;

    /// Draws all of the window, between `BeginDraw` and `EndDraw`, in premultiplied colours. The default
    /// fills it with a see-through violet.
    virtual void render(ID2D1RenderTarget* target, D2D_RECT_F invalid);
    virtual void acquire_independant_resources();
    virtual void release_independant_resources();
    virtual void acquire_render_target_dependant_resources(ID2D1RenderTarget* target);
    virtual void release_render_target_dependant_resources(ID2D1RenderTarget* target);
    /// `resized` is false: a change of size brings another target.
    virtual void acquire_render_target_size_dependant_resources(ID2D1RenderTarget* target, bool resized);
    virtual void release_render_target_size_dependant_resources(ID2D1RenderTarget* target, bool resized);

    /// The alpha of the whole window, of which the low byte counts. The picture stays.
    void set_alpha(int new_alpha);
    /// Moves the window on the screen. The picture stays.
    void move(long x, long y);
    void move(POINT to);
    /// Moves it and sets its alpha, in one step.
    void move(long x, long y, int new_alpha);
    void move(POINT to, int new_alpha);
    /// Moves, resizes and redraws the window. Another size brings another bitmap. Throws `com::error`.
    void move_and_paint(long x, long y, long width, long height);
    void move_and_paint(RECT rect);

    /// No reference is added; null while there is no window.
    [[nodiscard]] ID2D1RenderTarget* render_target() const noexcept { return target.get(); }
    [[nodiscard]] SIZE size() const noexcept { return extent; }
    [[nodiscard]] D2D_SIZE_U render_target_size() const noexcept;

protected:
    /// Exchanges the bitmap for one of another size, without a picture yet. Throws `com::error`.
    void resize(SIZE new_size);
    /// Draws the window and shows it. Without a bitmap nothing happens. What `render` throws passes on, with
    /// the drawing ended.
    void redraw();

private:
    void create_bitmap_and_render_target();
    void destroy_render_target_and_bitmap();
    void show_picture();
    [[nodiscard]] BLENDFUNCTION blend() const noexcept;

    POINT position{};  // on the screen
    SIZE extent{};     // of the bitmap and the window
    int alpha = 255;   // the low byte
    com::ptr<IWICBitmap> wic_bitmap;
    com::ptr<ID2D1RenderTarget> target;
    com::ptr<ID2D1GdiInteropRenderTarget> gdi_target;
    [[no_unique_address]] factory graphics_token;
};

}  // namespace d2d
