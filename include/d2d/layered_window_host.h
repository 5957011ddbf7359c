#pragma once

#include "com/api.h"
#include "com/ptr.h"
#include "d2d/IRenderTargetLayer.h"
#include "d2d/IViewLowerEdgeHost.h"
#include "d2d/IWin32InterfaceLayer.h"
#include "d2d/layered_window.h"

namespace d2d {

/// A layered window that shows a view: where the view draws nothing, the screen behind shows through. Each
/// invalidation is a full redraw at once, so that the scene should change little and rarely.
class MOSSHARBOUR_API layered_window_host : public layered_window {
public:
    /// Throws `com::error` when the host cannot be made.
    layered_window_host();
    /// With a view to show from the start.
    explicit layered_window_host(com::ptr<IViewLowerEdge> edge);
    /// Takes the view out.
    ~layered_window_host();

    std::optional<long> on_window_message(MSG message) override;
    void render(ID2D1RenderTarget* target, D2D_RECT_F invalid) override;
    void acquire_render_target_dependant_resources(ID2D1RenderTarget* target) override;
    void release_render_target_dependant_resources(ID2D1RenderTarget* target) override;
    /// What the view asks to repaint, in window pixels. Redraws everything.
    virtual void invalidate(RECT rect);

    /// See `IViewLowerEdgeHost`, for all of these.
    com::ptr<IViewLowerEdge> set_lower_edge(com::ptr<IViewLowerEdge> edge);
    void install_service(const GUID& id, IUnknown* service);
    void uninstall_service(const GUID& id);
    void set_upstream_service_provider(IServiceProvider* provider);

protected:
    /// See `IViewLowerEdgeHost`.
    void set_origin(D2D_POINT_2F origin);

private:
    // Three faces of one object.
    com::ptr<IViewLowerEdgeHost> lower_edge_host;
    com::ptr<IRenderTargetLayer> render_layer;
    com::ptr<IWin32InterfaceLayer> interface_layer;
};

}  // namespace d2d
