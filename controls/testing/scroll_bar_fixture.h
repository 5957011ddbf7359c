#pragma once

#include "controls/testing/recording_scroll_style.h"
#include "d2d/ui/IScrollBar.h"
#include "scene/matrix.h"
#include "scene/testing/tree_test.h"

#include <string>
#include <utility>
#include <vector>

namespace d2d::fakes {

/// A fixture: a scroll bar below the root of a shown tree, with a style that writes down what it draws.
class scroll_bar_fixture : public scene::fakes::tree_test {
protected:
    using orientation = ui::IScrollBar::orientation;
    using range = ui::IScrollBar::range;
    using button = input::mouse::button;

    // A thumb of 50 on a track of 200 inside its border; half a pixel for a unit.
    static constexpr range usual_range{0, 0, 300, 100, 16};
    static constexpr D2D_RECT_F upright{100, 50, 116, 252};
    static constexpr D2D_RECT_F lying{50, 100, 252, 116};

    void SetUp() override {
        tree_test::SetUp();
        style = com::create_object<recording_scroll_style>(host_log());
    }
    void TearDown() override {
        site.drag = nullptr;
        bar.reset();
        style.reset();
        tree_test::TearDown();
    }

    /// Makes the bar, shows it and forgets what that took.
    void make(orientation direction, const range& with = usual_range) {
        make(direction, with, direction == orientation::vertical ? upright : lying);
    }
    void make(orientation direction, const range& with, const D2D_RECT_F& rect) {
        bar = ui::create_scroll_bar(direction, with, rect, style->get_IUnknown());
        root->add_child(bar->get_node());
        if (target.references() == 0) show();
        forget();
    }

    [[nodiscard]] scene::node& track() const { return inside(bar->get_node()); }
    [[nodiscard]] scene::node& thumb() const { return *track().children.at(0); }
    /// What was drawn since the last time, without the areas that were invalidated.
    [[nodiscard]] lines drawn() {
        lines found = calls();
        std::erase_if(found, [](const std::string& line) { return line.starts_with("invalidate_rect"); });
        return found;
    }

    /// Where the thumb's origin is.
    [[nodiscard]] std::string thumb_place() const {
        const auto& m = thumb().transform;
        EXPECT_TRUE(scene::is_translation(m));
        return scene::fakes::call_text(m._31, m._32);
    }

    void hear_positions() {
        bar->add_position_listener([this](float position) { told.push_back(position); });
    }
    [[nodiscard]] std::vector<float> take_told() { return std::exchange(told, {}); }

    void press(button pressed, D2D_POINT_2F point,
               std::int32_t type = input::mouse::event_type::button_down) {
        edge->on_mouse_event({type, pressed, 0, point, 0});
    }
    /// Has the next drags go through `points`, in the space of the dragged node.
    void drag_through(std::vector<D2D_POINT_2F> points, bool completed = true) {
        site.drag = [points = std::move(points), completed](const auto& moved) {
            for (const auto& point : points) EXPECT_FALSE(moved(point)) << "the drag ends with the release";
            return completed;
        };
    }

    com::ptr<recording_scroll_style> style;
    com::ptr<ui::IScrollBar> bar;
    std::vector<float> told;
};

}  // namespace d2d::fakes
