#include "scene/view.h"

#include "com/object.h"
#include "scene/node.h"
#include "scene/painter.h"
#include "scene/tree_walk.h"

#include <stdexcept>
#include <utility>

namespace d2d::scene {

namespace {

std::uint64_t attachments = 0;  // so far, of all views

void require_free(const com::ptr<node>& next) {
    if (next && (next->view || next->parent)) throw std::logic_error("Node already in a tree");
}

}  // namespace

view::view() = default;
view::~view() = default;

void view::set_root(com::ptr<INode> new_root) {
    com::ptr<node> next = com::internal_object<node>(new_root.get());
    if (next == root) return;
    require_free(next);
    const com::ptr<node> former = root;
    removal removed;
    if (former) removed = leave(*former);
    if (root == former) root.reset();
    // A root that a handler has chosen meanwhile stays.
    if (!root) {
        require_free(next);
        root = std::move(next);
        if (root) enter(*root);
    }
    repair(removed);
}

void view::attach_site(ISite* new_site) {
    site = new_site;
}

void view::detach_site(ISite*) {
    site = nullptr;
}

void view::attach_render_target(ID2D1RenderTarget* target) {
    render_target = target;
    attachment = target ? ++attachments : 0;
    // What cannot be bound throws; what was bound stays, and is painted.
    if (root) walk_parents_first(*root, [](node& at) { at.bind_recording(); });
    if (clock_running && site) site->set_animation_clock(0.0, clock_interval);
}

void view::detach_render_target(ID2D1RenderTarget*) {
    // The flag stays: the next target starts the clock again.
    if (clock_running && site) site->set_animation_clock(0.0, 0.0);
    if (root) walk_parents_first(*root, [](node& at) { at.release_recording(); });
    attachment = 0;
    render_target.reset();
}

bool view::render(D2D_RECT_F, D2D_MATRIX_3X2_F transform) {
    if (!render_target) return false;
    const double time = site ? site->get_current_time() : 0.0;
    render_target->SetTransform(&transform);
    if (root) painter(render_target.get(), transform, time).paint(*root);
    return true;
}

ID2D1RenderTarget* view::get_render_target() {
    return render_target.get();
}

com::ptr<IResourceBinding> view::get_binding(IUnknown* resource) {
    const com::ptr<basic_resource> bound(resource);
    if (!bound) com::throw_error(E_POINTER);
    return bound->bind(this);
}

void view::reserved() {}

HRESULT view::QueryService(const GUID& service, const GUID& iid, void** out) {
    return site ? site->QueryService(service, iid, out) : E_NOINTERFACE;
}

com::ptr<IView> create_view() {
    return com::create_object<view>();
}

}  // namespace d2d::scene
