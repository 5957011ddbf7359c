#pragma once

#include "win32/window.h"

#include <memory>

namespace win32 {

struct scroll_axis;

/// A native window that scrolls by GDI: standard scroll bars over a logical region, and margin strips around
/// the scrolled part that follow one axis alone, as column and row headers do. Scrolling moves the pixels
/// that are on the screen, and only what comes into view becomes invalid.
///
/// From the client's edges inward: the frame, which never scrolls, then the margins, then the scrolled part.
/// The left and right margins follow vertical scrolling, the top and bottom ones horizontal scrolling. The
/// left and right strips have the full height within the frame, the top and bottom ones the full width: they
/// overlap at the corners, and scrolling moves the pixels of a corner along with each of its strips. A window
/// with such corners invalidates them in `scroll_offset_changed`, and each strip as far beside them as was
/// scrolled; and when its size changes, what it keeps at a corner that moves.
///
/// Paint a part in a scope of its own, in logical coordinates:
///
///     paint_context context(this);
///     const auto state = prepare_paint_context(scroll_area::scrolled, context);
///     TextOutW(context, 0, 0, ...);  // the top left of a region that starts at (0, 0)
///
/// The scroll bars hold the position: the system clamps it, and the window follows. All lengths are in
/// pixels. No result of the system is examined, so nothing here throws of itself; what
/// `scroll_offset_changed` throws passes on. Ahead of the window's creation the setters of margin and region
/// only keep what they are given.
class MOSSHARBOUR_API scroll_window : public window {
public:
    /// A part of the window. `unscrolled` is added to another with `|`.
    enum class scroll_area {
        scrolled = 0,
        left_margin = 1,
        top_margin = 2,
        right_margin = 4,
        bottom_margin = 8,
        /// Painted without the scroll offset, and over the whole client area.
        unscrolled = 16,
    };

    friend constexpr scroll_area operator|(scroll_area left, scroll_area right) noexcept {
        return static_cast<scroll_area>(static_cast<int>(left) | static_cast<int>(right));
    }

    /// A saved state of a device context, restored at the end of its life.
    class MOSSHARBOUR_API dc_state {
    public:
        explicit dc_state(HDC context);
        dc_state(const dc_state&) = delete;
        dc_state& operator=(const dc_state&) = delete;
        ~dc_state();

    private:
        HDC dc;
        int saved;
    };

    /// Acts on the messages of scrolling and sizing. Sizing is answered in full, so that no `WM_SIZE` and no
    /// `WM_MOVE` follow; every pressed key counts as handled. The cursor keys scroll vertically, Left and
    /// Right too. A notch of the wheel is three lines.
    std::optional<long> on_window_message(MSG message) override;
    /// The offset has changed; `scroll_offset()` gives it, and the pixels have been moved. At a drag of the
    /// bar it is told each step. It may scroll in its turn.
    virtual void scroll_offset_changed(POINT offset);

    /// The logical point at the top left of the scrolled part.
    [[nodiscard]] POINT scroll_offset() const noexcept { return offset; }
    /// The logical extent.
    [[nodiscard]] RECT scroll_region() const noexcept { return region; }
    /// The widths of the four margin strips.
    [[nodiscard]] RECT scroll_margin() const noexcept { return margin; }

    /// Sets the widths of the strips, and invalidates the window. Until the next change of the window's size
    /// a page of the bars is at most the difference of the opposite widths (right - left, bottom - top); so
    /// set margins ahead of the window's first showing where that is little.
    void set_scroll_margin(RECT margin);
    /// Sets the logical extent, and with it the ranges of the bars, which come or go as need be.
    void set_scroll_region(RECT region);
    /// Scrolls to a logical point, or as far towards it as the bars allow.
    void set_scroll_offset(POINT offset);
    /// Scrolls by a distance: `set_scroll_offset` of the sum.
    void adjust_scroll_offset(SIZE delta);

protected:
    /// The `lParam` of a mouse message with the offset added to its point, each half cut to 16 bits: logical
    /// coordinates where the scrolled part starts at the client's top left.
    [[nodiscard]] long adjust_mouse_lparam(long lparam) const;
    /// Clips painting to a part of the window and shifts it, so that logical coordinates follow the scroll
    /// offset in the directions in which the part scrolls. Offset and part coincide at the part's top left
    /// corner; along a direction without scrolling the part starts at 0. Restored when the result is let go
    /// of, which must be ahead of the end of `context`.
    [[nodiscard]] std::shared_ptr<dc_state> prepare_paint_context(scroll_area area, paint_context& context);

private:
    RECT client{};

protected:
    /// Insets of the whole layout from the client's edges, for a derived class to set ahead of the first
    /// showing.
    RECT frame{};

private:
    RECT margin{};

protected:
    int line_x = 20;   ///< a line step to the side, for a derived class to set
    int line_y = 20;   ///< a line step up or down, for a derived class to set
    int page_x = 500;  ///< a page step; from the first sizing on, the width of the scrolled part
    int page_y = 500;  ///< a page step; from the first sizing on, the height of the scrolled part

private:
    [[nodiscard]] RECT get_scroll_area_rect(scroll_area area) const;
    void scroll_paint(int dx, int dy);
    void update_scroll_offset();
    void update_client_rect();
    void handle_thumb_track(const scroll_axis& axis);

    void wmCreate();
    void wmScroll(const scroll_axis& axis, WORD code);
    void wmWindowPosChanged(const WINDOWPOS& position);
    void wmMouseWheel(WPARAM wparam);
    void wmKeyDown(WPARAM key);

    [[nodiscard]] int line_step(const scroll_axis& axis) const noexcept;
    [[nodiscard]] int& page_step(const scroll_axis& axis) noexcept;
    void follow_edge(const scroll_axis& axis, const RECT& resized) const;

    POINT offset{};
    RECT region{};
};

}  // namespace win32
