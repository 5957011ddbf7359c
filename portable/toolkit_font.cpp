#include "portable/toolkit_font.h"

#include "win32/registry_key.h"

namespace ui::mossHarbour {
namespace {

constexpr wchar_t defaults_key[] = L"Software\\Tarnwick\\mossHarbour\\defaults";

void read_face(HKEY key, std::wstring& face) {
    wchar_t buffer[128 + 1]{};  // the last unit stays zero
    DWORD size = 256;
    DWORD type = 0;
    auto* const bytes = reinterpret_cast<BYTE*>(buffer);
    const LSTATUS failure = RegQueryValueExW(key, L"FontFace", nullptr, &type, bytes, &size);
    if (!failure && type == REG_SZ) face = buffer;
}

void read_size(HKEY key, DWORD& result) {
    DWORD value = 0;
    DWORD size = sizeof value;
    DWORD type = 0;
    auto* const bytes = reinterpret_cast<BYTE*>(&value);
    const LSTATUS failure = RegQueryValueExW(key, L"FontSize", nullptr, &type, bytes, &size);
    if (!failure && type == REG_DWORD) result = value;
}

}  // namespace

font_defaults read_font_defaults(HKEY root, const wchar_t* subkey) {
    font_defaults result;
    win32::registry_key key;
    if (RegOpenKeyW(root, subkey, key.put()) != ERROR_SUCCESS) return result;
    read_face(key.get(), result.face);
    read_size(key.get(), result.size);
    return result;
}

HFONT make_toolkit_font() {
    const font_defaults chosen = read_font_defaults(HKEY_CURRENT_USER, defaults_key);
    const int character_height = static_cast<int>(0 - chosen.size);  // negative: without leading
    return CreateFontW(character_height, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, chosen.face.c_str());
}

int line_height(HFONT font) noexcept {
    TEXTMETRICW metrics{};
    const HDC screen = GetDC(nullptr);
    const HGDIOBJ former = SelectObject(screen, font);
    GetTextMetricsW(screen, &metrics);
    SelectObject(screen, former);
    ReleaseDC(nullptr, screen);
    return metrics.tmHeight;
}

}  // namespace ui::mossHarbour
