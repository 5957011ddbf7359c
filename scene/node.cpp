#include "scene/node.h"

#include "com/object.h"
#include "scene/node_bounds.h"
#include "scene/view.h"

#include <stdexcept>
#include <utility>

namespace d2d::scene {
namespace {

constexpr std::uint32_t mouse_handler_id = 0x17800601;
constexpr std::uint32_t cursor_handler_id = 0x17800602;

}  // namespace

node::node() = default;

node::~node() {
    for (const auto& child : children) child->parent = nullptr;
}

bool node::in_view_with_target() const noexcept {
    return view && view->has_target();
}

std::uint64_t node::target_id() const noexcept {
    return view ? view->target_id() : 0;
}

void node::set_user_value(int value) {
    user_value = value;
}

int node::get_user_value() {
    return user_value;
}

com::ptr<IUnknown> node::set_user_object(IUnknown* object) {
    return std::exchange(user_object, com::ptr<IUnknown>(object));
}

com::ptr<IUnknown> node::get_user_object() {
    return user_object;
}

int node::get_hit_mode() {
    return hit_mode;
}

int node::set_hit_mode(int mode) {
    if (view) {
        throw std::logic_error("Modifying hit transparency while in a view is currently not supported.");
    }
    const int previous = hit_mode;
    if (mode == previous) return previous;
    const extent before = hit_extent();
    const extent own = own_hit_extent(*this, mode, clip_geometry.get(), content_extent());
    hit_mode = mode;
    store_own_hit_bounds(*this, own);
    recompute = true;  // the mode decides what the subtree rectangle is made of
    propagate_own_hit_change(*this, before);
    return previous;
}

bool node::is_hit_transparent() {
    return hit_mode == hit_transparent;
}

bool node::set_hit_transparent(bool transparent) {
    return set_hit_mode(transparent ? hit_transparent : hit_by_content) == hit_transparent;
}

com::ptr<ID2D1Geometry> node::set_clip_geometry(ID2D1Geometry* geometry) {
    com::ptr<ID2D1Geometry> previous = clip_geometry;
    if (geometry == previous) return previous;
    const extent before = hit_extent();
    const extent own = own_hit_extent(*this, hit_mode, geometry, content_extent());
    clip_geometry = geometry;
    store_own_hit_bounds(*this, own);
    propagate_own_hit_change(*this, before);
    return previous;
}

com::ptr<ID2D1Geometry> node::get_clip_geometry() {
    return clip_geometry;
}

void node::set_clip_rect(D2D_RECT_F rect) {
    clip_rect = rect;
    clip_flags |= has_clip;
}

void node::clear_clip_rect() {
    clip_flags &= static_cast<std::uint8_t>(~has_clip);
}

D2D_RECT_F node::get_bounds(bool with_children) {
    if (!(content_flags & has_subtree_bounds)) return {};
    return with_children ? subtree_bounds : content_bounds;
}

node::bounds_token node::add_bounds_handler(bounds_function handler) {
    return bounds_handlers.add(std::move(handler));
}

void node::remove_bounds_handler(bounds_token token) {
    bounds_handlers.remove(token);
}

com::ptr<INode> node::get_parent() {
    return parent;
}

namespace {

/// Stores a `std::function` in a record of a node's list. `Invoke` is the signature that the list calls it
/// by.
template <class Function, class Invoke>
void link_function(handler_list& handlers, std::uint32_t id, handler_kind kind, Function function,
                   Invoke* invoke) {
    const handler_block block = handler_list::allocate(sizeof(Function));
    ::new (block.functor) Function(std::move(function));
    block.record->id = id;
    block.record->mask = handler_record::event_bits;
    block.record->kind = kind;
    block.record->destroy = [](void* functor) { static_cast<Function*>(functor)->~Function(); };
    block.record->invoke = reinterpret_cast<void (*)()>(invoke);
    handlers.link(block.record);
}

}  // namespace

void node::add_mouse_handler(mouse_function handler) {
    if (!handler) return handlers.remove_first(mouse_handler_id);
    mouse_invoke* const invoke = [](void* functor, INode* source, int depth,
                                    const input::mouse::event& event) {
        return (*static_cast<mouse_function*>(functor))(source, depth, event);
    };
    link_function(handlers, mouse_handler_id, handler_kind::mouse, std::move(handler), invoke);
}

void node::add_cursor_handler(cursor_function handler) {
    if (!handler) return handlers.remove_first(cursor_handler_id);
    cursor_invoke* const invoke = [](void* functor, INode* source, int depth, D2D_POINT_2F point) {
        return (*static_cast<cursor_function*>(functor))(source, depth, point);
    };
    link_function(handlers, cursor_handler_id, handler_kind::cursor, std::move(handler), invoke);
}

void node::set_key_handler(key_function handler) {
    key_handler.set(std::move(handler));
}

void node::set_char_handler(char_function handler) {
    char_handler.set(std::move(handler));
}

void node::set_focus_handler(bool with_descendants, focus_function handler) {
    focus_handler.set(std::move(handler));
    content_flags = static_cast<std::uint8_t>(with_descendants ? content_flags | focus_of_descendants
                                                               : content_flags & ~focus_of_descendants);
}

handler_block node::allocate_handler(unsigned size) {
    return handler_list::allocate(size);
}

void node::link_handler(handler_record* record) {
    handlers.link(record);
}

void node::free_handler(handler_record* record) {
    handler_list::free(record);
}

void node::remove_handler(handler_record* record) {
    handlers.remove(record);
}

void node::remove_handlers(unsigned id) {
    handlers.remove_all(id);
}

void node::reserved1() {
    throw std::logic_error("not implemented");
}

void node::reserved2() {
    throw std::logic_error("not implemented");
}

double node::get_current_time() {
    if (!view || !view->get_site()) {
        throw std::logic_error("cannot call get_current_time until hosted in a view");
    }
    return view->get_site()->get_current_time();
}

HRESULT node::QueryService(const GUID& service, const GUID& iid, void** out) {
    return view ? view->QueryService(service, iid, out) : E_NOINTERFACE;
}

com::ptr<INode> create_node() {
    return com::create_object<node>();
}

}  // namespace d2d::scene
