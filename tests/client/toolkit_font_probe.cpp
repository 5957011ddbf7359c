// Tells of the font of native controls in a process that has just started: its face, the height that it was
// asked for with, and the height of its lines, by which lengths in `font_percent` go.

#include "ui/mossHarbour/IHwndPanel.h"
#include "ui/mossHarbour/ILabelControl.h"
#include "ui/mossHarbour/IStackLayout.h"

#include <cstdio>

int main() {
    using namespace ui::mossHarbour;
    const auto layout = create_stack_layout(orientation::vertical);
    layout->add_item(stack_item_details(), create_label_control());
    const auto panel = create_win32_hwnd_panel(nullptr);
    panel->set_content(layout);
    panel->set_padding(font_percent(100), 0, 0, 0);
    const HWND label = GetWindow(panel->create_window(0, L"probe", WS_POPUP, nullptr), GW_CHILD);
    LOGFONTW font{};
    GetObjectW(reinterpret_cast<HGDIOBJ>(SendMessageW(label, WM_GETFONT, 0, 0)), sizeof font, &font);
    std::printf("%ls %ld %d", font.lfFaceName, font.lfHeight, panel->measure().margin_left);
    panel->destroy_window();
    return 0;
}
