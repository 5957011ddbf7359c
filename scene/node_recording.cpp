// What a node has recorded: its exchange, its bindings, its effect.

#include "com/object.h"
#include "scene/node.h"
#include "scene/node_bounds.h"
#include "scene/view.h"

#include <algorithm>
#include <utility>

namespace d2d::scene {
namespace {

constexpr float hit_tolerance = 1.0f;

bool shows(const command_list& commands, const IVisual* visual) noexcept {
    return std::any_of(commands.begin(), commands.end(),
                       [=](const command& recorded) { return visual_of(recorded) == visual; });
}

/// Calls `function(IVisual*)` for the visuals of a recording that another one does not show, foreground
/// first.
template <class Function>
void for_each_visual_missing(const command_list& foreground, const command_list& background,
                             const command_list& other_foreground, const command_list& other_background,
                             Function&& function) {
    for (const command_list* commands : {&foreground, &background}) {
        for (const command& recorded : *commands) {
            IVisual* const visual = visual_of(recorded);
            if (visual && !shows(other_foreground, visual) && !shows(other_background, visual))
                function(visual);
        }
    }
}

/// The site that visuals are given: kept, it is that of the first node in the process that ever recorded.
IVisual::ISite* visual_site(node& recorded) {
    static IVisual::ISite* const first = &recorded;
    return first;
}

/// Whether a node covers just this content already, and is hit on just this.
bool covers(const node& at, const extent& content, const extent& own_hit) noexcept {
    constexpr auto both = node::has_content | node::has_hit_bounds;
    return content.valid && own_hit.valid && (at.content_flags & both) == both &&
           same_edges(content.rect, at.content_bounds) && same_edges(own_hit.rect, at.hit_bounds);
}

bool contains_any(const command_list& commands, D2D_POINT_2F point) {
    return std::any_of(commands.begin(), commands.end(), [=](const command& recorded) {
        return command_contains(recorded, point, hit_tolerance);
    });
}

}  // namespace

bool node::hit_test(D2D_POINT_2F point) {
    return contains_any(foreground, point) || contains_any(background, point);
}

void node::install_recording(command_list&& new_background, command_list&& new_foreground,
                             const D2D_RECT_F& bounds, bool animated, std::uint64_t bound_to) {
    const bool shown = in_view_with_target();
    if (bound_to != target_id()) {
        // The target has come or gone since. Ahead of any change: what cannot be bound is not installed.
        for (command& recorded : new_background) bind_resource(recorded, shown ? view : nullptr);
        for (command& recorded : new_foreground) bind_resource(recorded, shown ? view : nullptr);
    }
    const bool has_commands = !new_foreground.empty() || !new_background.empty();
    const extent content{has_commands, has_commands ? bounds : D2D_RECT_F{}};
    const extent own_hit = own_hit_extent(*this, hit_mode, clip_geometry.get(), content);
    if (shown && (content_flags & has_content)) view->invalidate(*this, false);
    exchange_recordings(new_background, new_foreground);

    const bool was_animated = (content_flags & animated_bits) != 0;
    bool changed = false;
    if (!recompute && covers(*this, content, own_hit)) {
        set_content_animated(animated);
        if (parent) propagate_animation_change(*this);
    } else {
        const reach before = reach_of(*this);
        store_recorded_area(content, own_hit, animated);
        changed = differs(subtree_extent(), before.bounds);
        if (parent) propagate_reach_change(*this, before);
    }
    if (!parent && view && was_animated != ((content_flags & animated_bits) != 0)) view->update_clock();
    if (in_view_with_target() && (content_flags & has_content)) view->invalidate(*this, false);
    if (changed) bounds_handlers.call(subtree_extent());
}

/// Swaps the recordings, and tells the visuals that only one of them shows. The arguments hold the old one
/// from then on; they outlive the exchange, so that what both use is never released in between.
void node::exchange_recordings(command_list& new_background, command_list& new_foreground) {
    IVisual::ISite* const site = visual_site(*this);
    for_each_visual_missing(foreground, background, new_foreground, new_background,
                            [=](IVisual* visual) { visual->detach(site); });
    foreground.swap(new_foreground);
    background.swap(new_background);
    for_each_visual_missing(foreground, background, new_foreground, new_background,
                            [=](IVisual* visual) { visual->attach(site); });
}

void node::set_content_animated(bool animated) noexcept {
    content_flags = static_cast<std::uint8_t>(animated ? content_flags | content_animated
                                                       : content_flags & ~content_animated);
}

/// Takes what a new recording covers, and is hit on, into the node's rectangles.
void node::store_recorded_area(const extent& content, const extent& own_hit, bool animated) {
    const extent hit_before = hit_extent();
    const extent subtree = subtree_extent_with(*this, content);
    content_bounds = content.rect;
    const auto kept = content_flags & (has_hit_bounds | has_subtree_hit_bounds | focus_of_descendants);
    content_flags = static_cast<std::uint8_t>(
        kept | (content.valid ? has_content : 0) | (subtree.valid ? has_subtree_bounds : 0) |
        (animated ? content_animated : 0) | (animated_children > 0 ? children_animated : 0));
    subtree_bounds = subtree.rect;
    union_tree::child_changed(*this);
    store_own_hit_bounds(*this, own_hit);
    update_subtree_hit_bounds(*this, hit_before);
}

void node::bind_recording() {
    if (effect) effect_binding = effect->bind_typed(view);
    for (command& recorded : background) bind_command(recorded, *view);
    for (command& recorded : foreground) bind_command(recorded, *view);
}

void node::release_recording() {
    for (command& recorded : foreground) release_command(recorded, *view);
    for (command& recorded : background) release_command(recorded, *view);
    if (effect) effect_binding.reset();
}

void node::set_effect(IEffect* new_effect) {
    com::ptr<resource<IMaterializedEffect>> used(new_effect);
    const bool shown = in_view_with_target();
    // Ahead of any change: an effect that cannot be made is not set.
    binding_ptr<IMaterializedEffect> made = shown && used ? used->bind_typed(view) : nullptr;
    if (shown && effect && used != effect) {
        view->invalidate(*this, false);
        effect_binding.reset();
    }
    effect = std::move(used);
    if (shown && effect) {
        effect_binding = std::move(made);
        view->invalidate(*this, false);
    }
}

}  // namespace d2d::scene
