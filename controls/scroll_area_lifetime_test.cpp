// How scroll areas end, and what they use, in the middle of what they do; and what is left then.

#include "com/diagnostics.h"
#include "controls/testing/scroll_area_ways.h"

#include <memory>
#include <string>
#include <utility>
#include <vector>

#include <gtest/gtest.h>

namespace d2d {
namespace {

using fakes::acting_element;
using scene::fakes::call_text;
using scene::fakes::references;
using scene::fakes::same;

class scroll_area_lifetime_test : public fakes::scroll_area_ways {};

// A handler that replaces itself

TEST_F(scroll_area_lifetime_test, handler_may_replace_itself_and_is_whole_until_it_ends) {
    for (const auto& each : all_ways()) {
        SCOPED_TRACE(each.name);
        make(usual, large);
        const auto kept = std::make_shared<std::string>("the first handler's own");
        int replaced = 0;
        area->set_view_changed_handler([&, kept](D2D_RECT_F) {
            area->set_view_changed_handler([&](D2D_RECT_F) { ++replaced; });
            EXPECT_EQ("the first handler's own", *kept);
            EXPECT_EQ(2, kept.use_count());
        });
        each.change();
        EXPECT_EQ(1, kept.use_count());
        const int before = replaced;
        area->set_scroll_position(150, 160);
        EXPECT_EQ(before + 1, replaced);
        area->set_view_changed_handler([&](D2D_RECT_F) { area->set_view_changed_handler(nullptr); });
        area->set_scroll_position(10, 10);
        area->set_scroll_position(20, 20);
    }
}

// A handler that lets go of the area

TEST_F(scroll_area_lifetime_test, handler_may_drop_the_last_reference_while_the_user_scrolls) {
    for (const auto& each : ways_of_the_user()) {
        SCOPED_TRACE(each.name);
        make(usual, large);
        const auto kept = std::make_shared<std::string>("the handler's own");
        int told = 0;
        area->set_view_changed_handler([&, kept](D2D_RECT_F) {
            ++told;
            area.reset();
            EXPECT_EQ("the handler's own", *kept);
        });
        each.change();
        EXPECT_EQ(1, told);
        EXPECT_EQ(1, kept.use_count()) << "the handler went with the area";
        EXPECT_EQ(1u, references(style->get_IUnknown())) << "so did all that had the style";
        each.change();  // nobody is there
        EXPECT_EQ(1, told);
        area = nullptr;
    }
}

TEST_F(scroll_area_lifetime_test, handler_may_drop_the_last_reference_while_the_owner_changes_the_area) {
    for (const auto& each : ways_of_the_owner()) {
        SCOPED_TRACE(each.name);
        make(usual, large);
        const auto kept = std::make_shared<int>(0);
        int told = 0;
        area->set_view_changed_handler([&, kept](D2D_RECT_F) {
            ++told;
            area.reset();
        });
        each.change();
        EXPECT_EQ(1, told);
        EXPECT_EQ(1, kept.use_count());
        EXPECT_EQ(1u, references(style->get_IUnknown()));
    }
}

TEST_F(scroll_area_lifetime_test, element_may_drop_the_last_reference_while_it_is_laid_out) {
    const auto changes = [this] {
        return std::vector<way>{{"size",
                                 [this] {
                                     area.get()->arrange({0, 0, 132, 112});
                                 }},
                                {"move",
                                 [this] {
                                     area.get()->arrange({9, 9, 121, 101});
                                 }},
                                {"margin", [this] { area.get()->set_margin_fixed_size(left, 5); }},
                                {"bounds",
                                 [this] {
                                     area.get()->set_content_bounds({0, 0, 5, 5});
                                 }},
                                {"inset", [this] {
                                     area.get()->set_margin_element(left, acting, {1, 1, 1, 1});
                                 }}};
    };
    for (const bool heard : {true, false}) {
        for (const auto& each : changes()) {
            SCOPED_TRACE(call_text(each.name, heard));
            make(usual, large);
            bool dropping = false;
            acting = com::create_object<acting_element>([&] {
                if (dropping) area.reset();
            });
            area->set_margin_element(left, acting, {});
            if (heard) hear_view();
            dropping = true;
            each.change();
            EXPECT_EQ(nullptr, area);
            EXPECT_EQ(2, acting->arranges);
            EXPECT_EQ(1u, references(acting.get()));
            EXPECT_EQ(1u, references(style->get_IUnknown()));
        }
    }
}

TEST_F(scroll_area_lifetime_test, area_may_go_between_two_points_of_a_drag) {
    for (const bool vertical : {true, false}) {
        make(usual, large);
        int told = 0;
        area->set_view_changed_handler([&](D2D_RECT_F) { ++told; });
        site.drag = [&](const auto& moved) {
            moved(vertical ? D2D_POINT_2F{106, 20} : D2D_POINT_2F{20, 86});
            EXPECT_EQ(1, told);
            area.reset();
            moved(vertical ? D2D_POINT_2F{106, 30} : D2D_POINT_2F{30, 86});
            return true;
        };
        press(vertical ? D2D_POINT_2F{106, 10} : D2D_POINT_2F{10, 86});
        EXPECT_EQ(1, told);
        EXPECT_EQ(1u, references(style->get_IUnknown()));
    }
}

TEST_F(scroll_area_lifetime_test, area_may_go_while_a_handler_replaces_it) {
    make(usual, large);
    int told = 0;
    area->set_view_changed_handler([&](D2D_RECT_F) {
        ++told;
        make({0, 0, 112, 92}, {0, 0, 500, 500});
        area->set_view_changed_handler([&](D2D_RECT_F) { ++told; });
    });
    press({106, 79});
    EXPECT_EQ(1, told);
    press({106, 79});
    EXPECT_EQ(2, told);
    EXPECT_EQ("0 80", position());
}

// Nodes that go meanwhile

TEST_F(scroll_area_lifetime_test, content_may_leave_while_it_scrolls) {
    for (const auto& each : all_ways()) {
        SCOPED_TRACE(each.name);
        make(usual, large);
        for (int side = 0; side < 4; ++side) area->set_margin_scrolled_size(side, 2);
        const auto extra = filled({0, 0, 300, 400});
        area->add_content(extra);
        area->set_view_changed_handler([&](D2D_RECT_F) {
            area->remove_content(extra);
            area->remove_margin_scrolled_node(top, in_scrolled[top]);
            area->add_margin_scrolled_node(top, in_scrolled[top]);
        });
        each.change();
        EXPECT_EQ(nullptr, extra->get_parent());
    }
}

TEST_F(scroll_area_lifetime_test, area_may_leave_the_tree_while_it_scrolls) {
    for (const auto& each : all_ways()) {
        SCOPED_TRACE(each.name);
        make(usual, large);
        int told = 0;
        area->set_view_changed_handler([&](D2D_RECT_F) {
            ++told;
            if (own->get_parent()) root->remove_child(own);
        });
        each.change();
        EXPECT_GE(told, 1);
        EXPECT_EQ(nullptr, own->get_parent());
        EXPECT_EQ(nullptr, content_node().view);
        root->add_child(own);
        area->set_view_changed_handler(nullptr);
        area->set_scroll_position(15, 16);
        EXPECT_EQ("-15 -16", content_place());
    }
}

TEST_F(scroll_area_lifetime_test, child_that_removes_itself_under_the_wheel_still_has_it_counted) {
    make(usual, large);
    auto child = filled({0, 0, 300, 400});
    area->add_content(child);
    child->add_mouse_handler([&](scene::INode*, int, input::mouse::event) {
        area->remove_content(std::exchange(child, nullptr));
        return false;
    });
    wheel({50, 40}, -120);
    EXPECT_EQ("0 8", position());
    EXPECT_EQ(nullptr, child);
}

TEST_F(scroll_area_lifetime_test, bounds_handler_that_scrolls_has_the_last_word) {
    make(usual, large);
    for (int side = 0; side < 4; ++side) area->set_margin_scrolled_size(side, 2);
    bool done = false;
    // Heard while the content moves, ahead of the margins.
    viewport_node().add_bounds_handler([&](bool, D2D_RECT_F) {
        if (!std::exchange(done, true)) area->set_scroll_position(70, 90);
    });
    area->set_scroll_position(10, 20);
    ASSERT_TRUE(done);
    EXPECT_EQ(call_text("at", -70, 0), place_of(scrolled_node(top)));
    EXPECT_EQ(call_text("at", 0, -90), place_of(scrolled_node(left)));
    EXPECT_EQ("-70 -90", content_place());
}

TEST_F(scroll_area_lifetime_test, element_may_change_the_area_that_lays_it_out) {
    make(usual, large);
    area->set_margin_fixed_size(top, 10);
    bool done = false;
    const auto element = com::create_object<acting_element>([&] {
        if (!std::exchange(done, true)) area->set_margin_fixed_size(top, 30);
    });
    area->set_margin_element(top, element, {});
    EXPECT_EQ("0 0 100 49", call_text(area->get_view_rect()));
    EXPECT_EQ(2, element->arranges);
    done = false;
    const auto leaving =
        com::create_object<acting_element>([&] { area->set_margin_element(top, nullptr, {}); });
    area->set_margin_element(top, leaving, {});
    EXPECT_EQ(1, leaving->arranges);
    EXPECT_EQ(1u, references(leaving.get()));
}

// The end

TEST_F(scroll_area_lifetime_test, node_that_outlives_its_area_scrolls_no_more) {
    make(usual, large);
    area->set_margin_scrolled_size(top, 9);
    hear_view();
    area->set_scroll_position(20, 30);
    static_cast<void>(take_views());
    area.reset();
    forget();
    for (const auto& each : ways_of_the_user()) {
        each.change();
        EXPECT_EQ((lines{}), take_views()) << each.name;
        EXPECT_EQ((lines{}), calls()) << each.name;
    }
    EXPECT_EQ(own.get(), static_cast<scene::INode*>(viewport_node().parent)) << "the tree stays as it was";
    EXPECT_EQ("-20 -30", content_place());
}

TEST_F(scroll_area_lifetime_test, nodes_of_clients_are_theirs_again) {
    make(usual, large);
    area->set_margin_fixed_size(left, 9);
    area.reset();
    root->remove_child(own);
    own.reset();
    EXPECT_EQ(nullptr, in_content->get_parent());
    for (const auto& each : in_fixed) EXPECT_EQ(nullptr, each->get_parent());
    for (const auto& each : in_scrolled) EXPECT_EQ(nullptr, each->get_parent());
    EXPECT_TRUE(same({0, 0, 10, 10}, in_content->get_bounds(true)));
}

TEST_F(scroll_area_lifetime_test, each_area_takes_all_that_it_made_with_it) {
    make(usual, large);  // what is made once is there now
    const long before = com::live_object_count();
    for (int i = 0; i < 20; ++i) {
        const auto other = ui::create_scroll_area(usual, style->get_IUnknown());
        const auto element = com::create_object<scene::fakes::fake_element>(scene::layout::metrics{});
        const auto kept = std::make_shared<int>(i);
        other->set_content_bounds(i % 2 == 0 ? large : D2D_RECT_F{});
        other->set_margin_fixed_size(i % 4, 5);
        other->set_margin_element(i % 4, element, {});
        other->add_content(scene::create_node());
        other->set_view_changed_handler([kept](D2D_RECT_F) {});
        root->add_child(other->get_node());
        other->set_scroll_position(5, 5);
        root->remove_child(other->get_node());
    }
    EXPECT_EQ(before, com::live_object_count());
}

TEST_F(scroll_area_lifetime_test, handler_goes_ahead_of_the_bars_and_they_ahead_of_the_margins) {
    make(usual, large);
    const com::ptr<scene::INode> kept = own;
    const node& thumb = *bar(true).children.at(0);
    lines gone;
    const auto note = [&](const char* what) {
        return std::shared_ptr<void>(nullptr, [&gone, &thumb, what](void*) {
            gone.push_back(std::string(what) +
                           (thumb.subtree_bounds.bottom > 0 ? ", bars there" : ", no bars"));
        });
    };
    area->set_view_changed_handler([said = note("handler")](D2D_RECT_F) {});
    area->set_margin_element(left, com::create_object<acting_element>([said = note("element")] {}), {});
    area.reset();
    EXPECT_EQ((lines{"handler, bars there", "element, no bars"}), gone);
}

TEST_F(scroll_area_lifetime_test, element_and_handler_go_with_the_area_though_its_node_stays) {
    make(usual, large);
    const auto element = com::create_object<scene::fakes::fake_element>(scene::layout::metrics{});
    const auto kept = std::make_shared<int>(0);
    area->set_margin_element(left, element, {});
    area->set_view_changed_handler([kept](D2D_RECT_F) {});
    EXPECT_EQ(2u, references(element.get()));
    area.reset();
    EXPECT_EQ(1u, references(element.get()));
    EXPECT_EQ(1, kept.use_count());
}

}  // namespace
}  // namespace d2d
