#include "portable/use_scene_panels.h"
#include "ui/mossHarbour/IHwndPanel.h"

namespace ui::mossHarbour {

com::ptr<IHwndPanel> create_hwnd_panel(IServiceProvider* upstream) {
    return use_scene_panels ? create_d2d_hwnd_panel(upstream) : create_win32_hwnd_panel(upstream);
}

}  // namespace ui::mossHarbour
