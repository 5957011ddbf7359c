#include "portable/file_selection.h"

#include <string_view>

#include <commdlg.h>

namespace ui::mossHarbour {

std::filesystem::path select_file(HWND owner, const IFileSelectionService::details& choice,
                                  file_purpose purpose) {
    constexpr std::size_t capacity = 260;
    // Kept as they are, with a hook that is not there: the dialogs have this look by it.
    constexpr DWORD input_flags = OFN_ENABLESIZING | OFN_EXPLORER | OFN_FILEMUSTEXIST | OFN_ENABLEHOOK;
    constexpr DWORD output_flags = OFN_ENABLESIZING | OFN_EXPLORER | OFN_OVERWRITEPROMPT | OFN_ENABLEHOOK;
    wchar_t name[capacity]{};
    if (choice.initial_name) std::wstring_view(choice.initial_name).copy(name, capacity - 1);
    OPENFILENAMEW request{};
    request.lStructSize = sizeof request;
    request.hwndOwner = owner;
    request.lpstrFilter = choice.filter;
    request.lpstrFile = name;
    request.nMaxFile = capacity;
    request.lpstrDefExt = choice.default_extension;
    request.Flags = purpose == file_purpose::input ? input_flags : output_flags;
    const bool chosen = purpose == file_purpose::input ? GetOpenFileNameW(&request) != FALSE
                                                       : GetSaveFileNameW(&request) != FALSE;
    return chosen ? std::filesystem::path(name) : std::filesystem::path();
}

}  // namespace ui::mossHarbour
