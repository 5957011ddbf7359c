// How scroll bars and scroll areas look in the default style.

#include "d2d/ui/IScrollArea.h"
#include "d2d/ui/IScrollBar.h"
#include "scene/testing/pixel_target.h"
#include "scene/testing/tree_test.h"
#include "support/golden.h"

#include <algorithm>
#include <utility>
#include <vector>

#include <gtest/gtest.h>

namespace d2d {
namespace {

class scroll_control_picture_test : public scene::fakes::tree_test {
protected:
    using orientation = ui::IScrollBar::orientation;

    // Small differences of the machine that paints count as equal.
    static constexpr test_support::tolerance allowed{.channel = 8, .pixels = 40};
    static constexpr _D3DCOLORVALUE white{1, 1, 1, 1};
    static constexpr _D3DCOLORVALUE pale_blue{0.8f, 0.87f, 1, 1};
    static constexpr _D3DCOLORVALUE pale_green{0.8f, 1, 0.8f, 1};
    static constexpr _D3DCOLORVALUE pale_yellow{1, 1, 0.7f, 1};

    void SetUp() override {
        tree_test::SetUp();
        fill(root, {0, 0, 1000, 1000}, white);
    }
    void TearDown() override {
        bars.clear();
        areas.clear();
        tree_test::TearDown();
    }

    [[nodiscard]] test_support::picture painted() {
        edge->attach_render_target(sheet.get());
        view->set_root(root);
        sheet.paint(*edge.get());
        edge->detach_render_target(sheet.get());
        return sheet.picture();
    }

    static com::ptr<scene::INode> square(const D2D_RECT_F& rect, const _D3DCOLORVALUE& color) {
        auto made = scene::create_node();
        fill(made, rect, color);
        return made;
    }

    // Bars

    void add_bar(orientation direction, const ui::IScrollBar::range& range, const D2D_RECT_F& rect) {
        bars.push_back(ui::create_scroll_bar(direction, range, rect, nullptr));
        root->add_child(bars.back()->get_node());
    }

    // Areas

    /// Squares of 10 in two colours inside a red frame along the bounds.
    static com::ptr<scene::INode> chequered(const D2D_RECT_F& bounds) {
        auto made = scene::create_node();
        const auto context = made->draw(false);
        fill(*context.get(), bounds, red);
        fill(*context.get(), {bounds.left + 1, bounds.top + 1, bounds.right - 1, bounds.bottom - 1}, white);
        for (float y = bounds.top + 1; y < bounds.bottom - 1; y += 10) {
            for (float x = bounds.left + 1; x < bounds.right - 1; x += 10) {
                const bool is_dark = static_cast<int>((x - bounds.left + y - bounds.top) / 10) % 2 == 0;
                const D2D_RECT_F each{x, y, std::min(x + 10, bounds.right - 1),
                                      std::min(y + 10, bounds.bottom - 1)};
                if (is_dark) fill(*context.get(), each, pale_blue);
            }
        }
        context->commit();
        return made;
    }
    /// Stripes of 5 at each 20 of the content, for a scrolled part.
    static com::ptr<scene::INode> stripes(bool across) {
        auto made = scene::create_node();
        const auto context = made->draw(false);
        for (float at = 0; at < 400; at += 20) {
            fill(*context.get(), across ? D2D_RECT_F{at, 0, at + 5, 50} : D2D_RECT_F{0, at, 50, at + 5},
                 green);
        }
        context->commit();
        return made;
    }

    ui::IScrollArea& add_area(const D2D_RECT_F& content) {
        const float x = 10 + 130 * static_cast<float>(areas.size() % 4);
        const float y = 10 + 100 * static_cast<float>(areas.size() / 4);
        // What is outside the view shows.
        root->add_child(square({x - 2, y - 2, x + 122, y + 92}, {0, 0, 0, 1}));
        root->add_child(square({x, y, x + 120, y + 90}, white));
        areas.push_back(ui::create_scroll_area({x, y, x + 120, y + 90}, nullptr));
        ui::IScrollArea& made = *areas.back();
        made.set_content_bounds(content);
        made.add_content(chequered(content));
        root->add_child(made.get_node());
        return made;
    }
    static void add_margins(ui::IScrollArea& area, const std::vector<int>& sides, float fixed,
                            float scrolled) {
        for (const int side : sides) {
            area.set_margin_fixed_size(side, fixed);
            area.set_margin_scrolled_size(side, scrolled);
            area.add_margin_fixed_node(side, square({0, 0, 400, 400}, pale_yellow));
            area.add_margin_scrolled_node(side, square({-400, -400, 400, 400}, pale_green));
            area.add_margin_scrolled_node(side, stripes(side % 2 == 1));
        }
    }

    const scene::fakes::pixel_target sheet{530, 360};
    std::vector<com::ptr<ui::IScrollBar>> bars;
    std::vector<com::ptr<ui::IScrollArea>> areas;
};

TEST_F(scroll_control_picture_test, of_bars) {
    const ui::IScrollBar::range ranges[] = {
        {0, 0, 300, 100, 0},                              // at the start
        {150, 0, 300, 100, 0},                            // in the middle
        {300, 0, 300, 100, 0},                            // at the end
        {100.9f, 0, 300, 100, 0},                         // between pixels
        {0, 0, 0, 100, 0},                                // nothing to scroll
        {0, 0, 1e6f, 100, 0},                             // the shortest thumb
        {1e6f, 0, 1e6f, 100, 0},  {330, 0, 300, 100, 0},  // beyond the end
    };
    float at = 10;
    for (const auto& range : ranges) {
        add_bar(orientation::vertical, range, {at, 10, at + 12, 172});
        add_bar(orientation::horizontal, range, {210, at, 372, at + 12});
        at += 22;
    }
    add_bar(orientation::vertical, {100, 0, 300, 200, 0}, {10, 190, 50, 350});
    add_bar(orientation::vertical, {100, 0, 300, 200, 0}, {70, 190, 76, 350});
    add_bar(orientation::horizontal, {100, 0, 300, 200, 0}, {100, 200, 372, 240});
    add_bar(orientation::horizontal, {100, 0, 300, 200, 0}, {100, 260, 372, 266});
    add_bar(orientation::horizontal, {30, 0, 300, 200, 0}, {100.5f, 280.5f, 371.5f, 294.5f});
    EXPECT_TRUE(test_support::matches_golden(painted(), "scroll_controls/bars", allowed));
}

TEST_F(scroll_control_picture_test, of_areas) {
    constexpr D2D_RECT_F large{0, 0, 300, 240};
    // Bars by need.
    add_area({0, 0, 100, 70});
    add_area({0, 0, 300, 70});
    add_area({0, 0, 100, 240});
    add_area(large).set_scroll_position(55, 45);
    // Alignment.
    for (const auto& [x, y] : {std::pair{0, 0}, std::pair{1, 1}, std::pair{-1, 1}}) {
        auto& aligned = add_area({0, 0, 71, 51});
        aligned.set_alignment(x, y);
        aligned.set_scroll_position(0, 0);
    }
    auto& aligned = add_area({0, 0, 71, 240});
    aligned.set_alignment(0, 0);
    aligned.set_scroll_position(0, 130.5f);
    // Margins and their separators.
    add_margins(add_area(large), {0, 1}, 8, 14);
    auto& scrolled = add_area(large);
    add_margins(scrolled, {0, 1, 2, 3}, 5, 9);
    scrolled.set_scroll_position(33, 27);
    add_margins(add_area({0, 0, 40, 30}), {0, 1, 2, 3}, 5, 9);
    auto& end = add_area(large);
    add_margins(end, {2, 3}, 0, 12);
    end.set_scroll_position(1000, 1000);
    EXPECT_TRUE(test_support::matches_golden(painted(), "scroll_controls/areas", allowed));
}

TEST_F(scroll_control_picture_test, of_an_area_is_the_same_however_it_came_to_be) {
    constexpr D2D_RECT_F large{0, 0, 300, 240};
    auto& straight = add_area(large);
    add_margins(straight, {0, 1, 2, 3}, 5, 9);
    straight.set_scroll_position(33, 27);
    const auto expected = painted();
    root->remove_child(straight.get_node());
    areas.clear();

    auto& winding = add_area(large);
    winding.set_content_bounds({0, 0, 20, 20});
    winding.arrange({0, 0, 50, 300});
    winding.set_scroll_position(100, 100);
    add_margins(winding, {0, 1, 2, 3}, 5, 9);
    for (int side = 0; side < 4; ++side) {
        winding.set_margin_fixed_size(side, 0);
        winding.set_margin_scrolled_size(side, 20);
    }
    winding.set_content_bounds(large);
    winding.arrange({10, 10, 130, 100});
    winding.set_scroll_position(250, 0);
    for (int side = 0; side < 4; ++side) {
        winding.set_margin_scrolled_size(side, 9);
        winding.set_margin_fixed_size(side, 5);
    }
    winding.set_scroll_position(33, 27);
    EXPECT_EQ(0u, test_support::compare(expected, painted()).pixels);
}

}  // namespace
}  // namespace d2d
