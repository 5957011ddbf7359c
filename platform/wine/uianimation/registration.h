#pragma once

#include <windows.h>

namespace completion {

/// Makes this DLL, by its full path, the server of the animation timer's class for the whole machine.
[[nodiscard]] HRESULT register_timer_class() noexcept;

/// Gives the class back to the system's own DLL.
[[nodiscard]] HRESULT unregister_timer_class() noexcept;

}  // namespace completion
