// The focus: of the window and of the node within it, and who hears of its changes.

#include "scene/testing/input_test.h"
#include "scene/view.h"

#include <memory>
#include <stdexcept>
#include <string>

#include <gtest/gtest.h>

namespace d2d::scene {
namespace {

using fakes::references;
using fakes::thrown_by;

/// root - a - a1 - a2
///      \ b - b1 - b2 - b3
class focus_test : public fakes::input_test {
protected:
    void SetUp() override {
        input_test::SetUp();
        com::ptr<INode>* const parents[] = {&root, &a, &a1, &root, &b, &b1, &b2};
        com::ptr<INode>* const made[] = {&a, &a1, &a2, &b, &b1, &b2, &b3};
        const char* const called[] = {"a", "a1", "a2", "b", "b1", "b2", "b3"};
        for (std::size_t i = 0; i < std::size(made); ++i)
            *made[i] = named(called[i], {0, 0, 10, 10}, *parents[i]);
        for (const auto& each : {root, a, a1, a2, b, b1, b2, b3}) hear_focus(each);
        view->set_root(root);
        edge->on_focus_gained();
    }
    void TearDown() override {
        for (auto* const each : {&a, &a1, &a2, &b, &b1, &b2, &b3}) each->reset();
        input_test::TearDown();
    }
    void focus(const com::ptr<INode>& node) {
        node->set_focus();
        static_cast<void>(heard());
    }

    com::ptr<INode> a, a1, a2, b, b1, b2, b3;
};

TEST_F(focus_test, first_focus_is_told_to_the_node_alone) {
    a2->set_focus();
    EXPECT_EQ("a2: none to a2", heard());
}

TEST_F(focus_test, release_is_told_to_the_node_alone) {
    focus(a2);
    a2->release_focus();
    EXPECT_EQ("a2: a2 to none", heard());
    EXPECT_FALSE(a2->has_focus(false));
    a2->release_focus();
    EXPECT_EQ("", heard());
}

TEST_F(focus_test, release_of_another_node_changes_nothing) {
    focus(a2);
    a1->release_focus();
    b->release_focus();
    EXPECT_EQ("", heard());
    EXPECT_TRUE(a2->has_focus(false));
}

TEST_F(focus_test, ancestors_of_both_hear_first_then_the_others_in_turn_then_the_two) {
    focus(a2);
    b3->set_focus();
    EXPECT_EQ(
        "root: a2 to b3, a: a2 to b3, b: a2 to b3, a1: a2 to b3, b1: a2 to b3, b2: a2 to b3, "
        "a2: a2 to b3, b3: a2 to b3",
        heard());
    a2->set_focus();
    EXPECT_EQ(
        "root: b3 to a2, b: b3 to a2, a: b3 to a2, b1: b3 to a2, a1: b3 to a2, b2: b3 to a2, "
        "b3: b3 to a2, a2: b3 to a2",
        heard());
}

TEST_F(focus_test, changes_between_relatives) {
    const struct {
        com::ptr<INode>& from;
        com::ptr<INode>& to;
        const char* expected;
    } cases[] = {
        {b2, b3, "root: b2 to b3, b: b2 to b3, b1: b2 to b3, b2: b2 to b3, b2: b2 to b3, b3: b2 to b3"},
        {b3, b2, "root: b3 to b2, b: b3 to b2, b1: b3 to b2, b2: b3 to b2, b3: b3 to b2, b2: b3 to b2"},
        {root, b1, "root: root to b1, b: root to b1, root: root to b1, b1: root to b1"},
        {b1, root, "root: b1 to root, b: b1 to root, b1: b1 to root, root: b1 to root"},
        {a, b, "root: a to b, a: a to b, b: a to b"},
        {b1, b1, "root: b1 to b1, b: b1 to b1, b1: b1 to b1, b1: b1 to b1"},
        {root, root, "root: root to root, root: root to root"},
    };
    for (const auto& each : cases) {
        focus(each.from);
        each.to->set_focus();
        EXPECT_EQ(each.expected, heard());
    }
}

TEST_F(focus_test, ancestors_that_do_not_care_for_descendants_hear_of_themselves_alone) {
    for (const auto& each : {root, a, b1}) hear_focus(each, false);
    focus(a2);
    b3->set_focus();
    EXPECT_EQ("b: a2 to b3, a1: a2 to b3, b2: a2 to b3, a2: a2 to b3, b3: a2 to b3", heard());
    a->set_focus();
    EXPECT_EQ("b: b3 to a, b2: b3 to a, b3: b3 to a, a: b3 to a", heard());
}

TEST_F(focus_test, nodes_without_a_handler_are_passed_over) {
    for (const auto& each : {root, a1, b3}) each->set_focus_handler(true, nullptr);
    focus(a2);
    b3->set_focus();
    EXPECT_EQ("a: a2 to b3, b: a2 to b3, b1: a2 to b3, b2: a2 to b3, a2: a2 to b3", heard());
}

TEST_F(focus_test, recording_leaves_the_wish_to_hear_of_descendants) {
    record(root, {0, 0, 1, 1});
    focus(a);
    b->set_focus();
    EXPECT_EQ("root: a to b, a: a to b, b: a to b", heard());
}

// The window's focus

TEST_F(focus_test, focus_set_while_the_window_has_none_waits_for_it) {
    edge->on_focus_lost();
    a2->set_focus();
    EXPECT_EQ("request_focus", heard());
    EXPECT_FALSE(a2->has_focus(false));
    EXPECT_FALSE(root->has_focus(true));
    edge->on_focus_gained();
    EXPECT_EQ("a2: none to a2", heard());
    EXPECT_TRUE(a2->has_focus(false));
}

TEST_F(focus_test, focus_that_moves_while_the_window_has_none_is_told_at_its_last_place) {
    focus(a2);
    edge->on_focus_lost();
    EXPECT_EQ("a2: a2 to none", heard());
    b3->set_focus();
    b->set_focus();
    EXPECT_EQ("request_focus, request_focus", heard());
    edge->on_focus_gained();
    EXPECT_EQ("b: none to b", heard());
}

TEST_F(focus_test, host_that_reports_the_focus_inside_the_request_is_heard) {
    edge->on_focus_lost();
    // As a window does: the request has it report at once.
    class eager_site final : public IViewLowerEdge::ISite {
    public:
        explicit eager_site(IViewLowerEdge* of) : edge(of) {}
        bool request_focus() override {
            edge->on_focus_gained();
            return true;
        }
        double get_current_time() const override { return 0; }
        void set_animation_clock(double, double) override {}
        void bounds_changed(D2D_RECT_F) override {}
        void invalidate_rect(D2D_RECT_F) override {}
        bool drag_detect(D2D_POINT_2F, input::mouse::button) override { return false; }
        bool drag_loop(D2D_POINT_2F, input::mouse::button, D2D_MATRIX_3X2_F,
                       std::function<bool(D2D_POINT_2F)>) override {
            return false;
        }
        HRESULT STDMETHODCALLTYPE QueryService(const GUID&, const GUID&, void**) override {
            return E_NOINTERFACE;
        }
        HRESULT STDMETHODCALLTYPE QueryInterface(const GUID&, void**) noexcept override {
            return E_NOINTERFACE;
        }
        ULONG STDMETHODCALLTYPE AddRef() noexcept override { return 1; }
        ULONG STDMETHODCALLTYPE Release() noexcept override { return 1; }

    private:
        IViewLowerEdge* edge;
    } eager(edge.get());
    edge->attach_site(&eager);
    a2->set_focus();
    EXPECT_EQ("a2: none to a2", heard()) << "once";
    edge->attach_site(&site);
}

TEST_F(focus_test, window_that_loses_and_gains_tells_the_node_alone) {
    focus(b3);
    edge->on_focus_lost();
    edge->on_focus_lost();
    EXPECT_EQ("b3: b3 to none", heard()) << "lost once";
    edge->on_focus_gained();
    EXPECT_EQ("b3: none to b3", heard());
}

TEST_F(focus_test, window_without_a_focus_node_says_nothing) {
    edge->on_focus_lost();
    edge->on_focus_gained();
    EXPECT_EQ("", heard());
}

TEST_F(focus_test, release_without_the_window_focus_is_told_all_the_same) {
    focus(a2);
    edge->on_focus_lost();
    static_cast<void>(heard());
    a2->release_focus();
    EXPECT_EQ("a2: a2 to none", heard());
    edge->on_focus_gained();
    EXPECT_EQ("", heard());
}

TEST_F(focus_test, question_for_the_focus_wants_window_node_and_place) {
    focus(b2);
    const struct {
        com::ptr<INode>& of;
        bool itself, or_descendant;
    } cases[] = {{b2, true, true},   {b1, false, true}, {b, false, true},  {root, false, true},
                 {b3, false, false}, {a, false, false}, {a2, false, false}};
    for (const auto& each : cases) {
        EXPECT_EQ(each.itself, each.of->has_focus(false)) << name_of(each.of.get());
        EXPECT_EQ(each.or_descendant, each.of->has_focus(true)) << name_of(each.of.get());
    }
    edge->on_focus_lost();
    for (const auto& each : cases) EXPECT_FALSE(each.of->has_focus(false) || each.of->has_focus(true));
    edge->on_focus_gained();
    b2->release_focus();
    for (const auto& each : cases) EXPECT_FALSE(each.of->has_focus(false) || each.of->has_focus(true));
    const auto loose = create_node();
    EXPECT_FALSE(loose->has_focus(false) || loose->has_focus(true));
}

TEST_F(focus_test, focus_cannot_be_set_outside_a_view) {
    const auto loose = create_node();
    EXPECT_EQ("not expected", thrown_by<std::runtime_error>([&] { loose->set_focus(); }));
    root->remove_child(b);
    EXPECT_EQ("not expected", thrown_by<std::runtime_error>([&] { b3->set_focus(); }));
}

// Handlers that change what they run in

TEST_F(focus_test, handler_may_replace_itself_and_keeps_what_it_holds_until_it_ends) {
    const auto held = std::make_shared<std::string>("old");
    a->set_focus_handler(true, [this, text = std::shared_ptr<std::string>(held)](INode*, INode*) {
        a->set_focus_handler(true, [this](INode*, INode*) { say("new"); });
        say(*text);
    });
    a->set_focus();
    a->release_focus();
    EXPECT_EQ("old, new", heard());
    EXPECT_EQ(1, held.use_count());
}

TEST_F(focus_test, handler_may_clear_the_tree) {
    focus(a2);
    pass_after("a: a2 to b3", [&] { root->clear(); });
    b3->set_focus();
    EXPECT_EQ("root: a2 to b3, a: a2 to b3", heard());
}

TEST_F(focus_test, handler_may_take_the_new_focus_away_and_let_go_of_it) {
    focus(a2);
    pass_after("root: a2 to b3", [&] {
        root->remove_child(std::exchange(b, nullptr));
        for (auto* const each : {&b1, &b2, &b3}) each->reset();
    });
    b3->set_focus();
    EXPECT_EQ(
        "root: a2 to b3, b3: b3 to none, a: a2 to b3, b: a2 to b3, a1: a2 to b3, b1: a2 to b3, b2: a2 to b3, "
        "a2: a2 to b3, b3: a2 to b3",
        heard());
    EXPECT_FALSE(key());
}

TEST_F(focus_test, handler_may_move_the_focus_on) {
    focus(a2);
    pass_after("a2: a2 to b3", [&] { root->set_focus(); });
    b3->set_focus();
    EXPECT_EQ(
        "root: a2 to b3, a: a2 to b3, b: a2 to b3, a1: a2 to b3, b1: a2 to b3, b2: a2 to b3, a2: a2 to b3, "
        "root: b3 to root, b: b3 to root, b1: b3 to root, b2: b3 to root, b3: b3 to root, root: b3 to root, "
        "b3: a2 to b3",
        heard());
    EXPECT_TRUE(root->has_focus(false));
}

TEST_F(focus_test, throw_leaves_the_new_focus_in_place) {
    focus(a2);
    when("root: a2 to b3", []() -> bool { throw std::runtime_error("thrown by a handler"); });
    EXPECT_EQ("thrown by a handler", thrown_by<std::runtime_error>([&] { b3->set_focus(); }));
    EXPECT_TRUE(b3->has_focus(false));
    static_cast<void>(heard());
    b3->release_focus();
    EXPECT_EQ("b3: b3 to none", heard());
}

TEST_F(focus_test, handler_may_let_go_of_the_view) {
    focus(a2);
    for (auto* const each : {&root, &b3}) EXPECT_GE(references(each->get()), 1u);
    pass_after("a: a2 to b3", [&] {
        view->set_root(nullptr);
        edge->detach_site(&site);
        view.reset();
        edge.reset();
    });
    b3->set_focus();
    EXPECT_EQ("b3: a2 to b3", calls().back());
    view = create_view();
    edge = com::ptr<IViewLowerEdge>(view);
}

// Focus that goes with a subtree

TEST_F(focus_test, handler_may_put_the_node_that_leaves_elsewhere) {
    focus(b2);
    pass_after("b2: b2 to none", [&] {
        b1->remove_child(b2);
        a->add_child(b2);
    });
    root->remove_child(b);
    EXPECT_EQ(&shown_in(), inside(b2).view);
    EXPECT_EQ(&shown_in(), inside(b3).view);
    EXPECT_EQ(nullptr, inside(b1).view);
    EXPECT_EQ(nullptr, inside(b).view);
    EXPECT_TRUE(a->remove_child(b2));
    EXPECT_EQ(nullptr, inside(b3).view);
}

TEST_F(focus_test, handler_may_put_what_lies_above_it_elsewhere) {
    const auto sibling = named("sibling", {0, 0, 1, 1}, b1);
    focus(b3);
    pass_after("b3: b3 to none", [&] {
        b->remove_child(b1);
        a->add_child(b1);
    });
    root->remove_child(b);
    for (const auto& each : {b1, b2, b3, sibling}) EXPECT_EQ(&shown_in(), inside(each).view);
    EXPECT_EQ(nullptr, inside(b).view);
}

TEST_F(focus_test, handler_may_put_the_whole_subtree_elsewhere) {
    focus(b3);
    pass_after("b3: b3 to none", [&] {
        root->remove_child(b);
        a->add_child(b);
    });
    EXPECT_TRUE(root->remove_child(b));
    EXPECT_EQ(a.get(), b->get_parent().get());
    for (const auto& each : {b, b1, b2, b3}) EXPECT_EQ(&shown_in(), inside(each).view);
    EXPECT_TRUE(a->remove_child(b));
    for (const auto& each : {b, b1, b2, b3}) EXPECT_EQ(nullptr, inside(each).view);
}

TEST_F(focus_test, removal_that_a_handler_interrupts_by_a_throw_can_be_done_again) {
    focus(b2);
    when("b2: b2 to none", []() -> bool { throw std::runtime_error("thrown by a handler"); });
    EXPECT_EQ("thrown by a handler", thrown_by<std::runtime_error>([&] { root->remove_child(b); }));
    EXPECT_EQ(root.get(), b->get_parent().get());
    EXPECT_FALSE(root->has_focus(true));
    EXPECT_TRUE(root->remove_child(b));
    for (const auto& each : {b, b1, b2, b3}) EXPECT_EQ(nullptr, inside(each).view);
}

}  // namespace
}  // namespace d2d::scene
