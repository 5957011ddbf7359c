#pragma once

#include "d2d/ui/IScrollBar.h"

#include <optional>

namespace d2d {

/// The arithmetic of a scroll bar: where its thumb lies, and which position a point stands for. Points and
/// rectangles are in the space of the bar's track; positions are in the units of the range.
///
/// Numbers that are none, and infinite ones, follow from the formulas: a thumb whose length is 0 / 0 (no
/// page, no span) keeps that length. Only a position never becomes one that is not a number: it is at an end
/// then.
class scroll_bar_geometry {
public:
    scroll_bar_geometry(ui::IScrollBar::orientation orientation, const ui::IScrollBar::range& range,
                        const D2D_RECT_F& rect) noexcept;

    [[nodiscard]] D2D_SIZE_F thumb_size() const noexcept;
    /// Pixels per unit of position; 0 where there is nowhere to move to.
    [[nodiscard]] float scale() const noexcept { return scale_; }
    /// The upper left corner of the thumb, from `range.position`, which may lie outside.
    [[nodiscard]] D2D_POINT_2F thumb_place() const noexcept;

    /// `position`, put inside the range; in one whose ends are the wrong way round, at its minimum: content
    /// that is shorter than its view stays at its start.
    [[nodiscard]] float clamped(float position) const noexcept;
    /// The position that a press on the track asks for, which may lie outside: a page towards the point, or
    /// none when the point is the thumb's leading edge. Both count from 0, wherever the bar lies: kept,
    /// owners let their bars start there.
    [[nodiscard]] std::optional<float> paged_towards(D2D_POINT_2F point) const noexcept;
    /// The position, inside the range, that takes the middle of the thumb to a point, counted from 0 too.
    [[nodiscard]] float centred_at(D2D_POINT_2F point) const noexcept;

    struct drag_result {
        float position;
        D2D_POINT_2F place;
    };
    /// A thumb from `origin` moved along by `delta`, as far as the range allows: what lies across is left
    /// out.
    [[nodiscard]] drag_result dragged(D2D_POINT_2F origin, D2D_POINT_2F delta) const noexcept;

private:
    /// Between the space of the track and that of a bar that runs across, in both directions.
    template <class T>
    [[nodiscard]] T turned(T value) const noexcept;

    ui::IScrollBar::orientation orientation_;
    ui::IScrollBar::range range_;
    // Of a bar that runs across.
    D2D_RECT_F rect_;
    D2D_SIZE_F thumb_;
    float scale_;
};

}  // namespace d2d
