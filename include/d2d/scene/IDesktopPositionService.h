#pragma once

#include "com/api.h"
#include "com/ptr.h"

#include <windows.h>

namespace d2d::scene {

/// Reserved: has no operations, and nothing implements it.
struct IDesktopPositionService : IUnknown {};

/// Reserved: always throws `std::logic_error`, "not implemented".
[[nodiscard]] MOSSHARBOUR_API com::ptr<IDesktopPositionService> create_desktop_position_service(HWND window);

}  // namespace d2d::scene

template <>
struct com::interface_traits<d2d::scene::IDesktopPositionService> : com::extends<> {
    static constexpr GUID id = com::guid("43CBA0E8-0496-4CBD-A048-A1C53DA05E42");
};
