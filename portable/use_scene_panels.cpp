#include "portable/use_scene_panels.h"

#include "win32/registry_key.h"

namespace ui::mossHarbour {

bool read_use_scene_panels(HKEY root, const wchar_t* subkey) noexcept {
    win32::registry_key key;
    if (RegOpenKeyExW(root, subkey, 0, GENERIC_READ, key.put()) != ERROR_SUCCESS) return false;
    DWORD value = 0;
    DWORD size = sizeof value;
    auto* const bytes = reinterpret_cast<BYTE*>(&value);
    const LSTATUS failure = RegQueryValueExW(key.get(), L"useD2D", nullptr, nullptr, bytes, &size);
    return failure == ERROR_SUCCESS && value != 0;
}

const bool use_scene_panels =
    read_use_scene_panels(HKEY_CURRENT_USER, L"SOFTWARE\\Tarnwick\\QRD\\3.0\\mossHarbour.ui");

}  // namespace ui::mossHarbour
