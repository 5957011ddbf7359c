// What a scroll bar is made of, where its thumb lies, and what is drawn anew when.

#include "com/error.h"
#include "controls/testing/answers.h"
#include "controls/testing/scroll_bar_fixture.h"

#include <cmath>
#include <limits>
#include <stdexcept>
#include <string>

#include <gtest/gtest.h>

namespace d2d {
namespace {

using fakes::answers;
using input::mouse::button;
using scene::fakes::call_text;
using scene::fakes::same;
using scene::fakes::thrown_by;

class scroll_bar_test : public fakes::scroll_bar_fixture {};

TEST_F(scroll_bar_test, is_a_clipped_track_with_a_thumb_on_it) {
    for (const auto direction : {orientation::vertical, orientation::horizontal}) {
        SCOPED_TRACE(static_cast<int>(direction));
        make(direction);
        const D2D_RECT_F rect = direction == orientation::vertical ? upright : lying;
        EXPECT_TRUE(same(scene::identity_matrix, track().transform));
        EXPECT_TRUE(track().clip_flags & scene::node::has_clip);
        EXPECT_TRUE(same(rect, track().clip_rect));
        EXPECT_TRUE(same(rect, track().content_bounds));
        EXPECT_TRUE(same(rect, bar->get_rect()));
        ASSERT_EQ(1u, track().children.size());
        EXPECT_FALSE(thumb().clip_flags & scene::node::has_clip);
        EXPECT_TRUE(thumb().children.empty());
        EXPECT_EQ(call_text(rect.left + 1, rect.top + 1), thumb_place());
        EXPECT_TRUE(
            same(direction == orientation::vertical ? D2D_RECT_F{0, 0, 14, 50} : D2D_RECT_F{0, 0, 50, 14},
                 thumb().content_bounds));
        root->remove_child(bar->get_node());
    }
}

TEST_F(scroll_bar_test, keeps_its_range_as_it_is_given) {
    make(orientation::vertical, {-5, 10, 20, 3, 7});
    const range kept = bar->get_range();
    EXPECT_EQ("-5 10 20 3 7", call_text(kept.position, kept.minimum, kept.maximum, kept.page, kept.line));
    EXPECT_EQ(-5, bar->get_position());
}

TEST_F(scroll_bar_test, gives_the_same_node_every_time) {
    make(orientation::vertical);
    EXPECT_EQ(bar->get_node(), bar->get_node());
}

// Length and place of thumbs

struct geometry_case {
    const char* name;
    ui::IScrollBar::orientation direction;
    D2D_RECT_F rect;
    ui::IScrollBar::range range;
    float width, height;  // of the thumb
    float x, y;
};

TEST_F(scroll_bar_test, thumb_has_the_share_of_the_page_and_lies_at_the_share_of_the_position) {
    constexpr auto vertical = orientation::vertical;
    constexpr auto horizontal = orientation::horizontal;
    const geometry_case cases[] = {
        {"in the middle", vertical, upright, {150, 0, 300, 100, 0}, 14, 50, 101, 126},
        {"at the end", vertical, upright, {300, 0, 300, 100, 0}, 14, 50, 101, 201},
        {"lying at the end", horizontal, lying, {300, 0, 300, 100, 0}, 50, 14, 201, 101},
        {"between pixels", vertical, upright, {0.5f, 0, 300, 100, 0}, 14, 50, 101, 51.25f},
        {"another minimum", vertical, upright, {-50, -100, 200, 100, 0}, 14, 50, 101, 76},
        {"line does not matter", vertical, upright, {150, 0, 300, 100, 1e6f}, 14, 50, 101, 126},
        {"shortest is a square", vertical, upright, {0, 0, 2097152, 100, 0}, 14, 14, 101, 51},
        {"shortest at its end", vertical, upright, {2097152, 0, 2097152, 100, 0}, 14, 14, 101, 237},
        {"shortest, lying", horizontal, lying, {2097152, 0, 2097152, 100, 0}, 14, 14, 237, 101},
        {"no page", vertical, upright, {128, 0, 128, 0, 0}, 14, 14, 101, 237},
        {"nothing to scroll", vertical, upright, {0, 0, 0, 100, 0}, 14, 200, 101, 51},
        {"nothing to scroll, elsewhere", horizontal, lying, {7, 7, 7, 100, 0}, 200, 14, 51, 101},
        {"nothing to scroll, position outside", vertical, upright, {99, 7, 7, 100, 0}, 14, 200, 101, 51},
        {"no span below zero either", vertical, upright, {10, 0, -50, 100, 0}, 14, 400, 101, 51},
        {"position below", vertical, upright, {-100, 0, 300, 100, 0}, 14, 50, 101, 1},
        {"position above", horizontal, lying, {400, 0, 300, 100, 0}, 50, 14, 251, 101},
        {"thicker than long", vertical, {0, 0, 30, 20}, {0, 0, 10, 10, 0}, 28, 28, 1, 1},
        // The thumb is 10 longer than its room: it moves backwards.
        {"thicker than long, at the end", vertical, {0, 0, 30, 20}, {10, 0, 10, 10, 0}, 28, 28, 1, -9},
        {"a single pixel", vertical, {0, 0, 1, 1}, {0, 0, 1, 1, 1}, -1, -0.5f, 1, 1},
        {"fractions", horizontal, {0.5f, 0.25f, 100.5f, 12.75f}, {1, 0, 3, 1, 0}, 24.5f, 10.5f, 26, 1.25f},
    };
    for (const auto& each : cases) {
        SCOPED_TRACE(each.name);
        make(each.direction, each.range, each.rect);
        EXPECT_EQ(call_text(each.x, each.y), thumb_place());
        bar->set_range(each.range);
        EXPECT_EQ((lines{call_text("thumb", 0, 0, each.width, each.height, 0, 0)}), drawn());
        root->remove_child(bar->get_node());
    }
}

TEST_F(scroll_bar_test, without_page_and_span_the_thumb_has_no_length) {
    make(orientation::vertical, {0, 0, 0, 0, 0});
    EXPECT_EQ("101 51", thumb_place());
    bar->set_range({0, 5, 5, 0, 0});
    const auto redrawn = drawn();
    ASSERT_EQ(1u, redrawn.size());
    EXPECT_EQ(0u, redrawn[0].find("thumb 0 0 14 ")) << redrawn[0];
    EXPECT_NE(std::string::npos, redrawn[0].find("nan")) << redrawn[0];
    bar->set_position(9);
    EXPECT_EQ(5, bar->get_position());
    EXPECT_EQ("101 51", thumb_place());
    bar->set_range(usual_range);
    EXPECT_EQ((lines{"thumb 0 0 14 50 0 0"}), drawn());
}

// What is drawn when

TEST_F(scroll_bar_test, creation_draws_the_track_once) {
    bar = ui::create_scroll_bar(orientation::vertical, usual_range, upright, style->get_IUnknown());
    // The thumb is drawn with the rectangle, and once more when all is in place.
    EXPECT_EQ((lines{"thumb 0 0 14 50 0 0", "track 100 50 116 252 0 0", "thumb 0 0 14 50 0 0"}), drawn());
}

TEST_F(scroll_bar_test, position_moves_the_thumb_and_draws_nothing) {
    make(orientation::vertical);
    bar->set_position(100);
    EXPECT_EQ((lines{"invalidate_rect 101 51 115 101", "invalidate_rect 101 101 115 151"}), calls());
    EXPECT_EQ(100, bar->get_position());
    EXPECT_EQ("101 101", thumb_place());
    bar->set_position(99.5f);
    EXPECT_EQ((lines{"invalidate_rect 101 101 115 151", "invalidate_rect 101 100.75 115 150.75"}), calls());
}

TEST_F(scroll_bar_test, position_is_held_inside_the_range) {
    make(orientation::horizontal);
    bar->set_position(-1);
    EXPECT_EQ(0, bar->get_position());
    EXPECT_EQ("51 101", thumb_place());
    bar->set_position(300.5f);
    EXPECT_EQ(300, bar->get_position());
    EXPECT_EQ("201 101", thumb_place());
    bar->set_position(std::numeric_limits<float>::infinity());
    EXPECT_EQ(300, bar->get_position());
    EXPECT_EQ(300, bar->get_range().position);
    EXPECT_EQ(0, bar->get_range().minimum);
}

TEST_F(scroll_bar_test, position_is_the_minimum_where_the_ends_are_the_wrong_way_round) {
    make(orientation::vertical, {0, 10, -50, 100, 0});  // content shorter than its page
    for (const float each : {-100.0f, -20.0f, 0.0f, 10.0f, 20.0f}) {
        bar->set_position(each);
        EXPECT_EQ(10, bar->get_position()) << each;
        EXPECT_EQ("101 51", thumb_place());
    }
}

TEST_F(scroll_bar_test, range_draws_the_thumb_alone) {
    make(orientation::vertical);
    bar->set_range({50, 0, 100, 100, 16});
    EXPECT_EQ((lines{"thumb 0 0 14 100 0 0"}), drawn());
    EXPECT_EQ("101 101", thumb_place());
    EXPECT_TRUE(same(upright, track().content_bounds));
}

TEST_F(scroll_bar_test, range_keeps_a_position_outside_until_the_next_move) {
    make(orientation::vertical);
    bar->set_range({500, 0, 300, 100, 16});
    EXPECT_EQ(500, bar->get_position());
    EXPECT_EQ(500, bar->get_range().position);
    EXPECT_EQ("101 301", thumb_place());
    bar->set_position(bar->get_position());
    EXPECT_EQ(300, bar->get_position());
    EXPECT_EQ("101 201", thumb_place());
}

TEST_F(scroll_bar_test, arranging_draws_and_moves_both) {
    make(orientation::vertical, {100, 0, 300, 100, 16});
    bar->arrange({10, 20, 22, 122});
    EXPECT_EQ((lines{"thumb 0 0 10 25 0 0", "track 10 20 22 122 0 0"}), drawn());
    EXPECT_EQ("11 46", thumb_place());
    EXPECT_TRUE(same({10, 20, 22, 122}, track().clip_rect));
    EXPECT_TRUE(same({10, 20, 22, 122}, bar->get_rect()));
    EXPECT_EQ(100, bar->get_position());
    bar->arrange({10, 20, 22, 122});  // even with nothing changed
    EXPECT_EQ((lines{"thumb 0 0 10 25 0 0", "track 10 20 22 122 0 0"}), drawn());
}

TEST_F(scroll_bar_test, thumb_reaches_the_opposite_place_too) {
    // A node by itself keeps its transform when it is told to take the inverse.
    make(orientation::vertical, usual_range, {-8, -8, 8, 194});
    EXPECT_EQ("-7 -7", thumb_place());
    bar->arrange({6, 6, 22, 208});
    EXPECT_EQ("7 7", thumb_place());
}

TEST_F(scroll_bar_test, looks_the_same_under_the_mouse_and_pressed) {
    make(orientation::vertical);
    edge->on_mouse_event({input::mouse::event_type::move, std::nullopt, 0, {108, 60}, 0});
    EXPECT_EQ((lines{}), drawn());
    site.drag = [&](const auto&) {
        EXPECT_EQ((lines{"drag_loop 108 60 0 1 0 0 1 0 0"}), drawn());
        return true;
    };
    press(button::left, {108, 60});
    EXPECT_EQ((lines{}), drawn());
}

TEST_F(scroll_bar_test, default_style_fills_a_grey_track_and_a_rounded_thumb) {
    bar = ui::create_scroll_bar(orientation::vertical, {100, 0, 300, 100, 16}, upright, nullptr);
    root->add_child(bar->get_node());
    show();
    const auto painting = painted();
    const lines expected{"SetTransform 1 0 0 1 0 0",
                         "PushAxisAlignedClip 100 50 116 252 0",
                         "FillGeometry rectangle(100 50 116 252) brush(0.827451 0.827451 0.827451 1)",
                         "SetTransform 1 0 0 1 101 101",
                         "FillGeometry rounded_rectangle(0 0 14 50 4.6666665 4.6666665) "
                         "brush(0.439216 0.501961 0.564706 1)",
                         "SetTransform 1 0 0 1 0 0",
                         "PopAxisAlignedClip"};
    EXPECT_EQ(expected, painting);
}

TEST_F(scroll_bar_test, default_style_draws_whatever_its_range) {
    const range ranges[] = {{0, 0, 0, 0, 0}, {0, 0, -10, 10, 0}, {5, 0, 1, 1, 1}, {0, 0, 300, 0, 0}};
    const D2D_RECT_F rects[] = {{0, 0, 1, 1}, {0, 0, 0, 0}, {0, 0, 12, 2}, {3, 4, 15, 104}};
    for (const auto& each : ranges) {
        for (const auto& rect : rects) {
            SCOPED_TRACE(call_text(each.position, each.minimum, each.maximum, each.page, "in", rect));
            for (const auto direction : {orientation::vertical, orientation::horizontal}) {
                const auto made = ui::create_scroll_bar(direction, each, rect, nullptr);
                EXPECT_NO_THROW(made->arrange({0, 0, 12, 100}));
                EXPECT_NO_THROW(made->set_range(usual_range));
            }
        }
    }
}

// Interfaces and failures

TEST_F(scroll_bar_test, answers_as_bar_and_element_alone) {
    make(orientation::vertical);
    EXPECT_TRUE(
        com::same_guid(com::guid("56BB7066-D2EF-49A8-B3BF-0DE3973D3867"), com::guid_of<ui::IScrollBar>()));
    EXPECT_TRUE(answers<ui::IScrollBar>(bar));
    EXPECT_TRUE(answers<scene::layout::IElement>(bar));
    EXPECT_TRUE(answers<IUnknown>(bar));
    EXPECT_FALSE(answers<ui::IControl>(bar));
    EXPECT_FALSE(answers<ui::IScrollBarStyle>(bar));
}

TEST_F(scroll_bar_test, cannot_be_measured) {
    make(orientation::vertical);
    EXPECT_EQ("not implemented", thrown_by([&] { bar->measure(); }));
}

TEST_F(scroll_bar_test, needs_a_style_of_scroll_bars) {
    const auto no_style = com::create_object<scene::fakes::test_brush>(red);
    try {
        static_cast<void>(ui::create_scroll_bar(orientation::vertical, usual_range, upright,
                                                static_cast<scene::IBrush*>(no_style.get())));
        FAIL() << "was made without a style";
    } catch (const com::error& thrown) {
        EXPECT_EQ(E_NOINTERFACE, thrown.hresult);
    }
}

TEST_F(scroll_bar_test, keeps_its_style_for_its_life) {
    make(orientation::vertical);
    auto* const counted = static_cast<ui::IScrollAreaStyle*>(style->get_IUnknown());
    EXPECT_EQ(2u, scene::fakes::references(counted));
    root->remove_child(bar->get_node());
    bar.reset();
    EXPECT_EQ(1u, scene::fakes::references(counted));
}

}  // namespace
}  // namespace d2d
