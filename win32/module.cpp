#include "win32/module.h"

namespace win32 {
namespace {

const char address_in_module = 0;

}  // namespace

HINSTANCE library_module() noexcept {
    HMODULE module = nullptr;
    GetModuleHandleExW(GET_MODULE_HANDLE_EX_FLAG_FROM_ADDRESS | GET_MODULE_HANDLE_EX_FLAG_UNCHANGED_REFCOUNT,
                       reinterpret_cast<const wchar_t*>(&address_in_module), &module);
    return module;
}

}  // namespace win32
