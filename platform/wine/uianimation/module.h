#pragma once

#include <windows.h>

#include <atomic>

namespace completion {

/// How many objects and server locks keep this DLL loaded.
inline std::atomic<long> module_references{0};

/// Counts one object or one lock for as long as it lives.
class module_reference {
public:
    module_reference() noexcept { ++module_references; }
    ~module_reference() { --module_references; }
    module_reference(const module_reference&) = delete;
    module_reference& operator=(const module_reference&) = delete;
};

/// This DLL, not the process's executable.
[[nodiscard]] inline HINSTANCE module_instance() noexcept {
    HMODULE module = nullptr;
    GetModuleHandleExW(GET_MODULE_HANDLE_EX_FLAG_FROM_ADDRESS | GET_MODULE_HANDLE_EX_FLAG_UNCHANGED_REFCOUNT,
                       reinterpret_cast<LPCWSTR>(&module_references), &module);
    return module;
}

}  // namespace completion
