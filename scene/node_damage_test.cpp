// For each operation that changes a node: which areas are invalidated, in which order.

#include "scene/testing/tree_test.h"

#include <functional>
#include <string>
#include <vector>

#include <gtest/gtest.h>

namespace d2d::scene {
namespace {

class node_damage : public fakes::tree_test {
protected:
    /// root (moved by 1000) > middle (doubled) > leaf (moved by 10), the last two with recordings; a free
    /// node.
    void SetUp() override {
        tree_test::SetUp();
        root->set_transform(translation_matrix(1000, 0));
        middle = filled({0, 0, 20, 20}, root);
        middle->set_transform({{{2, 0, 0, 2, 0, 0}}});
        leaf = filled({0, 0, 5, 5}, middle);
        leaf->set_transform(translation_matrix(10, 10));
        loose = filled({100, 100, 101, 101});
        show();
    }
    void TearDown() override {
        for (auto* each : {&middle, &leaf, &loose}) each->reset();
        tree_test::TearDown();
    }
    com::ptr<INode> middle, leaf, loose;
};

TEST_F(node_damage, of_each_change_is_exactly_this) {
    const auto effect = com::create_object<fakes::test_effect>("effect");
    const auto other_effect = com::create_object<fakes::test_effect>("other");
    struct {
        const char* name;
        std::function<void()> change;
        lines damage;
    } const cases[] = {
        {"user value", [&] { leaf->set_user_value(1); }, {}},
        {"user object", [&] { leaf->set_user_object(leaf.get()), leaf->set_user_object(nullptr); }, {}},
        {"clip geometry",
         [&] {
             leaf->set_clip_geometry(geometry({0, 0, 9, 9}));
         },
         {}},
        {"clip rectangle",
         [&] {
             leaf->set_clip_rect({0, 0, 1, 1});
         },
         {}},
        {"no clip rectangle", [&] { leaf->clear_clip_rect(); }, {}},
        {"open recording", [&] { static_cast<void>(leaf->draw(false)); }, {}},
        {"recording",
         [&] {
             record(leaf, {1, 1, 2, 2});
         },
         {"invalidate_rect 1020 20 1030 30", "invalidate_rect 1022 22 1024 24"}},
        {"same recording",
         [&] {
             record(leaf, {1, 1, 2, 2});
         },
         {"invalidate_rect 1022 22 1024 24", "invalidate_rect 1022 22 1024 24"}},
        {"empty recording", [&] { erase(leaf); }, {"invalidate_rect 1022 22 1024 24"}},
        {"empty recording again", [&] { erase(leaf); }, {}},
        {"recording of the empty node",
         [&] {
             record(leaf, {0, 0, 5, 5});
         },
         {"invalidate_rect 1020 20 1030 30"}},
        {"recording of a parent, its children apart",
         [&] {
             record(middle, {0, 0, 1, 1});
         },
         {"invalidate_rect 1000 0 1040 40", "invalidate_rect 1000 0 1002 2"}},
        {"first effect", [&] { leaf->set_effect(effect.get()); }, {"invalidate_rect 1020 20 1030 30"}},
        {"same effect", [&] { leaf->set_effect(effect.get()); }, {"invalidate_rect 1020 20 1030 30"}},
        {"other effect",
         [&] { leaf->set_effect(other_effect.get()); },
         {"invalidate_rect 1020 20 1030 30", "invalidate_rect 1020 20 1030 30"}},
        {"no effect", [&] { leaf->set_effect(nullptr); }, {"invalidate_rect 1020 20 1030 30"}},
        {"no effect again", [&] { leaf->set_effect(nullptr); }, {}},
        {"move of a parent, with its children",
         [&] {
             middle->set_transform({{{2, 0, 0, 2, 3, 0}}});
         },
         {"invalidate_rect 1000 0 1030 30", "invalidate_rect 1003 0 1033 30"}},
        {"move of the root",
         [&] { root->set_transform(identity_matrix); },
         {"invalidate_rect 1003 0 1033 30", "invalidate_rect 3 0 33 30"}},
        {"transform animation",
         [&] { leaf->set_transform_animation(still().get()); },
         {"set_animation_clock 0 0.05000000074505806"}},
        {"no transform animation",
         [&] { leaf->set_transform_animation(nullptr); },
         {"set_animation_clock 0 0"}},
        {"child", [&] { middle->add_child(loose); }, {"invalidate_rect 203 200 205 202"}},
        {"child gone", [&] { middle->remove_child(loose); }, {"invalidate_rect 203 200 205 202"}},
        {"no child", [&] { middle->remove_child(loose); }, {}},
        {"empty child", [&] { empty_below(leaf); }, {"invalidate_rect 23 20 23 20"}},
        {"handlers",
         [&] {
             leaf->remove_bounds_handler(leaf->add_bounds_handler(nullptr));
             leaf->add_mouse_handler([](INode*, int, input::mouse::event) { return false; });
             leaf->set_key_handler(nullptr);
             leaf->set_focus_handler(true, nullptr);
         },
         {}},
        {"clear of a child", [&] { leaf->clear(); }, {"invalidate_rect 23 20 33 30"}},
        {"clear of what is empty", [&] { leaf->clear(); }, {}},
        {"clear of the root", [&] { root->clear(); }, {"invalidate_rect 3 0 5 2"}},
        {"no root", [&] { view->set_root(nullptr); }, {"invalidate_rect 0 0 0 0"}},
        {"root", [&] { view->set_root(loose); }, {"invalidate_rect 100 100 101 101"}},
        {"same root", [&] { view->set_root(loose); }, {}},
        {"other root",
         [&] { view->set_root(root); },
         {"invalidate_rect 100 100 101 101", "invalidate_rect 0 0 0 0"}},
    };
    for (const auto& at : cases) {
        SCOPED_TRACE(at.name);
        at.change();
        EXPECT_EQ(at.damage, calls());
    }
}

TEST_F(node_damage, there_is_none_without_host_or_target) {
    const auto change_much = [&] {
        record(leaf, {1, 1, 2, 2});
        leaf->set_transform(translation_matrix(7, 7));
        leaf->set_effect(com::create_object<fakes::test_effect>("effect").get());
        middle->remove_child(leaf);
        middle->add_child(leaf);
        leaf->set_transform_animation(still().get());
        leaf->set_transform_animation(nullptr);
        leaf->clear();
    };
    edge->detach_render_target(&target);
    change_much();
    EXPECT_EQ(lines{}, calls());
    edge->attach_render_target(&target);
    EXPECT_EQ(lines{}, calls()) << "a new target is painted whole by its host";
    edge->detach_site(&site);
    change_much();
    edge->attach_site(&site);
    EXPECT_EQ(lines{}, calls());
}

TEST_F(node_damage, clips_of_those_above_do_not_limit_it) {
    middle->set_clip_rect({0, 0, 1, 1});
    record(leaf, {0, 0, 50, 50});
    EXPECT_EQ((lines{"invalidate_rect 1020 20 1030 30", "invalidate_rect 1020 20 1120 120"}), calls());
}

TEST_F(node_damage, child_is_bound_before_it_is_invalidated) {
    const auto visual = make_visual("a", {0, 0, 1, 1});
    const auto child = create_node();
    const auto context = child->draw(false);
    context->draw_visual(visual.get());
    context->commit();
    static_cast<void>(calls());
    root->add_child(child);
    EXPECT_EQ((lines{"bind a", "invalidate_rect 1000 0 1001 1"}), calls());
    root->remove_child(child);
    EXPECT_EQ((lines{"invalidate_rect 1000 0 1001 1", "unbind a"}), calls());
}

TEST_F(node_damage, has_its_place_among_bindings_bounds_and_the_mouse) {
    const auto child = create_node();
    const auto context = child->draw(false);
    const auto brush = make_brush(red);
    const auto visual = make_visual("a", {0, 0, 1, 1});
    context->fill_geometry(geometry({0, 0, 1, 1}), brush.get());
    context->draw_visual(visual.get());
    context->commit();
    child->set_transform(translation_matrix(100, 0));
    root->add_bounds_handler([this](bool valid, D2D_RECT_F bounds) {
        site.calls.push_back(fakes::call_text("bounds", valid, bounds));
    });
    child->add_mouse_handler([this](INode*, int, input::mouse::event event) {
        site.calls.push_back(fakes::call_text("mouse", event.type));
        return false;
    });
    static_cast<void>(calls());
    root->add_child(child);
    EXPECT_EQ((lines{"bounds 1 0 0 101 40", "bind a", "invalidate_rect 1100 0 1101 1"}), calls());
    child->set_transform(translation_matrix(200, 0));
    EXPECT_EQ(
        (lines{"invalidate_rect 1100 0 1101 1", "bounds 1 0 0 201 40", "invalidate_rect 1200 0 1201 1"}),
        calls());
    edge->on_mouse_event({input::mouse::event_type::move, std::nullopt, 0, {1200.5f, 0.5f}, 0});
    static_cast<void>(calls());
    root->remove_child(child);
    EXPECT_EQ((lines{"invalidate_rect 1200 0 1201 1", "unbind a", "bounds 1 0 0 40 40", "mouse 2"}), calls())
        << "the mouse leaves when the tree is whole again";
    root->add_child(child);
    static_cast<void>(calls());
    child->clear();
    EXPECT_EQ((lines{"invalidate_rect 1200 0 1201 1", "unbind a", "bounds 1 0 0 40 40"}), calls());
}

}  // namespace
}  // namespace d2d::scene
