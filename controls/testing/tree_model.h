#pragma once

#include "com/ptr.h"
#include "d2d/ui/ITreeNode.h"
#include "scene/testing/call_text.h"

#include <algorithm>
#include <cmath>
#include <functional>
#include <string>
#include <vector>

namespace d2d::fakes {

/// An entry of a tree as it should be, and how its rows should lie: found anew each time, from the root down.
struct tree_model {
    com::ptr<ui::ITreeNode> node;
    std::wstring text;
    float state_icon_width = 0;
    bool expandable = false;
    bool expanded = false;
    bool selected = false;
    tree_model* parent = nullptr;
    std::vector<tree_model*> children;
    int shown_in = -1;  ///< for one without a parent: the number of the view that has its rows

    [[nodiscard]] tree_model& root() noexcept { return parent ? parent->root() : *this; }
    [[nodiscard]] int view() noexcept { return root().shown_in; }
    [[nodiscard]] bool has_expander() noexcept { return view() >= 0 && (expandable || !children.empty()); }
    [[nodiscard]] bool is_below(const tree_model& other) const noexcept {
        return this == &other || (parent && parent->is_below(other));
    }

    void remove(tree_model& child) {
        std::erase(children, &child);
        child.parent = nullptr;
        if (children.empty()) expanded = false;
    }
    void add(tree_model& child) {
        if (child.parent) child.parent->remove(child);
        child.shown_in = -1;
        child.parent = this;
        children.push_back(&child);
    }
};

/// The rows of a tree, and what they take.
class tree_rows {
public:
    using measure_function = std::function<D2D_SIZE_F(const std::wstring& text)>;

    explicit tree_rows(measure_function text_size) : measure(std::move(text_size)) {}

    void add_tree(tree_model& root) { size = place(root, 0, 0); }

    [[nodiscard]] static std::string row(float x, float y, bool has_expander, D2D_POINT_2F expander,
                                         D2D_POINT_2F icon, D2D_POINT_2F text, D2D_SIZE_F text_size) {
        using scene::fakes::call_text;
        std::string line = call_text("row", y, x, "icon", icon, "text", text, text_size);
        return has_expander ? line + call_text(" expander", expander) : line;
    }

    std::vector<std::string> lines;
    std::vector<tree_model*> models;        // of the lines
    std::vector<D2D_POINT_2F> text_places;  // the middle of each row's text
    D2D_SIZE_F size{};                      // of the latest tree

private:
    /// Returns where the next row starts, and how wide the rows are.
    D2D_SIZE_F place(tree_model& model, float x, float y) {
        const D2D_SIZE_F text = measure(model.text);
        const float height = std::max(text.height, 16.0f);
        const float text_x = 14 + model.state_icon_width + 16 + 2;
        const float text_y = std::max(0.0f, std::floor((height - text.height - 2) / 2));
        const float icon_y = std::floor((height - 16) / 2);
        lines.push_back(row(x, y, model.has_expander(), {6, std::floor(height / 2)}, {14, icon_y},
                            {text_x, text_y}, text));
        models.push_back(&model);
        text_places.push_back({x + text_x + text.width / 2 + 1.5f, y + text_y + text.height / 2 + 1});
        D2D_SIZE_F end{x + text_x + text.width + 2, y + height + 2};
        if (!model.expanded) return end;
        for (tree_model* const child : model.children) {
            const D2D_SIZE_F of_child = place(*child, x + 14, end.height);
            end = {std::max(end.width, of_child.width), of_child.height};
        }
        return end;
    }

    measure_function measure;
};

}  // namespace d2d::fakes
