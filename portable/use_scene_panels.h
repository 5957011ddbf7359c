#pragma once

#include <windows.h>

namespace ui::mossHarbour {

/// Whether panels show their content on the scene where the program does not ask for one kind: what the
/// user's settings say, as the library was loaded.
extern const bool use_scene_panels;

/// Reads "useD2D" at a key below `root`: any value of at most four bytes, of whatever type, that are not all
/// zero.
[[nodiscard]] bool read_use_scene_panels(HKEY root, const wchar_t* subkey) noexcept;

}  // namespace ui::mossHarbour
