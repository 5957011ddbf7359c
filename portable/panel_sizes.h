#pragma once

#include "portable/box_lengths.h"
#include "ui/mossHarbour/IHwndPanel.h"

#include <windows.h>

namespace ui::mossHarbour {

/// What the measurement of a panel's content means for its window.
class panel_sizes {
public:
    /// Padding as the client gave it. Takes effect at the next `take`.
    void set_padding(const box_lengths& lengths) noexcept { padding = lengths; }

    /// Takes what the content measures, for a window with these styles. Returns it with the margins that the
    /// panel keeps.
    element_metrics take(const element_metrics& content, DWORD style, DWORD ex_style);

    /// What the margins leave of a client area.
    [[nodiscard]] RECT content_area(const RECT& client) const noexcept;
    [[nodiscard]] const IHwndPanel::window_sizes& window() const noexcept { return outer; }
    /// Answers WM_GETMINMAXINFO.
    void limit(MINMAXINFO& info) const noexcept;

private:
    box_lengths padding{};
    box_lengths margins{};
    IHwndPanel::window_sizes outer{};
};

/// Whether a WM_WINDOWPOSCHANGED calls for an arrangement of the content: the window is shown, or changes its
/// size while it shows.
[[nodiscard]] bool calls_for_arrangement(HWND window, const WINDOWPOS& change) noexcept;

}  // namespace ui::mossHarbour
