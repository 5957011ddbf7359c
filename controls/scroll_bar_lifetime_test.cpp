// What listeners of a scroll bar may do to it, what is left when it goes, and what a step costs.

#include "com/diagnostics.h"
#include "controls/testing/scroll_bar_fixture.h"
#include "scene/testing/allocation_count.h"

#include <algorithm>
#include <functional>
#include <memory>
#include <stdexcept>
#include <string>
#include <utility>
#include <vector>

#include <gtest/gtest.h>

namespace d2d {
namespace {

using input::mouse::button;
using scene::fakes::same;
using scene::fakes::thrown_by;
using positions = std::vector<float>;
using ways = std::vector<std::function<void()>>;
namespace event_type = input::mouse::event_type;

class scroll_bar_lifetime_test : public fakes::scroll_bar_fixture {
protected:
    void TearDown() override {
        node.reset();
        scroll_bar_fixture::TearDown();
    }
    /// At the origin, with the thumb at 51 to 101; half a pixel for a unit.
    void make_usual() {
        make(orientation::vertical, {100, 0, 300, 100, 16}, {0, 0, 16, 202});
        node = bar->get_node();
    }
    void listen(ui::IScrollBar::position_function listener) {
        bar->add_position_listener(std::move(listener));
    }

    // The four ways in which the user moves a bar, each to 200.
    void page() { press(button::left, {0.5f, 180}); }
    void jump() { press(button::right, {0.5f, 125}); }
    void jump_then_drag() {
        drag_through({{0.5f, 125}});
        press(button::right, {0.5f, 75});
        site.drag = nullptr;
    }
    void drag_thumb() {
        drag_through({{8, 110}});
        press(button::left, {8, 60});
        site.drag = nullptr;
    }

    [[nodiscard]] ways ways_without_drag() {
        return {[this] { page(); }, [this] { jump(); }};
    }
    [[nodiscard]] ways all_ways() {
        return {[this] { page(); }, [this] { jump(); }, [this] { jump_then_drag(); },
                [this] { drag_thumb(); }};
    }

    com::ptr<scene::INode> node;
};

// Listeners that change the bar

TEST_F(scroll_bar_lifetime_test, listener_that_sets_the_position_is_not_told_again) {
    for (const auto& way : ways_without_drag()) {
        make_usual();
        positions behind;
        listen([&](float at) {
            told.push_back(at);
            bar->set_position(60);
        });
        listen([&](float at) { behind.push_back(at); });
        way();
        EXPECT_EQ((positions{200}), take_told());
        EXPECT_EQ((positions{200}), behind) << "the others are told where the user moved it";
        EXPECT_EQ(60, bar->get_position());
        root->remove_child(node);
    }
}

TEST_F(scroll_bar_lifetime_test, dragged_thumb_stays_under_the_pointer_whatever_a_listener_sets) {
    make_usual();
    listen([&](float at) {
        told.push_back(at);
        bar->set_position(60);
    });
    drag_thumb();
    EXPECT_EQ((positions{200}), take_told());
    EXPECT_EQ(60, bar->get_position());
    EXPECT_EQ("1 101", thumb_place());
    bar->set_position(bar->get_position());
    EXPECT_EQ("1 31", thumb_place());
}

TEST_F(scroll_bar_lifetime_test, listener_that_sets_the_range_has_the_drag_go_on_in_it) {
    make_usual();
    listen([&](float at) {
        told.push_back(at);
        bar->set_range({at, 0, 600, 200, 16});  // the thumb as long, half as many pixels for a unit
    });
    drag_through({{8, 61}, {8, 71}});
    press(button::left, {8, 60});
    // A pixel behind 51 is 102 units; then 61 is 60 of the pixels that are a quarter each.
    EXPECT_EQ((positions{102, 244}), take_told());
    EXPECT_EQ(244, bar->get_position());
    EXPECT_EQ("1 62", thumb_place());
}

TEST_F(scroll_bar_lifetime_test, listener_that_arranges_the_bar_is_safe) {
    make_usual();
    listen([&](float) { bar->arrange({0, 0, 16, 102}); });
    page();
    EXPECT_TRUE(same({0, 0, 16, 102}, bar->get_rect()));
    EXPECT_EQ(200, bar->get_position());
    drag_through({{8, 70}, {8, 80}});
    press(button::left, {8, 60});
    EXPECT_TRUE(same({0, 0, 16, 102}, track().clip_rect));
}

// Listeners that throw

TEST_F(scroll_bar_lifetime_test, what_a_listener_throws_passes_and_the_bar_goes_on) {
    for (const auto& way : all_ways()) {
        make_usual();
        bool failing = true;
        positions behind;
        listen([&](float at) {
            if (failing && at == 200) throw std::runtime_error("enough");
        });
        listen([&](float at) { behind.push_back(at); });
        EXPECT_EQ("enough", thrown_by<std::runtime_error>([&] { way(); }));
        EXPECT_EQ(200, bar->get_position());
        EXPECT_EQ(0, std::count(behind.begin(), behind.end(), 200.0f));
        failing = false;
        bar->set_position(100);
        behind.clear();
        way();
        EXPECT_EQ(200, bar->get_position());
        EXPECT_EQ(200, behind.back());
        EXPECT_EQ("1 101", thumb_place());
        root->remove_child(node);
    }
}

// Listeners that let go of the bar

TEST_F(scroll_bar_lifetime_test, listener_may_drop_the_last_reference) {
    for (const auto& way : all_ways()) {
        make_usual();
        const auto kept = std::make_shared<std::string>("a listener's own");
        positions behind;
        listen([&, kept](float at) {
            bar.reset();
            told.push_back(at);
            EXPECT_EQ("a listener's own", *kept);
        });
        listen([&](float at) { behind.push_back(at); });
        way();
        EXPECT_EQ(take_told(), behind);
        EXPECT_FALSE(behind.empty());
        EXPECT_EQ(1, kept.use_count()) << "listeners go with the bar";
        EXPECT_EQ(1u, scene::fakes::references(style->get_IUnknown())) << "the bar, which kept it, is gone";
        page();  // nobody is there
        EXPECT_EQ((positions{}), take_told());
        root->remove_child(node);
    }
}

TEST_F(scroll_bar_lifetime_test, drag_goes_on_after_the_last_reference_is_dropped) {
    make_usual();
    listen([&](float at) {
        told.push_back(at);
        bar.reset();
    });
    drag_through({{8, 70}, {8, 80}, {8, 90}});
    press(button::left, {8, 60});
    EXPECT_EQ((positions{120, 140, 160}), take_told());
    EXPECT_TRUE(inside(node).children.at(0)->get_bounds(false).bottom == 0) << "gone with the bar";
}

TEST_F(scroll_bar_lifetime_test, bar_may_be_dropped_between_two_points_of_a_drag) {
    make_usual();
    hear_positions();
    site.drag = [&](const auto& moved) {
        moved({8, 70});
        bar.reset();
        moved({8, 80});
        return true;
    };
    press(button::left, {8, 60});
    EXPECT_EQ((positions{120, 140}), take_told());
    press(button::left, {8, 60});
    EXPECT_EQ((positions{}), take_told());
}

TEST_F(scroll_bar_lifetime_test, bar_may_leave_the_tree_while_it_is_dragged) {
    make_usual();
    listen([&](float at) {
        told.push_back(at);
        if (node->get_parent()) root->remove_child(node);
    });
    drag_through({{8, 70}, {8, 80}});
    press(button::left, {8, 60});
    EXPECT_EQ((positions{120, 140}), take_told());
    EXPECT_EQ("1 71", thumb_place());
    root->add_child(node);
    page();
    EXPECT_EQ((positions{240}), take_told());
}

TEST_F(scroll_bar_lifetime_test, jump_that_has_the_bar_taken_away_ends_there) {
    make_usual();
    listen([&](float at) {
        told.push_back(at);
        if (node->get_parent()) root->remove_child(node);
    });
    drag_through({{0.5f, 50}});
    press(button::right, {0.5f, 125});
    EXPECT_EQ((positions{200}), take_told());
    EXPECT_EQ((lines{}), drawn()) << "no drag";
    root->add_child(node);
    press(button::right, {0.5f, 75});
    EXPECT_EQ((positions{100}), take_told());
}

TEST_F(scroll_bar_lifetime_test, bar_that_is_taken_away_ahead_of_the_press_is_not_dragged) {
    make_usual();
    root->add_mouse_handler([&](scene::INode*, int depth, input::mouse::event) {
        if (depth < 0 && node->get_parent()) root->remove_child(node);
        return false;
    });
    for (const auto each : {button::left, button::right}) {
        press(each, {8, 60});
        EXPECT_EQ((lines{}), drawn());
        EXPECT_EQ(nullptr, node->get_parent());
        root->add_child(node);
    }
}

TEST_F(scroll_bar_lifetime_test, view_may_lose_the_tree_while_the_bar_is_dragged) {
    make_usual();
    listen([&](float) { view->set_root(nullptr); });
    drag_through({{8, 70}, {8, 80}});
    press(button::left, {8, 60});
    EXPECT_EQ(140, bar->get_position());
}

TEST_F(scroll_bar_lifetime_test, press_may_come_in_the_midst_of_a_drag) {
    make_usual();
    hear_positions();
    site.drag = [&](const auto& moved) {
        moved({8, 70});  // to 120
        page();          // to 220: half of it, 110, is where the thumb counts from
        EXPECT_EQ("1 111", thumb_place());
        moved({8, 80});  // back under the pointer
        return true;
    };
    press(button::left, {8, 60});
    EXPECT_EQ((positions{120, 220, 140}), take_told());
    EXPECT_EQ("1 71", thumb_place());
}

// The end

TEST_F(scroll_bar_lifetime_test, node_that_outlives_its_bar_is_a_dead_track) {
    make_usual();
    hear_positions();
    const com::ptr<scene::INode> old_thumb(node->get_bounds(true).right > 0 ? &thumb() : nullptr);
    bar.reset();
    EXPECT_TRUE(same({0, 0, 0, 0}, old_thumb->get_bounds(true)));
    EXPECT_TRUE(same(scene::identity_matrix, old_thumb->get_transform()));
    EXPECT_EQ(node, old_thumb->get_parent());
    EXPECT_TRUE(same({0, 0, 16, 202}, node->get_bounds(true)));
    forget();
    press(button::left, {8, 60});
    press(button::left, {8, 180});
    press(button::right, {8, 180});
    press(button::left, {8, 180}, event_type::double_click);
    EXPECT_EQ((positions{}), take_told());
    EXPECT_EQ((lines{}), calls());
}

TEST_F(scroll_bar_lifetime_test, each_bar_takes_all_that_it_made_with_it) {
    make_usual();  // what is made once is there now
    const long before = com::live_object_count();
    for (int i = 0; i < 20; ++i) {
        const auto other =
            ui::create_scroll_bar(orientation::horizontal, usual_range, lying, style->get_IUnknown());
        const auto counted = std::make_shared<int>(i);
        other->add_position_listener([counted](float) {});
        root->add_child(other->get_node());
        root->remove_child(other->get_node());
    }
    EXPECT_EQ(before, com::live_object_count());
}

TEST_F(scroll_bar_lifetime_test, listeners_go_with_the_bar_though_its_node_stays) {
    make_usual();
    const auto counted = std::make_shared<int>(0);
    listen([counted](float) {});
    EXPECT_EQ(2, counted.use_count());
    bar.reset();
    EXPECT_EQ(1, counted.use_count());
}

TEST_F(scroll_bar_lifetime_test, listeners_go_behind_the_thumb) {
    make_usual();
    std::vector<float> thumb_bottoms;
    listen([last_words = std::shared_ptr<void>(nullptr, [&](void*) {
                thumb_bottoms.push_back(inside(node).children.at(0)->get_bounds(true).bottom);
            })](float) {});
    EXPECT_EQ(50, thumb().get_bounds(true).bottom);
    EXPECT_EQ((std::vector<float>{}), thumb_bottoms);
    bar.reset();
    EXPECT_EQ((std::vector<float>{0}), thumb_bottoms);
}

// What a step costs

TEST_F(scroll_bar_lifetime_test, moving_the_thumb_allocates_nothing) {
    make(orientation::vertical);
    float last = 0;
    bar->add_position_listener([&](float at) { last = at; });
    edge->detach_render_target(nullptr);  // the fake host writes each area down
    bar->set_position(1);
    const std::size_t before = scene::fakes::allocation_count();
    for (int i = 0; i < 100; ++i) bar->set_position(static_cast<float>(i));
    EXPECT_EQ(before, scene::fakes::allocation_count());
    press(button::left, {100.5f, 250});
    EXPECT_EQ(before, scene::fakes::allocation_count());
    EXPECT_EQ(199, last);
}

}  // namespace
}  // namespace d2d
