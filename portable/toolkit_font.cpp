#include "portable/toolkit_font.h"

#include "win32/scope_exit.h"

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

HFONT make_toolkit_font() {
    const font_defaults chosen = read_font_defaults(HKEY_CURRENT_USER, defaults_key);
    return CreateFontW(-static_cast<int>(chosen.size), 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0,
                       chosen.face.c_str());
}

}  // namespace

font_defaults read_font_defaults(HKEY root, const wchar_t* subkey) {
    font_defaults result;
    HKEY key = nullptr;
    if (RegOpenKeyW(root, subkey, &key) != ERROR_SUCCESS) return result;
    const win32::scope_exit closed([key] { RegCloseKey(key); });
    read_face(key, result.face);
    read_size(key, result.size);
    return result;
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

// Made in this order while the library is loaded.
const HFONT toolkit_font = make_toolkit_font();
const int font_height = line_height(toolkit_font);

}  // namespace ui::mossHarbour
