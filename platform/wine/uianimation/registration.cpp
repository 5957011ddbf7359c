#include "registration.h"

#include "module.h"

#include <cwchar>

namespace completion {

namespace {

constexpr wchar_t server_key[] =
    L"Software\\Classes\\CLSID\\{BFCD4A0C-06B6-4384-B768-0DAA792C380E}\\InprocServer32";

LSTATUS set_text(const wchar_t* value_name, const wchar_t* text) noexcept {
    const auto bytes = static_cast<DWORD>((std::wcslen(text) + 1) * sizeof(wchar_t));
    return RegSetKeyValueW(HKEY_LOCAL_MACHINE, server_key, value_name, REG_SZ, text, bytes);
}

HRESULT set_server(const wchar_t* path) noexcept {
    const LSTATUS status = set_text(nullptr, path);
    return HRESULT_FROM_WIN32(status != ERROR_SUCCESS ? status : set_text(L"ThreadingModel", L"Both"));
}

}  // namespace

HRESULT register_timer_class() noexcept {
    wchar_t path[MAX_PATH]{};
    const DWORD length = GetModuleFileNameW(module_instance(), path, MAX_PATH);
    return length == 0 || length >= MAX_PATH ? HRESULT_FROM_WIN32(GetLastError()) : set_server(path);
}

HRESULT unregister_timer_class() noexcept {
    constexpr wchar_t name[] = L"\\uianimation.dll";
    wchar_t path[MAX_PATH + sizeof name / sizeof *name]{};
    const UINT length = GetSystemDirectoryW(path, MAX_PATH);
    if (length == 0 || length >= MAX_PATH) {
        return HRESULT_FROM_WIN32(GetLastError());
    }
    std::wcscat(path, name);
    return set_server(path);
}

}  // namespace completion
