#pragma once

#include "com/base_object.h"
#include "com/ptr.h"
#include "d2d/IViewLowerEdge.h"
#include "d2d/factory.h"
#include "d2d/scene/IResourceBindingContext.h"
#include "d2d/scene/IView.h"
#include "scene/resource.h"

#include <cstdint>
#include <vector>

#include <servprov.h>

namespace d2d::scene {

class node;
class hit_path;

/// The bridge between a tree of nodes and what shows it.
///
/// Focus has two levels. `has_focus` says that the window has the keyboard; `focus_node` is the node within,
/// and stays while the window is without it. Handlers hear of a focus only when both are there.
class view : public com::base_object<com::object_base, IView, IViewLowerEdge, IResourceBindingContext,
                                     IServiceProvider> {
public:
    view();

    // IView
    void set_root(com::ptr<INode> new_root) override;

    // IViewLowerEdge
    void attach_site(ISite* new_site) override;
    void detach_site(ISite* old_site) override;
    void attach_render_target(ID2D1RenderTarget* target) override;
    void detach_render_target(ID2D1RenderTarget* target) override;
    bool render(D2D_RECT_F invalid, D2D_MATRIX_3X2_F transform) override;
    void tick(float time, float delta) override;
    void on_mouse_event(input::mouse::event event) override;
    HCURSOR get_cursor(D2D_POINT_2F point) override;
    bool on_key_event(input::key::event event) override;
    void on_char(wchar_t character) override;
    void on_focus_gained() override;
    void on_focus_lost() override;

    // IResourceBindingContext
    ID2D1RenderTarget* get_render_target() override;
    com::ptr<IResourceBinding> get_binding(IUnknown* resource) override;
    void reserved() override;

    // IServiceProvider
    HRESULT STDMETHODCALLTYPE QueryService(const GUID& service, const GUID& iid, void** out) override;

    // What nodes and bindings ask of their view.

    /// What a removal has touched: `repair` puts it right once the removal is complete.
    struct removal {
        com::ptr<view> from;
        bool hover_target_inside = false;
        bool on_hover_path = false;
    };

    /// Shows a subtree: binds it if there is a target.
    void enter(node& top);
    /// Ends showing a subtree. Hover and focus inside it end.
    [[nodiscard]] static removal leave(node& top);
    static void repair(const removal& removed);

    /// Asks for a repaint of a node's recording or of its whole subtree. Nothing without host or target.
    void invalidate(const node& changed, bool with_children);
    /// Starts or stops the host's clock when the need for it has changed.
    void update_clock();
    void add_animated_binding(animated_binding_list::node& binding);
    void remove_animated_binding(animated_binding_list::node& binding);

    /// Makes a node the focus, telling handlers now or when the window gets the keyboard.
    void set_focus(node& target);
    void release_focus(node& target);
    [[nodiscard]] bool is_focus(const node& target, bool or_descendant) const noexcept;

    /// Identifies the present attachment of a target, among all of the process: never the same again, even
    /// when a target or a view comes to lie where another was. 0 without a target.
    [[nodiscard]] std::uint64_t target_id() const noexcept { return attachment; }
    [[nodiscard]] bool has_target() const noexcept { return static_cast<bool>(render_target); }
    [[nodiscard]] ISite* get_site() const noexcept { return site; }
    [[nodiscard]] D2D_POINT_2F get_last_point() const noexcept { return last_point; }

protected:
    ~view();

private:
    using node_path = std::vector<com::ptr<node>>;

    // Asked of the host as the single-precision number: kept, hosts compare it.
    static constexpr double clock_interval = static_cast<double>(0.05f);

    [[nodiscard]] bool needs_clock() const noexcept;
    void forget(node& leaving);
    void update_hover(const hit_path& path, std::uint32_t flags);
    void hover_over(const hit_path& path, std::uint32_t flags);
    void end_hover(node& former, std::uint32_t flags);

    [[no_unique_address]] factory graphics;
    // Released in the opposite order: kept, the focus goes first and the target last.
    com::ptr<ID2D1RenderTarget> render_target;
    std::uint64_t attachment = 0;
    node_path hover_path;  // the nodes under the mouse at the last move, root first
    com::ptr<node> root;
    com::ptr<node> hover_target;  // got the last hover event
    node_path scratch_path;       // kept for its room
    D2D_POINT_2F last_point{};    // of the last mouse event, in root space
    std::uint32_t last_modifiers = 0;
    bool has_focus = false;
    com::ptr<node> focus_node;
    bool clock_running = false;  // what was last asked of the host's clock
    ISite* site = nullptr;       // borrowed
    animated_binding_list animated_bindings;
};

}  // namespace d2d::scene
