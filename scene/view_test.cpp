// Roots, hosts and targets of a view; what a removal does to hover and focus.

#include "scene/view.h"
#include "scene/testing/tree_test.h"

#include <string>
#include <vector>

#include <gtest/gtest.h>

namespace d2d::scene {
namespace {

using fakes::call_text;
using fakes::references;
using fakes::same;
using fakes::thrown_by;
namespace event_type = input::mouse::event_type;

class view_test : public fakes::tree_test {
protected:
    void mouse(std::int32_t type, float x, float y, std::uint32_t flags = 0) {
        edge->on_mouse_event({type, std::nullopt, flags, {x, y}, 0});
    }
    /// Writes down each mouse event of a node: "<name> <type> <depth> <x> <y> <flags>".
    void log_mouse(const com::ptr<INode>& of, std::string name) {
        of->add_mouse_handler([this, name = std::move(name)](INode*, int depth, input::mouse::event event) {
            site.calls.push_back(call_text(name, event.type, depth, event.position, event.flags));
            return false;
        });
    }
    void log_focus(const com::ptr<INode>& of, std::string name) {
        of->set_focus_handler(false, [this, name = std::move(name)](INode* from, INode* to) {
            site.calls.push_back(call_text(name, from != nullptr, to != nullptr));
        });
    }
    scene::view& inner() { return static_cast<scene::view&>(*view); }
};

TEST_F(view_test, root_is_kept_and_let_go) {
    view->set_root(root);
    EXPECT_EQ(2u, references(root.get()));
    EXPECT_EQ(&inner(), inside(root).view);
    view->set_root(nullptr);
    EXPECT_EQ(1u, references(root.get()));
    EXPECT_EQ(nullptr, inside(root).view);
}

TEST_F(view_test, no_root_on_an_empty_view_and_the_present_root_change_nothing) {
    edge->attach_render_target(&target);
    view->set_root(nullptr);
    view->set_root(root);
    static_cast<void>(calls());
    view->set_root(root);
    EXPECT_EQ(lines{}, calls());
    EXPECT_EQ(2u, references(root.get()));
}

TEST_F(view_test, node_that_is_somewhere_is_refused_as_root) {
    const auto child = empty_below(root);
    const auto elsewhere = create_node();
    const auto other = create_view();
    other->set_root(elsewhere);
    view->set_root(root);
    const auto set = [&](const com::ptr<INode>& what) { return thrown_by([&] { view->set_root(what); }); };
    EXPECT_EQ("Node already in a tree", set(child));
    EXPECT_EQ("Node already in a tree", set(elsewhere));
    EXPECT_EQ(&inner(), inside(root).view) << "the present root stays";
    view->set_root(nullptr);
    EXPECT_EQ("Node already in a tree", set(child)) << "it has a parent, though no view";
    other->set_root(nullptr);
    EXPECT_EQ("nothing", set(elsewhere));
}

TEST_F(view_test, old_root_leaves_before_the_new_one_enters) {
    record(root, {0, 0, 10, 10});
    const auto next = filled({5, 5, 6, 6});
    const auto old_visual = make_visual("old", {0, 0, 10, 10});
    const auto new_visual = make_visual("new", {5, 5, 6, 6});
    for (const auto& [of, visual] : {std::pair{root, old_visual}, {next, new_visual}}) {
        const auto context = of->draw(false);
        context->draw_visual(visual.get());
        context->commit();
    }
    show();
    view->set_root(next);
    EXPECT_EQ((lines{"invalidate_rect 0 0 10 10", "unbind old", "bind new", "invalidate_rect 5 5 6 6"}),
              calls());
    EXPECT_EQ(nullptr, inside(root).view);
}

TEST_F(view_test, tree_is_bound_parents_first_when_the_target_comes) {
    const auto child = create_node();
    const auto grandchild = create_node();
    const auto last = create_node();
    int number = 0;
    for (const auto& of : {root, child, grandchild, last}) {
        const auto context = of->draw(false);
        context->draw_visual(make_visual(std::to_string(number++), {0, 0, 1, 1}).get());
        context->commit();
    }
    root->add_child(child);
    child->add_child(grandchild);
    root->add_child(last);
    view->set_root(root);
    static_cast<void>(calls());
    edge->attach_render_target(&target);
    EXPECT_EQ((lines{"bind 0", "bind 1", "bind 2", "bind 3"}), calls()) << "and nothing is invalidated";
    EXPECT_EQ(&target, inner().get_render_target());
    edge->detach_render_target(&target);
    EXPECT_EQ((lines{"unbind 0", "unbind 1", "unbind 2", "unbind 3"}), calls());
    EXPECT_EQ(nullptr, inner().get_render_target());
    EXPECT_EQ(0u, target.references());
    edge->attach_render_target(&target);
    static_cast<void>(calls());
    view->set_root(nullptr);
    EXPECT_EQ((lines{"invalidate_rect 0 0 1 1", "unbind 2", "unbind 1", "unbind 3", "unbind 0"}), calls())
        << "a tree leaves children first";
}

TEST_F(view_test, render_without_a_root_sets_the_transform_and_paints_nothing) {
    edge->attach_render_target(&target);
    EXPECT_EQ(lines{"SetTransform 1 0 0 1 5 6"}, painted(translation_matrix(5, 6)));
}

TEST_F(view_test, destructor_releases_the_tree_and_the_target_without_notifications) {
    const auto child = filled({0, 0, 10, 10}, root);
    log_focus(child, "focus");
    log_mouse(child, "mouse");
    auto short_lived = create_view();
    auto lower = com::ptr<IViewLowerEdge>(short_lived);
    lower->attach_site(&site);
    lower->attach_render_target(&target);
    short_lived->set_root(root);
    lower->on_focus_gained();
    child->set_focus();
    lower->on_mouse_event({event_type::move, std::nullopt, 0, {5, 5}, 0});
    lower->on_mouse_event({event_type::hover, std::nullopt, 0, {5, 5}, 0});
    static_cast<void>(calls());
    EXPECT_EQ(5u, references(child.get()));  // test, parent, hover path, hover target, focus
    lower.reset();
    short_lived.reset();
    EXPECT_EQ(lines{}, calls());
    EXPECT_EQ(2u, references(child.get()));
    EXPECT_EQ(1u, references(root.get()));
    EXPECT_EQ(0u, target.references());
    // The tree still names its view; an owner takes it out first. Here the test does.
    inside(root).view = inside(child).view = nullptr;
}

TEST_F(view_test, destructor_lets_go_in_a_fixed_order) {
    // Nodes that say when they die; the view holds the last reference to each.
    class dying : public com::base_object<com::object_base, IServiceProvider> {
    public:
        dying(lines& to, std::string called) : log(to), name(std::move(called)) {}
        void final_release() { log.push_back(name); }
        HRESULT STDMETHODCALLTYPE QueryService(const GUID&, const GUID&, void**) override {
            return E_NOINTERFACE;
        }

    protected:
        ~dying() = default;

    private:
        lines& log;
        std::string name;
    };
    lines deaths;
    const auto mortal = [&](const char* name) {
        auto made = create_node();
        made->set_user_object(com::create_object<dying>(deaths, name).get());
        return made;
    };
    auto short_lived = create_view();
    com::ptr<IViewLowerEdge> lower(short_lived);
    {
        const auto top = mortal("root");
        const auto hovered = mortal("hover target");
        const auto focused = mortal("focus");
        const auto under_mouse = mortal("hover path");
        short_lived->set_root(top);
        record(hovered, {0, 0, 10, 10});
        record(under_mouse, {20, 0, 30, 10});
        for (const auto& each : {hovered, focused, under_mouse}) top->add_child(each);
        lower->on_mouse_event({event_type::hover, std::nullopt, 0, {5, 5}, 0});
        lower->on_mouse_event({event_type::move, std::nullopt, 0, {25, 5}, 0});
        focused->set_focus();
        // From here on only the view holds them, besides the root's children.
        inside(top).children.clear();
        for (const auto& each : {hovered, focused, under_mouse}) inside(each).parent = nullptr;
    }
    EXPECT_EQ(lines{}, deaths);
    lower.reset();
    short_lived.reset();
    // The hover path holds the root too.
    EXPECT_EQ((lines{"focus", "hover target", "root", "hover path"}), deaths);
}

TEST_F(view_test, answers_to_its_interfaces_with_one_identity) {
    const com::ptr<IResourceBindingContext> context(view);
    const com::ptr<IServiceProvider> services(view);
    for (IUnknown* face : {static_cast<IUnknown*>(view.get()), static_cast<IUnknown*>(edge.get()),
                           static_cast<IUnknown*>(context.get()), static_cast<IUnknown*>(services.get())}) {
        com::ptr<IUnknown> identity;
        EXPECT_EQ(S_OK, face->QueryInterface(com::guid_of<IUnknown>(), identity.put_void()));
        EXPECT_EQ(static_cast<IUnknown*>(view.get()), identity.get());
        EXPECT_EQ(view, com::ptr<IView>(face));
        EXPECT_EQ(edge, com::ptr<IViewLowerEdge>(face));
    }
}

TEST_F(view_test, services_are_forwarded_to_the_host) {
    constexpr GUID service = com::guid("0F1C7C5B-3A7E-4C39-8E0F-6C5D1B2A9E84");
    site.offer(service, root.get());
    const com::ptr<IServiceProvider> services(view);
    com::ptr<INode> found;
    EXPECT_EQ(S_OK, services->QueryService(service, com::guid_of<INode>(), found.put_void()));
    edge->detach_site(&site);
    void* out = nullptr;
    EXPECT_EQ(E_NOINTERFACE, services->QueryService(service, com::guid_of<INode>(), &out));
    edge->attach_site(&site);
}

// Hover and focus

TEST_F(view_test, removal_of_the_hovered_node_ends_the_hover_and_hovers_what_lies_beneath) {
    record(root, {0, 0, 100, 100});
    const auto child = filled({0, 0, 10, 10}, root);
    show();
    mouse(event_type::move, 5, 5);
    mouse(event_type::hover, 5, 5, 4);
    log_mouse(root, "root");
    log_mouse(child, "child");
    static_cast<void>(calls());
    root->remove_child(child);
    EXPECT_EQ((lines{
                  "root 9 -1 0 0 4",  // the hover ends while the child is still there
                  "child 9 0 0 0 4",
                  "root 9 1 0 0 4",
                  "invalidate_rect 0 0 10 10",
                  "child 2 0 0 0 4",  // then the repair: the child is left, and the root is hovered
                  "root 2 -1 0 0 4",
                  "root 8 0 5 5 4",
              }),
              calls());
    mouse(event_type::hover_end, 0, 0);
    EXPECT_EQ(lines{"root 9 0 0 0 0"}, calls());
}

TEST_F(view_test, removal_above_the_hovered_node_counts_too) {
    const auto middle = empty_below(root);
    const auto leaf = filled({0, 0, 10, 10}, middle);
    show();
    mouse(event_type::move, 5, 5);
    mouse(event_type::hover, 5, 5);
    log_mouse(leaf, "leaf");
    log_mouse(middle, "middle");
    static_cast<void>(calls());
    root->remove_child(middle);
    EXPECT_EQ((lines{"middle 9 -1 0 0 0", "leaf 9 0 0 0 0", "middle 9 1 0 0 0", "invalidate_rect 0 0 10 10",
                     "leaf 2 0 0 0 0", "middle 2 -1 0 0 0", "middle 2 0 0 0 0"}),
              calls())
        << "nothing is hit any more, so nothing is hovered";
    EXPECT_EQ(2u, references(leaf.get()));
    EXPECT_EQ(1u, references(middle.get()));
}

TEST_F(view_test, removal_of_what_the_mouse_is_not_over_sends_nothing) {
    record(root, {0, 0, 100, 100});
    const auto child = filled({50, 50, 60, 60}, root);
    show();
    mouse(event_type::move, 5, 5);
    mouse(event_type::hover, 5, 5);
    log_mouse(root, "root");
    static_cast<void>(calls());
    root->remove_child(child);
    EXPECT_EQ(lines{"invalidate_rect 50 50 60 60"}, calls());
}

TEST_F(view_test, removal_under_a_mouse_that_only_moved_leaves_and_enters) {
    const auto below = filled({0, 0, 10, 10}, root);
    const auto above = filled({0, 0, 10, 10}, root);
    show();
    mouse(event_type::move, 5, 5, 1);
    log_mouse(below, "below");
    log_mouse(above, "above");
    static_cast<void>(calls());
    root->remove_child(above);
    EXPECT_EQ((lines{"invalidate_rect 0 0 10 10", "above 2 0 0 0 1", "below 0 0 5 5 1"}), calls());
}

TEST_F(view_test, change_of_root_leaves_the_old_tree_and_enters_the_new) {
    record(root, {0, 0, 10, 10});
    const auto next = filled({0, 0, 20, 20});
    show();
    mouse(event_type::move, 5, 5);
    log_mouse(root, "old");
    log_mouse(next, "new");
    static_cast<void>(calls());
    view->set_root(next);
    EXPECT_EQ(
        (lines{"invalidate_rect 0 0 10 10", "invalidate_rect 0 0 20 20", "old 2 0 0 0 0", "new 0 0 5 5 0"}),
        calls());
    view->set_root(nullptr);
    EXPECT_EQ((lines{"invalidate_rect 0 0 20 20", "new 2 0 0 0 0"}), calls());
}

TEST_F(view_test, removal_of_the_focus_tells_its_own_handler_alone) {
    const auto middle = empty_below(root);
    const auto leaf = empty_below(middle);
    show();
    edge->on_focus_gained();
    leaf->set_focus();
    log_focus(root, "root");
    log_focus(middle, "middle");
    log_focus(leaf, "leaf");
    EXPECT_TRUE(leaf->has_focus(false));
    root->remove_child(middle);
    EXPECT_EQ((lines{"invalidate_rect 0 0 0 0", "leaf 1 0"}), calls());
    EXPECT_FALSE(leaf->has_focus(false));
    EXPECT_FALSE(edge->on_key_event({true, false, 65, 0}));
    EXPECT_EQ(2u, references(leaf.get()));
    root->add_child(middle);
    EXPECT_FALSE(leaf->has_focus(false)) << "the focus does not come back with it";
}

TEST_F(view_test, removal_of_the_focus_is_told_though_the_window_is_without_the_keyboard) {
    const auto child = empty_below(root);
    show();
    child->set_focus();
    log_focus(child, "child");
    static_cast<void>(calls());
    root->remove_child(child);
    EXPECT_EQ((lines{"invalidate_rect 0 0 0 0", "child 1 0"}), calls());
    root->add_child(child);
    static_cast<void>(calls());
    edge->on_focus_gained();
    EXPECT_EQ(lines{}, calls()) << "nobody is left to be told";
}

TEST_F(view_test, focus_goes_without_a_target_too) {
    const auto child = empty_below(root);
    view->set_root(root);
    edge->on_focus_gained();
    child->set_focus();
    root->remove_child(child);
    EXPECT_EQ(1u, references(child.get())) << "the view holds it no more";
}

TEST_F(view_test, focus_handler_may_change_the_tree_that_is_leaving) {
    const auto middle = empty_below(root);
    auto leaf = filled({0, 0, 10, 10}, middle);
    const auto sibling = filled({20, 0, 30, 10}, middle);
    show();
    edge->on_focus_gained();
    leaf->set_focus();
    leaf->set_focus_handler(false,
                            [&, bottom = leaf.get()](INode*, INode*) { middle->remove_child(bottom); });
    leaf.reset();
    root->remove_child(middle);
    EXPECT_EQ(nullptr, inside(middle).view);
    EXPECT_EQ(nullptr, inside(sibling).view);
    EXPECT_EQ(1u, inside(middle).children.size());
    EXPECT_TRUE(same({}, root->get_bounds(true)));
}

TEST_F(view_test, focus_handler_may_take_away_what_lies_below_the_node_that_is_leaving) {
    const auto child = filled({0, 0, 10, 10}, root);
    const auto grandchild = filled({20, 0, 30, 10}, child);
    grandchild->set_transform_animation(still().get());
    show();
    edge->on_focus_gained();
    child->set_focus();
    child->set_focus_handler(false, [&](INode*, INode*) { child->remove_child(grandchild); });
    root->remove_child(child);
    EXPECT_EQ(nullptr, grandchild->get_parent());
    EXPECT_EQ(nullptr, inside(grandchild).view);
    EXPECT_EQ(nullptr, inside(child).view);
    EXPECT_EQ(0, inside(child).animated_nodes);
    EXPECT_TRUE(same({0, 0, 10, 10}, child->get_bounds(true)));
    root->add_child(grandchild);
    EXPECT_EQ(inside(root).view, inside(grandchild).view) << "it can be shown again";
}

TEST_F(view_test, hover_handler_may_take_away_the_node_that_is_leaving) {
    record(root, {0, 0, 100, 100});
    const auto child = filled({0, 0, 10, 10}, root);
    child->set_transform_animation(still().get());
    show();
    mouse(event_type::move, 5, 5);
    mouse(event_type::hover, 5, 5);
    child->add_mouse_handler([&](INode*, int, input::mouse::event event) {
        if (event.type == event_type::hover_end) root->remove_child(child);
        return false;
    });
    root->remove_child(child);
    EXPECT_EQ(nullptr, child->get_parent());
    EXPECT_EQ(nullptr, inside(child).view);
    EXPECT_EQ(0, inside(root).animated_nodes);
    EXPECT_EQ(0.0, site.clock_interval);
    EXPECT_TRUE(inside(root).children.empty());
}

TEST_F(view_test, nothing_is_asked_of_a_view_without_a_host) {
    edge->detach_site(&site);
    edge->attach_render_target(&target);
    record(root, {0, 0, 1, 1}, true);
    view->set_root(root);
    root->set_transform(translation_matrix(1, 1));
    edge->tick(1, 1);
    root->set_focus();
    mouse(event_type::move, 1.5f, 1.5f);
    edge->detach_render_target(&target);
    edge->attach_site(&site);
    EXPECT_EQ(lines{}, calls());
}

}  // namespace
}  // namespace d2d::scene
