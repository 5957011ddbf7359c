#pragma once

#include "d2d/input/mouse.h"
#include "scene/testing/call_text.h"
#include "scene/testing/hit_model.h"

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <string>
#include <utility>
#include <vector>

namespace d2d::scene::fakes {

/// A node that hears events, as plain data.
struct listener_model : hit_model {
    int number = 0;
    bool hears_keys = false;
    bool hears_focus = false;
    bool hears_descendants = false;
};

/// A view as plain data: what it says to its nodes is worked out by the rules, one line for each call.
class input_model {
public:
    using node = listener_model;

    node* root = nullptr;
    bool has_focus = false;
    std::vector<std::string> lines;
    /// The call, counted from 1, whose handler returns true.
    int stop_at = 0;

    void mouse_event(const input::mouse::event& event) {
        namespace type = input::mouse::event_type;
        if (event.type == type::leave) return update_hover({}, event.flags);
        if (event.type == type::hover_end) return end_hover(event.flags);
        last_point = event.position;
        last_flags = event.flags;
        const path way = path_at(event.position);
        if (event.type == type::enter || event.type == type::move) return update_hover(way, event.flags);
        if (way.empty()) return;
        if (event.type == type::hover) hover_target = way.back().at;
        route(way, event);
    }

    /// The number of the node whose handler gave a cursor, or -1.
    int cursor(D2D_POINT_2F point) {
        const path way = path_at(point);
        int answer = -1;
        go_down_and_up(way.size(), [&](std::size_t i, int depth) {
            if (!tell(call_text("cursor", way[i].at->number, depth, way.back().at->number))) return false;
            answer = way[i].at->number;
            return true;
        });
        return answer;
    }

    bool key() {
        const chain up = chain_of(focus);
        return go_down_and_up(up.size(), [&](std::size_t i, int depth) {
            const node& at = *up[i];
            return at.hears_keys && tell(call_text("key", at.number, depth, at.number));
        });
    }
    void character() {
        const chain up = chain_of(focus);
        go_down_and_up(up.size(), [&](std::size_t i, int depth) {
            const node& at = *up[i];
            return at.hears_keys && tell(call_text("char", at.number, depth, focus->number));
        });
    }

    void gain_focus() {
        has_focus = true;
        tell_focus(focus, nullptr, focus);
    }
    void lose_focus() {
        if (std::exchange(has_focus, false)) tell_focus(focus, focus, nullptr);
    }
    void set_focus(node& next) {
        node* const old = std::exchange(focus, &next);
        if (!has_focus) {
            lines.emplace_back("request_focus");
            return;
        }
        if (old) tell_ancestors(*old, next);
        tell_focus(old, old, &next);
        tell_focus(&next, old, &next);
    }
    void release_focus(node& from) {
        if (focus != &from) return;
        focus = nullptr;
        tell_focus(&from, &from, nullptr);
    }
    [[nodiscard]] bool is_focus(const node& of, bool or_descendant) const {
        if (!has_focus || !focus) return false;
        return or_descendant ? of.is_above(*focus) : focus == &of;
    }

    /// Takes a subtree of the view from it; `detach` then takes it from its parent.
    template <class Detach>
    void take_out(node& top, Detach&& detach) {
        const bool hovered = hover_target && top.is_above(*hover_target);
        if (hovered) {
            end_hover(last_flags);
            hover_target = nullptr;
        }
        const bool on_path = std::find(hover_path.begin(), hover_path.end(), &top) != hover_path.end();
        if (focus && top.is_above(*focus)) {
            node* const old = std::exchange(focus, nullptr);
            tell_focus(old, old, nullptr);
        }
        detach();
        if (!hovered && !on_path) return;
        const path way = path_at(last_point);
        if (on_path) update_hover(way, last_flags);
        if (!hovered || way.empty()) return;
        hover_target = way.back().at;
        route(way, {input::mouse::event_type::hover, {}, last_flags, {}, 0});
    }

private:
    struct place {
        node* at;
        D2D_POINT_2F point;
    };
    using path = std::vector<place>;
    using chain = std::vector<node*>;  // root first

    [[nodiscard]] path path_at(D2D_POINT_2F point) const {
        path result;
        if (!root) return result;
        for (const auto& step : root->path_at(point))
            result.push_back({const_cast<node*>(static_cast<const node*>(step.at)), step.point});
        return result;
    }
    static chain chain_of(node* bottom) {
        chain result;
        for (tree_model* at = bottom; at; at = at->parent) result.push_back(static_cast<node*>(at));
        std::reverse(result.begin(), result.end());
        return result;
    }
    static int number_of(const node* of) { return of ? of->number : -1; }

    bool tell(std::string line) {
        lines.push_back(std::move(line));
        return --stop_at == 0;
    }
    bool tell_mouse(const node& at, int depth, const node& source, const input::mouse::event& event) {
        return tell(call_text("mouse", at.number, event.type, depth, source.number, event.position,
                              event.flags, event.button ? static_cast<int>(*event.button) : -1,
                              event.wheel_delta));
    }
    void tell_focus(const node* at, const node* old, const node* next) {
        if (at && at->hears_focus) tell(call_text("focus", at->number, number_of(old), number_of(next)));
    }
    void tell_ancestors(node& old, node& next) {
        chain a = chain_of(&old);
        chain b = chain_of(&next);
        a.pop_back();
        b.pop_back();
        const auto tell_one = [&](const node* at) {
            if (at->hears_descendants) tell_focus(at, &old, &next);
        };
        std::size_t i = 0;
        for (; i < a.size() && i < b.size() && a[i] == b[i]; ++i) tell_one(a[i]);
        for (; i < a.size() || i < b.size(); ++i) {
            if (i < a.size()) tell_one(a[i]);
            if (i < b.size()) tell_one(b[i]);
        }
    }

    template <class Visit>
    static bool go_down_and_up(std::size_t count, Visit&& visit) {
        const int last = static_cast<int>(count) - 1;
        for (int i = 0; i <= last; ++i) {
            if (visit(static_cast<std::size_t>(i), i - last)) return true;
        }
        for (int i = last - 1; i >= 0; --i) {
            if (visit(static_cast<std::size_t>(i), last - i)) return true;
        }
        return false;
    }
    void route(const path& way, input::mouse::event event) {
        go_down_and_up(way.size(), [&](std::size_t i, int depth) {
            event.position = way[i].point;
            return tell_mouse(*way[i].at, depth, *way.back().at, event);
        });
    }
    void end_hover(std::uint32_t flags) {
        const chain up = chain_of(hover_target);
        go_down_and_up(up.size(), [&](std::size_t i, int depth) {
            return tell_mouse(*up[i], depth, *hover_target,
                              {input::mouse::event_type::hover_end, {}, flags, {}, 0});
        });
    }
    void update_hover(const path& way, std::uint32_t flags) {
        namespace type = input::mouse::event_type;
        std::vector<node*> next;
        for (const place& each : way) next.push_back(each.at);
        const auto old = std::exchange(hover_path, next);
        if (old == next) return route(way, {type::move, {}, flags, {}, 0});
        const auto common = static_cast<std::size_t>(
            std::mismatch(old.begin(), old.end(), next.begin(), next.end()).first - old.begin());
        for (std::size_t k = old.size(); k > common; --k) {
            for (std::size_t i = k; i > 0; --i) {
                const int depth = static_cast<int>(i) - static_cast<int>(k);
                tell_mouse(*old[i - 1], depth, *old[k - 1], {type::leave, {}, flags, {}, 0});
            }
        }
        for (std::size_t k = common; k < next.size(); ++k) {
            for (std::size_t i = 0; i <= k; ++i) {
                const int depth = static_cast<int>(i) - static_cast<int>(k);
                tell_mouse(*next[i], depth, *next[k], {type::enter, {}, flags, way[i].point, 0});
            }
        }
    }

    std::vector<node*> hover_path;
    node* hover_target = nullptr;
    node* focus = nullptr;
    D2D_POINT_2F last_point{};
    std::uint32_t last_flags = 0;
};

}  // namespace d2d::scene::fakes
