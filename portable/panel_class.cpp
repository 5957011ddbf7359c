#include "portable/panel_class.h"

#include "portable/hwnd_panel_impl.h"
#include "win32/module.h"

namespace ui::mossHarbour {
namespace {

ATOM register_panel_class() noexcept {
    WNDCLASSEXW wc{};
    wc.cbSize = sizeof wc;
    wc.style = CS_VREDRAW | CS_HREDRAW;
    wc.lpfnWndProc = hwnd_panel_impl::window_procedure;
    wc.cbWndExtra = DLGWINDOWEXTRA;
    wc.hInstance = win32::library_module();
    wc.hbrBackground = reinterpret_cast<HBRUSH>(COLOR_BTNFACE + 1);
    wc.lpszClassName = L"mossHarbour_panel";
    return RegisterClassExW(&wc);
}

}  // namespace

registered_panel_class::registered_panel_class() noexcept : registered(register_panel_class()) {}

registered_panel_class::~registered_panel_class() {
    UnregisterClassW(MAKEINTATOM(registered), win32::library_module());
}

}  // namespace ui::mossHarbour
