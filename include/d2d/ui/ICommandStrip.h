#pragma once

#include "com/api.h"
#include "d2d/ui/ILabel.h"

#include <initializer_list>

namespace d2d::ui {

/// A row or column of cells of one size inside one rounded outline, which show when they are pressed. Its
/// size is settled when it is made: `measure` and `arrange` throw `std::logic_error` "not implemented".
struct ICommandStrip : IControl {
    /// One cell.
    struct button {
        void* command;  ///< not read: a cell reports nothing yet
        ILabel* label;  ///< shown in the middle of the cell; its node is kept, the label is not
    };
};

/// A strip from (0, 0), across or `vertical`, with one cell of `cell_size` for each button.
[[nodiscard]] MOSSHARBOUR_API com::ptr<ICommandStrip> create_command_strip(
    bool vertical, D2D_SIZE_F cell_size, std::initializer_list<ICommandStrip::button> buttons,
    IUnknown* style);

}  // namespace d2d::ui

template <>
struct com::interface_traits<d2d::ui::ICommandStrip> : com::extends<d2d::ui::IControl> {
    static constexpr GUID id = com::guid("E190E641-3177-465C-A775-35D6284FD501");
};
