#pragma once

#include "d2d/ui/IScrollBar.h"

#include <vector>

namespace d2d::fakes {

/// A scroll bar's rules over again, worked out from nothing but range, rectangle and orientation at each
/// question.
class scroll_bar_model {
public:
    using orientation = ui::IScrollBar::orientation;
    using range_type = ui::IScrollBar::range;

    scroll_bar_model(orientation given_orientation, const range_type& given_range,
                     const D2D_RECT_F& given_rect)
        : range(given_range), rect(given_rect), horizontal(given_orientation == orientation::horizontal) {
        place();
    }

    range_type range;
    D2D_RECT_F rect;
    bool horizontal;
    D2D_POINT_2F thumb_place{};  ///< where the thumb's origin is
    std::vector<float> told;     ///< what a listener has been told

    [[nodiscard]] float thumb_along() const {
        const float wanted = (along() - 2) * range.page / (range.page + span());
        return wanted < across() - 2 ? across() - 2 : wanted;
    }
    [[nodiscard]] D2D_RECT_F thumb_rect() const {
        if (horizontal) return {0, 0, thumb_along(), across() - 2};
        return {0, 0, across() - 2, thumb_along()};
    }
    [[nodiscard]] float scale() const { return span() > 0 ? (along() - 2 - thumb_along()) / span() : 0; }

    void set_position(float position) {
        range.position = clamped(position);
        place();
    }
    void set_range(const range_type& changed) {
        range = changed;
        place();
    }
    void arrange(const D2D_RECT_F& changed) {
        rect = changed;
        place();
    }

    /// A press of the left button on the track.
    void press_left(D2D_POINT_2F point) {
        const float thumb_start = (range.position - range.minimum) * scale();
        if (thumb_start > on_axis(point)) {
            move_to(range.position - range.page);
        } else if (on_axis(point) > thumb_start) {
            move_to(range.position + range.page);
        }
    }
    /// One point of a press or drag of the right button.
    void jump(D2D_POINT_2F point) { move_to((on_axis(point) - thumb_along() / 2) / scale() + range.minimum); }
    /// One point of a drag of the thumb that was gripped at `grip` when its origin was at `origin`.
    void drag(D2D_POINT_2F grip, D2D_POINT_2F origin, D2D_POINT_2F point) {
        const float start = (horizontal ? rect.left : rect.top) + 1;
        float edge = on_axis(origin) + on_axis(point) - on_axis(grip);
        float value = (edge - start) / scale() + range.minimum;
        if (value < range.minimum || value > range.maximum) {
            value = clamped(value);
            edge = (value - range.minimum) * scale() + start;
        }
        range.position = value;
        told.push_back(value);
        thumb_place = horizontal ? D2D_POINT_2F{edge, origin.y} : D2D_POINT_2F{origin.x, edge};
    }

private:
    [[nodiscard]] float span() const { return range.maximum - range.minimum; }
    [[nodiscard]] float along() const { return horizontal ? rect.right - rect.left : rect.bottom - rect.top; }
    [[nodiscard]] float across() const {
        return horizontal ? rect.bottom - rect.top : rect.right - rect.left;
    }
    [[nodiscard]] float on_axis(D2D_POINT_2F point) const { return horizontal ? point.x : point.y; }
    [[nodiscard]] float clamped(float value) const {
        if (value > range.maximum) value = range.maximum;
        return value < range.minimum ? range.minimum : value;
    }

    void move_to(float value) {
        value = clamped(value);
        if (value == range.position) return;
        range.position = value;
        told.push_back(value);
        place();
    }
    void place() {
        const float offset = (range.position - range.minimum) * scale();
        thumb_place = {rect.left + 1 + (horizontal ? offset : 0), rect.top + 1 + (horizontal ? 0 : offset)};
    }
};

}  // namespace d2d::fakes
