#include "portable/basic_hwnd_panel.h"

#include "win32/error.h"

namespace ui::mossHarbour {

HRESULT basic_hwnd_panel::QueryService(const GUID& service, const GUID& iid, void** result) {
    const HRESULT answer = upstream ? upstream->QueryService(service, iid, result) : E_FAIL;
    if (SUCCEEDED(answer)) return answer;
    const bool offered = com::same_guid(service, com::guid_of<IModalService>()) ||
                         com::same_guid(service, com::guid_of<IFileSelectionService>());
    return offered ? QueryInterface(iid, result) : answer;
}

std::filesystem::path basic_hwnd_panel::selectInputFile(details choice) {
    return ui::mossHarbour::selectInputFile(get_window_handle(), choice);
}

std::filesystem::path basic_hwnd_panel::selectOutputFile(details choice) {
    return ui::mossHarbour::selectOutputFile(get_window_handle(), choice);
}

element_metrics basic_hwnd_panel::take_sizes(const element_metrics& content) {
    const HWND window = get_window_handle();
    return sizes.take(content, static_cast<DWORD>(GetWindowLongW(window, GWL_STYLE)),
                      static_cast<DWORD>(GetWindowLongW(window, GWL_EXSTYLE)));
}

void basic_hwnd_panel::arrange(IMaterializedElement& content) {
    RECT client{};
    win32::check(GetClientRect(get_window_handle(), &client));
    const RECT area = sizes.content_area(client);
    content.arrange(area.left, area.top, area.right, area.bottom);
}

}  // namespace ui::mossHarbour
