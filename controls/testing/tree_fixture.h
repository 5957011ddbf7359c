#pragma once

#include "com/object.h"
#include "controls/testing/tree_listener.h"
#include "controls/tree/control.h"
#include "scene/testing/input_test.h"

#include <string>

namespace d2d::fakes {

/// A fixture: a tree view of the size of the scene with a handler that says what it hears. Entries have their
/// texts as their names; below the root "r", which is expanded, are "a" and "b". Rows are 18 apart.
class tree_fixture : public scene::fakes::input_test {
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
        site.while_detecting = nullptr;
        drop_view();
        r.reset();
        a.reset();
        b.reset();
        input_test::TearDown();
    }

    void make_view() {
        shown = com::create_object<ui::tree::control>();
        shown->arrange({0, 0, 100, 100});
        shown->set_handler(&listener);
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
        return listener.entry(called, parent);
    }
    [[nodiscard]] std::string called(ui::ITreeNode* node) const { return listener.called(node); }
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

    // What a reaction returns for `can_expand` is whether it refuses.
    tree_listener listener{[this](const std::string& line) { return say("tree: " + line); }};
    com::ptr<ui::tree::control> shown;
    com::ptr<scene::INode> own;  // the view's
    com::ptr<ui::ITreeNode> r, a, b;
};

}  // namespace d2d::fakes
