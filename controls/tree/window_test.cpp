// A tree on the screen, used with a real mouse.

#include "controls/testing/control_window.h"
#include "controls/testing/tree_listener.h"
#include "d2d/scene/IFloatingNode.h"
#include "d2d/ui/ITreeView.h"
#include "scene/matrix.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <functional>
#include <map>
#include <memory>
#include <stdexcept>
#include <string>
#include <utility>

namespace d2d {
namespace {

using test_support::click;
using test_support::meanwhile;
using test_support::press_mouse;
using test_support::release_mouse;

/// A tree of 180 by 100 at (10, 10), with rows of 18: "r", which is open, and below it "a" and "b", which is
/// closed and has "c" below it. Each has an icon in a colour of its own, and a gap in the middle of its text.
class tree_on_screen : public fakes::floating_control_window {
protected:
    static constexpr std::uint32_t red = 0xFFFF0000;
    static constexpr std::uint32_t blue = 0xFF0000FF;
    static constexpr std::uint32_t brown = 0xFF804000;
    static constexpr std::uint32_t hot_on_green = 0xFFA1EDB2;
    static constexpr POINT off_rows{180, 100};

    void SetUp() override {
        floating_control_window::SetUp();
        tree = ui::ITreeView::create();
        r = entry("r", red);
        r->set_expanded(true);
        a = entry("a", blue, r);
        b = entry("b", brown, r);
        c = entry("c", black, b);
        tree->arrange({10, 10, 190, 110});
        tree->set_handler(&listener);
        tree->set_root(r.get());
        show(tree->get_node());
        ASSERT_TRUE(shows_at(brown, icon_of(2, 1)));
    }
    void TearDown() override {
        drop_tree();
        for (auto* const each : {&r, &a, &b, &c}) each->reset();
        floating_control_window::TearDown();
    }
    void drop_tree() {
        if (!tree) return;
        window->remContent(tree->get_node().get());
        tree.reset();
    }

    com::ptr<ui::ITreeNode> entry(const std::string& name, std::uint32_t color,
                                  const com::ptr<ui::ITreeNode>& parent = nullptr) {
        const std::wstring word(name.begin(), name.end());
        const auto made = listener.entry(name, word + std::wstring(8, L' ') + word, parent);
        auto pixels = std::make_unique<unsigned[]>(256);
        std::fill_n(pixels.get(), 256, color);
        made->set_icon(scene::IBitmap::create({16, 16}, std::move(pixels)).get());
        return made;
    }

    // Points of the window.
    static POINT in_row(int row, int depth, LONG x) { return {10 + 14 * depth + x, 18 + 18 * row}; }
    static POINT mark_of(int row, int depth) { return in_row(row, depth, 6); }
    /// On the mark, and so far away that clicks on both are no double click.
    static POINT next_to_mark_of(int row, int depth) { return in_row(row, depth, 11); }
    static POINT icon_of(int row, int depth) { return in_row(row, depth, 22); }
    static POINT text_of(int row, int depth) { return in_row(row, depth, 47); }

    [[nodiscard]] testing::AssertionResult shows_at(std::uint32_t color, POINT point) const {
        return shows(color, static_cast<unsigned>(point.x), static_cast<unsigned>(point.y));
    }
    void move_mouse_to(POINT point) const { move_mouse(point.x, point.y); }
    static std::uint32_t system_color(int index) {
        const COLORREF color = GetSysColor(index);
        return 0xFF000000 | std::uint32_t{GetRValue(color)} << 16 | std::uint32_t{GetGValue(color)} << 8 |
               GetBValue(color);
    }

    /// What the handler heard since the last time.
    [[nodiscard]] std::string told() {
        std::string text;
        in_window([&] { text = std::exchange(heard, {}); });
        return text;
    }
    /// Has the handler run `action` when it hears `line`, once.
    void when(const std::string& line, std::function<void()> action) { reactions[line] = std::move(action); }

    fakes::tree_listener listener{[this](const std::string& line) {
        heard += (heard.empty() ? "" : ", ") + line;
        const auto found = reactions.find(line);
        if (found == reactions.end()) return false;
        const auto action = std::move(found->second);
        reactions.erase(found);
        action();
        return false;
    }};
    com::ptr<ui::ITreeView> tree;
    com::ptr<ui::ITreeNode> r, a, b, c;

private:
    std::string heard;
    std::map<std::string, std::function<void()>> reactions;
};

TEST_F(tree_on_screen, clicks_on_the_mark_expand_and_collapse) {
    click(handle(), mark_of(2, 1));
    EXPECT_TRUE(shows_at(black, icon_of(3, 2)));
    EXPECT_EQ("can_expand b", told());
    click(handle(), mark_of(0, 0));
    EXPECT_TRUE(shows_at(green, icon_of(1, 1)));
    EXPECT_TRUE(shows_at(green, icon_of(3, 2)));
    EXPECT_EQ("collapsed r", told());
    click(handle(), next_to_mark_of(0, 0));
    EXPECT_TRUE(shows_at(blue, icon_of(1, 1)));
    EXPECT_TRUE(shows_at(black, icon_of(3, 2))) << "is open still";
    EXPECT_EQ("can_expand r", told());
}

TEST_F(tree_on_screen, a_press_on_the_mark_counts_where_it_is_released) {
    meanwhile([&] {
        move_mouse_to(mark_of(0, 0));
        press_mouse();
        move_mouse_to(off_rows);
        release_mouse();
    });
    EXPECT_EQ("", told());
    EXPECT_TRUE(r->is_expanded());
    meanwhile([&] {
        move_mouse_to(next_to_mark_of(0, 0));
        press_mouse();
        move_mouse_to(off_rows);
        EXPECT_TRUE(shows_at(blue, icon_of(1, 1)));
        move_mouse_to(mark_of(0, 0));
        release_mouse();
    });
    EXPECT_TRUE(shows_at(green, icon_of(1, 1)));
    EXPECT_EQ("collapsed r", told());
}

TEST_F(tree_on_screen, a_click_selects_and_the_focus_shows) {
    click(handle(), text_of(1, 1));
    EXPECT_TRUE(shows_at(system_color(COLOR_HIGHLIGHT), text_of(1, 1)));
    EXPECT_EQ("selection_changed none a", told());
    click(handle(), icon_of(0, 0));
    EXPECT_TRUE(shows_at(system_color(COLOR_HIGHLIGHT), text_of(0, 0))) << "the icon is of the row";
    EXPECT_TRUE(shows_at(green, text_of(1, 1)));
    EXPECT_EQ("selection_changed a r", told());
    move_mouse_to(off_rows);
    SetFocus(nullptr);
    EXPECT_TRUE(shows_at(system_color(COLOR_INACTIVECAPTION), text_of(0, 0)));
    SetFocus(handle());
    EXPECT_TRUE(shows_at(system_color(COLOR_HIGHLIGHT), text_of(0, 0)));
}

TEST_F(tree_on_screen, keys_are_for_the_nodes_above) {
    int keys = 0;
    window->root_node()->set_key_handler([&](scene::INode*, int depth, input::key::event event) {
        if (depth <= 0 || !event.down) return false;
        ++keys;
        if (event.key == VK_DOWN) tree->select(b.get());
        return true;
    });
    click(handle(), text_of(1, 1));
    constexpr WORD struck[] = {VK_DOWN, VK_RETURN, VK_SPACE, VK_LEFT};
    for (const WORD key : struck) test_support::strike_key(key);
    EXPECT_TRUE(shows_at(system_color(COLOR_HIGHLIGHT), text_of(2, 1)));
    EXPECT_TRUE(becomes([&] { return keys == 4; }));
    EXPECT_EQ("selection_changed none a, selection_changed a b", told());
    EXPECT_TRUE(r->is_expanded());
    window->root_node()->set_key_handler({});
}

TEST_F(tree_on_screen, a_click_beside_the_rows_gives_the_focus_alone) {
    tree->select(a.get());
    static_cast<void>(told());
    EXPECT_TRUE(shows_at(system_color(COLOR_INACTIVECAPTION), text_of(1, 1)));
    // On the right of the first row, where those below it reach further.
    const auto width = static_cast<LONG>(tree->measure().preferred_size.width);
    click(handle(), {10 + width - 5, 18});
    EXPECT_TRUE(shows_at(system_color(COLOR_HIGHLIGHT), text_of(1, 1)));
    EXPECT_EQ("", told());
}

TEST_F(tree_on_screen, the_row_under_the_mouse_is_hot) {
    move_mouse_to(text_of(1, 1));
    EXPECT_TRUE(shows_at(hot_on_green, text_of(1, 1)));
    move_mouse_to(icon_of(1, 1));
    EXPECT_TRUE(shows_at(hot_on_green, text_of(1, 1)));
    move_mouse_to(text_of(2, 1));
    EXPECT_TRUE(shows_at(hot_on_green, text_of(2, 1)));
    EXPECT_TRUE(shows_at(green, text_of(1, 1)));
    move_mouse_to(mark_of(2, 1));
    EXPECT_TRUE(shows_at(green, text_of(2, 1))) << "the mark is no part of it";
    move_mouse_to(text_of(0, 0));
    EXPECT_TRUE(shows_at(hot_on_green, text_of(0, 0)));
    move_mouse_to({300, 60});
    EXPECT_TRUE(shows_at(green, text_of(0, 0))) << "out of the window";
}

TEST_F(tree_on_screen, a_row_is_hot_while_its_menu_is_open) {
    when("context_menu b", [&] {
        move_mouse_to(text_of(0, 0));
        EXPECT_TRUE(shows_at(hot_on_green, text_of(0, 0)));
        EXPECT_TRUE(shows_at(hot_on_green, text_of(2, 1)));
    });
    click(handle(), text_of(2, 1), test_support::mouse_button::right);
    EXPECT_TRUE(shows_at(green, text_of(2, 1)));
    EXPECT_EQ("context_menu b", told());
    EXPECT_FALSE(b->is_selected());
}

TEST_F(tree_on_screen, a_row_is_dragged_as_an_image_that_floats_and_dropped_on_another) {
    constexpr LONG distance = 4;  // of the image from the mouse
    constexpr POINT outside{240, 60};
    const auto below_mouse = [](POINT mouse) {
        return POINT{mouse.x + distance + 8, mouse.y + distance + 8};
    };
    const auto before = screen_at(below_mouse(outside));
    const std::string begins = "drag_begin a 47.5 8.5 0";
    when(begins, [&] {
        const auto image = a->create_drag_image();
        image->set_hit_mode(scene::INode::hit_transparent);
        com::ptr<scene::IFloatingNode> floating;
        com::ptr<ui::ITreeNode> target;
        const bool dropped = tree->get_node()->drag_loop(input::mouse::button::left, [&](D2D_POINT_2F at) {
            image->set_transform(
                scene::translation_matrix(std::floor(at.x) + distance, std::floor(at.y) + distance));
            if (!floating) floating = scene::IFloatingNode::float_node(tree->get_node().get(), image.get());
            if (target) target->set_highlighted(false);
            target = tree->node_at(at);
            if (target) target->set_highlighted(true);
            return false;
        });
        EXPECT_TRUE(dropped);
        ASSERT_EQ(b, target);
        target->set_highlighted(false);
        target->add_child(a.get());
    });
    meanwhile([&] {
        move_mouse_to(text_of(1, 1));
        press_mouse();
        move_mouse_to({text_of(1, 1).x + 20, text_of(1, 1).y});
        move_mouse_to(outside);
        EXPECT_TRUE(shows_beyond(blue, below_mouse(outside)));
        move_mouse_to(text_of(0, 0));
        EXPECT_TRUE(shows_at(blue, below_mouse(text_of(0, 0))));
        EXPECT_TRUE(shows_at(hot_on_green, text_of(0, 0)));
        EXPECT_EQ(before, screen_at(below_mouse(outside)));
        move_mouse_to(text_of(2, 1));
        EXPECT_TRUE(shows_at(hot_on_green, text_of(2, 1)));
        EXPECT_TRUE(shows_at(green, text_of(0, 0)));
        release_mouse();
    });
    EXPECT_EQ("selection_changed none a, " + begins, told());
    EXPECT_TRUE(shows_at(brown, icon_of(1, 1))) << "has moved up";
    click(handle(), mark_of(1, 1));
    EXPECT_TRUE(shows_at(blue, icon_of(3, 2))) << "behind the other child";
    EXPECT_TRUE(shows_at(system_color(COLOR_HIGHLIGHT), text_of(3, 2)));
}

TEST_F(tree_on_screen, the_wheel_scrolls_the_rows) {
    com::ptr<ui::ITreeNode> sixth;
    for (int i = 3; i <= 20; ++i) {
        const auto made = entry(std::to_string(i), i % 2 ? red : blue, r);
        if (i == 6) sixth = made;
    }
    const POINT point{text_of(3, 1).x, text_of(3, 1).y + 4};  // 70 below the upper edge
    move_mouse_to(point);
    for (int i = 0; i < 5; ++i) test_support::turn_wheel(-1);  // a tenth of the height each
    EXPECT_TRUE(becomes([&] {
        return tree->node_at({static_cast<float>(point.x), static_cast<float>(point.y)}) == sixth;
    }));
    click(handle(), point);
    EXPECT_TRUE(shows_at(system_color(COLOR_HIGHLIGHT), point));
    EXPECT_EQ("selection_changed none 6", told());
    for (int i = 0; i < 5; ++i) test_support::turn_wheel(1);
    EXPECT_TRUE(shows_at(red, icon_of(0, 0)));
}

TEST_F(tree_on_screen, the_tree_may_go_in_the_middle_of_a_press) {
    for (const POINT pressed : {text_of(1, 1), mark_of(0, 0)}) {
        if (!tree) {
            tree = ui::ITreeView::create();
            tree->arrange({10, 10, 190, 110});
            tree->set_handler(&listener);
            tree->set_root(r.get());
            window->addContent(tree->get_node().get());
            ASSERT_TRUE(shows_at(blue, icon_of(1, 1)));
        }
        meanwhile([&] {
            move_mouse_to(pressed);
            press_mouse();
            in_window([&] { drop_tree(); });
            EXPECT_TRUE(shows_at(green, icon_of(1, 1)));
            release_mouse();
        });
        EXPECT_EQ("", told());
        EXPECT_TRUE(r->is_expanded());
    }
}

TEST_F(tree_on_screen, what_its_handler_throws_reaches_the_message_loop) {
    when("selection_changed none a", [] { throw std::runtime_error("mine"); });
    EXPECT_THROW(
        {
            click(handle(), text_of(1, 1));
            static_cast<void>(becomes([] { return false; }));
        },
        std::runtime_error);
    EXPECT_TRUE(shows_at(system_color(COLOR_HIGHLIGHT), text_of(1, 1))) << "it is selected all the same";
    click(handle(), text_of(0, 0));
    EXPECT_TRUE(becomes([&] { return r->is_selected(); }));
}

}  // namespace
}  // namespace d2d
