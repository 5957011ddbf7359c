#pragma once

#include "ui/mossHarbour/IFileSelectionService.h"

#include <windows.h>

#include <commdlg.h>

namespace ui::mossHarbour {

// Both name a hook that is not there: the dialogs have had this look by it ever since.
inline constexpr DWORD input_file_flags =
    OFN_ENABLESIZING | OFN_EXPLORER | OFN_FILEMUSTEXIST | OFN_ENABLEHOOK;
inline constexpr DWORD output_file_flags =
    OFN_ENABLESIZING | OFN_EXPLORER | OFN_OVERWRITEPROMPT | OFN_ENABLEHOOK;

/// What the system's file dialogs are asked, and the name that they answer. Stays where it is: one part
/// points to the other.
class file_request {
public:
    /// The strings of `choice` have to live as long.
    file_request(HWND owner, const IFileSelectionService::details& choice, DWORD flags) noexcept;
    file_request(const file_request&) = delete;
    file_request& operator=(const file_request&) = delete;

    /// For the call that shows a dialog.
    [[nodiscard]] OPENFILENAMEW* get() noexcept { return &request; }
    [[nodiscard]] std::filesystem::path chosen() const { return name; }

private:
    static constexpr DWORD capacity = 260;

    wchar_t name[capacity]{};
    OPENFILENAMEW request{};
};

}  // namespace ui::mossHarbour
