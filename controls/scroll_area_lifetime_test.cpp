// What those whom a scroll area calls may do to it, and what is left when it goes.

#include "com/diagnostics.h"
#include "controls/testing/scroll_area_fixture.h"
#include "scene/testing/fake_element.h"

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
using scene::fakes::call_text;
using scene::fakes::references;
using scene::fakes::same;
using scene::fakes::thrown_by;

/// An element that does something when it is laid out.
class acting_element : public scene::fakes::fake_element {
public:
    explicit acting_element(std::function<void()> does) : fake_element({}), action(std::move(does)) {}

    void arrange(D2D_RECT_F given) override {
        fake_element::arrange(given);
        if (const auto running = action) running();
    }

    std::function<void()> action;

protected:
    ~acting_element() = default;
};

class scroll_area_lifetime_test : public fakes::scroll_area_fixture {
protected:
    void TearDown() override {
        acting.reset();
        scroll_area_fixture::TearDown();
    }

    static constexpr D2D_RECT_F usual{0, 0, 112, 92};  // 100 by 80 with both bars
    static constexpr D2D_RECT_F large{0, 0, 300, 400};

    struct way {
        const char* name;
        std::function<void()> change;
    };
    /// The ways to change what an area shows: by the user, and by the owner.
    [[nodiscard]] std::vector<way> ways_of_the_user() {
        return {{"wheel",
                 [this] {
                     wheel({50, 40}, -120);
                 }},
                {"page",
                 [this] {
                     press({106, 79});
                 }},
                {"jump",
                 [this] {
                     press({106, 40}, button::right);
                 }},
                {"drag",
                 [this] {
                     drag_through({{106, 20}, {106, 30}, {106, 40}});
                     press({106, 10});
                     site.drag = nullptr;
                 }},
                {"drag across", [this] {
                     drag_through({{20, 86}, {30, 86}});
                     press({10, 86});
                     site.drag = nullptr;
                 }}};
    }
    [[nodiscard]] std::vector<way> ways_of_the_owner() {
        return {{"position", [this] { com::ptr<ui::IScrollArea>(area)->set_scroll_position(20, 30); }},
                {"bounds",
                 [this] {
                     area.get()->set_content_bounds({10, 10, 310, 410});
                 }},
                {"arrange",
                 [this] {
                     area.get()->arrange({0, 0, 122, 102});
                 }},
                {"fixed margin", [this] { area.get()->set_margin_fixed_size(top, 9); }},
                {"scrolled margin", [this] { area.get()->set_margin_scrolled_size(left, 9); }}};
    }
    com::ptr<acting_element> acting;  // of the left margin, in some tests

    [[nodiscard]] std::vector<way> all_ways() {
        auto all = ways_of_the_user();
        for (auto& each : ways_of_the_owner()) all.push_back(std::move(each));
        return all;
    }
};

// A handler that scrolls

TEST_F(scroll_area_lifetime_test, handler_may_scroll_and_hears_of_that_too) {
    for (const auto& each : all_ways()) {
        SCOPED_TRACE(each.name);
        make(usual, large);
        bool scrolled = false;
        lines told;
        area->set_view_changed_handler([&](D2D_RECT_F shown) {
            told.push_back(call_text(shown));
            if (!std::exchange(scrolled, true)) area->set_scroll_position(111, 222);
            told.push_back("back");
        });
        each.change();
        ASSERT_GE(told.size(), 4u);
        EXPECT_EQ(0u, told[1].find("111 222 ")) << told[1];
        EXPECT_EQ("back", told[2]);
        EXPECT_EQ("back", told[3]);
        if (told.size() == 4) {
            EXPECT_EQ("111 222", position());
            EXPECT_EQ("-111 -222", content_place());
        }
    }
}

TEST_F(scroll_area_lifetime_test, handler_that_holds_the_view_where_it_was_wins) {
    make(usual, large);
    area->set_scroll_position(40, 40);
    int calls_of_handler = 0;
    area->set_view_changed_handler([&](D2D_RECT_F) {
        ++calls_of_handler;
        area->set_scroll_position(40, 40);
    });
    wheel({50, 40}, -120);
    EXPECT_EQ("40 40", position());
    EXPECT_EQ("-40 -40", content_place());
    EXPECT_EQ(2, calls_of_handler) << "of the step and of its own";
    press({106, 79});
    EXPECT_EQ("40 40", position());
    EXPECT_EQ(place_of(*bar(true).children.at(0)),
              call_text("at", 101, 1 + 40 * ((78 - 78.0f * 80 / 400) / 320)));
}

TEST_F(scroll_area_lifetime_test, handler_may_change_what_bars_there_are) {
    for (const auto& each : ways_of_the_user()) {
        SCOPED_TRACE(each.name);
        make(usual, large);
        area->set_view_changed_handler([&](D2D_RECT_F) { area->set_content_bounds({0, 0, 50, 40}); });
        each.change();
        EXPECT_TRUE(bars().empty());
        EXPECT_EQ("0 0", position());
        EXPECT_EQ("0 0", content_place());
        area->set_view_changed_handler(nullptr);
        area->set_content_bounds(large);
        EXPECT_EQ(2u, bars().size());
    }
}

TEST_F(scroll_area_lifetime_test, handler_may_arrange_and_set_margins) {
    for (const auto& each : all_ways()) {
        SCOPED_TRACE(each.name);
        make(usual, large);
        bool done = false;
        area->set_view_changed_handler([&](D2D_RECT_F) {
            if (std::exchange(done, true)) return;
            area->set_margin_fixed_size(right, 19);
            area->arrange({0, 0, 132, 112});
        });
        each.change();
        EXPECT_TRUE(done);
        EXPECT_TRUE(same({0, 0, 132, 112}, area->get_rect()));
        EXPECT_TRUE(holds(fixed_node(right)));
        EXPECT_EQ(std::string::npos, place_of(fixed_node(right)).find("clip 0 0 0"));
        EXPECT_EQ("at 120 0 clip 120 0 132 100", "at 120 0 clip " + call_text(bar(true).clip_rect));
    }
}

// A handler that throws

TEST_F(scroll_area_lifetime_test, what_the_handler_throws_passes_and_the_area_goes_on) {
    for (const auto& each : all_ways()) {
        SCOPED_TRACE(each.name);
        make(usual, large);
        area->set_view_changed_handler([](D2D_RECT_F) { throw std::runtime_error("enough"); });
        EXPECT_EQ("enough", thrown_by<std::runtime_error>(each.change));
        const D2D_RECT_F reached = area->get_view_rect();
        EXPECT_FALSE(same({0, 0, 100, 80}, reached)) << "done, though not told";
        hear_view();
        area->set_scroll_position(150, 160);
        EXPECT_EQ(1u, take_views().size());
        EXPECT_EQ("-150 -160", content_place());
        wheel({60, 50}, 120);
        EXPECT_EQ(1u, take_views().size());
    }
}

TEST_F(scroll_area_lifetime_test, view_is_reported_when_an_element_throws) {
    make(usual, large);
    area->set_margin_fixed_size(top, 10);
    bool failing = false;
    const auto element = com::create_object<acting_element>([&] {
        if (failing) throw std::runtime_error("no room");
    });
    area->set_margin_element(top, element, {});
    hear_view();
    failing = true;
    EXPECT_EQ("no room", thrown_by<std::runtime_error>([&] { area->set_margin_fixed_size(top, 20); }));
    EXPECT_EQ((lines{"0 0 100 59"}), take_views());
    EXPECT_EQ("no room", thrown_by<std::runtime_error>([&] { area->arrange({0, 0, 122, 92}); }));
    EXPECT_EQ((lines{"0 0 110 59"}), take_views());
    EXPECT_EQ("no room", thrown_by<std::runtime_error>([&] { area->arrange({0, 0, 122, 92.5f}); }));
    EXPECT_EQ((lines{"0 0 110 59.5"}), take_views());
    failing = false;
    area->arrange(usual);
    EXPECT_EQ((lines{"0 0 100 59"}), take_views());
    EXPECT_EQ("at 0 21 clip 0 0 100 59", place_of(viewport_node()));
}

TEST_F(scroll_area_lifetime_test, of_two_failures_the_first_passes) {
    make(usual, large);
    area->set_margin_fixed_size(top, 10);
    bool failing = false;
    const auto element = com::create_object<acting_element>([&] {
        if (failing) throw std::runtime_error("no room");
    });
    area->set_margin_element(top, element, {});
    failing = true;
    int told = 0;
    area->set_view_changed_handler([&](D2D_RECT_F) {
        ++told;
        throw std::runtime_error("enough");
    });
    EXPECT_EQ("no room", thrown_by<std::runtime_error>([&] { area->set_margin_fixed_size(top, 20); }));
    EXPECT_EQ(1, told);
}

TEST_F(scroll_area_lifetime_test, style_that_throws_leaves_an_area_that_goes_on) {
    make(usual, large);
    hear_view();
    style->on_separators = [] { throw std::runtime_error("no ink"); };
    EXPECT_EQ("no ink", thrown_by<std::runtime_error>([&] { area->arrange({0, 0, 122, 92}); }));
    EXPECT_EQ((lines{"0 0 110 80"}), take_views());
    style->on_separators = nullptr;
    area->arrange(usual);
    EXPECT_EQ("at 0 0 clip 0 0 100 80", place_of(viewport_node()));
    EXPECT_EQ(2u, bars().size());
    style->on_separators = [] { throw std::runtime_error("no ink"); };
    EXPECT_EQ("no ink", thrown_by<std::runtime_error>([&] {
                  static_cast<void>(ui::create_scroll_area(usual, style->get_IUnknown()));
              }));
}

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
