#include "support/wine.h"

#include <windows.h>

namespace test_support {

bool running_under_wine() noexcept {
    return GetProcAddress(GetModuleHandleW(L"ntdll.dll"), "wine_get_version") != nullptr;
}

}  // namespace test_support
