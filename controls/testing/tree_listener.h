#pragma once

#include "d2d/ui/ITreeNode.h"
#include "d2d/ui/tree_handler.h"
#include "scene/testing/call_text.h"

#include <functional>
#include <map>
#include <string>
#include <utility>

namespace d2d::fakes {

/// Makes entries of a tree that have names, and is a handler that says what it hears of them, one line for
/// each call:
///
///     can_expand r
///     selection_changed none a
///     drag_begin a 36 8 0
class tree_listener final : public ui::tree_handler {
public:
    /// What it returns for a line "can_expand" is whether the expansion is refused.
    using say_function = std::function<bool(const std::string& line)>;

    explicit tree_listener(say_function say_line) : say(std::move(say_line)) {}

    /// An entry whose text is its name.
    [[nodiscard]] com::ptr<ui::ITreeNode> entry(const std::string& name,
                                                const com::ptr<ui::ITreeNode>& parent = nullptr) {
        return entry(name, std::wstring(name.begin(), name.end()), parent);
    }
    [[nodiscard]] com::ptr<ui::ITreeNode> entry(const std::string& name, const std::wstring& text,
                                                const com::ptr<ui::ITreeNode>& parent) {
        auto made = ui::ITreeNode::create();
        names[made.get()] = name;
        made->set_text(text.data(), text.size());
        if (parent) parent->add_child(made.get());
        return made;
    }
    [[nodiscard]] std::string called(ui::ITreeNode* node) const { return node ? names.at(node) : "none"; }

    bool can_expand(ui::ITreeNode* node) override { return !say("can_expand " + called(node)); }
    void collapsed(ui::ITreeNode* node) override { hear("collapsed " + called(node)); }
    void context_menu(ui::ITreeNode* node) override { hear("context_menu " + called(node)); }
    void drag_begin(ui::ITreeNode* node, D2D_POINT_2F point, input::mouse::button button) override {
        hear(scene::fakes::call_text("drag_begin", called(node), point, button));
    }
    void selection_changed(ui::ITreeNode* old_node, ui::ITreeNode* new_node) override {
        hear("selection_changed " + called(old_node) + " " + called(new_node));
    }

private:
    void hear(const std::string& line) { static_cast<void>(say(line)); }

    const say_function say;
    std::map<ui::ITreeNode*, std::string> names;
};

}  // namespace d2d::fakes
