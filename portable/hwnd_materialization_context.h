#pragma once

#include "ui/mossHarbour/IPanel.h"
#include "ui/mossHarbour/materialization_context.h"

#include <windows.h>

namespace ui::mossHarbour {

/// A place among native windows: in a parent window. Both are borrowed.
class hwnd_materialization_context : public materialization_context {
public:
    [[nodiscard]] virtual HWND get_parent_window() = 0;
    [[nodiscard]] virtual IPanel* get_panel() = 0;

protected:
    ~hwnd_materialization_context() = default;
};

}  // namespace ui::mossHarbour
