#pragma once

#include "scene/testing/tree_test.h"

#include <functional>
#include <map>
#include <string>
#include <utility>

namespace d2d::scene::fakes {

/// A fixture for events: nodes have names, and their handlers say a line each time they are called. A test
/// reads the lines as one text ("root -1, leaf 0, root 1"), and lets handlers react to a line once.
class input_test : public tree_test {
protected:
    using reaction = std::function<bool()>;

    void SetUp() override {
        tree_test::SetUp();
        name(root, "root");
    }
    void TearDown() override {
        EXPECT_EQ(0u, reactions.size()) << "was never said: " << reactions.begin()->first;
        reactions.clear();
        tree_test::TearDown();
    }

    void name(const com::ptr<INode>& node, std::string called) { names[node.get()] = std::move(called); }
    [[nodiscard]] std::string name_of(INode* node) const { return node ? names.at(node) : "none"; }

    /// A node with a name that covers `rect`.
    com::ptr<INode> named(std::string called, const D2D_RECT_F& rect, const com::ptr<INode>& parent) {
        auto made = filled(rect, parent);
        name(made, std::move(called));
        return made;
    }

    /// "<name> <depth>" for each mouse event; also with the type, or with everything.
    enum class words { depth, type, all };
    void hear_mouse(const com::ptr<INode>& node, words wanted = words::depth) {
        node->add_mouse_handler(
            [this, wanted, own = name_of(node.get())](INode* source, int depth, input::mouse::event event) {
                if (wanted == words::depth) return say(call_text(own, depth));
                if (wanted == words::type) return say(call_text(own, event.type, depth));
                const int button = event.button ? static_cast<int>(*event.button) : -1;
                return say(call_text(own, event.type, depth, "of", name_of(source), "at", event.position,
                                     "flags", event.flags, "button", button, "wheel", event.wheel_delta));
            });
    }
    /// "<name> <depth> of <source>" for each key; with a "c" before the depth for each character.
    void hear_keys(const com::ptr<INode>& node) {
        const std::string own = name_of(node.get());
        node->set_key_handler([this, own](INode* source, int depth, input::key::event) {
            return say(call_text(own, depth, "of", name_of(source)));
        });
        node->set_char_handler([this, own](INode* source, int depth, wchar_t) {
            return say(call_text(own, "c", depth, "of", name_of(source)));
        });
    }
    /// "<name>: <old focus> to <new focus>" for each focus change.
    void hear_focus(const com::ptr<INode>& node, bool with_descendants = true) {
        node->set_focus_handler(with_descendants, [this, own = name_of(node.get())](INode* from, INode* to) {
            static_cast<void>(say(own + ": " + name_of(from) + " to " + name_of(to)));
        });
    }

    /// Has the next handler that says `line` run `action`, whose result is the handler's.
    void when(const std::string& line, reaction action) { reactions[line] = std::move(action); }
    /// The same, and the handler lets the event pass.
    void pass_after(const std::string& line, std::function<void()> action) {
        when(line, [action = std::move(action)] {
            action();
            return false;
        });
    }
    bool say(std::string line) {
        const auto found = reactions.find(line);
        site.calls.push_back(std::move(line));
        if (found == reactions.end()) return false;
        const reaction action = std::move(found->second);
        reactions.erase(found);
        return action();
    }

    /// What was said, and asked of the host, since the last time.
    [[nodiscard]] std::string heard() {
        std::string text;
        for (const auto& line : calls()) text += (text.empty() ? "" : ", ") + line;
        return text;
    }

    void mouse(std::int32_t type, float x, float y, std::uint32_t flags = 0) {
        edge->on_mouse_event({type, std::nullopt, flags, {x, y}, 0});
    }
    void move(float x, float y) { mouse(input::mouse::event_type::move, x, y); }
    void press(float x, float y) {
        edge->on_mouse_event(
            {input::mouse::event_type::button_down, input::mouse::button::left, 1, {x, y}, 0});
    }
    bool key(std::uint32_t code = 65) { return edge->on_key_event({true, false, code, 0}); }
    [[nodiscard]] scene::view& shown_in() { return static_cast<scene::view&>(*view); }

private:
    std::map<INode*, std::string> names;
    std::map<std::string, reaction> reactions;
};

}  // namespace d2d::scene::fakes
