#pragma once

#include "com/api.h"
#include "d2d/ui/ILabel.h"

#include <functional>
#include <initializer_list>
#include <optional>

namespace d2d::ui {

/// One option out of several: the selected one shows, and a press beside its label opens the list of all,
/// which is floated above the control and may reach beyond the window. A press in the list, which may be
/// dragged, chooses the row under the pointer at its end; whoever takes the keyboard focus from the list
/// closes it.
///
/// An open list takes the labels into its rows. A press needs a scene whose host can float nodes: it throws
/// `com::error` in another one, and `std::runtime_error` outside any.
struct IPopupOptions : IControl {
    struct option {
        int id;
        com::ptr<ILabel> label;
    };

    /// Replaces the function that is told the new selection when the user has changed it, ahead of the list's
    /// going. May do anything to the control, release it included; what it throws passes to the source of the
    /// event. An empty one takes the present one off.
    virtual void set_on_change(std::function<void(std::optional<int>)> handler) = 0;
    /// Selects an option, or none. Calls no handler. An id that no option has is the caller's error: the
    /// control shows nothing then.
    virtual void set_selected(std::optional<int> id) = 0;
    [[nodiscard]] virtual std::optional<int> get_selected() const = 0;
};

/// A control in `rect` with nothing selected. The options keep their order; their labels are kept, and must
/// have free nodes.
///
///     const auto flags = d2d::ui::create_popup_options(
///         {10, 10, 130, 34}, {{0, make_label("Alfa")}, {1, make_label("Bravo")}}, nullptr);
///     flags->set_selected(0);
[[nodiscard]] MOSSHARBOUR_API com::ptr<IPopupOptions> create_popup_options(
    D2D_RECT_F rect, std::initializer_list<IPopupOptions::option> options, IUnknown* style);

}  // namespace d2d::ui

template <>
struct com::interface_traits<d2d::ui::IPopupOptions> : com::extends<d2d::ui::IControl> {
    static constexpr GUID id = com::guid("E88F3DA0-BD8F-4942-AEF0-11864DFD0C52");
};
