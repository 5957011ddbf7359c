#pragma once

#include "ui/mossHarbour/IPanel.h"

#include <functional>
#include <string>

namespace harbour {

// What the program asks and tells, above the window of a panel, by the services of that panel.

/// A dialog with "Yes" and "No".
[[nodiscard]] bool is_agreed_to(ui::mossHarbour::IPanel& panel, const std::wstring& question);

/// A dialog with "OK".
void tell(ui::mossHarbour::IPanel& panel, const std::wstring& text);

/// A popup at the mouse with the names of ports; `chosen` is called with the one that is pressed, if any.
void offer_ports(ui::mossHarbour::IPanel& panel, const std::function<void(const wchar_t*)>& chosen);

/// The service of a panel.
template <class Service>
[[nodiscard]] com::ptr<Service> service_of(ui::mossHarbour::IPanel& panel) {
    com::ptr<Service> result;
    com::check(panel.QueryService(com::guid_of<Service>(), com::guid_of<Service>(), result.put_void()));
    return result;
}

}  // namespace harbour
