#pragma once

#include "scene/testing/call_text.h"

#include <algorithm>
#include <cstdint>
#include <functional>
#include <list>
#include <optional>
#include <string>
#include <vector>

namespace d2d::fakes {

/// The rules of a label table's body over again, with everything worked out anew each time. Both columns are
/// 20 wide without margins of their own.
class label_table_model {
public:
    struct row {
        int key = 0;
        int value = 0;
        float height = 0;
        float margin_above = 0;
        float margin_below = 0;
        bool selected = false;
        std::string color = "none";
        // As of the latest layout.
        float top = 0;
        float bottom = 0;
        float above = 0;
        float below = 0;

        [[nodiscard]] float upper_end() const { return top - above; }
        [[nodiscard]] float lower_end() const { return bottom + below; }
    };

    std::vector<row*> rows;   ///< in the order of insertion
    std::vector<row*> shown;  ///< from the top down
    bool multi_select = false;
    std::function<int(int, int)> compare;
    std::vector<std::string> selection_drawing;
    std::vector<std::string> hot_drawing;

    void insert(std::size_t index, const row& added) {
        kept_.push_back(added);
        rows.insert(rows.begin() + static_cast<std::ptrdiff_t>(std::min(index, rows.size())), &kept_.back());
    }
    void remove(std::size_t index) {
        std::erase(shown, rows[index]);
        rows.erase(rows.begin() + static_cast<std::ptrdiff_t>(index));
    }
    void clear() {
        rows.clear();
        shown.clear();
        anchor_.reset();
    }
    void lay_out() {
        if (hot_ && *hot_ >= rows.size()) hot_.reset();
        shown = rows;
        if (compare) {
            std::stable_sort(shown.begin(), shown.end(),
                             [this](const row* a, const row* b) { return compare(a->value, b->value) < 0; });
        }
        float position = 0;
        float margin = 0;
        for (row* const each : shown) {
            each->above = std::max(2.0f, each->margin_above);
            each->below = std::max(2.0f, each->margin_below);
            each->top = position + std::max(each->above, margin);
            each->bottom = position = each->top + each->height;
            margin = each->below;
        }
        draw_all();
    }

    void move(float y) { set_hot(row_at(y)); }
    void leave() { set_hot(std::nullopt); }
    void press(float y, std::uint32_t flags) {
        const auto clicked = row_at(y);
        if (!clicked) return;
        if (!multi_select || flags == 1) {
            select(*clicked, *clicked);
        } else if (flags == 5) {
            if (!anchor_) anchor_ = *clicked;
            select(std::min(*anchor_, *clicked), std::max(*anchor_, *clicked));
        } else if (flags == 9) {
            anchor_ = *clicked;
            set_selected(*shown[*clicked], !shown[*clicked]->selected);
            draw_all();
        }
    }

    [[nodiscard]] std::vector<const row*> selected() const {
        std::vector<const row*> found;
        for (const row* const each : shown) {
            if (each->selected) found.push_back(each);
        }
        return found;
    }

private:
    [[nodiscard]] std::optional<std::size_t> row_at(float y) const {
        for (std::size_t i = 0; i < shown.size(); ++i) {
            if (y >= shown[i]->upper_end() && y < shown[i]->lower_end()) return i;
        }
        return std::nullopt;
    }
    void set_selected(row& changed, bool selected) {
        if (changed.selected == selected) return;
        changed.selected = selected;
        changed.color = selected ? "selected.text" : "text";
    }
    void select(std::size_t first, std::size_t last) {
        for (std::size_t i = 0; i < shown.size(); ++i) set_selected(*shown[i], i >= first && i <= last);
        draw_all();
    }
    void set_hot(std::optional<std::size_t> index) {
        if (hot_ == index) return;
        hot_ = index;
        draw_hot();
    }

    [[nodiscard]] static std::string shape(const row& first, const row& last, float shrunk_by) {
        return "(" +
               scene::fakes::call_text(8 + shrunk_by, first.upper_end() + shrunk_by, 56 - shrunk_by,
                                       last.lower_end() - shrunk_by, 3, 3) +
               ") ";
    }
    void draw_all() {
        selection_drawing.clear();
        for (std::size_t i = 0; i < shown.size();) {
            const std::size_t first = i;
            while (i < shown.size() && shown[i]->selected) ++i;
            if (i > first) {
                selection_drawing.push_back("Fill" + shape(*shown[first], *shown[i - 1], 0) +
                                            "selected.background");
            } else {
                ++i;
            }
        }
        draw_hot();
    }
    void draw_hot() {
        hot_drawing.clear();
        if (!hot_ || *hot_ >= shown.size()) return;
        const row& drawn = *shown[*hot_];
        const std::string state = drawn.selected ? "hot.selected." : "hot.";
        hot_drawing = {"Fill" + shape(drawn, drawn, 0.5f) + state + "background",
                       "Draw" + shape(drawn, drawn, 0.5f) + state + "outline 1 null"};
    }

    std::list<row> kept_;  // also those that have gone
    std::optional<std::size_t> hot_;
    std::optional<std::size_t> anchor_;
};

}  // namespace d2d::fakes
