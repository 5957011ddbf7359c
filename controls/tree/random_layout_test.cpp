// Trees through random changes and selections, compared with a model that lays them out anew from their
// roots.

#include "com/object.h"
#include "controls/testing/tree_model.h"
#include "controls/text_extent.h"
#include "controls/tree/control.h"
#include "scene/testing/tree_test.h"
#include "support/random_seed.h"

#include <array>
#include <iostream>
#include <map>
#include <memory>
#include <random>
#include <string>
#include <utility>
#include <vector>

#include <gtest/gtest.h>

namespace d2d::ui::tree {
namespace {

using fakes::tree_model;
using fakes::tree_rows;
using scene::fakes::call_text;
using scene::fakes::thrown_by;

class random_layout_test : public scene::fakes::tree_test, public tree_handler {
protected:
    static constexpr std::size_t most = 60;  // nodes at a time

    void SetUp() override {
        tree_test::SetUp();
        for (auto& each : views) {
            each = com::create_object<control>();
            each->set_handler(this);
            each->arrange({0, 0, 100, 50});
            root->add_child(each->get_node());
        }
        for (const unsigned width : {8u, 16u, 21u})
            icons.push_back(
                scene::IBitmap::create({width, 16}, std::make_unique<unsigned[]>(std::size_t{width} * 16)));
        show();
    }
    void TearDown() override {
        for (auto& each : views) {
            root->remove_child(each->get_node());
            each.reset();
        }
        models.clear();
        icons.clear();
        tree_test::TearDown();
    }

    // tree_handler: refuses, fills, or lets it be, as was drawn ahead.

    bool can_expand(ITreeNode* asked) override {
        ++asked_count;
        EXPECT_EQ(expanding->node.get(), asked);
        if (refuses) return false;
        for (; filled_in > 0; --filled_in) add(*expanding, make());
        return true;
    }
    void collapsed(ITreeNode* told) override { told_collapsed.push_back(told); }
    void context_menu(ITreeNode*) override {}
    void drag_begin(ITreeNode*, D2D_POINT_2F, input::mouse::button) override {}
    void selection_changed(ITreeNode* old_node, ITreeNode* new_node) override {
        told_selected.emplace_back(old_node, new_node);
    }

    // Choices

    [[nodiscard]] unsigned below(std::size_t limit) { return static_cast<unsigned>(random() % limit); }
    [[nodiscard]] bool one_in(unsigned chance) { return below(chance) == 0; }
    [[nodiscard]] tree_model& any() { return *models[below(models.size())]; }
    [[nodiscard]] std::wstring any_text() {
        std::wstring text(below(one_in(4) ? 40 : 4), L'm');
        if (one_in(3) && !text.empty()) text[below(text.size())] = L'\n';  // a higher row
        return text;
    }

    // What is done to both

    tree_model& make() {
        auto& made = *models.emplace_back(std::make_unique<tree_model>());
        made.node = ITreeNode::create();
        set_text(made);
        if (one_in(3)) set_expandable(made, true);
        return made;
    }
    void set_text(tree_model& of) {
        of.text = any_text();
        of.node->set_text(of.text.data(), of.text.size());
    }
    void set_state_icon(tree_model& of) {
        const unsigned chosen = below(icons.size() + 1);
        scene::IBitmap* const icon = chosen < icons.size() ? icons[chosen].get() : nullptr;
        of.state_icon_width = icon ? static_cast<float>(icon->get_size().width) : 0;
        of.node->set_state_icon(icon);
    }
    static void set_expandable(tree_model& of, bool value) {
        of.expandable = value;
        of.node->set_expandable(value);
    }
    void add(tree_model& to, tree_model& child) {
        if (to.is_below(child)) {
            EXPECT_EQ("a tree node can't be put below itself",
                      thrown_by([&] { to.node->add_child(child.node.get()); }));
            return;
        }
        take_from_views(child);
        to.add(child);
        to.node->add_child(child.node.get());
    }
    static void remove(tree_model& from, tree_model& child) {
        from.node->remove_child(child.node.get());
        if (child.parent == &from) from.remove(child);
    }
    void set_expanded(tree_model& of, bool value) {
        refuses = one_in(5);
        filled_in = one_in(3) && models.size() < most ? below(3) : 0;
        expanding = &of;
        asked_count = 0;
        told_collapsed.clear();
        const bool toggles = of.has_expander() && of.expanded != value;
        of.node->set_expanded(value);
        EXPECT_EQ(toggles && value, asked_count == 1);
        EXPECT_EQ(toggles && !value, told_collapsed == std::vector{of.node.get()});
        if (!toggles || !value || !refuses) of.expanded = value;
        filled_in = 0;
    }
    void select(tree_model& wanted) {
        const int view_number = wanted.view();
        told_selected.clear();
        if (view_number < 0) {
            EXPECT_EQ("tree node must be in tree", thrown_by([&] { views[0]->select(wanted.node.get()); }));
            return;
        }
        views.at(static_cast<std::size_t>(view_number))->select(wanted.node.get());
        if (wanted.selected) {
            EXPECT_TRUE(told_selected.empty());
            return;
        }
        // Several may have come in selected, of which one is told.
        std::vector<ITreeNode*> former;
        for (const auto& each : models) {
            if (each->view() != view_number || !std::exchange(each->selected, false)) continue;
            former.push_back(each->node.get());
        }
        wanted.selected = true;
        ASSERT_EQ(1u, told_selected.size());
        const auto [old_node, new_node] = told_selected.front();
        EXPECT_EQ(wanted.node.get(), new_node);
        EXPECT_EQ(former.empty(), old_node == nullptr);
        EXPECT_EQ(former.empty() ? 0 : 1, std::count(former.begin(), former.end(), old_node));
        ++selections;
    }
    void set_root(std::size_t view_number, tree_model* wanted) {
        control& shown = *views.at(view_number);
        if (wanted && wanted->parent) {
            EXPECT_EQ("a tree's root can't have a parent",
                      thrown_by([&] { shown.set_root(wanted->node.get()); }));
            return;
        }
        if (wanted) {
            take_from_views(*wanted);
            wanted->shown_in = static_cast<int>(view_number);
        }
        roots.at(view_number) = wanted;
        if (wanted) had_root.at(view_number) = true;
        shown.set_root(wanted ? wanted->node.get() : nullptr);
    }
    void take_from_views(tree_model& gone) {
        for (auto& each : roots) {
            if (each == &gone) each = nullptr;
        }
        gone.shown_in = -1;
    }
    /// Lets go of a whole tree that is in no view, or whose view has another root.
    void forget_tree(tree_model& top) {
        if (top.parent || std::find(roots.begin(), roots.end(), &top) != roots.end()) return;
        std::vector<tree_model*> gone{&top};
        for (std::size_t i = 0; i < gone.size(); ++i)
            gone.insert(gone.end(), gone[i]->children.begin(), gone[i]->children.end());
        std::erase_if(models, [&](const auto& each) {
            return std::find(gone.begin(), gone.end(), each.get()) != gone.end();
        });
    }

    void do_something() {
        if (models.empty() || (models.size() < most && one_in(6))) {
            tree_model& made = make();
            if (!one_in(8)) add(any(), made);
        }
        switch (below(16)) {
            case 0:
            case 1:
                return set_text(any());
            case 2:
                return set_state_icon(any());
            case 3:
                return set_expandable(any(), one_in(2));
            case 4:
            case 5:
                return add(any(), any());
            case 6: {
                tree_model& from = any();
                return remove(from,
                              from.children.empty() ? any() : *from.children[below(from.children.size())]);
            }
            case 7:
                if (one_in(4)) set_root(below(views.size()), one_in(10) ? nullptr : &any().root());
                return;
            case 8:
                if (one_in(8)) set_root(below(views.size()), &any());
                return;
            case 9:
                if (models.size() > most / 2) forget_tree(any());
                return;
            case 10:
                return select(any());
            default:
                return set_expanded(any(), !one_in(4));
        }
    }

    // What both look like

    [[nodiscard]] D2D_SIZE_F text_size(const std::wstring& text) {
        const auto found = sizes.find(text);
        if (found != sizes.end()) return found->second;
        const auto& format = views[0]->get_view().look().text_format;
        return sizes[text] = pixel_extent(*format->create_layout(std::wstring_view(text), 0, 0));
    }
    [[nodiscard]] tree_rows wanted_rows(std::size_t view_number) {
        tree_rows rows([this](const std::wstring& text) { return text_size(text); });
        for (const auto& each : models) {
            const bool is_current = roots.at(view_number) == each.get();
            if (!each->parent && each->shown_in == static_cast<int>(view_number) && !is_current)
                rows.add_tree(*each);
        }
        rows.size = had_root.at(view_number) ? D2D_SIZE_F{} : D2D_SIZE_F{1, 1};
        if (roots.at(view_number)) rows.add_tree(*roots.at(view_number));
        return rows;
    }
    [[nodiscard]] static D2D_POINT_2F place_of(const scene::node& part) {
        return {part.transform._31 + 0, part.transform._32 + 0};
    }
    /// The parts of a row are told from each other by their places.
    [[nodiscard]] static std::string text_of(const scene::node& row) {
        D2D_POINT_2F expander{};
        D2D_POINT_2F icon{};
        D2D_POINT_2F text{};
        D2D_SIZE_F size{};
        bool has_expander = false;
        for (const auto& part : row.children) {
            const D2D_POINT_2F at = place_of(*part);
            D2D_RECT_F outline{};
            if (const auto shape = part->get_clip_geometry()) {
                EXPECT_EQ(S_OK, shape->GetBounds(nullptr, &outline));
                text = at;
                size = {outline.right - 3.5f, outline.bottom - 1.5f};
            } else if (at.x == 6) {
                expander = at;
                has_expander = true;
            } else {
                icon = at;
            }
        }
        const D2D_POINT_2F at = place_of(row);
        EXPECT_EQ(has_expander ? 3u : 2u, row.children.size());
        return tree_rows::row(at.x, at.y, has_expander, expander, icon, text, size);
    }
    [[nodiscard]] lines shown_rows(std::size_t view_number) const {
        lines rows;
        const com::ptr<scene::INode> content(&views.at(view_number)->get_view().content_node());
        for (const auto& row : inside(content).children) rows.push_back(text_of(*row));
        return rows;
    }

    void compare() {
        for (const auto& each : models) {
            ASSERT_EQ(each->expanded, each->node->is_expanded());
            ASSERT_EQ(each->selected, each->node->is_selected());
        }
        for (std::size_t i = 0; i < views.size(); ++i) {
            auto wanted = wanted_rows(i);
            const D2D_SIZE_F size = views.at(i)->measure().preferred_size;
            ASSERT_EQ(call_text(wanted.size), call_text(size));
            auto seen = shown_rows(i);
            std::sort(wanted.lines.begin(), wanted.lines.end());
            std::sort(seen.begin(), seen.end());
            ASSERT_EQ(wanted.lines, seen) << "view " << i;
            most_rows = std::max(most_rows, seen.size());
            rows_compared += seen.size();
        }
    }
    /// That each row belongs to its node. Rows of former roots lie on others.
    void ask_for_nodes() {
        for (std::size_t i = 0; i < views.size(); ++i) {
            const auto wanted = wanted_rows(i);
            std::size_t trees = 0;
            for (auto* const model : wanted.models) trees += model->parent ? 0u : 1u;
            if (trees != 1) continue;
            const com::ptr<scene::INode> content(&views.at(i)->get_view().content_node());
            for (std::size_t row = 0; row < wanted.models.size(); ++row) {
                D2D_POINT_2F point = wanted.text_places[row];
                scene::map_points(content.get(), views.at(i)->get_node().get(), &point, 1);
                ASSERT_EQ(wanted.models[row]->node, views.at(i)->node_at(point)) << wanted.lines[row];
                ++nodes_found;
            }
        }
    }

    std::mt19937 random;
    std::array<com::ptr<control>, 2> views;
    std::array<tree_model*, 2> roots{};
    std::array<bool, 2> had_root{};
    std::vector<std::unique_ptr<tree_model>> models;
    std::vector<com::ptr<scene::IBitmap>> icons;
    std::map<std::wstring, D2D_SIZE_F> sizes;
    std::size_t most_rows = 0;
    std::size_t rows_compared = 0;
    std::size_t nodes_found = 0;
    int selections = 0;
    std::vector<std::pair<ITreeNode*, ITreeNode*>> told_selected;

    // Of the expansion under way
    tree_model* expanding = nullptr;
    bool refuses = false;
    unsigned filled_in = 0;
    int asked_count = 0;
    std::vector<ITreeNode*> told_collapsed;
};

TEST_F(random_layout_test, rows_lie_where_a_layout_from_the_root_puts_them) {
    const unsigned seed = test_support::random_seed();
    SCOPED_TRACE("seed " + std::to_string(seed));
    RecordProperty("seed", std::to_string(seed));
    random.seed(seed);
    for (int step = 0; step < 6000; ++step) {
        do_something();
        compare();
        if (step % 10 == 0) ask_for_nodes();
        ASSERT_FALSE(HasFailure()) << "step " << step;
    }
    std::cout << "seed " << seed << ": " << rows_compared << " rows, at most " << most_rows
              << " in a view; found " << nodes_found << " nodes, selected " << selections << "\n";
    EXPECT_GT(most_rows, 8u);
    EXPECT_GT(nodes_found, 100u);
    EXPECT_GT(selections, 30);
}

}  // namespace
}  // namespace d2d::ui::tree
