#pragma once

#include <windows.h>

namespace ui::mossHarbour {

/// The class of the windows of native panels, registered for the time that the library is loaded.
class registered_panel_class {
public:
    registered_panel_class() noexcept;
    registered_panel_class(const registered_panel_class&) = delete;
    registered_panel_class& operator=(const registered_panel_class&) = delete;
    /// The system keeps classes of a library that is gone, with a procedure that is gone.
    ~registered_panel_class();

    /// 0 when it could not be registered.
    [[nodiscard]] ATOM atom() const noexcept { return registered; }

private:
    ATOM registered;
};

extern const registered_panel_class panel_class;

}  // namespace ui::mossHarbour
