#pragma once

#include "com/api.h"
#include "com/ptr.h"
#include "d2d/input/key.h"
#include "d2d/input/mouse.h"
#include "d2d/scene/IAnimation.h"
#include "d2d/scene/IDrawingContext.h"
#include "d2d/scene/IEffect.h"
#include "d2d/scene/handler_record.h"

#include <functional>

#include <d2d1.h>
#include <windows.h>

namespace d2d::scene {

/// An element of the retained scene: a transform, an optional clip, a recording of drawing commands, an
/// ordered list of children, and event handlers. Created by `create_node`; a tree of nodes is shown by an
/// `IView`.
///
/// Rectangles and points are in the node's own space, in pixels, unless said otherwise. A tree belongs to the
/// thread of its window and may be at most 32 levels deep. Changes tell the view at once which area changed;
/// nothing is drawn at the time of a change.
///
/// Every node is an `IServiceProvider` as well: in a view it passes the question on to the host.
///
/// Handlers get a `depth`: how far the node that is called is from the target of the event, below 0 on the
/// way from the root down, 0 at the target, above 0 on the way back up. `source` is the target; for keys it
/// is the node that is called.
struct INode : IUnknown {
    using mouse_function = std::function<bool(INode* source, int depth, input::mouse::event event)>;
    using cursor_function = std::function<HICON(INode* source, int depth, D2D_POINT_2F point)>;
    using key_function = std::function<bool(INode* source, int depth, input::key::event event)>;
    using char_function = std::function<bool(INode* source, int depth, wchar_t character)>;
    using focus_function = std::function<void(INode* old_focus, INode* new_focus)>;
    using bounds_function = std::function<void(bool valid, D2D_RECT_F bounds)>;
    using hit_function = std::function<bool(com::ptr<INode> node, D2D_POINT_2F point)>;
    using drag_function = std::function<bool(D2D_POINT_2F point)>;
    using mouse_invoke = bool(void* functor, INode* source, int depth, const input::mouse::event& event);
    using cursor_invoke = HICON(void* functor, INode* source, int depth, D2D_POINT_2F point);

    /// Names an entry of the bounds handlers while it lives.
    using bounds_token = const bounds_function*;

    /// How a node takes part in hit testing.
    static constexpr int hit_transparent = 0;  ///< the node and its subtree are never hit
    static constexpr int hit_by_content =
        1;                               ///< what the node paints, or its clip geometry, is hit: the default
    static constexpr int hit_solid = 2;  ///< the node takes every point that reaches it

    /// Stores a number for the owner; the scene never reads it.
    virtual void set_user_value(int value) = 0;
    virtual int get_user_value() = 0;
    /// Stores an object for the owner, with a reference, and returns the previous one.
    virtual com::ptr<IUnknown> set_user_object(IUnknown* object) = 0;
    virtual com::ptr<IUnknown> get_user_object() = 0;

    virtual int get_hit_mode() = 0;
    /// Returns the previous mode. Throws `std::logic_error` while the node is in a view.
    virtual int set_hit_mode(int mode) = 0;
    virtual bool is_hit_transparent() = 0;
    /// Chooses `hit_transparent` or `hit_by_content`; returns whether the node was transparent. Throws like
    /// `set_hit_mode`.
    virtual bool set_hit_transparent(bool transparent) = 0;
    /// A shape that is hit, besides what the node paints within the shape's bounds; it clips nothing. Keeps a
    /// reference, returns the previous one. Throws `com::error` when the platform cannot tell its bounds.
    virtual com::ptr<ID2D1Geometry> set_clip_geometry(ID2D1Geometry* geometry) = 0;
    virtual com::ptr<ID2D1Geometry> get_clip_geometry() = 0;
    /// Clips the node and its subtree. Invalidates nothing: kept, owners set it together with a recording.
    virtual void set_clip_rect(D2D_RECT_F rect) = 0;
    virtual void clear_clip_rect() = 0;

    /// Begins a recording. With `commit_on_release`, the last release of the context commits it; without,
    /// only `IDrawingContext::commit` does. Use one of the two: to do both leaves the node empty.
    virtual com::ptr<IDrawingContext> draw(bool commit_on_release) = 0;
    /// Paints the background recording through an effect; null for none. Keeps a reference. The area that the
    /// effect paints outside the recording's bounds is not invalidated.
    virtual void set_effect(IEffect* effect) = 0;

    /// Adds a handler for mouse events; an empty one removes the first added instead, as `remove_handler`
    /// does. Handlers above the target see an event twice, down and up; true ends the route. Handlers may
    /// change the tree.
    ///
    /// Entering and leaving are told to the node itself with depth 0, and once to each node above it, with a
    /// depth below 0.
    virtual void add_mouse_handler(mouse_function handler) = 0;
    /// Adds a handler that chooses the cursor; the first that gives one decides. The point handed to it is
    /// (0, 0): kept, handlers rely on nothing else. An empty handler removes the first added.
    virtual void add_cursor_handler(cursor_function handler) = 0;
    /// Replaces the one handler for keys; an empty one takes it off. True ends the route from the root to the
    /// focus node and back.
    virtual void set_key_handler(key_function handler) = 0;
    /// Replaces the one handler for characters, which come along the same route.
    virtual void set_char_handler(char_function handler) = 0;
    /// Replaces the one handler for focus changes of this node and, `with_descendants`, of those below it;
    /// the latter are told only where the focus goes from one node to another. `old_focus` or `new_focus` may
    /// be null.
    virtual void set_focus_handler(bool with_descendants, focus_function handler) = 0;

    /// Whether a command of the node's own recording covers the point, within a pixel.
    virtual bool hit_test(D2D_POINT_2F point) = 0;
    /// The bounds of the recording, or of the whole subtree `with_children`; all zeros when there is nothing.
    virtual D2D_RECT_F get_bounds(bool with_children) = 0;
    /// Adds a handler that is told whenever the subtree's bounds change: whether there are any, and which. An
    /// empty one throws `std::bad_function_call` when they do.
    virtual bounds_token add_bounds_handler(bounds_function handler) = 0;
    /// Removes it; an unknown token is ignored.
    virtual void remove_bounds_handler(bounds_token token) = 0;

    /// Maps the node's space into its parent's.
    virtual D2D_MATRIX_3X2_F get_transform() = 0;
    /// Returns whether anything changed. A matrix equal to the inverse of the present one changes nothing:
    /// kept, clients rely on it. Throws `std::logic_error` for a matrix that is not finite or has no inverse;
    /// the node keeps its transform then.
    virtual bool set_transform(const D2D_MATRIX_3X2_F& transform) = 0;
    /// Lets an animation set the transform at each tick of the view's clock; until the first one the node
    /// keeps the transform that it has. Null for none. Keeps a reference. A value that `set_transform`
    /// refuses throws out of the tick.
    virtual void set_transform_animation(IValueAnimation<D2D_MATRIX_3X2_F>* animation) = 0;

    /// The parent, or null for a root and a free node.
    virtual com::ptr<INode> get_parent() = 0;
    /// True when `node` is this node or below it; false for null.
    virtual bool is_ancestor_of(com::ptr<INode> node) = 0;
    /// Appends a child, in front of the others. Throws `std::logic_error` for null and for a node that has a
    /// parent or is a view's root.
    virtual void add_child(com::ptr<INode> child) = 0;
    /// Returns false when `child` is not a child of this node. Throws `std::logic_error` for null.
    virtual bool remove_child(com::ptr<INode> child) = 0;

    /// Calls `function` for the nodes under a point below this one, from the deepest up or from the top down,
    /// each with the point in its own space, until it returns true. Returns whether it did.
    virtual bool enumerate_hits(D2D_POINT_2F point, bool innermost_first, hit_function function) = 0;
    /// Waits, in a message loop of its own, until a press has become a drag (true), by movement or by being
    /// held for a second, or has ended (false). Takes a `WM_QUIT`, which ends it. Handlers can be re-entered.
    /// Throws `std::logic_error` outside a view.
    virtual bool drag_detect(input::mouse::button button) = 0;
    /// Reports the mouse's movement in this node's space, in a message loop of its own, until `button` is
    /// released (true) or the drag is cancelled (false). What `moved` returns is not looked at; an empty one
    /// throws `std::bad_function_call`. Takes a `WM_QUIT`, which ends it with true. Handlers can be
    /// re-entered. Throws `std::logic_error` outside a view.
    virtual bool drag_loop(input::mouse::button button, drag_function moved) = 0;

    /// Whether the window has the keyboard focus and this node (or one below it) is its focus.
    virtual bool has_focus(bool or_descendant) = 0;
    /// Makes this node the focus of its view and asks the window for the keyboard. Focus handlers run. Throws
    /// `std::runtime_error` outside a view.
    virtual void set_focus() = 0;
    /// Leaves the view without a focus node if it is this one. Requires a view.
    virtual void release_focus() = 0;

    /// Empties this node and takes all nodes below it apart. The node stays where it is in its parent or
    /// view.
    virtual void clear() = 0;

    /// A zeroed handler record with room for a functor of `size` bytes, aligned to 8. Give it to
    /// `link_handler`, or back to `free_handler`.
    virtual handler_block allocate_handler(unsigned size) = 0;
    /// Puts a filled record into the list, which owns it from then on. Of `mask` the low 28 bits count.
    virtual void link_handler(handler_record* record) = 0;
    /// Destroys the functor and frees a record that is in no list.
    virtual void free_handler(handler_record* record) = 0;
    /// Removes one record. During a dispatch on this node it is called no more, and goes when the dispatch
    /// has ended, with all records that are behind it in the list: kept, add anew what is still wanted.
    virtual void remove_handler(handler_record* record) = 0;
    /// Removes all records with an id.
    virtual void remove_handlers(unsigned id) = 0;
};

/// A free node: no parent, no view, nothing recorded, the identity as transform.
[[nodiscard]] MOSSHARBOUR_API com::ptr<INode> create_node();

/// The matrix that maps points of `from` to points of `to`; null for either stands for the space above the
/// root of the other. Right on the way up, to a node above `from` or to null, and wherever nodes are only
/// moved. Down more than one step, through nodes that are scaled or turned, it is wrong: kept, clients rely
/// on it; invert the matrix of the way up instead.
[[nodiscard]] MOSSHARBOUR_API D2D_MATRIX_3X2_F get_transformation_matrix(INode* from, INode* to);

/// Maps `count` points in place from the space of `from` to that of `to`.
MOSSHARBOUR_API void map_points(INode* from, INode* to, D2D_POINT_2F* points, unsigned count);

}  // namespace d2d::scene

template <>
struct com::interface_traits<d2d::scene::INode> : com::extends<> {
    static constexpr GUID id = com::guid("39ACCC9F-E227-4AD5-8382-7E4D6437D236");
};
