#pragma once

#include "com/api.h"
#include "com/base_object.h"
#include "com/guid.h"
#include "com/ptr.h"
#include "d2d/IRenderTargetLayer.h"
#include "d2d/IViewLowerEdge.h"
#include "d2d/IViewLowerEdgeHost.h"
#include "d2d/IWin32InterfaceLayer.h"
#include "d2d/scene/IDeferredExecutionService.h"
#include "d2d/win32_input_dispatcher.h"

#include <functional>
#include <map>

#include <d2d1.h>
#include <servprov.h>
#include <uianimation.h>
#include <windows.h>

// Exported whole, as the host is.
#if defined(MOSSHARBOUR_BUILDING) && defined(_MSC_VER)
extern template class com::base_object<com::object_base, d2d::scene::IDeferredExecutionService,
                                       d2d::IWin32InterfaceLayer, d2d::IRenderTargetLayer,
                                       d2d::IViewLowerEdgeHost, IServiceProvider>;
#else
extern template class MOSSHARBOUR_API
    com::base_object<com::object_base, d2d::scene::IDeferredExecutionService, d2d::IWin32InterfaceLayer,
                     d2d::IRenderTargetLayer, d2d::IViewLowerEdgeHost, IServiceProvider>;
#endif

namespace d2d {

/// Joins a view to one native window and one render target. Owns the clock of the animations, the table of
/// services and the mapping from the scene to the pixels of the window. A window class holds it through three
/// of its interfaces: it tells of the window and of the target as they come and go, and hands in messages and
/// paints; `create_win32_view_lower_edge_host` makes one.
///
/// The view keeps a plain pointer to its host: whoever lets go of a host takes the view out first, with
/// `set_lower_edge(nullptr)` or `uninitialize()`. The clock holds the host weakly, so that the last release
/// ends both. All calls come on the window's thread, `defer_execution` apart; handlers of the scene run
/// inside them.
class MOSSHARBOUR_API lower_edge_host
    : public IViewLowerEdge::ISite,
      public com::base_object<com::object_base, scene::IDeferredExecutionService, IWin32InterfaceLayer,
                              IRenderTargetLayer, IViewLowerEdgeHost, IServiceProvider> {
public:
    lower_edge_host();

    /// Makes the clock. Throws `com::error` when that fails.
    void final_construct();
    /// Ends the clock; the last release does it.
    void final_release() noexcept;
    /// Lets go of the view: tells it that its site goes, and nothing else. For the owner to call.
    void uninitialize();

    // IUnknown, once for both faces.
    HRESULT STDMETHODCALLTYPE QueryInterface(const GUID& id, void** out) noexcept override = 0;
    ULONG STDMETHODCALLTYPE AddRef() noexcept override;
    ULONG STDMETHODCALLTYPE Release() noexcept override;

    // IServiceProvider
    HRESULT STDMETHODCALLTYPE QueryService(const GUID& service, const GUID& iid, void** result) override;

    // IViewLowerEdge::ISite
    bool request_focus() override;
    double get_current_time() const override;
    void set_animation_clock(double, double interval) override;
    void bounds_changed(D2D_RECT_F bounds) override;
    void invalidate_rect(D2D_RECT_F rect) override;
    bool drag_detect(D2D_POINT_2F point, input::mouse::button button) override;
    bool drag_loop(D2D_POINT_2F point, input::mouse::button button, D2D_MATRIX_3X2_F transform,
                   std::function<bool(D2D_POINT_2F)> moved) override;

    // scene::IDeferredExecutionService
    /// A call that arrives while there is no view is dropped, with whatever `data` owns.
    void defer_execution(void* data, void (*function)(void*)) override;

    // IWin32InterfaceLayer
    void attach_hwnd(HWND window_handle, std::function<void(RECT)> invalidate_function) override;
    void detach_hwnd(HWND window_handle) override;
    std::optional<long> on_window_message(MSG message) override;

    // IRenderTargetLayer
    void attach_render_target(ID2D1RenderTarget* target) override;
    void detach_render_target(ID2D1RenderTarget* target) override;
    void render(D2D_RECT_F invalid) override;

    // IViewLowerEdgeHost
    void set_origin(D2D_POINT_2F new_origin) override;
    void set_background_color(_D3DCOLORVALUE color) override;
    void enable_clear_background(bool enable) override;
    void set_default_cursor(HCURSOR cursor) override;
    com::ptr<IViewLowerEdge> set_lower_edge(com::ptr<IViewLowerEdge> edge) override;
    void install_service(const GUID& id, IUnknown* service) override;
    void uninstall_service(const GUID& id) override;
    void set_upstream_service_provider(IServiceProvider* provider) override;

protected:
    ~lower_edge_host();

private:
    friend class timer_update_handler;

    struct by_words {
        [[nodiscard]] bool operator()(const GUID& a, const GUID& b) const noexcept {
            return com::words_of(a) < com::words_of(b);
        }
    };

    void on_clock(double now, double delta);
    void report_clock(bool busy);
    [[nodiscard]] POINT pixel_of(D2D_POINT_2F point) const noexcept;

    win32_input_dispatcher input;
    HWND hwnd = nullptr;
    bool clock_running = false;  // the clock's client is reported busy
    com::ptr<IUIAnimationTimer> timer;
    com::ptr<IUIAnimationTimerClientEventHandler> timer_client;
    com::ptr<IViewLowerEdge> lower_edge;
    D2D_POINT_2F origin{};
    bool clear_background = true;
    _D3DCOLORVALUE background_color{1.0f, 1.0f, 1.0f, 1.0f};
    ID2D1RenderTarget* render_target = nullptr;  // borrowed
    std::function<void(RECT)> invalidate;
    std::map<GUID, com::ptr<IUnknown>, by_words> services;
    com::ptr<IServiceProvider> upstream;
};

/// A host without view, window and target. Requires a thread in a COM apartment, as every `factory` token
/// provides. Throws `com::error` when the clock cannot be made.
[[nodiscard]] MOSSHARBOUR_API com::ptr<IViewLowerEdgeHost> create_win32_view_lower_edge_host();

}  // namespace d2d
