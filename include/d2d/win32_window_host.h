#pragma once

#include "com/api.h"
#include "com/ptr.h"
#include "d2d/IRenderTargetLayer.h"
#include "d2d/IViewLowerEdgeHost.h"
#include "d2d/IWin32InterfaceLayer.h"
#include "d2d/window.h"

namespace d2d {

/// A window that shows a view: the view is painted in it and gets its input. The background is white.
class MOSSHARBOUR_API win32_window_host : public window {
public:
    /// Throws `com::error` when the host cannot be made.
    win32_window_host();
    /// With a view to show from the start.
    explicit win32_window_host(com::ptr<IViewLowerEdge> edge);
    /// Takes the view out.
    ~win32_window_host();

    std::optional<long> on_window_message(MSG message) override;
    void render(ID2D1RenderTarget* target, D2D_RECT_F invalid) override;
    void acquire_render_target_dependant_resources(ID2D1RenderTarget* target) override;
    void release_render_target_dependant_resources(ID2D1RenderTarget* target) override;

    /// See `IViewLowerEdgeHost`, for all of these.
    com::ptr<IViewLowerEdge> set_lower_edge(com::ptr<IViewLowerEdge> edge);
    void install_service(const GUID& id, IUnknown* service);
    void uninstall_service(const GUID& id);
    void set_upstream_service_provider(IServiceProvider* provider);
    void set_background_color(_D3DCOLORVALUE color);
    void enable_clear_background(bool enable);

private:
    // Three faces of one object.
    com::ptr<IViewLowerEdgeHost> lower_edge_host;
    com::ptr<IRenderTargetLayer> render_layer;
    com::ptr<IWin32InterfaceLayer> interface_layer;
};

}  // namespace d2d
