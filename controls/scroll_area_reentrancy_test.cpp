// What those whom a scroll area calls may do to it.

#include "controls/testing/scroll_area_ways.h"

#include <functional>
#include <memory>
#include <stdexcept>
#include <string>
#include <utility>

#include <gtest/gtest.h>

namespace d2d {
namespace {

using fakes::acting_element;
using scene::fakes::call_text;
using scene::fakes::same;
using scene::fakes::thrown_by;

class scroll_area_reentrancy_test : public fakes::scroll_area_ways {};

// A handler that scrolls

TEST_F(scroll_area_reentrancy_test, handler_may_scroll_and_hears_of_that_too) {
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

TEST_F(scroll_area_reentrancy_test, handler_that_holds_the_view_where_it_was_wins) {
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

TEST_F(scroll_area_reentrancy_test, handler_may_change_what_bars_there_are) {
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

TEST_F(scroll_area_reentrancy_test, handler_may_arrange_and_set_margins) {
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

// Elements that change the area

TEST_F(scroll_area_reentrancy_test, element_that_changes_the_area_has_the_last_word) {
    const struct {
        const char* name;
        std::function<void()> change;
    } cases[] = {
        {"place",
         [this] {
             area->arrange({20, 30, 132, 122});
         }},
        {"size",
         [this] {
             area->arrange({20, 30, 152, 142});
         }},
        {"bars",
         [this] {
             area->set_content_bounds({0, 0, 50, 400});
         }},
        {"margins",
         [this] {
             area->set_margin_fixed_size(right, 9);
             area->set_margin_fixed_size(bottom, 11);
         }},
    };
    const auto places = [this] {
        lines found{place_of(viewport_node())};
        for (int side = 0; side < 4; ++side) {
            found.push_back(place_of(fixed_node(side)));
            found.push_back(place_of(clip_node(side)));
        }
        for (const auto* const each : bars()) found.push_back(place_of(*each));
        return found;
    };
    for (const auto& each : cases) {
        SCOPED_TRACE(each.name);
        make(usual, large);
        for (int side = 0; side < 4; ++side) {
            area->set_margin_fixed_size(side, 5);
            area->set_margin_scrolled_size(side, 4);
        }
        bool done = false;
        acting = com::create_object<acting_element>([&] {
            if (!std::exchange(done, true)) each.change();
        });
        area->set_margin_element(left, acting, {});
        ASSERT_TRUE(done);
        const lines reached = places();
        const auto again = com::create_object<acting_element>([] {});
        area->set_margin_element(left, again, {});  // all is placed anew
        EXPECT_EQ(places(), reached);
        EXPECT_TRUE(same(D2D_RECT_F{0, 0, 5, again->rect.bottom}, acting->rect));
        EXPECT_TRUE(same(again->rect, acting->rect));
    }
}

TEST_F(scroll_area_reentrancy_test, element_is_let_go_when_another_is_in_its_place) {
    make(usual, large);
    area->set_margin_fixed_size(top, 10);
    const auto other = com::create_object<acting_element>([] {});
    int arranged = -1;
    {
        const std::shared_ptr<void> last_words(nullptr, [&](void*) { arranged = other->arranges; });
        area->set_margin_element(top, com::create_object<acting_element>([last_words] {}), {});
    }
    area->set_margin_element(top, other, {});
    EXPECT_EQ(1, arranged);
}

TEST_F(scroll_area_reentrancy_test, element_may_hold_the_last_reference_to_its_area) {
    for (const bool to_another : {false, true}) {
        make(usual, large);
        area->set_margin_fixed_size(top, 10);
        const auto other = to_another ? com::create_object<acting_element>([] {}) : nullptr;
        {
            const std::shared_ptr<void> last_words(nullptr, [&](void*) { area.reset(); });
            area->set_margin_element(top, com::create_object<acting_element>([last_words] {}), {});
        }
        area.get()->set_margin_element(top, other, {});
        EXPECT_EQ(nullptr, area);
        EXPECT_EQ(1u, scene::fakes::references(style->get_IUnknown()));
    }
}

// A handler that throws

TEST_F(scroll_area_reentrancy_test, what_the_handler_throws_passes_and_the_area_goes_on) {
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

TEST_F(scroll_area_reentrancy_test, view_is_reported_when_an_element_throws) {
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

TEST_F(scroll_area_reentrancy_test, of_two_failures_the_first_passes) {
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

TEST_F(scroll_area_reentrancy_test, style_that_throws_leaves_an_area_that_goes_on) {
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

}  // namespace
}  // namespace d2d
