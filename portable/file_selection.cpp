#include "portable/file_request.h"

namespace ui::mossHarbour {
namespace {

std::filesystem::path select_file(HWND owner, const IFileSelectionService::details& choice, DWORD flags,
                                  BOOL(WINAPI* ask)(OPENFILENAMEW*)) {
    file_request request(owner, choice, flags);
    return ask(request.get()) ? request.chosen() : std::filesystem::path();
}

}  // namespace

std::filesystem::path selectInputFile(HWND owner, IFileSelectionService::details choice) {
    return select_file(owner, choice, input_file_flags, &GetOpenFileNameW);
}

std::filesystem::path selectOutputFile(HWND owner, IFileSelectionService::details choice) {
    return select_file(owner, choice, output_file_flags, &GetSaveFileNameW);
}

}  // namespace ui::mossHarbour
