#include "portable/file_request.h"

#include <string_view>

namespace ui::mossHarbour {

file_request::file_request(HWND owner, const IFileSelectionService::details& choice, DWORD flags) noexcept {
    if (choice.initial_name) std::wstring_view(choice.initial_name).copy(name, capacity - 1);
    request.lStructSize = sizeof request;
    request.hwndOwner = owner;
    request.lpstrFilter = choice.filter;
    request.lpstrFile = name;
    request.nMaxFile = capacity;
    request.Flags = flags;
    request.lpstrDefExt = choice.default_extension;
}

}  // namespace ui::mossHarbour
