#pragma once

#include <windows.h>

namespace win32 {

/// The module that this code is in: the library, or a program that is linked with its objects.
[[nodiscard]] HINSTANCE library_module() noexcept;

}  // namespace win32
