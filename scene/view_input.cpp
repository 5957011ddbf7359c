// Mouse events: routed along the path of nodes under the mouse, root first and back.

#include "com/object.h"
#include "scene/hit_path.h"
#include "scene/node.h"
#include "scene/node_chain.h"
#include "scene/view.h"

#include <algorithm>
#include <optional>
#include <utility>

namespace d2d::scene {
namespace {

namespace event_type = input::mouse::event_type;
using mouse_event = input::mouse::event;

/// Calls the mouse handlers of one node. True when one of them ends the route.
bool call_mouse_handlers(node& at, node& source, int depth, const mouse_event& event) {
    const std::uint32_t wanted = std::uint32_t{1} << event.type;
    return at.handlers.dispatch(handler_kind::mouse, wanted, [&](handler_record& record) {
        const auto invoke = reinterpret_cast<INode::mouse_invoke*>(record.invoke);
        return invoke(handler_list::functor_of(&record), &source, depth, event);
    });
}

/// Visits the entries of a path of `count` with their depths: from the root down, the target, and up again.
/// Ends with the first result that is true, and gives it.
template <class Visit>
auto route(std::size_t count, Visit&& visit) -> decltype(visit(std::size_t{}, 0)) {
    const int last = static_cast<int>(count) - 1;
    for (int i = 0; i < last; ++i) {
        if (auto result = visit(static_cast<std::size_t>(i), i - last)) return result;
    }
    if (auto result = visit(count - 1, 0)) return result;
    for (int i = last - 1; i >= 0; --i) {
        if (auto result = visit(static_cast<std::size_t>(i), last - i)) return result;
    }
    return {};
}

/// Whether a node of a path has a handler: without one there is nothing to call, and nothing to keep.
bool has_handlers(const hit_path& path) noexcept {
    return std::any_of(path.begin(), path.end(),
                       [](const auto& entry) { return !entry.at->handlers.empty(); });
}

void route_mouse_event(const hit_path& path, mouse_event event) {
    if (!has_handlers(path)) return;
    const kept_path keep(path);
    node& target = *path.back().at;
    static_cast<void>(route(path.size(), [&](std::size_t index, int depth) {
        event.position = path[index].point;
        return call_mouse_handlers(*path[index].at, target, depth, event);
    }));
}

mouse_event plain_event(std::int32_t type, std::uint32_t flags) noexcept {
    return {type, std::nullopt, flags, {0, 0}, 0};
}

}  // namespace

void view::on_mouse_event(input::mouse::event event) {
    const com::ptr<view> keep = this;
    if (event.type == event_type::leave) return update_hover({}, event.flags);
    if (event.type == event_type::hover_end) {
        if (hover_target) end_hover(*hover_target, event.flags);
        return;
    }
    last_point = event.position;
    last_modifiers = event.flags;
    hit_path path;
    if (root) path = hit_path::from_root(*root, event.position);
    if (event.type == event_type::enter || event.type == event_type::move)
        return update_hover(path, event.flags);
    if (path.empty()) return;
    if (event.type == event_type::hover) hover_target = path.back().at;
    route_mouse_event(path, event);
}

/// Makes `path` the hover path: tells the nodes that the mouse has left or entered, or moved within.
void view::update_hover(const hit_path& path, std::uint32_t flags) {
    std::size_t common = 0;
    while (common < hover_path.size() && common < path.size() && hover_path[common] == path[common].at)
        ++common;
    if (common == hover_path.size() && common == path.size()) {
        if (!path.empty()) route_mouse_event(path, plain_event(event_type::move, flags));
        return;
    }
    // The new path is in place ahead of the calls: handlers that change the tree meet it, not the old one.
    node_path former = std::exchange(scratch_path, {});
    former.clear();
    for (const auto& entry : path) former.emplace_back(entry.at);
    const kept_path keep(path);
    former.swap(hover_path);
    for (std::size_t k = former.size(); k-- > common;) {
        for (std::size_t i = k + 1; i-- > 0;) {
            const int depth = static_cast<int>(i) - static_cast<int>(k);
            call_mouse_handlers(*former[i], *former[k], depth, plain_event(event_type::leave, flags));
        }
    }
    for (std::size_t k = common; k < path.size(); ++k) {
        for (std::size_t i = 0; i <= k; ++i) {
            mouse_event entered = plain_event(event_type::enter, flags);
            entered.position = path[i].point;
            call_mouse_handlers(*path[i].at, *path[k].at, static_cast<int>(i) - static_cast<int>(k), entered);
        }
    }
    former.clear();
    scratch_path = std::move(former);
}

/// The mouse rests over the end of `path`.
void view::hover_over(const hit_path& path, std::uint32_t flags) {
    hover_target = path.back().at;
    route_mouse_event(path, plain_event(event_type::hover, flags));
}

/// The mouse rests no longer over a node.
void view::end_hover(node& former, std::uint32_t flags) {
    const node_chain chain(former);
    const mouse_event event = plain_event(event_type::hover_end, flags);
    static_cast<void>(
        chain.route([&](node& at, int depth) { return call_mouse_handlers(at, chain[0], depth, event); }));
}

HCURSOR view::get_cursor(D2D_POINT_2F point) {
    if (!root) return nullptr;
    const com::ptr<view> keep = this;
    const hit_path path = hit_path::from_root(*root, point);
    if (!has_handlers(path)) return nullptr;
    const kept_path keep_nodes(path);
    return route(path.size(), [&](std::size_t index, int depth) {
        // Whatever events they name: no event asks for a cursor.
        return path[index].at->handlers.dispatch(handler_kind::cursor, 0, [&](handler_record& record) {
            const auto invoke = reinterpret_cast<INode::cursor_invoke*>(record.invoke);
            return invoke(handler_list::functor_of(&record), path.back().at, depth, {0, 0});
        });
    });
}

}  // namespace d2d::scene
