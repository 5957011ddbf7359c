#pragma once

#include "scene/testing/call_text.h"

#include <cmath>
#include <cstddef>
#include <optional>
#include <string>
#include <utility>
#include <vector>

#include <dcommon.h>

namespace d2d::fakes {

/// What popup options should do, in plain words: their state, and a line for each time that something is
/// drawn or told.
class popup_model {
public:
    enum class focus { none, control, elsewhere };
    struct row {
        int mouse = 0;
        bool hovered = false;
    };
    /// What lies under a point of the list: a row, or its label too.
    struct place {
        std::optional<std::size_t> row;
        int depth = 0;
    };

    popup_model(std::vector<int> option_ids, const D2D_RECT_F& control_rect)
        : ids(std::move(option_ids)), rect(control_rect) {
        draw();
    }

    std::vector<std::string> said;
    std::vector<int> ids;
    D2D_RECT_F rect;
    std::optional<int> selected;
    bool has_handler = false;
    int hovering = 0;  ///< nodes of the control under the mouse
    D2D_POINT_2F mouse_at{};
    bool window_has_focus = false;
    focus focused = focus::none;

    // The label in the control.
    std::optional<std::size_t> shown;
    D2D_POINT_2F shown_at{};

    // The list.
    bool open = false;
    bool taken_apart = false;  ///< while a change is told
    int lists = 0;             ///< so far: tells one from the next
    D2D_RECT_F list_rect{};
    bool list_has_focus = false;
    std::vector<row> rows;
    place list_mouse;

    [[nodiscard]] static D2D_POINT_2F centre_of(const D2D_RECT_F& area) {
        return {(area.left + area.right) * 0.5f, (area.top + area.bottom) * 0.5f};
    }
    [[nodiscard]] D2D_SIZE_F row_size() const {
        return {list_rect.right - list_rect.left - 2, list_rect.bottom - list_rect.top - 2};
    }
    [[nodiscard]] D2D_POINT_2F row_corner(std::size_t index) const {
        return {list_rect.left + 1, list_rect.top + 1 + row_size().height * static_cast<float>(index)};
    }
    [[nodiscard]] bool is_focused() const { return window_has_focus && focused == focus::control; }

    // The control.

    /// How many nodes of the control lie under a point, which is not near its outline.
    [[nodiscard]] int depth_at(D2D_POINT_2F point) const {
        const bool on_label =
            shown && std::abs(point.x - shown_at.x) < 5 && std::abs(point.y - shown_at.y) < 3;
        const bool on_control =
            point.x > rect.left && point.x < rect.right && point.y > rect.top && point.y < rect.bottom;
        return on_label ? 2 : on_control ? 1 : 0;
    }
    void move_to(D2D_POINT_2F point) {
        mouse_at = point;
        hover(depth_at(point));
    }
    void leave() { hover(0); }
    void arrange(const D2D_RECT_F& wanted) {
        rect = wanted;
        if (!open) show_selected();
        draw();
    }
    void select(std::optional<int> id) {
        if (id == selected) return;
        hide_label();
        selected = id;
        if (!open) show_selected();
    }
    void change_window_focus(bool has) {
        if (!has && !window_has_focus) return;
        window_has_focus = has;
        if (focused == focus::control) draw();
    }
    void move_focus(focus to) {
        const focus from = std::exchange(focused, to);
        if (!window_has_focus) return;
        if (from == focus::control) draw();
        if (to == focus::control) draw();
    }
    void press(D2D_POINT_2F point, bool left) {
        mouse_at = point;
        const int depth = depth_at(point);
        for (int i = 0; i < depth; ++i) move_focus(focus::control);  // the label lets it pass by twice
        if (depth == 1 && left && !open) open_list();
    }

    // The list.

    void move_over_list(const place& to) {
        if (to.row != list_mouse.row) {
            count_hot(list_mouse.row, -list_mouse.depth);
            count_hot(to.row, to.depth);
        } else {
            count_hot(to.row, to.depth - list_mouse.depth);
        }
        list_mouse = to;
    }
    /// A press of the left button, which starts a drag.
    void press_in_list(std::optional<std::size_t> on) {
        for (row& each : rows) each.mouse = 0;
        drag_to(on);
    }
    void drag_to(std::optional<std::size_t> over) {
        for (std::size_t i = 0; i < rows.size(); ++i) {
            const bool hovered = over == i;
            if (std::exchange(rows[i].hovered, hovered) != hovered) draw_row(i);
        }
    }
    /// The drag ends. True: a change is being told, and `close` has to follow.
    [[nodiscard]] bool release() {
        std::optional<int> chosen;
        for (std::size_t i = 0; i < rows.size(); ++i) {
            if (rows[i].hovered) chosen = ids[i];
        }
        return end(chosen);
    }
    void change_list_focus(bool has) {
        const bool had = std::exchange(list_has_focus, has);
        if (had && !has && !taken_apart) static_cast<void>(end({}));
    }
    void close() {
        open = taken_apart = false;
        show_selected();
        draw();
    }

private:
    static std::string state(bool first, const char* word, bool second, const char* other) {
        return std::string(first ? word : "") + (second ? other : "");
    }
    static std::string frame_of(const D2D_RECT_F& area) {
        return scene::fakes::call_text("frame", area.left + 0.5f, area.top + 0.5f, area.right - 0.5f,
                                       area.bottom - 0.5f, "r", 2.5f) +
               ":";
    }
    void draw() {
        if (!open) said.push_back(frame_of(rect) + state(hovering > 0, " hot", is_focused(), " focused"));
    }
    void draw_row(std::size_t index) {
        const auto& [mouse, hovered] = rows[index];
        const D2D_SIZE_F size = row_size();
        said.push_back(scene::fakes::call_text("option", 0, 0, size.width, size.height, "r", 2) + ":" +
                       state(mouse > 0, " hot", hovered, " down"));
    }
    void count_hot(std::optional<std::size_t> index, int change) {
        if (!index || *index >= rows.size()) return;
        const bool was_hot = rows[*index].mouse > 0;
        rows[*index].mouse += change;
        if ((rows[*index].mouse > 0) != was_hot) draw_row(*index);
    }

    void hover(int depth) {
        const bool was_hot = hovering > 0;
        hovering = depth;
        if ((depth > 0) != was_hot) draw();
    }
    /// Where it was under the mouse, the view looks what is there now, at the last point that it was told.
    void hide_label() {
        if (std::exchange(shown, std::nullopt) && hovering > 1) hover(depth_at(mouse_at));
    }
    void show_selected() {
        for (std::size_t i = 0; i < ids.size(); ++i) {
            if (ids[i] != selected) continue;
            shown = i;
            shown_at = centre_of(rect);
        }
    }
    void open_list() {
        hide_label();
        open = true;
        ++lists;
        list_rect = rect;
        list_has_focus = false;
        list_mouse = {};
        rows.assign(ids.size(), {});
        D2D_RECT_F frame = rect;
        frame.bottom = rect.top + 2 + row_size().height * static_cast<float>(ids.size());
        said.push_back(frame_of(frame) + " focused");
        for (std::size_t i = 0; i < rows.size(); ++i) draw_row(i);
    }
    bool end(std::optional<int> choice) {
        rows.clear();
        taken_apart = true;
        const bool changes = choice && choice != selected;
        if (changes) selected = choice;
        show_selected();
        if (changes && has_handler) {
            said.push_back("change " + std::to_string(*choice));
            return true;
        }
        close();
        return false;
    }
};

}  // namespace d2d::fakes
