#pragma once

#include "com/ptr.h"

#include <d2d1.h>

namespace d2d::scene {

/// The device-dependent half of a resource, in one view.
struct IResourceBinding : IUnknown {};

/// A view as seen by code that makes device objects of its own (an `IVisual`).
struct IResourceBindingContext : IUnknown {
    /// The view's present target; no reference is added.
    virtual ID2D1RenderTarget* get_render_target() = 0;
    /// The binding of a resource of the library to this view, new or existing. Throws `com::error` for an
    /// object of another make.
    virtual com::ptr<IResourceBinding> get_binding(IUnknown* resource) = 0;
    /// Reserved: does nothing.
    virtual void reserved() = 0;
};

}  // namespace d2d::scene

template <>
struct com::interface_traits<d2d::scene::IResourceBinding> : com::extends<> {
    static constexpr GUID id = com::guid("2F1C7A90-5E5B-4B8A-9B43-7D0E6C1F8A35");
};

template <>
struct com::interface_traits<d2d::scene::IResourceBindingContext> : com::extends<> {
    static constexpr GUID id = com::guid("973464D1-5E80-4006-9F14-B91F80D77DB4");
};
