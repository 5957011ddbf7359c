// What all buttons have in common: how they are made, what they say of themselves, and which change draws
// them anew.

#include "com/error.h"
#include "controls/testing/button_test.h"

#include <cfloat>
#include <functional>
#include <optional>
#include <string>
#include <vector>

#include <gtest/gtest.h>

namespace d2d {
namespace {

using fakes::every_button;
using fakes::fake_label;
using scene::identity_matrix;
using scene::translation_matrix;
using scene::fakes::call_text;
using scene::fakes::references;
using scene::fakes::same;
using scene::fakes::thrown_by;

using button_state = every_button;
INSTANTIATE_TEST_SUITE_P(of, button_state, testing::ValuesIn(fakes::button_kinds), fakes::name_of_kind);

/// The place of the label in a button at `rect`.
D2D_RECT_F content_of(const D2D_RECT_F& rect, const D2D_RECT_F& margin) {
    return {rect.left + margin.left, rect.top + margin.top, rect.right - margin.right,
            rect.bottom - margin.bottom};
}

TEST_P(button_state, is_placed_and_drawn_once_as_it_is_made) {
    const auto other_label = com::create_object<fake_label>(D2D_RECT_F{}, host_log());
    const auto made = GetParam().make(other_label.get(), {1, 2, 31, 22}, style.get());
    const D2D_RECT_F content = content_of({1, 2, 31, 22}, GetParam().margin);
    EXPECT_EQ((lines{call_text("place_label", content), "label_brush disabled", "set_brush",
                     "draw 1 2 31 22: disabled"}),
              calls());
    EXPECT_TRUE(same(D2D_RECT_F{1, 2, 31, 22}, made->get_rect()));
    EXPECT_TRUE(same(identity_matrix, made->get_node()->get_transform()));
    EXPECT_TRUE(same(D2D_RECT_F{1, 2, 31, 22}, made->get_node()->get_bounds(false)));
    EXPECT_EQ(made->get_node(), other_label->node->get_parent());
    EXPECT_TRUE(same(translation_matrix(content.left, content.top), other_label->node->get_transform()));
    EXPECT_TRUE(other_label->brush);
    EXPECT_EQ(made->get_node(), made->get_node());
    EXPECT_FALSE(made->is_checked());
}

TEST_P(button_state, moves_its_label_to_the_opposite_place_too) {
    const D2D_RECT_F& margin = GetParam().margin;
    for (const float x : {12.0f, -12.0f, 12.0f}) {
        button->arrange({x - margin.left, 5 - margin.top, x + 60, 25});
        EXPECT_TRUE(same(translation_matrix(x, 5), label->node->get_transform())) << x;
        button->arrange({-x - margin.left, -5 - margin.top, 60 - x, 15});
        EXPECT_TRUE(same(translation_matrix(-x, -5), label->node->get_transform())) << x;
    }
}

TEST_P(button_state, holds_its_label_and_its_style) {
    const unsigned long without = references(style.get());
    EXPECT_EQ(2u, references(label.get()));
    {
        const auto other_label = com::create_object<fake_label>();
        const auto made = GetParam().make(other_label.get(), rect, style.get());
        EXPECT_EQ(without + 1, references(style.get()));
    }
    EXPECT_EQ(without, references(style.get()));
    button.reset();
    EXPECT_EQ(1u, references(label.get()));
    EXPECT_EQ(1u, references(style.get()));
}

TEST_P(button_state, damages_its_rectangle_with_each_drawing) {
    node()->set_transform(translation_matrix(5, 6));
    forget();
    button->set_enabled(false);
    EXPECT_EQ((lines{"label_brush disabled", "set_brush", "draw 10 20 70 40: disabled",
                     "invalidate_rect 15 26 75 46", "invalidate_rect 15 26 75 46"}),
              calls());
}

TEST_P(button_state, is_enabled_as_it_was_told_or_else_while_it_has_a_handler) {
    struct {
        std::optional<bool> told;
        bool handler;
        bool enabled;
    } const states[] = {{{}, false, false}, {{}, true, true},      {true, false, true},
                        {true, true, true}, {false, false, false}, {false, true, false}};
    struct {
        const char* name;
        std::function<void(ui::IButton&)> change;
        std::function<bool(std::optional<bool> told, bool handler)> enabled_then;
    } const changes[] = {
        {"set_enabled(true)", [](auto& of) { of.set_enabled(true); }, [](auto, bool) { return true; }},
        {"set_enabled(false)", [](auto& of) { of.set_enabled(false); }, [](auto, bool) { return false; }},
        {"set_on_click", [](auto& of) { of.set_on_click([](bool) {}); },
         [](auto told, bool) { return told.value_or(true); }},
        {"no on_click", [](auto& of) { of.set_on_click(nullptr); },
         [](auto told, bool) { return told.value_or(false); }},
    };
    for (const auto& state : states) {
        for (const auto& [name, change, enabled_then] : changes) {
            SCOPED_TRACE(std::string(name) + " on a button " + (state.handler ? "with" : "without") +
                         " handler that is " + (state.enabled ? "enabled" : "disabled"));
            show_button(GetParam());
            if (state.told) button->set_enabled(*state.told);
            if (state.handler) button->set_on_click([](bool) {});
            EXPECT_EQ(state.enabled ? "enabled" : "", drawn());
            change(*button);
            const bool enabled = enabled_then(state.told, state.handler);
            EXPECT_EQ(enabled == state.enabled ? "" : enabled ? "enabled" : "disabled", drawn());
            change(*button);
            EXPECT_EQ("", drawn());
            press_at(inside);
            EXPECT_EQ(enabled ? "enabled hot down" : "", drawn().substr(0, 16));
        }
    }
}

TEST_P(button_state, is_told_its_state_even_where_that_changes_nothing_yet) {
    show_button(GetParam());
    button->set_enabled(false);
    EXPECT_EQ("", drawn());
    button->set_on_click([](bool) {});
    EXPECT_EQ("", drawn());
    button->set_on_click(nullptr);
    button->set_enabled(true);
    EXPECT_EQ("enabled", drawn());
}

TEST_P(button_state, is_checked_from_outside_only_when_it_latches_and_without_a_call) {
    button->set_on_click(click_log());
    forget();
    button->set_checked(false);
    EXPECT_EQ("", drawn_and_clicked());
    button->set_checked(true);
    EXPECT_EQ(latches(), button->is_checked());
    EXPECT_EQ(latches() ? "enabled checked" : "", drawn_and_clicked());
    button->set_checked(true);
    EXPECT_EQ("", drawn_and_clicked());
    button->set_checked(false);
    EXPECT_FALSE(button->is_checked());
    EXPECT_EQ(latches() ? "enabled" : "", drawn_and_clicked());
}

TEST_P(button_state, is_checked_from_outside_while_it_is_disabled) {
    button->set_enabled(false);
    forget();
    button->set_checked(true);
    EXPECT_EQ(latches(), button->is_checked());
    EXPECT_EQ(latches() ? "disabled checked" : "", drawn());
}

TEST_P(button_state, goes_where_it_is_arranged_with_its_label) {
    const D2D_RECT_F was = content_of(rect, GetParam().margin);
    button->arrange({20, 10, 50, 60});
    const D2D_RECT_F content = content_of({20, 10, 50, 60}, GetParam().margin);
    const auto label_damage = [](const D2D_RECT_F& place) {
        return call_text("invalidate_rect", place.left + 2, place.top + 2, place.left + 10, place.top + 10);
    };
    EXPECT_EQ((lines{call_text("place_label", content), label_damage(was), label_damage(content),
                     "label_brush enabled", "set_brush", "draw 20 10 50 60: enabled",
                     "invalidate_rect 10 20 70 40", "invalidate_rect 20 10 50 60"}),
              calls());
    EXPECT_TRUE(same(D2D_RECT_F{20, 10, 50, 60}, button->get_rect()));
    EXPECT_TRUE(same(D2D_RECT_F{20, 10, 50, 60}, node()->get_bounds(false)));
    EXPECT_TRUE(same(identity_matrix, node()->get_transform()));
    EXPECT_TRUE(same(translation_matrix(content.left, content.top), label->node->get_transform()));
}

TEST_P(button_state, takes_its_label_to_the_mirrored_place) {
    const D2D_RECT_F was = content_of(rect, GetParam().margin);
    const float left = -was.left - GetParam().margin.left;
    const float top = -was.top - GetParam().margin.top;
    button->arrange({left, top, left + 60, top + 20});  // the inverse of where it is
    EXPECT_TRUE(same(translation_matrix(-was.left, -was.top), label->node->get_transform()));
}

TEST_P(button_state, is_drawn_anew_where_it_is_arranged_again) {
    button->arrange(rect);
    EXPECT_EQ("enabled", drawn());
    button->arrange({});
    EXPECT_EQ("enabled", drawn());
    EXPECT_TRUE(same(D2D_RECT_F{}, button->get_rect()));
}

TEST_P(button_state, of_any_size_is_drawn_by_the_default_style) {
    const D2D_RECT_F rects[] = {{},
                                {5, 5, 5, 5},
                                {0, 0, 1, 1},
                                {0, 0, 0.5f, 0.5f},
                                {10, 20, 70, 20},
                                {10, 20, 10, 40},
                                {0, 0, 3, 200},
                                {70, 40, 10, 20}};  // inside out
    for (const auto& place : rects) {
        SCOPED_TRACE(call_text(place));
        const auto other_label = com::create_object<fake_label>();
        com::ptr<ui::IButton> made;
        ASSERT_NO_THROW(made = GetParam().make(other_label.get(), place, nullptr));
        root->add_child(made->get_node());
        EXPECT_NO_THROW(made->set_enabled(true));
        EXPECT_NO_THROW(made->set_checked(true));
        EXPECT_NO_THROW(static_cast<void>(painted()));
        EXPECT_NO_THROW(static_cast<void>(made->get_node()->hit_test({place.left, place.top})));
        EXPECT_NO_THROW(made->arrange(rect));
        EXPECT_NO_THROW(made->arrange(place));
        EXPECT_TRUE(same(place, made->get_rect()));
        root->remove_child(made->get_node());
    }
}

TEST_P(button_state, is_placed_by_its_first_arrangement_when_it_was_made_without_a_rectangle) {
    const auto other_label = com::create_object<fake_label>();
    const auto made = GetParam().make(other_label.get(), {}, style.get());
    EXPECT_TRUE(same(D2D_RECT_F{}, made->get_rect()));
    made->arrange({5, 6, 45, 26});
    EXPECT_TRUE(same(D2D_RECT_F{5, 6, 45, 26}, made->get_rect()));
    EXPECT_EQ((lines{call_text("place_label", content_of({}, GetParam().margin)), "label_brush disabled",
                     "draw 0 0 0 0: disabled",
                     call_text("place_label", content_of({5, 6, 45, 26}, GetParam().margin)),
                     "label_brush disabled", "draw 5 6 45 26: disabled"}),
              calls());
}

TEST_P(button_state, shows_the_focus_of_its_own_node_alone) {
    edge->on_focus_gained();
    EXPECT_EQ("", drawn());
    node()->set_focus();
    EXPECT_EQ("enabled focused", drawn());
    edge->on_focus_lost();
    EXPECT_EQ("enabled", drawn());
    edge->on_focus_gained();
    EXPECT_EQ("enabled focused", drawn());
    label->node->set_focus();
    EXPECT_EQ("enabled", drawn());
    root->set_focus();
    label->node->set_focus();
    label->node->release_focus();
    EXPECT_EQ("", drawn());
    button->set_enabled(false);
    node()->set_focus();
    EXPECT_EQ("disabled, disabled focused", drawn());
    node()->release_focus();
    EXPECT_EQ("disabled", drawn());
}

TEST_P(button_state, that_leaves_the_view_with_the_focus_is_drawn_without_it) {
    edge->on_focus_gained();
    node()->set_focus();
    forget();
    root->remove_child(node());
    EXPECT_EQ("enabled", drawn());
    root->add_child(node());
    EXPECT_EQ("", drawn());
    node()->set_focus();
    EXPECT_EQ("enabled focused", drawn());
}

TEST_P(button_state, keys_and_characters_do_nothing_to_it) {
    edge->on_focus_gained();
    node()->set_focus();
    button->set_on_click(click_log());
    forget();
    for (const std::uint32_t code : {std::uint32_t{VK_SPACE}, std::uint32_t{VK_RETURN}}) {
        EXPECT_FALSE(edge->on_key_event({true, false, code, 0}));
        EXPECT_FALSE(edge->on_key_event({false, false, code, 0}));
        edge->on_char(static_cast<wchar_t>(code));
    }
    EXPECT_EQ("", drawn_and_clicked());
    EXPECT_FALSE(button->is_checked());
}

TEST_P(button_state, style_of_another_kind_is_refused_and_the_label_left_alone) {
    for (const auto& other : fakes::button_kinds) {
        if (other.make_style == GetParam().make_style) continue;
        const auto other_style = other.make_style(nullptr);
        const auto free_label = com::create_object<fake_label>();
        const long before = com::live_object_count();
        try {
            static_cast<void>(GetParam().make(free_label.get(), rect, other_style.get()));
            FAIL() << "made with the style of a " << other.name;
        } catch (const com::error& thrown) {
            EXPECT_EQ(E_NOINTERFACE, thrown.hresult);
        }
        EXPECT_EQ(before, com::live_object_count());
        EXPECT_EQ(nullptr, free_label->node->get_parent());
        EXPECT_EQ(1u, references(other_style.get()));
        EXPECT_EQ(1u, references(free_label.get()));
    }
}

TEST_P(button_state, label_that_stands_elsewhere_is_refused_and_stays_there) {
    const long before = com::live_object_count();
    EXPECT_NE("nothing",
              thrown_by([&] { static_cast<void>(GetParam().make(label.get(), rect, style.get())); }));
    EXPECT_EQ(before, com::live_object_count());
    EXPECT_EQ(node(), label->node->get_parent());
    EXPECT_EQ(2u, references(label.get()));
}

TEST_P(button_state, style_that_cannot_draw_leaves_nothing_behind) {
    const auto other_style = GetParam().make_style([](const std::string& line) {
        if (line.starts_with("draw")) throw std::logic_error("no brush");
    });
    const auto other_label = com::create_object<fake_label>();
    const long before = com::live_object_count();
    EXPECT_EQ("no brush", thrown_by([&] {
                  static_cast<void>(GetParam().make(other_label.get(), rect, other_style.get()));
              }));
    EXPECT_EQ(before, com::live_object_count());
    EXPECT_EQ(nullptr, other_label->node->get_parent());
    EXPECT_EQ(1u, references(other_label.get()));
    EXPECT_EQ(1u, references(other_style.get()));
}

TEST_P(button_state, style_that_cannot_draw_once_leaves_the_picture_and_serves_the_next_time) {
    bool fails = false;
    const auto other_style = GetParam().make_style([&](const std::string& line) {
        if (fails && line.starts_with("draw")) throw std::logic_error("no brush");
        site.calls.push_back(line);
    });
    const auto other_label = com::create_object<fake_label>();
    const auto made = GetParam().make(other_label.get(), {50, 50, 80, 70}, other_style.get());
    root->add_child(made->get_node());
    forget();
    fails = true;
    EXPECT_EQ("no brush", thrown_by([&] { made->set_enabled(true); }));
    EXPECT_EQ("no brush", thrown_by([&] { move(60, 60); }));
    EXPECT_EQ("", drawn());
    EXPECT_TRUE(same(D2D_RECT_F{50, 50, 80, 70}, made->get_node()->get_bounds(false)));
    fails = false;
    move_to(outside);
    EXPECT_EQ("enabled", drawn());
    root->remove_child(made->get_node());
}

}  // namespace
}  // namespace d2d
