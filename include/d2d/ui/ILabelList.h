#pragma once

#include "com/api.h"
#include "d2d/ui/ILabel.h"
#include "d2d/ui/IStyle.h"

#include <optional>

namespace d2d::ui {

/// Labels one under the other, scrolled by need. The row under the mouse lights up, a press of the left
/// button selects a row; any press on a row gives the list the keyboard focus, and so throws
/// `std::runtime_error` "not expected" where the list has just left its view. There is no selection by
/// keyboard or by program, and no notification of it.
///
/// The rows are laid out whenever one comes, and at `clear`, as the labels measure then. What a label becomes
/// later shows at the next of these.
///
/// A row takes the mouse where it paints something: as long as it is neither hot nor selected, on its label
/// alone. The shape of one that is lies around the label, and goes with it when the rows are laid out.
///
/// Labels and handlers may change the list while they run.
struct ILabelList : IControl {
    /// Adds a row ahead of the one at `index`; behind all when there is none, or when it is negative. Keeps
    /// the label, whose node must be free: else throws `std::logic_error` "unexpected", with nothing changed.
    /// What the label throws when it is measured (an icon label: "not implemented") passes on, and the row is
    /// there.
    virtual void insert_item(int index, ILabel* label, int value) = 0;
    /// A place in the order of the operations: throws `std::logic_error` "not implemented".
    virtual void reserved1() = 0;
    /// The same.
    virtual void reserved2() = 0;
    /// Removes all rows, and empties the nodes of their labels. Nothing is selected then.
    virtual void clear() = 0;
    /// The value of the selected row; none when no row is selected.
    virtual std::optional<int> get_selection() = 0;
    /// A place in the order of the operations: throws `std::logic_error` "not implemented".
    virtual void reserved3() = 0;
};

/// An empty list with an empty rectangle; null takes the default style. Throws `com::error` when the style
/// has no looks for scroll areas.
[[nodiscard]] MOSSHARBOUR_API com::ptr<ILabelList> create_label_list(IStyle* style);

}  // namespace d2d::ui

template <>
struct com::interface_traits<d2d::ui::ILabelList> : com::extends<d2d::ui::IControl> {
    static constexpr GUID id = com::guid("734B3F71-A88E-4EB1-8EED-8C247C58CAD1");
};
