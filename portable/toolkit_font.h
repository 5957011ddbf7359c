#pragma once

#include "portable/length.h"

#include <string>

#include <windows.h>

namespace ui::mossHarbour {

/// What the user's settings say of the font of dialogs.
struct font_defaults {
    std::wstring face = L"MS Shell Dlg";
    DWORD size = 10;  // the characters' height, in pixels
};

/// Reads "FontFace" and "FontSize" at a key below `root`. What is not there, or of another type, keeps its
/// default.
[[nodiscard]] font_defaults read_font_defaults(HKEY root, const wchar_t* subkey);

/// The font of all native controls, made when the library is loaded and never released.
extern const HFONT toolkit_font;

/// What becomes `toolkit_font`: by the user's settings.
[[nodiscard]] HFONT make_toolkit_font();

/// The height of a font's lines, in pixels.
[[nodiscard]] int line_height(HFONT font) noexcept;

}  // namespace ui::mossHarbour
