// The position of a scene window that is kept in the registry.

#include "d2d/win32_scene_window.h"
#include "win32/error.h"
#include "win32/registry_key.h"

namespace d2d {
namespace {

static_assert(sizeof(WINDOWPLACEMENT) == 44, "the stored position has a fixed layout");

WINDOWPLACEMENT placement_of(HWND window) {
    WINDOWPLACEMENT placement{};
    placement.length = sizeof placement;
    win32::check(GetWindowPlacement(window, &placement));
    return placement;
}

void check_registry(LSTATUS status) {
    if (status != ERROR_SUCCESS) throw win32::error(static_cast<DWORD>(status));
}

/// Whatever is there, of any type and length that fits: kept, the window system judges it.
std::optional<WINDOWPLACEMENT> read_placement(const wchar_t* subkey, const wchar_t* name) {
    win32::registry_key key;
    if (RegOpenKeyExW(HKEY_CURRENT_USER, subkey, 0, GENERIC_READ, key.put()) != ERROR_SUCCESS) return {};
    WINDOWPLACEMENT stored{};
    DWORD size = sizeof stored;
    const LSTATUS status =
        RegQueryValueExW(key.get(), name, nullptr, nullptr, reinterpret_cast<BYTE*>(&stored), &size);
    if (status != ERROR_SUCCESS) return {};
    return stored;
}

}  // namespace

void win32_scene_window::save_position(const wchar_t* subkey, const wchar_t* name) {
    const WINDOWPLACEMENT placement = placement_of(get_window_handle());
    win32::registry_key key;
    check_registry(RegCreateKeyExW(HKEY_CURRENT_USER, subkey, 0, nullptr, 0, GENERIC_WRITE, nullptr,
                                   key.put(), nullptr));
    check_registry(RegSetValueExW(key.get(), name, 0, REG_BINARY, reinterpret_cast<const BYTE*>(&placement),
                                  sizeof placement));
}

std::optional<unsigned> win32_scene_window::load_position(const wchar_t* subkey, const wchar_t* name) {
    std::optional<WINDOWPLACEMENT> stored = read_placement(subkey, name);
    if (!stored) return {};
    const HWND window_handle = get_window_handle();
    const WINDOWPLACEMENT present = placement_of(window_handle);
    const unsigned shown_as = stored->showCmd;
    stored->showCmd = IsWindowVisible(window_handle) ? present.showCmd : SW_HIDE;
    win32::check(SetWindowPlacement(window_handle, &*stored));
    return shown_as;
}

}  // namespace d2d
