// A command strip on the screen, used with a real mouse.

#include "controls/testing/control_window.h"
#include "d2d/ui/ICommandStrip.h"
#include "d2d/ui/IIconLabel.h"

#include <gtest/gtest.h>

namespace d2d {
namespace {

using test_support::meanwhile;
using test_support::press_mouse;
using test_support::release_mouse;

/// Three cells of 40 by 30 pixels, across or down, from (20, 10); each with a black square in its middle.
class strip_on_screen : public fakes::control_window, public testing::WithParamInterface<bool> {
protected:
    static constexpr POINT off_it{190, 110};

    void SetUp() override {
        control_window::SetUp();
        std::vector<com::ptr<ui::IIconLabel>> icons;
        const auto square = factory::create_rectangle_geometry({-4, -4, 4, 4});
        for (int i = 0; i < 3; ++i) icons.push_back(ui::create_icon_label(square.get(), nullptr));
        strip = ui::create_command_strip(
            GetParam(), {40, 30},
            {{nullptr, icons[0].get()}, {nullptr, icons[1].get()}, {nullptr, icons[2].get()}}, nullptr);
        strip->get_node()->set_transform({{{1, 0, 0, 1, 20, 10}}});
        show(strip->get_node());
        ASSERT_TRUE(cells_are(white, white, white));
        ASSERT_TRUE(outline_is(grey));
    }
    void TearDown() override {
        strip.reset();
        control_window::TearDown();
    }

    /// Beside the square of a cell.
    [[nodiscard]] POINT in_cell(int i) const {
        return GetParam() ? POINT{28, 25 + 30 * i} : POINT{20 + 40 * i + 10, 25};
    }
    [[nodiscard]] POINT on_square(int i) const {
        return GetParam() ? POINT{40, 25 + 30 * i} : POINT{40 + 40 * i, 25};
    }
    [[nodiscard]] testing::AssertionResult cell_is(std::uint32_t color, int i) const {
        return shows(color, static_cast<unsigned>(in_cell(i).x), static_cast<unsigned>(in_cell(i).y));
    }
    [[nodiscard]] testing::AssertionResult cells_are(std::uint32_t first, std::uint32_t second,
                                                     std::uint32_t third) const {
        for (const auto& [color, i] : {std::pair(first, 0), std::pair(second, 1), std::pair(third, 2)}) {
            if (auto result = cell_is(color, i); !result) return result << " in cell " << i;
        }
        return testing::AssertionSuccess();
    }
    [[nodiscard]] testing::AssertionResult outline_is(std::uint32_t color) const {
        return shows(color, 40, 10);
    }
    void point_at(POINT point) const { move_mouse(point.x, point.y); }

    com::ptr<ui::ICommandStrip> strip;
};
INSTANTIATE_TEST_SUITE_P(that_runs, strip_on_screen, testing::Bool(),
                         [](const auto& tested) { return tested.param ? "down" : "across"; });

TEST_P(strip_on_screen, lights_up_cell_by_cell_under_the_mouse) {
    point_at(in_cell(0));
    EXPECT_TRUE(cells_are(pale, white, white));
    EXPECT_TRUE(outline_is(dark));
    point_at(on_square(0));
    EXPECT_TRUE(cells_are(pale, white, white));
    point_at(in_cell(1));
    EXPECT_TRUE(cells_are(white, pale, white));
    point_at(in_cell(2));
    EXPECT_TRUE(cells_are(white, white, pale));
    EXPECT_TRUE(outline_is(dark));
    point_at(off_it);
    EXPECT_TRUE(cells_are(white, white, white));
    EXPECT_TRUE(outline_is(grey));
    EXPECT_TRUE(shows(black, 40, 25));
}

TEST_P(strip_on_screen, holds_the_pressed_cell_down_while_the_mouse_is_on_it) {
    bool held = false;
    meanwhile([&] {
        point_at(on_square(1));
        press_mouse();
        held = cells_are(white, dark, white);
        point_at(in_cell(2));
        held = held && cells_are(white, pale, white);
        point_at(in_cell(1));
        held = held && cells_are(white, dark, white);
        point_at(off_it);
        held = held && cells_are(white, pale, white);
        release_mouse();
    });
    EXPECT_TRUE(held);
    point_at({off_it.x, off_it.y - 1});
    EXPECT_TRUE(cells_are(white, white, white));
    EXPECT_TRUE(outline_is(grey));
}

TEST_P(strip_on_screen, release_leaves_the_cell_hot) {
    test_support::click(handle(), in_cell(2));
    EXPECT_TRUE(cells_are(white, white, pale));
    test_support::click(handle(), in_cell(0), test_support::mouse_button::right);
    EXPECT_TRUE(cells_are(pale, white, white));
}

TEST_P(strip_on_screen, rounded_corner_is_outside) {
    const POINT corners[] = {{20, 10}, GetParam() ? POINT{59, 99} : POINT{139, 39}};
    for (const POINT corner : corners) {
        EXPECT_TRUE(shows(green, static_cast<unsigned>(corner.x), static_cast<unsigned>(corner.y)));
        point_at(corner);
        test_support::pump_until_idle();
        EXPECT_TRUE(cells_are(white, white, white));
        EXPECT_TRUE(outline_is(grey));
    }
}

TEST_P(strip_on_screen, strip_and_window_content_may_go_while_a_cell_is_held) {
    bool held = false;
    meanwhile([&] {
        point_at(in_cell(1));
        press_mouse();
        held = cells_are(white, dark, white);
        in_window([&] {
            const auto node = strip->get_node();
            strip.reset();
            window->remContent(node.get());
        });
        held = held && shows(green, 40, 25);
        release_mouse();
    });
    EXPECT_TRUE(held);
    EXPECT_EQ(nullptr, GetCapture());
}

}  // namespace
}  // namespace d2d
