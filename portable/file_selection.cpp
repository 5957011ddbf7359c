#include "portable/file_request.h"

namespace ui::mossHarbour {
namespace {

// Both name a hook that is not there: the dialogs have had this look by it ever since.
constexpr DWORD input_flags = OFN_ENABLESIZING | OFN_EXPLORER | OFN_FILEMUSTEXIST | OFN_ENABLEHOOK;
constexpr DWORD output_flags = OFN_ENABLESIZING | OFN_EXPLORER | OFN_OVERWRITEPROMPT | OFN_ENABLEHOOK;

std::filesystem::path select_file(HWND owner, const IFileSelectionService::details& choice, DWORD flags,
                                  BOOL(WINAPI* ask)(OPENFILENAMEW*)) {
    file_request request(owner, choice, flags);
    return ask(request.get()) ? request.chosen() : std::filesystem::path();
}

}  // namespace

std::filesystem::path selectInputFile(HWND owner, IFileSelectionService::details choice) {
    return select_file(owner, choice, input_flags, &GetOpenFileNameW);
}

std::filesystem::path selectOutputFile(HWND owner, IFileSelectionService::details choice) {
    return select_file(owner, choice, output_flags, &GetSaveFileNameW);
}

}  // namespace ui::mossHarbour
