// Scroll bars through random operations, compared with a model that works everything out anew.

#include "controls/testing/scroll_bar_fixture.h"
#include "controls/testing/scroll_bar_model.h"
#include "support/debug_heap.h"
#include "support/random_seed.h"

#include <cmath>
#include <limits>
#include <optional>
#include <random>
#include <string>
#include <vector>

#include <gtest/gtest.h>

namespace d2d {
namespace {

using fakes::scroll_bar_model;
using input::mouse::button;
using scene::fakes::call_text;

class random_scroll_bar_test : public fakes::scroll_bar_fixture {
protected:
    [[nodiscard]] unsigned below(unsigned limit) { return static_cast<unsigned>(random() % limit); }
    [[nodiscard]] bool one_in(unsigned chance) { return below(chance) == 0; }
    /// In quarters.
    [[nodiscard]] float between(int from, int to) {
        return static_cast<float>(from) +
               static_cast<float>(below(static_cast<unsigned>(to - from) * 4 + 1)) / 4;
    }

    /// Never without page and span at once, and never with a page as negative as the span is long.
    range any_range() {
        range made{};
        made.minimum = one_in(2) ? 0 : between(-500, 500);
        const float span = one_in(6) ? 0 : one_in(4) ? between(1, 4) : between(1, 3000);
        made.maximum = made.minimum + span;
        made.page = one_in(8) && span > 0 ? 0 : between(1, 1000);
        made.position = one_in(6) ? between(-2000, 4000) : made.minimum + span * between(0, 1);
        made.line = between(0, 40);
        return made;
    }
    D2D_RECT_F any_rect() {
        const float x = one_in(3) ? 0 : between(-20, 60);
        const float y = one_in(3) ? 0 : between(-20, 60);
        const float length = between(12, 400);
        const float thickness = one_in(12) ? between(3, 400) : between(6, 24);
        if (vertical) return {x, y, x + thickness, y + length};
        return {x, y, x + length, y + thickness};
    }
    /// Inside the rectangle, not on an edge.
    D2D_POINT_2F any_point() {
        const auto inside = [this](float from, float to) {
            return from + (to - from) * (static_cast<float>(below(1000)) + 0.5f) / 1000;
        };
        return {inside(expected->rect.left, expected->rect.right),
                inside(expected->rect.top, expected->rect.bottom)};
    }
    D2D_POINT_2F any_place() {
        return one_in(3) ? D2D_POINT_2F{between(-900, 900), between(-900, 900)} : any_point();
    }

    /// The thumb's origin when a press at `point` grips it.
    [[nodiscard]] std::optional<D2D_POINT_2F> gripped_at(D2D_POINT_2F point) const {
        const D2D_POINT_2F origin = expected->thumb_place;
        const D2D_RECT_F size = expected->thumb_rect();
        const bool hit = point.x >= origin.x && point.x < origin.x + size.right && point.y >= origin.y &&
                         point.y < origin.y + size.bottom;
        return hit ? std::optional(origin) : std::nullopt;
    }
    /// Too close to the thumb's edge for the hit test, which allows a pixel, or to where the direction
    /// changes.
    [[nodiscard]] bool is_doubtful(D2D_POINT_2F point) const {
        const D2D_POINT_2F origin = expected->thumb_place;
        const D2D_RECT_F size = expected->thumb_rect();
        const auto near_to = [](float a, float b) { return std::abs(a - b) < 1.5f; };
        const float on_axis = expected->horizontal ? point.x : point.y;
        const float start = (expected->range.position - expected->range.minimum) * expected->scale();
        return near_to(point.x, origin.x) || near_to(point.x, origin.x + size.right) ||
               near_to(point.y, origin.y) || near_to(point.y, origin.y + size.bottom) ||
               near_to(on_axis, start);
    }

    void press_somewhere() {
        const D2D_POINT_2F point = any_point();
        if (is_doubtful(point)) return;
        const bool is_left = one_in(2);
        const bool twice = one_in(5);
        std::vector<D2D_POINT_2F> way;
        for (unsigned i = below(5); i > 0; --i) way.push_back(any_place());
        drag_through(way);
        const auto grip = gripped_at(point);
        if (!is_left) {
            if (expected->scale() == 0) return;  // ends and numbers that are none: elsewhere
            expected->jump(point);
            for (const auto& each : way) expected->jump(each);
        } else if (grip && !twice) {
            if (expected->scale() == 0) return;
            for (const auto& each : way) expected->drag(point, *grip, each);
        } else {
            expected->press_left(point);
        }
        what += call_text(is_left ? " left" : " right", twice, point) + ";";
        press(is_left ? button::left : button::right, point,
              twice ? input::mouse::event_type::double_click : input::mouse::event_type::button_down);
        ++presses;
    }

    void step() {
        switch (below(8)) {
            case 0: {
                const float position = between(-1000, 4000);
                what += call_text(" position", position) + ";";
                bar->set_position(position);
                return expected->set_position(position);
            }
            case 1: {
                const range changed = any_range();
                what +=
                    call_text(" range", changed.position, changed.minimum, changed.maximum, changed.page) +
                    ";";
                bar->set_range(changed);
                return expected->set_range(changed);
            }
            case 2: {
                const D2D_RECT_F rect = any_rect();
                what += call_text(" arrange", rect) + ";";
                bar->arrange(rect);
                return expected->arrange(rect);
            }
            default:
                return press_somewhere();
        }
    }

    static testing::AssertionResult close(float wanted, float is) {
        if (std::abs(wanted - is) <= 1e-3f + 1e-5f * std::abs(wanted)) return testing::AssertionSuccess();
        return testing::AssertionFailure() << "wanted " << wanted << ", is " << is;
    }

    /// Of positions: one that came from a point is as exact as a point is, which long ranges spread.
    [[nodiscard]] testing::AssertionResult close_position(float wanted, float is) const {
        constexpr float pixels = 1e-3f;
        if (std::abs(wanted - is) * expected->scale() <= pixels) return testing::AssertionSuccess();
        return close(wanted, is);
    }

    void compare() {
        ASSERT_TRUE(close_position(expected->range.position, bar->get_position()));
        const range kept = bar->get_range();
        EXPECT_EQ(expected->range.minimum, kept.minimum);
        EXPECT_EQ(expected->range.maximum, kept.maximum);
        EXPECT_EQ(expected->range.page, kept.page);
        EXPECT_EQ(expected->range.line, kept.line);
        ASSERT_TRUE(close(expected->thumb_place.x, thumb().transform._31));
        ASSERT_TRUE(close(expected->thumb_place.y, thumb().transform._32));
        const D2D_RECT_F size = thumb().content_bounds;
        ASSERT_TRUE(close(expected->thumb_rect().right, size.right - size.left));
        ASSERT_TRUE(close(expected->thumb_rect().bottom, size.bottom - size.top));
        ASSERT_TRUE(scene::fakes::same(expected->rect, track().clip_rect));
        ASSERT_EQ(expected->told.size(), told.size());
        for (std::size_t i = 0; i < told.size(); ++i) ASSERT_TRUE(close_position(expected->told[i], told[i]));
        // What was close stays close.
        expected->range.position = kept.position;
        expected->thumb_place = {thumb().transform._31, thumb().transform._32};
        expected->told.clear();
        told.clear();
    }

    void run(int steps) {
        vertical = one_in(2);
        const range first = any_range();
        expected.emplace(vertical ? orientation::vertical : orientation::horizontal, first,
                         D2D_RECT_F{0, 0, 9, 9});
        const D2D_RECT_F rect = any_rect();
        expected->arrange(rect);
        what = call_text(vertical ? "vertical" : "horizontal", first.position, first.minimum, first.maximum,
                         first.page, "in", rect) +
               ":";
        make(vertical ? orientation::vertical : orientation::horizontal, first, rect);
        hear_positions();
        compare();
        for (int i = 0; i < steps && !HasFatalFailure(); ++i) {
            step();
            SCOPED_TRACE(what);
            compare();
        }
        site.calls.clear();
        root->remove_child(bar->get_node());
    }

    std::mt19937 random;
    std::optional<scroll_bar_model> expected;
    bool vertical = true;
    std::string what;
    int presses = 0;
};

TEST_F(random_scroll_bar_test, agrees_with_the_model_after_each_operation) {
    const unsigned seed = test_support::random_seed();
    SCOPED_TRACE(testing::Message() << "seed " << seed);
    random.seed(seed);
    const int runs = test_support::debug_heap::steps(400);
    for (int i = 0; i < runs && !HasFatalFailure(); ++i) run(25);
    EXPECT_GT(presses, runs * 5) << "too few presses came to pass";
}

}  // namespace
}  // namespace d2d
