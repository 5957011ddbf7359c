#pragma once

#include "com/api.h"
#include "d2d/ui/IControl.h"

#include <functional>

namespace d2d::ui {

/// A view on content that may be larger, with scroll bars that come by need, and a margin on each side. A
/// margin has a fixed part, and a scrolled one that follows the content along it: the headings above a table
/// move sideways with its cells and stay above them.
///
/// Sides are numbered 0 left, 1 top, 2 right, 3 bottom; any other number throws `std::logic_error` "bad
/// margin specified". Sizes and positions are in pixels; those of scrolling are in the content's space. The
/// keyboard is the owner's affair. An `arrange` that moves the area and leaves its size draws nothing: the
/// lines beside the margins stay where they were. `QueryInterface` does not know it as `IControl`.
struct IScrollArea : IControl {
    using view_function = std::function<void(D2D_RECT_F view)>;

    /// A place in the order of the operations: throws `std::logic_error` "not implemented".
    virtual void reserved() = 0;
    /// What the content covers: (0, 0, 1, 1) at first. Decides which bars come.
    virtual void set_content_bounds(D2D_RECT_F bounds) = 0;
    virtual D2D_POINT_2F get_scroll_position() = 0;
    /// Puts this point of the content into the view's upper left corner, as far as the bounds allow. The
    /// content moves by whole pixels.
    virtual void set_scroll_position(float x, float y) = 0;
    /// Shows a free node in the content's space, and keeps it. What it covers is for `set_content_bounds` to
    /// say.
    virtual void add_content(com::ptr<scene::INode> node) = 0;
    virtual void remove_content(com::ptr<scene::INode> node) = 0;
    /// The thickness of the part of a margin that follows the content; at 0 it is not shown.
    virtual void set_margin_scrolled_size(int side, float size) = 0;
    virtual void add_margin_scrolled_node(int side, com::ptr<scene::INode> node) = 0;
    virtual void remove_margin_scrolled_node(int side, com::ptr<scene::INode> node) = 0;
    /// The thickness of the part of a margin that stays where it is.
    virtual void set_margin_fixed_size(int side, float size) = 0;
    /// An element that is laid out in the fixed part, null for none. Of `inset`, left and top are where it
    /// starts, right and bottom are taken off the part's size. The element's node is added by
    /// `add_margin_fixed_node`.
    virtual void set_margin_element(int side, com::ptr<scene::layout::IElement> element,
                                    D2D_RECT_F inset) = 0;
    virtual void add_margin_fixed_node(int side, com::ptr<scene::INode> node) = 0;
    virtual void remove_margin_fixed_node(int side, com::ptr<scene::INode> node) = 0;
    /// What the wheel does: 0 scrolls down and up, 1 across (Shift exchanges the two), 2 towards the corners;
    /// with any other number it does nothing. 0 at first.
    virtual void set_wheel_mode(int mode) = 0;
    /// Where content sits that is smaller than the view: below 0 at the start, 0 in the middle, above 0 at
    /// the end. Takes effect when the content is placed the next time.
    virtual void set_alignment(int x, int y) = 0;
    /// The part of the content that shows.
    virtual D2D_RECT_F get_view_rect() = 0;
    /// Replaces the function that is told whenever that part has changed, at the end of what changed it. It
    /// may scroll, which tells it again inside, set another function, and drop the area. What it throws
    /// passes on to whoever changed the part, unless the change has failed by itself: that failure passes on
    /// then.
    virtual void set_view_changed_handler(view_function handler) = 0;
};

/// An area in `rect` without content and margins.
[[nodiscard]] MOSSHARBOUR_API com::ptr<IScrollArea> create_scroll_area(D2D_RECT_F rect, IUnknown* style);

}  // namespace d2d::ui

template <>
struct com::interface_traits<d2d::ui::IScrollArea> : com::extends<d2d::scene::layout::IElement> {
    static constexpr GUID id = com::guid("B62E9D2B-DEA7-4E59-A76D-B5C5C342BCC0");
};
