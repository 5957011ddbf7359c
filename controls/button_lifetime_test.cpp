// What a click may do to its own button, and what a button leaves behind.

#include "controls/testing/button_test.h"

#include <memory>
#include <stdexcept>
#include <string>
#include <utility>

#include <gtest/gtest.h>

namespace d2d {
namespace {

using fakes::every_button;
using fakes::fake_label;
using scene::fakes::references;
using scene::fakes::same;
using scene::fakes::thrown_by;

class button_lifetime : public every_button {
protected:
    using moved_function = std::function<bool(D2D_POINT_2F)>;

    /// Whether the button is there: it is the only one that holds the style beside the test.
    [[nodiscard]] bool alive() const { return references(style.get()) > 1; }
};
INSTANTIATE_TEST_SUITE_P(of, button_lifetime, testing::ValuesIn(fakes::button_kinds), fakes::name_of_kind);

TEST_P(button_lifetime, node_that_is_kept_shows_the_picture_and_hears_nothing) {
    const auto kept = node();
    move_to(inside);
    edge->on_focus_gained();
    kept->set_focus();
    const auto picture = painted();
    ASSERT_FALSE(picture.empty());
    button.reset();
    EXPECT_FALSE(alive());
    forget();
    EXPECT_EQ(picture, painted());
    EXPECT_TRUE(scene_test::inside(kept).handlers.empty());
    EXPECT_FALSE(scene_test::inside(kept).focus_handler);
    move_to(outside);
    move_to(inside);
    press_at(inside);
    edge->on_focus_lost();
    edge->on_focus_gained();
    root->set_focus();
    kept->set_focus();
    EXPECT_EQ("", heard());
    EXPECT_EQ(picture, painted());
    EXPECT_EQ(kept, label->node->get_parent());
    root->remove_child(kept);
}

TEST_P(button_lifetime, ends_while_its_node_has_left_the_view) {
    const auto kept = node();
    root->remove_child(kept);
    button.reset();
    EXPECT_FALSE(alive());
    EXPECT_TRUE(scene_test::inside(kept).handlers.empty());
    EXPECT_FALSE(scene_test::inside(kept).focus_handler);
}

TEST_P(button_lifetime, handlers_of_others_on_its_node_stay) {
    const auto kept = node();
    name(kept, "node");
    hear_mouse(kept, words::type);
    button.reset();
    move_to(inside);
    press_at(inside);
    EXPECT_EQ("node 0 0, node 3 0", heard());
    root->remove_child(kept);
}

TEST_P(button_lifetime, last_reference_may_go_in_its_call) {
    const auto kept = node();
    std::weak_ptr<int> captured;
    {
        const auto token = std::make_shared<int>(7);
        captured = token;
        button->set_on_click([this, token](bool checked) {
            button.reset();
            EXPECT_TRUE(alive());
            EXPECT_EQ(7, *token);
            click_log()(checked);
        });
    }
    forget();
    press_at(inside);
    EXPECT_EQ("enabled hot down, " + latched("enabled") + (latches() ? ", click 1" : ", click 0"),
              drawn_and_clicked());
    EXPECT_FALSE(alive());
    EXPECT_TRUE(captured.expired());
    EXPECT_TRUE(scene_test::inside(kept).handlers.empty());
    EXPECT_FALSE(scene_test::inside(kept).focus_handler);
    root->remove_child(kept);
}

TEST_P(button_lifetime, last_reference_may_go_in_a_call_that_throws) {
    const auto kept = node();
    button->set_on_click([this](bool) {
        button.reset();
        throw std::runtime_error("gone");
    });
    EXPECT_EQ("gone", thrown_by<std::runtime_error>([&] { press_at(inside); }));
    EXPECT_FALSE(alive());
    root->remove_child(kept);
}

TEST_P(button_lifetime, last_reference_may_go_while_it_is_pressed) {
    const auto kept = node();
    button->set_on_click(click_log());
    while_pressed([&](const moved_function& moved) {
        button.reset();
        EXPECT_TRUE(alive());
        forget();
        moved(outside);
        EXPECT_EQ("enabled hot", drawn());
        moved(inside);
        EXPECT_EQ("enabled hot down", drawn());
    });
    press_at(inside);
    EXPECT_EQ(latched("enabled") + (latches() ? ", click 1" : ", click 0"), drawn_and_clicked());
    EXPECT_FALSE(alive());
    root->remove_child(kept);
}

TEST_P(button_lifetime, button_and_node_may_go_together_while_it_is_pressed) {
    button->set_on_click(click_log());
    while_pressed([&](const moved_function& moved) {
        root->remove_child(node());
        button.reset();
        label.reset();
        moved(outside);
        moved(inside);
    });
    move_to(inside);
    forget();
    press_at(inside);
    const std::string all = drawn_and_clicked();
    EXPECT_EQ(latches() ? "click 1" : "click 0", all.substr(all.size() - 7));
    EXPECT_FALSE(alive());
    move_to(outside);
    EXPECT_EQ("", drawn());
}

TEST_P(button_lifetime, its_node_may_go_in_its_call_and_come_back) {
    move_to(inside);
    button->set_on_click([this](bool) { root->remove_child(node()); });
    forget();
    press_at(inside);
    // It has lost the focus and the mouse.
    const std::string hot = latched("enabled hot");
    EXPECT_EQ("enabled hot down, " + hot + ", " + hot + ", " + latched("enabled"), drawn());
    EXPECT_EQ(nullptr, node()->get_parent());
    EXPECT_FALSE(node()->has_focus(false));
    root->add_child(node());
    button->set_on_click(click_log());
    button->set_checked(false);
    forget();
    move(inside.x + 1, inside.y);
    press_at(inside);
    EXPECT_EQ(
        "enabled hot, enabled hot down, " + latched("enabled hot") + (latches() ? ", click 1" : ", click 0"),
        drawn_and_clicked());
}

TEST_P(button_lifetime, whole_tree_may_go_in_its_call) {
    button->set_on_click([this](bool) {
        view->set_root(nullptr);
        root->clear();
        button.reset();
        label.reset();
    });
    move_to(inside);
    press_at(inside);
    EXPECT_FALSE(alive());
    view->set_root(root);
}

TEST_P(button_lifetime, handler_may_replace_or_clear_itself_and_runs_to_its_end) {
    std::weak_ptr<int> first, second;
    {
        const auto token = std::make_shared<int>(1);
        first = token;
        button->set_on_click([&, token](bool) {
            const auto next = std::make_shared<int>(2);
            second = next;
            button->set_on_click([&, next](bool) {
                button->set_on_click(nullptr);
                EXPECT_EQ(2, *next);
                EXPECT_FALSE(second.expired());
            });
            EXPECT_EQ(1, *token);
            EXPECT_FALSE(first.expired());
        });
    }
    press_at(inside);
    EXPECT_TRUE(first.expired());
    EXPECT_FALSE(second.expired());
    press_at(inside);
    EXPECT_TRUE(second.expired());
}

TEST_P(button_lifetime, handler_is_let_go_as_it_is_replaced_and_with_the_button) {
    const auto token = std::make_shared<int>(1);
    button->set_on_click([token](bool) {});
    EXPECT_EQ(2, token.use_count());
    press_at(inside);
    EXPECT_EQ(2, token.use_count());
    button->set_on_click([token](bool) {});
    EXPECT_EQ(2, token.use_count());
    button->set_on_click(nullptr);
    EXPECT_EQ(1, token.use_count());
    button->set_on_click([token](bool) {});
    root->remove_child(node());
    button.reset();
    EXPECT_EQ(1, token.use_count());
}

TEST_P(button_lifetime, what_a_handler_holds_may_touch_the_button_as_it_goes) {
    struct last_words {
        ui::IButton* of;
        ~last_words() { of->set_enabled(false); }
    };
    button->set_on_click([held = std::make_shared<last_words>(button.get())](bool) {});
    forget();
    button->set_on_click(click_log());
    EXPECT_EQ("disabled", drawn());
    press_at(inside);
    EXPECT_EQ("", drawn_and_clicked());
    button->set_enabled(true);
    forget();
    press_at(inside);
    EXPECT_NE(std::string::npos, drawn_and_clicked().find("click"));
}

TEST_P(button_lifetime, picture_stays_where_its_label_refuses_the_next_one_and_the_state_has_changed) {
    const auto before = painted();
    label->on_set_brush = [] { throw std::runtime_error("no brush"); };
    const auto fails = [](const auto& change) {
        EXPECT_EQ("no brush", thrown_by<std::runtime_error>(change));
    };
    fails([&] { button->set_enabled(false); });
    button->set_enabled(false);  // it is already
    fails([&] { button->set_enabled(true); });
    fails([&] { button->arrange({1, 2, 31, 22}); });
    EXPECT_TRUE(same(D2D_RECT_F{1, 2, 31, 22}, button->get_rect()));
    fails([&] { button->arrange(rect); });
    if (latches()) {
        fails([&] { button->set_checked(true); });
    }
    EXPECT_EQ(latches(), button->is_checked());
    fails([&] { move_to(inside); });
    fails([&] { press_at(inside); });
    EXPECT_EQ(before, painted());
    label->on_set_brush = nullptr;
    forget();
    button->arrange(rect);
    EXPECT_EQ(latched("enabled hot"), drawn());  // neither down, nor hot twice
    move_to(outside);
    EXPECT_EQ(latched("enabled"), drawn());
}

TEST_P(button_lifetime, label_serves_on_behind_its_button) {
    root->remove_child(node());
    button.reset();
    EXPECT_EQ(nullptr, label->node->get_parent());
    EXPECT_EQ(1u, references(label.get()));
    button = GetParam().make(label.get(), rect, style.get());
    EXPECT_EQ(node(), label->node->get_parent());
    root->add_child(node());
    forget();
    move_to(on_label);
    EXPECT_EQ("disabled hot", drawn());
}

TEST_P(button_lifetime, label_may_be_let_go_by_its_maker) {
    const long before = com::live_object_count();
    label.reset();
    EXPECT_EQ(before, com::live_object_count());
    move_to(on_label);
    EXPECT_EQ("enabled hot", drawn());
}

TEST_P(button_lifetime, holds_no_reference_on_itself) {
    EXPECT_EQ(1u, references(button.get()));
    button->set_on_click(click_log());
    press_at(inside);
    EXPECT_EQ(1u, references(button.get()));
    edge->on_focus_gained();
    node()->set_focus();
    move_to(inside);
    EXPECT_EQ(1u, references(button.get()));
}

}  // namespace
}  // namespace d2d
