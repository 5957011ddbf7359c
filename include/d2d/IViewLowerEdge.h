#pragma once

#include "com/interface_traits.h"
#include "d2d/input/key.h"
#include "d2d/input/mouse.h"

#include <functional>

#include <d2d1.h>
#include <servprov.h>
#include <windows.h>

namespace d2d {

/// The lower face of a view, called by what hosts it: frames, time and input come in here. Coordinates are
/// those of the scene, in pixels. All calls come on the host's thread; handlers of the scene run inside them
/// and may call back into the host.
struct IViewLowerEdge : IUnknown {
    /// What a view asks of its host.
    struct ISite : IServiceProvider {
        /// Takes the keyboard focus for the view's window; true unless it had it.
        virtual bool request_focus() = 0;
        /// The host's clock, in seconds.
        virtual double get_current_time() const = 0;
        /// Asks for ticks every `interval` seconds; 0 stops them. The first argument is not used.
        virtual void set_animation_clock(double, double interval) = 0;
        /// The root's bounds have changed.
        virtual void bounds_changed(D2D_RECT_F bounds) = 0;
        /// Asks for a repaint of a rectangle.
        virtual void invalidate_rect(D2D_RECT_F rect) = 0;
        /// Modal test whether a press at `point` becomes a drag.
        virtual bool drag_detect(D2D_POINT_2F point, input::mouse::button button) = 0;
        /// Modal drag from `point`; `moved` gets each position mapped through `transform`.
        virtual bool drag_loop(D2D_POINT_2F point, input::mouse::button button, D2D_MATRIX_3X2_F transform,
                               std::function<bool(D2D_POINT_2F)> moved) = 0;
    };

    /// The host announces itself; the view keeps the plain pointer until `detach_site`.
    virtual void attach_site(ISite* site) = 0;
    virtual void detach_site(ISite* site) = 0;
    /// The view keeps a reference and makes its device resources. Throws `com::error` when one cannot be
    /// made.
    virtual void attach_render_target(ID2D1RenderTarget* target) = 0;
    /// The view releases its device resources and the target. The tree stays.
    virtual void detach_render_target(ID2D1RenderTarget* target) = 0;
    /// Paints the tree, between `BeginDraw` and `EndDraw` of the target. `invalid` is in target space,
    /// `transform` maps the scene to the target.
    virtual bool render(D2D_RECT_F invalid, D2D_MATRIX_3X2_F transform) = 0;
    /// One step of the animations; seconds.
    virtual void tick(float time, float delta) = 0;
    virtual void on_mouse_event(input::mouse::event event) = 0;
    /// The cursor wanted at a point, or null for no opinion.
    virtual HCURSOR get_cursor(D2D_POINT_2F point) = 0;
    /// True when a handler took the key.
    virtual bool on_key_event(input::key::event event) = 0;
    virtual void on_char(wchar_t character) = 0;
    /// The window has the keyboard focus.
    virtual void on_focus_gained() = 0;
    /// The window has lost it.
    virtual void on_focus_lost() = 0;
};

}  // namespace d2d

template <>
struct com::interface_traits<d2d::IViewLowerEdge> : com::extends<> {
    static constexpr GUID id = com::guid("A7E34346-DFB3-4B00-8386-CD1375E75481");
};

template <>
struct com::interface_traits<d2d::IViewLowerEdge::ISite> : com::extends<IServiceProvider> {
    static constexpr GUID id = com::guid("C9E2D6B1-8A7F-4E0C-9F35-1B6D4A2C7E58");
};
