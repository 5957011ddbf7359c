// Mouse events on their way from the root down to what is hit, and back up.

#include "com/weak_ptr.h"
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
using input::mouse::button;
namespace event_type = input::mouse::event_type;

class mouse_routing : public fakes::input_test {
public:
    using input_test::say;

protected:
    void SetUp() override {
        input_test::SetUp();
        group = named("group", {0, 0, 50, 50}, root);
        leaf = named("leaf", {0, 0, 20, 20}, group);
        for (const auto& each : {root, group, leaf}) hear_mouse(each);
        view->set_root(root);
    }
    void TearDown() override {
        group.reset();
        leaf.reset();
        input_test::TearDown();
    }

    com::ptr<INode> group;
    com::ptr<INode> leaf;
    const std::string whole_way = "root -2, group -1, leaf 0, group 1, root 2";
};

TEST_F(mouse_routing, presses_wheels_and_hovers_go_down_to_the_target_and_up_again) {
    for (const int type : {event_type::button_down, event_type::button_up, event_type::double_click,
                           event_type::wheel, event_type::horizontal_wheel, event_type::hover}) {
        mouse(type, 5, 5);
        EXPECT_EQ(whole_way, heard()) << "type " << type;
        mouse(type, 30, 30);
        EXPECT_EQ("root -1, group 0, root 1", heard()) << "type " << type;
        mouse(type, 60, 60);
        EXPECT_EQ("", heard()) << "type " << type;
    }
}

TEST_F(mouse_routing, node_alone_on_the_path_hears_once) {
    record(root, {0, 0, 100, 100});
    press(80, 80);
    EXPECT_EQ("root 0", heard());
}

TEST_F(mouse_routing, event_reaches_each_node_whole_with_the_point_in_its_space) {
    const auto deep = named("deep", {0, 0, 9, 9}, leaf);
    deep->set_transform({{{2, 0, 0, 2, 1, 1}}});
    group->set_transform(translation_matrix(100, 0));
    hear_mouse(deep, words::all);
    hear_mouse(group, words::all);
    static_cast<void>(heard());
    edge->on_mouse_event({event_type::wheel, button::extended, 12, {105, 7}, -240});
    EXPECT_EQ(
        "root -3, group -2, group 6 -2 of deep at 5 7 flags 12 button 5 wheel -240, leaf -1, "
        "deep 6 0 of deep at 2 3 flags 12 button 5 wheel -240, "
        "leaf 1, group 2, group 6 2 of deep at 5 7 flags 12 button 5 wheel -240, root 3",
        heard());
}

TEST_F(mouse_routing, true_ends_the_route_wherever_it_is_returned) {
    const struct {
        const char* at;
        const char* expected;
    } cases[] = {
        {"root -2", "root -2"},
        {"group -1", "root -2, group -1"},
        {"leaf 0", "root -2, group -1, leaf 0"},
        {"group 1", "root -2, group -1, leaf 0, group 1"},
        {"root 2", "root -2, group -1, leaf 0, group 1, root 2"},
    };
    for (const auto& each : cases) {
        when(each.at, [] { return true; });
        press(5, 5);
        EXPECT_EQ(each.expected, heard());
    }
}

TEST_F(mouse_routing, true_ends_the_list_of_its_node_too) {
    const auto second = [this](INode*, int depth, input::mouse::event) {
        return say(fakes::call_text("second", depth));
    };
    group->add_mouse_handler(second);
    when("group 1", [] { return true; });
    press(5, 5);
    EXPECT_EQ("root -2, group -1, second -1, leaf 0, group 1", heard());
}

TEST_F(mouse_routing, nodes_without_handlers_are_passed_over_and_count_in_the_depth) {
    group->add_mouse_handler(nullptr);
    press(5, 5);
    EXPECT_EQ("root -2, leaf 0, root 2", heard());
}

TEST_F(mouse_routing, empty_function_removes_the_first_handler_alone) {
    leaf->add_mouse_handler([this](INode*, int, input::mouse::event) { return say("second"); });
    leaf->add_mouse_handler([this](INode*, int, input::mouse::event) { return say("third"); });
    leaf->add_mouse_handler(nullptr);
    press(5, 5);
    EXPECT_EQ("root -2, group -1, second, third, group 1, root 2", heard());
    leaf->add_mouse_handler(nullptr);
    leaf->add_mouse_handler(nullptr);
    leaf->add_mouse_handler(nullptr);
    press(5, 5);
    EXPECT_EQ("root -2, group -1, group 1, root 2", heard());
}

TEST_F(mouse_routing, record_names_the_events_that_it_wants) {
    const handler_block block = leaf->allocate_handler(sizeof(mouse_routing*));
    *static_cast<mouse_routing**>(block.functor) = this;
    INode::mouse_invoke* const invoke = [](void* functor, INode*, int, const input::mouse::event& event) {
        return (*static_cast<mouse_routing**>(functor))->say(fakes::call_text("own", event.type));
    };
    block.record->invoke = reinterpret_cast<void (*)()>(invoke);
    block.record->id = 77;
    block.record->mask = 1u << event_type::button_up | 1u << event_type::wheel;
    block.record->priority = -1;
    leaf->link_handler(block.record);
    mouse(event_type::button_down, 5, 5);
    EXPECT_EQ(whole_way, heard());
    mouse(event_type::button_up, 5, 5);
    EXPECT_EQ("root -2, group -1, own 4, leaf 0, group 1, root 2", heard());
    leaf->remove_handlers(77);
    mouse(event_type::button_up, 5, 5);
    EXPECT_EQ(whole_way, heard());
}

// Handlers that change what they run in

TEST_F(mouse_routing, target_that_is_removed_on_the_way_still_hears) {
    pass_after("root -2", [&] { group->remove_child(leaf); });
    press(5, 5);
    EXPECT_EQ(whole_way, heard());
    press(5, 5);
    EXPECT_EQ("root -1, group 0, root 1", heard());
}

TEST_F(mouse_routing, ancestor_that_is_removed_and_let_go_still_hears) {
    pass_after("leaf 0", [&] {
        root->remove_child(std::exchange(group, nullptr));
        leaf.reset();
    });
    press(5, 5);
    EXPECT_EQ(whole_way, heard());
    EXPECT_TRUE(inside(root).children.empty());
}

TEST_F(mouse_routing, handler_may_let_go_of_the_whole_view) {
    pass_after("group -1", [&] {
        view->set_root(nullptr);
        edge->detach_site(&site);
        auto* const lower = edge.get();
        view.reset();
        edge.reset();
        EXPECT_EQ(1u, references(lower)) << "the view keeps itself for the time of the event";
    });
    press(5, 5);
    EXPECT_EQ(whole_way, heard());
    view = create_view();
    edge = com::ptr<IViewLowerEdge>(view);
}

TEST_F(mouse_routing, clear_takes_the_handlers_that_have_not_run_yet) {
    pass_after("root -2", [&] { group->clear(); });
    press(5, 5);
    EXPECT_EQ("root -2, root 2", heard());
    EXPECT_EQ(nullptr, inside(leaf).view);
    press(5, 5);
    EXPECT_EQ("", heard()) << "nothing is recorded any more";
}

TEST_F(mouse_routing, clear_in_its_own_handler_ends_its_calls) {
    leaf->add_mouse_handler([this](INode*, int, input::mouse::event) { return say("second"); });
    pass_after("leaf 0", [&] { leaf->clear(); });
    press(5, 5);
    EXPECT_EQ("root -2, group -1, leaf 0, group 1, root 2", heard());
    EXPECT_TRUE(inside(leaf).handlers.empty());
}

TEST_F(mouse_routing, nodes_added_on_the_way_wait_for_the_next_event) {
    com::ptr<INode> added;
    pass_after("root -2", [&] {
        added = named("added", {0, 0, 20, 20}, leaf);
        hear_mouse(added);
    });
    press(5, 5);
    EXPECT_EQ(whole_way, heard());
    press(5, 5);
    EXPECT_EQ("root -3, group -2, leaf -1, added 0, leaf 1, group 2, root 3", heard());
}

TEST_F(mouse_routing, handler_added_ahead_of_the_event_hears_it) {
    pass_after("root -2", [&] {
        leaf->add_mouse_handler([this](INode*, int, input::mouse::event) { return say("added"); });
    });
    press(5, 5);
    EXPECT_EQ("root -2, group -1, leaf 0, added, group 1, root 2", heard());
}

TEST_F(mouse_routing, handler_may_remove_itself) {
    pass_after("leaf 0", [&] { leaf->add_mouse_handler(nullptr); });
    press(5, 5);
    press(5, 5);
    EXPECT_EQ(whole_way + ", root -2, group -1, group 1, root 2", heard());
}

TEST_F(mouse_routing, removal_of_a_handler_on_the_way_takes_those_behind_it_too) {
    for (const char* each : {"second", "third"}) {
        group->add_mouse_handler([this, each](INode*, int depth, input::mouse::event) {
            return say(fakes::call_text(each, depth));
        });
    }
    pass_after("second -1", [&] { group->add_mouse_handler(nullptr); });
    press(5, 5);
    EXPECT_EQ("root -2, group -1, second -1, third -1, leaf 0, root 2", heard());
    EXPECT_TRUE(inside(group).handlers.empty());
}

TEST_F(mouse_routing, handler_may_remove_all_of_its_node) {
    constexpr unsigned mouse_handlers = 0x17800601;
    leaf->add_mouse_handler([this](INode*, int, input::mouse::event) { return say("second"); });
    pass_after("leaf 0", [&] { leaf->remove_handlers(mouse_handlers); });
    press(5, 5);
    press(5, 5);
    EXPECT_EQ(whole_way + ", root -2, group -1, group 1, root 2", heard());
}

TEST_F(mouse_routing, handler_that_removed_itself_keeps_what_it_holds_until_it_ends) {
    auto held = std::make_shared<std::string>("held");
    const std::weak_ptr<std::string> watched = held;
    leaf->add_mouse_handler(nullptr);
    leaf->add_mouse_handler([this, held](INode*, int, input::mouse::event) {
        leaf->add_mouse_handler(nullptr);
        return say(*held);
    });
    held.reset();
    press(5, 5);
    EXPECT_EQ("root -2, group -1, held, group 1, root 2", heard());
    EXPECT_TRUE(watched.expired());
}

TEST_F(mouse_routing, throw_passes_to_the_host_and_leaves_the_route_usable) {
    for (const char* at : {"root -2", "group -1", "leaf 0", "group 1", "root 2"}) {
        when(at, []() -> bool { throw std::runtime_error("thrown by a handler"); });
        EXPECT_EQ("thrown by a handler", thrown_by<std::runtime_error>([&] { press(5, 5); }));
        EXPECT_EQ(std::string(at), calls().back());
        press(5, 5);
        EXPECT_EQ(whole_way, heard());
    }
    leaf->add_mouse_handler(nullptr);
    EXPECT_TRUE(inside(leaf).handlers.empty()) << "outside a dispatch a removal is at once";
}

TEST_F(mouse_routing, handler_may_send_another_event) {
    pass_after("leaf 0", [&] { press(30, 30); });
    press(5, 5);
    EXPECT_EQ("root -2, group -1, leaf 0, root -1, group 0, root 1, group 1, root 2", heard());
}

TEST_F(mouse_routing, removal_inside_a_nested_event_is_swept_behind_the_outer_one) {
    leaf->add_mouse_handler([this](INode*, int, input::mouse::event) { return say("second"); });
    pass_after("leaf 0", [&] {
        pass_after("leaf 0", [&] { leaf->add_mouse_handler(nullptr); });
        press(5, 5);
    });
    press(5, 5);
    EXPECT_EQ(
        "root -2, group -1, leaf 0, root -2, group -1, leaf 0, second, group 1, root 2, second, "
        "group 1, root 2",
        heard());
    EXPECT_TRUE(inside(leaf).handlers.empty()) << "and what stood behind it";
}

TEST_F(mouse_routing, handler_may_let_go_of_the_last_reference_to_its_node) {
    const com::weak_ptr<node> watched = &inside(leaf);
    pass_after("leaf 0", [&] {
        group->remove_child(leaf);
        leaf.reset();
    });
    press(5, 5);
    EXPECT_EQ(whole_way, heard());
    EXPECT_FALSE(static_cast<bool>(watched.lock()));
}

TEST_F(mouse_routing, event_without_a_root_goes_nowhere) {
    view->set_root(nullptr);
    for (int type = 0; type <= 9; ++type) mouse(type, 5, 5);
    EXPECT_EQ("", heard());
}

}  // namespace
}  // namespace d2d::scene
