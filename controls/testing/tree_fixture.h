#pragma once

#include "com/object.h"
#include "controls/tree/control.h"
#include "scene/testing/input_test.h"

#include <map>
#include <string>
#include <string_view>
#include <vector>

namespace d2d::fakes {

/// A fixture: a tree view of the size of the scene with a handler that says what it hears. Entries have their
/// texts as their names; below the root "r", which is expanded, are "a" and "b". Rows are 18 apart.
class tree_fixture : public scene::fakes::input_test, public ui::tree_handler {
protected:
    using mouse_button = input::mouse::button;

    static constexpr D2D_POINT_2F on_r{36, 8}, on_a{50, 26}, on_b{50, 44}, on_expander{6, 8}, beside{90, 90};

    void SetUp() override {
        input_test::SetUp();
        make_view();
        r = entry("r");
        r->set_expanded(true);
        a = entry("a", r);
        b = entry("b", r);
        shown->set_root(r.get());
        show();
        edge->on_focus_gained();
        forget();
    }
    void TearDown() override {
        site.drag = nullptr;
        drop_view();
        r.reset();
        a.reset();
        b.reset();
        input_test::TearDown();
    }

    void make_view() {
        shown = com::create_object<ui::tree::control>();
        shown->arrange({0, 0, 100, 100});
        shown->set_handler(this);
        own = shown->get_node();
        root->add_child(own);
    }
    void drop_view() {
        shown.reset();
        if (own) root->remove_child(own);
        own.reset();
    }
    com::ptr<ui::ITreeNode> entry(const std::string& called,
                                  const com::ptr<ui::ITreeNode>& parent = nullptr) {
        auto made = ui::ITreeNode::create();
        entry_names[made.get()] = called;
        const std::wstring text(called.begin(), called.end());
        made->set_text(text.data(), text.size());
        if (parent) parent->add_child(made.get());
        return made;
    }
    [[nodiscard]] std::string called(ui::ITreeNode* node) const {
        return node ? entry_names.at(node) : "none";
    }
    [[nodiscard]] com::ptr<scene::INode> content() const { return &shown->get_view().content_node(); }
    [[nodiscard]] std::size_t rows() const {
        return static_cast<scene::node&>(shown->get_view().content_node()).children.size();
    }
    [[nodiscard]] std::string at(D2D_POINT_2F point) const { return called(shown->node_at(point).get()); }

    /// What the handler heard since the last time.
    [[nodiscard]] std::string told() {
        std::string text;
        for (const auto& line : calls()) {
            if (line.starts_with("tree: ")) text += (text.empty() ? "" : ", ") + line.substr(6);
        }
        return text;
    }
    void press_at(D2D_POINT_2F point, mouse_button button = mouse_button::left) {
        edge->on_mouse_event({input::mouse::event_type::button_down, button, 0, point, 0});
    }
    void move_to(D2D_POINT_2F point) { move(point.x, point.y); }

    // tree_handler. What a reaction returns for `can_expand` is whether it refuses.
    bool can_expand(ui::ITreeNode* node) override { return !say("tree: can_expand " + called(node)); }
    void collapsed(ui::ITreeNode* node) override { hear("collapsed " + called(node)); }
    void context_menu(ui::ITreeNode* node) override { hear("context_menu " + called(node)); }
    void drag_begin(ui::ITreeNode* node, D2D_POINT_2F point, mouse_button button) override {
        hear(scene::fakes::call_text("drag_begin", called(node), point, button));
    }
    void selection_changed(ui::ITreeNode* old_node, ui::ITreeNode* new_node) override {
        hear("selection_changed " + called(old_node) + " " + called(new_node));
    }

    com::ptr<ui::tree::control> shown;
    com::ptr<scene::INode> own;  // the view's
    com::ptr<ui::ITreeNode> r, a, b;

private:
    void hear(const std::string& line) { static_cast<void>(say("tree: " + line)); }

    std::map<ui::ITreeNode*, std::string> entry_names;
};

}  // namespace d2d::fakes
