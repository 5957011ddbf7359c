#pragma once

#include "com/ptr.h"
#include "d2d/IViewLowerEdge.h"

#include <d2d1.h>
#include <servprov.h>
#include <windows.h>

namespace d2d {

/// What joins a view to a native window, as its owner sees it. The object is also an `IRenderTargetLayer` and
/// an `IWin32InterfaceLayer`, through which the window feeds it.
struct IViewLowerEdgeHost : IUnknown {
    /// Where the scene's (0, 0) lies in the window, in pixels. Repaints nothing.
    virtual void set_origin(D2D_POINT_2F origin) = 0;
    /// The colour that `render` clears to; repaints everything if it changes.
    virtual void set_background_color(_D3DCOLORVALUE color) = 0;
    /// Whether `render` clears first: it does unless told otherwise.
    virtual void enable_clear_background(bool enable) = 0;
    /// The cursor where the view has no opinion; null leaves it to the system.
    virtual void set_default_cursor(HCURSOR cursor) = 0;
    /// Attaches a view, which is kept; null for none. Detaches and returns the former one.
    virtual com::ptr<IViewLowerEdge> set_lower_edge(com::ptr<IViewLowerEdge> edge) = 0;
    /// Offers a service to the scene; keeps a reference. Replaces one that has the same identifier.
    virtual void install_service(const GUID& id, IUnknown* service) = 0;
    /// Takes a service back. Throws `std::logic_error` when there is none with this identifier.
    virtual void uninstall_service(const GUID& id) = 0;
    /// Who is asked for services that are not here; keeps a reference. Null for nobody.
    virtual void set_upstream_service_provider(IServiceProvider* provider) = 0;
};

}  // namespace d2d

template <>
struct com::interface_traits<d2d::IViewLowerEdgeHost> : com::extends<> {
    static constexpr GUID id = com::guid("6E1F0B7C-3C0E-4D59-B0A4-9A8C2B5D7F16");
};
