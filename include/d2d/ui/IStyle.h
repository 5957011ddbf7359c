#pragma once

#include "com/api.h"
#include "com/ptr.h"
#include "d2d/ui/IStyleSettings.h"

namespace d2d::ui {

/// What a control draws itself with: it turns the control's state into brushes, text formats and strokes.
/// Each control asks the object that it is given as style for the one interface of its kind; one object can
/// have them all. A style has no state, and a control keeps the one that it was made with.
struct IStyle : IUnknown {
    /// The values behind the style.
    virtual com::ptr<IStyleSettings> get_settings() = 0;
};

/// The style of every control that is made without one, with all style interfaces. It lives as long as
/// somebody holds it, and keeps the process-wide graphics objects alive; the next call behind its last
/// release makes a new one. Pass null: anything else throws `std::logic_error` "unrecognized style
/// identifier", since there are no settings of a client's own yet. So does null when no style is alive but
/// settings of a builder are: those are the newest ones then, and empty.
[[nodiscard]] MOSSHARBOUR_API com::ptr<IStyle> get_default_style(com::ptr<IStyleSettings> settings);

}  // namespace d2d::ui

template <>
struct com::interface_traits<d2d::ui::IStyle> : com::extends<> {
    static constexpr GUID id = com::guid("B8DF9BF0-A641-46FD-9889-9315824E3573");
};
