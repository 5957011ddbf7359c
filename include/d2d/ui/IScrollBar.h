#pragma once

#include "com/api.h"
#include "d2d/ui/IControl.h"

#include <functional>

namespace d2d::ui {

/// A position in a range, shown as a thumb on a track. A press on the track moves by a page, towards the
/// pointer; with the right button it takes the thumb's middle there. Both count from 0 along the bar,
/// wherever its rectangle starts: kept, give it one that starts at 0, below a node that is moved to its
/// place. The thumb can be dragged. The wheel belongs to the owner. Positions are in the owner's units.
/// `QueryInterface` does not know it as `IControl`; `measure` throws `std::logic_error` "not implemented".
struct IScrollBar : IControl {
    enum class orientation : int { vertical = 0, horizontal = 1 };

    struct range {
        float position;
        float minimum;
        float maximum;  ///< the highest position: the content reaches to `maximum` + `page`
        float page;     ///< how much of the content shows at once, and the step of a press on the track
        float line;     ///< kept for the owner
    };

    using position_function = std::function<void(float position)>;
    /// Names a listener while it is there: the stored function.
    using position_token = const position_function*;

    /// Puts the position inside the range; one that is not a number becomes the minimum. Tells no listener.
    virtual void set_position(float position) = 0;
    virtual float get_position() = 0;
    virtual range get_range() = 0;
    /// Takes the position as it is, even outside. Tells no listener. Throws `std::logic_error`, with the
    /// range taken, when it is so unlimited that the thumb has no finite place.
    virtual void set_range(range range) = 0;
    /// Adds a listener that is told the new position when the user has moved it. A listener may set position
    /// and range, and may neither add nor remove listeners. An empty one throws `std::bad_function_call` when
    /// its turn comes.
    virtual position_token add_position_listener(position_function listener) = 0;
    /// An unknown token is ignored.
    virtual void remove_position_listener(position_token token) = 0;
};

/// A bar that fills `rect`.
[[nodiscard]] MOSSHARBOUR_API com::ptr<IScrollBar> create_scroll_bar(IScrollBar::orientation orientation,
                                                                     IScrollBar::range range, D2D_RECT_F rect,
                                                                     IUnknown* style);

}  // namespace d2d::ui

template <>
struct com::interface_traits<d2d::ui::IScrollBar> : com::extends<d2d::scene::layout::IElement> {
    static constexpr GUID id = com::guid("56BB7066-D2EF-49A8-B3BF-0DE3973D3867");
};
