#include "ui/mossHarbour/IHwndPanel.h"

namespace ui::mossHarbour {

com::ptr<IHwndPanel> create_hwnd_panel(IServiceProvider* upstream) {
    return create_d2d_hwnd_panel(upstream);
}

}  // namespace ui::mossHarbour
