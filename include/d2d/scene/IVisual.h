#pragma once

#include "com/interface_traits.h"
#include "d2d/scene/IResourceBindingContext.h"

#include <optional>

#include <d2d1.h>

namespace d2d::scene {

/// Something that paints itself: the one way for code of a client to run at paint time. Recorded by
/// `IDrawingContext::draw_visual`. All coordinates are in the space of the node that shows it, in pixels.
struct IVisual : IUnknown {
    /// What a visual may ask of the node that shows it.
    struct ISite : IUnknown {
        /// Reserved: throws `std::logic_error`.
        virtual void reserved1() = 0;
        /// Reserved: throws `std::logic_error`.
        virtual void reserved2() = 0;
        /// The host's clock in seconds; throws `std::logic_error` outside a view.
        virtual double get_current_time() = 0;
    };

    /// What an animated visual says of its animation. Only that it is there is read.
    struct animation {};

    /// The visual has come into a node's recording. `site` is not necessarily that node's.
    virtual void attach(ISite* site) = 0;
    /// It has left a recording.
    virtual void detach(ISite* site) = 0;
    /// Engaged when the visual is animated: it is asked to `animate` ahead of each paint then.
    virtual std::optional<animation> get_animation() = 0;
    /// Paint now. The target's transform is the node's. Must not change the tree.
    virtual void render(ID2D1RenderTarget* target) = 0;
    /// Whether the visual covers a point, with a tolerance in pixels.
    virtual bool hit_test(float x, float y, float tolerance) = 0;
    /// Brings an animated visual to `time`, in seconds of the host's clock, ahead of a paint.
    virtual void animate(double time) = 0;
    /// Make what depends on the render target.
    virtual void bind(IResourceBindingContext* context) = 0;
    /// Release it.
    virtual void unbind(IResourceBindingContext* context) = 0;
    /// The rectangle that the visual paints in.
    virtual D2D_RECT_F get_bounds() = 0;
};

}  // namespace d2d::scene

template <>
struct com::interface_traits<d2d::scene::IVisual> : com::extends<> {
    static constexpr GUID id = com::guid("490F76C8-7F3A-4FA4-9773-23226914C385");
};

template <>
struct com::interface_traits<d2d::scene::IVisual::ISite> : com::extends<> {
    static constexpr GUID id = com::guid("9B305FCB-FAE4-47E8-B8A6-DA1CB01FEEAB");
};
