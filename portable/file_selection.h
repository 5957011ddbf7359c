#pragma once

#include "ui/mossHarbour/IFileSelectionService.h"

#include <windows.h>

namespace ui::mossHarbour {

enum class file_purpose { input, output };

/// Shows the system's dialog above `owner`. Empty when the user cancels.
[[nodiscard]] std::filesystem::path select_file(HWND owner, const IFileSelectionService::details& choice,
                                                file_purpose purpose);

}  // namespace ui::mossHarbour
