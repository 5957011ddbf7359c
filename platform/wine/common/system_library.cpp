#include "system_library.h"

#include <string>

namespace completion {

namespace {

std::wstring system_path(const wchar_t* name) {
    wchar_t folder[MAX_PATH]{};
    const UINT length = GetSystemDirectoryW(folder, MAX_PATH);
    if (length == 0 || length >= MAX_PATH) {
        throw std::runtime_error("the system folder has no usable name");
    }
    return std::wstring(folder, length) + L'\\' + name;
}

}  // namespace

system_library::system_library(const wchar_t* name) : module_(LoadLibraryW(system_path(name).c_str())) {
    if (!module_) {
        throw std::runtime_error("the system folder lacks a library that is to be completed");
    }
}

FARPROC system_library::address(const char* name) const {
    const FARPROC found = GetProcAddress(module_, name);
    if (!found) {
        throw std::runtime_error(std::string("the system's library lacks the export ") + name);
    }
    return found;
}

}  // namespace completion
