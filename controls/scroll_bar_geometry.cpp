#include "controls/scroll_bar_geometry.h"

#include "scene/rectangle.h"

#include <cmath>

namespace d2d {
namespace {

constexpr float border = 1;  // of the track, around the thumb

}  // namespace

template <class T>
T scroll_bar_geometry::turned(T value) const noexcept {
    return orientation_ == ui::IScrollBar::orientation::horizontal ? value : scene::flipped(value);
}

scroll_bar_geometry::scroll_bar_geometry(ui::IScrollBar::orientation orientation,
                                         const ui::IScrollBar::range& range, const D2D_RECT_F& rect) noexcept
    : orientation_(orientation), range_(range), rect_(turned(rect)) {
    const float span = range.maximum - range.minimum;
    const float room = rect_.right - rect_.left - 2 * border;
    thumb_ = {room * range.page / (range.page + span), rect_.bottom - rect_.top - 2 * border};
    if (thumb_.width < thumb_.height) thumb_.width = thumb_.height;
    scale_ = span > 0 ? (room - thumb_.width) / span : 0;
}

D2D_SIZE_F scroll_bar_geometry::thumb_size() const noexcept {
    return turned(thumb_);
}

D2D_POINT_2F scroll_bar_geometry::thumb_place() const noexcept {
    const float offset = (range_.position - range_.minimum) * scale_;
    return turned(D2D_POINT_2F{rect_.left + border + offset, rect_.top + border});
}

float scroll_bar_geometry::clamped(float position) const noexcept {
    const float limited = position > range_.maximum ? range_.maximum : position;
    return std::isnan(limited) || limited < range_.minimum ? range_.minimum : limited;
}

std::optional<float> scroll_bar_geometry::paged_towards(D2D_POINT_2F point) const noexcept {
    const float thumb = (range_.position - range_.minimum) * scale_;
    const float pressed = turned(point).x;
    if (thumb > pressed) return range_.position - range_.page;
    if (pressed > thumb) return range_.position + range_.page;
    return std::nullopt;
}

float scroll_bar_geometry::centred_at(D2D_POINT_2F point) const noexcept {
    return clamped((turned(point).x - thumb_.width * 0.5f) / scale_ + range_.minimum);
}

scroll_bar_geometry::drag_result scroll_bar_geometry::dragged(D2D_POINT_2F origin,
                                                              D2D_POINT_2F delta) const noexcept {
    D2D_POINT_2F place = turned(origin);
    place.x += turned(delta).x;
    const float wanted = (place.x - border - rect_.left) / scale_ + range_.minimum;
    const float position = clamped(wanted);
    // Also where nothing can move, and what is wanted is not a number.
    if (position != wanted) place.x = (position - range_.minimum) * scale_ + rect_.left + border;
    return {position, turned(place)};
}

}  // namespace d2d
