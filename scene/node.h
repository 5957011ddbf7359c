#pragma once

#include "com/IObjectInternal.h"
#include "com/base_object.h"
#include "d2d/factory.h"
#include "d2d/scene/INode.h"
#include "scene/bounds_handler_list.h"
#include "scene/child_lookup.h"
#include "scene/command.h"
#include "scene/extent.h"
#include "scene/handler_list.h"
#include "scene/handler_slot.h"

#include <cstdint>
#include <memory>
#include <vector>

#include <servprov.h>

namespace d2d::scene {

class node;

}  // namespace d2d::scene

template <>
struct com::interface_traits<com::IObjectInternal<d2d::scene::node>> : com::extends<> {
    static constexpr GUID id = com::guid("D50641C4-A367-410E-962E-8107F7DB00CB");
};

namespace d2d::scene {

/// A node of the scene.
///
/// Each node caches, in its own space, what it covers: its recording (`content_bounds`), its whole subtree
/// (`subtree_bounds`), and the same pair for hit tests. A change climbs to the root at once. On the way each
/// ancestor takes in the change of one part of its union, and asks its other children only where that part
/// held an edge and drew back from it, many of them by way of a tree of unions; so a change costs what
/// changed. `recompute` tells the next climb to ask all children: it is set wherever a client's function
/// could see, or leave behind, a climb that is half done.
///
/// The modules of the scene (tree, bounds, recording, painting, hit test, input routing) share the fields
/// below; each field is changed in one of them alone.
class node : public com::base_object<com::object_base, INode, com::IObjectInternal<node>, IVisual::ISite,
                                     IServiceProvider>,
             public in_small_blocks {
public:
    /// Bits of `clip_flags`.
    static constexpr std::uint8_t has_clip = 0x01;
    static constexpr std::uint8_t has_transform = 0x02;

    /// Bits of `content_flags`.
    static constexpr std::uint8_t has_content = 0x01;             ///< the recording has a command
    static constexpr std::uint8_t has_subtree_bounds = 0x02;      ///< something in the subtree has content
    static constexpr std::uint8_t has_hit_bounds = 0x04;          ///< `hit_bounds` is valid
    static constexpr std::uint8_t has_subtree_hit_bounds = 0x08;  ///< `subtree_hit_bounds` is valid
    static constexpr std::uint8_t content_animated = 0x10;        ///< the recording uses an animated resource
    static constexpr std::uint8_t children_animated = 0x20;       ///< a child has this bit or the one before
    static constexpr std::uint8_t animated_bits = content_animated | children_animated;
    static constexpr std::uint8_t focus_of_descendants = 0x80;  ///< the focus handler hears of descendants

    node();

    // INode
    void set_user_value(int value) override;
    int get_user_value() override;
    com::ptr<IUnknown> set_user_object(IUnknown* object) override;
    com::ptr<IUnknown> get_user_object() override;
    int get_hit_mode() override;
    int set_hit_mode(int mode) override;
    bool is_hit_transparent() override;
    bool set_hit_transparent(bool transparent) override;
    com::ptr<ID2D1Geometry> set_clip_geometry(ID2D1Geometry* geometry) override;
    com::ptr<ID2D1Geometry> get_clip_geometry() override;
    void set_clip_rect(D2D_RECT_F rect) override;
    void clear_clip_rect() override;
    com::ptr<IDrawingContext> draw(bool commit_on_release) override;
    void set_effect(IEffect* new_effect) override;
    void add_mouse_handler(mouse_function handler) override;
    void add_cursor_handler(cursor_function handler) override;
    void set_key_handler(key_function handler) override;
    void set_char_handler(char_function handler) override;
    void set_focus_handler(bool with_descendants, focus_function handler) override;
    bool hit_test(D2D_POINT_2F point) override;
    D2D_RECT_F get_bounds(bool with_children) override;
    bounds_token add_bounds_handler(bounds_function handler) override;
    void remove_bounds_handler(bounds_token token) override;
    D2D_MATRIX_3X2_F get_transform() override;
    bool set_transform(const D2D_MATRIX_3X2_F& new_transform) override;
    void set_transform_animation(IValueAnimation<D2D_MATRIX_3X2_F>* animation) override;
    com::ptr<INode> get_parent() override;
    bool is_ancestor_of(com::ptr<INode> other) override;
    void add_child(com::ptr<INode> child) override;
    bool remove_child(com::ptr<INode> child) override;
    bool enumerate_hits(D2D_POINT_2F point, bool innermost_first, hit_function function) override;
    bool drag_detect(input::mouse::button button) override;
    bool drag_loop(input::mouse::button button, drag_function moved) override;
    bool has_focus(bool or_descendant) override;
    void set_focus() override;
    void release_focus() override;
    void clear() override;
    handler_block allocate_handler(unsigned size) override;
    void link_handler(handler_record* record) override;
    void free_handler(handler_record* record) override;
    void remove_handler(handler_record* record) override;
    void remove_handlers(unsigned id) override;

    // IVisual::ISite
    void reserved1() override;
    void reserved2() override;
    double get_current_time() override;

    // IServiceProvider
    HRESULT STDMETHODCALLTYPE QueryService(const GUID& service, const GUID& iid, void** out) override;

    // What the scene's modules ask of a node.

    [[nodiscard]] extent content_extent() const noexcept { return extent_if(has_content, content_bounds); }
    [[nodiscard]] extent subtree_extent() const noexcept {
        return extent_if(has_subtree_bounds, subtree_bounds);
    }
    [[nodiscard]] extent hit_extent() const noexcept { return extent_if(has_hit_bounds, hit_bounds); }
    [[nodiscard]] extent subtree_hit_extent() const noexcept {
        return extent_if(has_subtree_hit_bounds, subtree_hit_bounds);
    }
    [[nodiscard]] bool in_view_with_target() const noexcept;
    /// The attachment of a target to the view that shows this node, or 0; see `view::target_id`.
    [[nodiscard]] std::uint64_t target_id() const noexcept;
    /// Holds a transform animation or has one below it.
    [[nodiscard]] bool counts_as_animated() const noexcept {
        return transform_animation || animated_nodes > 0;
    }

    /// Makes `lookup` when there is none.
    [[nodiscard]] child_lookup& child_lookup_of_many() {
        if (!lookup) lookup = std::make_unique<child_lookup>();
        return *lookup;
    }
    /// `other` is this node or below it.
    [[nodiscard]] bool is_above(const node& other) const noexcept;

    /// Replaces the recording by that of a context, whose commands are bound to the attachment `bound_to`.
    void install_recording(command_list&& new_background, command_list&& new_foreground,
                           const D2D_RECT_F& bounds, bool animated, std::uint64_t bound_to);
    /// Fills the bindings of the recording for the view's present target.
    void bind_recording();
    /// Clears them.
    void release_recording();

protected:
    ~node();

public:
    // In the order of use: what a move, a recording or a paint touches lies together, in few cache lines.
    scene::view* view = nullptr;  // borrowed; set on every node of a tree that a view shows
    node* parent = nullptr;       // borrowed: a parent owns its children
    D2D_MATRIX_3X2_F transform = identity_matrix;
    D2D_MATRIX_3X2_F inverse = identity_matrix;
    int hit_mode = hit_by_content;
    std::uint8_t clip_flags = 0;
    std::uint8_t content_flags = 0;
    bool recompute = false;           // ask all children when a change next climbs past here
    bool animated_in_parent = false;  // counted in the `animated_children` of the parent
    com::ptr<ID2D1Geometry> clip_geometry;
    D2D_RECT_F subtree_bounds{};
    D2D_RECT_F subtree_hit_bounds{};
    D2D_RECT_F content_bounds{};
    D2D_RECT_F hit_bounds{};
    command_list background;
    command_list foreground;
    com::ptr<resource<IMaterializedEffect>> effect;
    binding_ptr<IMaterializedEffect> effect_binding;
    std::vector<com::ptr<node>> children;  // in drawing order
    bounds_handler_list bounds_handlers;
    com::ptr<IValueAnimation<D2D_MATRIX_3X2_F>> transform_animation;
    int animated_nodes = 0;                // chains of descendants with a transform animation
    unsigned animated_children = 0;        // children with one of `animated_bits`
    std::unique_ptr<child_lookup> lookup;  // from the first time that there are many children
    std::uint32_t number_in_parent = 0;    // while the parent has an index
    std::uint32_t slot_in_parent = 0;      // while the parent has a tree of unions
    D2D_RECT_F clip_rect{};
    handler_list handlers;
    handler_slot<key_function> key_handler;
    handler_slot<char_function> char_handler;
    handler_slot<focus_function> focus_handler;
    int user_value = 0;
    com::ptr<IUnknown> user_object;

private:
    [[nodiscard]] extent extent_if(std::uint8_t flag, const D2D_RECT_F& rect) const noexcept {
        return content_flags & flag ? extent{true, rect} : extent{};
    }
    void reset() noexcept;
    void exchange_recordings(command_list& new_background, command_list& new_foreground);
    void set_content_animated(bool animated) noexcept;
    void store_recorded_area(const extent& content, const extent& own_hit, bool animated);

    [[no_unique_address]] factory graphics;
};

}  // namespace d2d::scene
