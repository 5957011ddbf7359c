#pragma once

#include "controls/testing/scroll_bar_model.h"

#include <array>
#include <cmath>
#include <optional>
#include <vector>

namespace d2d::fakes {

/// Where a node has been put: its translation, and its clip once it has one.
struct placed_node {
    D2D_POINT_2F at{};
    std::optional<D2D_RECT_F> clip;

    void move(float x, float y) { at = {x, y}; }
    void place(float x, float y, float width, float height) {
        move(x, y);
        clip = D2D_RECT_F{0, 0, width, height};
    }
};

/// A scroll area's rules over again.
class scroll_area_model {
public:
    static constexpr int left = 0, top = 1, right = 2, bottom = 3;
    static constexpr float bar_thickness = 12;

    struct margin {
        float fixed = 0;
        float scrolled = 0;
        bool has_element = false;
        D2D_RECT_F inset{};
        std::optional<D2D_RECT_F> element_rect;  ///< where the element was put last
        placed_node fixed_part, clip_part, scrolled_part;
    };

    explicit scroll_area_model(const D2D_RECT_F& given, float separator) : rect(given), gap(separator) {
        update(true);
    }

    D2D_RECT_F rect;
    float gap;  ///< between a margin and what is inside it
    D2D_RECT_F bounds{0, 0, 1, 1};
    D2D_POINT_2F position{};
    D2D_SIZE_F view{};
    int wheel_mode = 0;
    int align_x = -1;
    int align_y = -1;
    std::array<margin, 4> margins;
    placed_node viewport, content;
    bool shows_vertical = false;
    bool shows_horizontal = false;
    scroll_bar_model vertical{scroll_bar_model::orientation::vertical, {0, 0, 1, 1, 1}, {0, 0, 1, 1}};
    scroll_bar_model horizontal{scroll_bar_model::orientation::horizontal, {0, 0, 1, 1, 1}, {0, 0, 1, 1}};
    std::vector<D2D_RECT_F> reports;

    [[nodiscard]] D2D_RECT_F view_rect() const {
        return {position.x, position.y, position.x + view.width, position.y + view.height};
    }

    void set_content_bounds(const D2D_RECT_F& changed) {
        if (same(bounds, changed)) return;
        reported([&] {
            bounds = changed;
            update(false);
        });
    }
    void set_scroll_position(float x, float y) {
        const D2D_POINT_2F held = inside(x, y);
        vertical.set_position(held.y);
        horizontal.set_position(held.x);
        reported([&] { apply(held); });
    }
    void set_fixed_size(int side, float size) { resize(margins[static_cast<std::size_t>(side)].fixed, size); }
    void set_scrolled_size(int side, float size) {
        resize(margins[static_cast<std::size_t>(side)].scrolled, size);
    }
    void set_element(int side, bool present, const D2D_RECT_F& inset) {
        margin& m = margins[static_cast<std::size_t>(side)];
        if (m.has_element == present && same(m.inset, inset)) return;
        m.has_element = present;
        m.inset = inset;
        if (present) update(true);
    }
    void arrange(const D2D_RECT_F& changed) {
        if (width(rect) != width(changed) || height(rect) != height(changed)) {
            return reported([&] {
                rect = changed;
                update(true);
            });
        }
        if (rect.left == changed.left && rect.top == changed.top) return;
        rect = changed;
        place_parts(inner(shows_vertical, shows_horizontal));
    }
    void wheel(bool is_horizontal, bool shift, int delta) {
        int mode = wheel_mode;
        if (shift && (mode == 0 || mode == 1)) mode = 1 - mode;
        if (is_horizontal) mode = 1;
        const float sign = delta < 0 ? 1.0f : -1.0f;
        if (mode == 0) return scroll_by(0, sign * view.height / 10);
        if (mode == 1) return scroll_by(sign * view.width / 10, 0);
        if (mode != 2) return;
        const float x = (delta > 0 ? bounds.left : bounds.right - view.width) - position.x;
        const float y = (delta > 0 ? bounds.top : bounds.bottom - view.height) - position.y;
        if (x == 0 && y == 0) return;
        const float step = std::hypot(view.width, view.height) / 7 / std::hypot(x, y);
        scroll_by(x * step, y * step);
    }
    /// The same position as another reckoning has it.
    void take_position(D2D_POINT_2F at) {
        if (at.x != position.x || at.y != position.y) apply(at);
    }
    /// The user has moved a bar to `value`.
    void bar_moved(bool is_vertical, float value) {
        (is_vertical ? vertical : horizontal).set_position(value);
        reported([&] {
            apply(is_vertical ? D2D_POINT_2F{position.x, value} : D2D_POINT_2F{value, position.y});
        });
    }

private:
    static float width(const D2D_RECT_F& r) { return r.right - r.left; }
    static float height(const D2D_RECT_F& r) { return r.bottom - r.top; }
    static bool same(const D2D_RECT_F& a, const D2D_RECT_F& b) {
        return a.left == b.left && a.top == b.top && a.right == b.right && a.bottom == b.bottom;
    }

    template <class Work>
    void reported(Work&& work) {
        const D2D_RECT_F before = view_rect();
        work();
        if (!same(before, view_rect())) reports.push_back(view_rect());
    }

    [[nodiscard]] D2D_POINT_2F inside(float x, float y) const {
        const auto held = [](float value, float low, float high) {
            if (value > high) value = high;
            return value < low ? low : value;  // the start wins where there is no room
        };
        return {held(x, bounds.left, bounds.right - view.width),
                held(y, bounds.top, bounds.bottom - view.height)};
    }
    void scroll_by(float x, float y) { set_scroll_position(position.x + x, position.y + y); }

    void resize(float& stored, float size) {
        if (stored == size) return;
        reported([&] {
            stored = size;
            update(true);
        });
    }

    /// What margins and bars leave of the rectangle.
    [[nodiscard]] D2D_RECT_F inner(bool with_vertical, bool with_horizontal) const {
        D2D_RECT_F r = rect;
        if (with_vertical) r.right -= bar_thickness;
        if (with_horizontal) r.bottom -= bar_thickness;
        const auto taken = [this](int side) {
            const margin& m = margins[static_cast<std::size_t>(side)];
            return m.fixed + m.scrolled > 0 ? m.fixed + m.scrolled + gap : 0;
        };
        return {r.left + taken(left), r.top + taken(top), r.right - taken(right), r.bottom - taken(bottom)};
    }

    void update(bool force) {
        const D2D_RECT_F whole = inner(false, false);
        bool need_v = height(whole) < height(bounds);
        bool need_h = width(whole) < width(bounds);
        if (need_h != need_v) {
            if (need_h)
                need_v = height(whole) - bar_thickness < height(bounds);
            else
                need_h = width(whole) - bar_thickness < width(bounds);
        }
        const bool bars_changed = need_v != shows_vertical || need_h != shows_horizontal;
        shows_vertical = need_v;
        shows_horizontal = need_h;
        const D2D_RECT_F final = inner(need_v, need_h);
        view = {width(final), height(final)};
        apply(inside(position.x, position.y));
        horizontal.set_range({position.x, bounds.left, bounds.right - view.width, view.width, 16});
        vertical.set_range({position.y, bounds.top, bounds.bottom - view.height, view.height, 16});
        if (bars_changed || force) place_parts(final);
    }

    void place_parts(const D2D_RECT_F& final) {
        const float w = width(final);
        const float h = height(final);
        const float right_edge = rect.right - (shows_vertical ? bar_thickness : 0);
        const float bottom_edge = rect.bottom - (shows_horizontal ? bar_thickness : 0);
        viewport.place(final.left, final.top, w, h);
        for (std::size_t side = 0; side < 4; ++side) {
            margin& m = margins[side];
            const bool upright = side == left || side == right;
            if (m.scrolled != 0) {
                const float edge = side == left    ? rect.left + m.fixed
                                   : side == top   ? rect.top + m.fixed
                                   : side == right ? right_edge - m.fixed - m.scrolled
                                                   : bottom_edge - m.fixed - m.scrolled;
                if (upright)
                    m.clip_part.place(edge, final.top, m.scrolled, h);
                else
                    m.clip_part.place(final.left, edge, w, m.scrolled);
            }
            // Kept: the left fixed part is placed at any size.
            if (m.fixed != 0 || side == left) {
                const float edge = side == left    ? rect.left
                                   : side == top   ? rect.top
                                   : side == right ? right_edge - m.fixed
                                                   : bottom_edge - m.fixed;
                const float part_w = upright ? m.fixed : w;
                const float part_h = upright ? h : m.fixed;
                m.fixed_part.place(upright ? edge : final.left, upright ? final.top : edge, part_w, part_h);
                if (m.has_element) {
                    m.element_rect = D2D_RECT_F{m.inset.left, m.inset.top, part_w - m.inset.right,
                                                part_h - m.inset.bottom};
                }
            }
        }
        horizontal.arrange({rect.left, rect.bottom - bar_thickness, right_edge, rect.bottom});
        vertical.arrange({rect.right - bar_thickness, rect.top, rect.right, bottom_edge});
    }

    void apply(D2D_POINT_2F to) {
        position = to;
        const auto adjustment = [](float room, float size, int alignment) {
            if (size >= room || alignment < 0) return 0.0f;
            return -std::round(alignment == 0 ? (room - size) / 2 : room - size);
        };
        const D2D_POINT_2F moved{std::round(to.x) + adjustment(view.width, width(bounds), align_x),
                                 std::round(to.y) + adjustment(view.height, height(bounds), align_y)};
        if (moved.x == applied.x && moved.y == applied.y) return;
        applied = moved;
        content.move(-moved.x, -moved.y);
        for (const int side : {top, bottom})
            margins[static_cast<std::size_t>(side)].scrolled_part.move(-moved.x, 0);
        for (const int side : {left, right})
            margins[static_cast<std::size_t>(side)].scrolled_part.move(0, -moved.y);
    }

    D2D_POINT_2F applied{};
};

}  // namespace d2d::fakes
