#pragma once

#include "com/api.h"
#include "com/interface_traits.h"

#include <filesystem>

#include <windows.h>

namespace ui::mossHarbour {

/// The system's dialogs that choose a file.
struct IFileSelectionService : IUnknown {
    /// All may be null.
    struct details {
        const wchar_t* initial_name;
        const wchar_t* filter;  ///< pairs of strings, with an empty one at the end
        const wchar_t* default_extension;
    };

    /// A file that exists; empty when the user cancels.
    virtual std::filesystem::path selectInputFile(details choice) = 0;
    /// A file to write; the user is asked whether to replace one that exists.
    virtual std::filesystem::path selectOutputFile(details choice) = 0;
};

/// Lets the user choose a file that exists, in the system's dialog above `owner`, null for none. Empty when
/// the user cancels. Runs a message loop until the dialog is done. Names are limited to 259 characters.
///
///     const auto chart =
///         selectInputFile(window, {L"", L"Charts\0*.chart\0All files\0*.*\0", L"chart"});
[[nodiscard]] MOSSHARBOUR_API std::filesystem::path selectInputFile(HWND owner,
                                                                    IFileSelectionService::details choice);

/// The same for a file to write; the user is asked whether to replace one that exists.
[[nodiscard]] MOSSHARBOUR_API std::filesystem::path selectOutputFile(HWND owner,
                                                                     IFileSelectionService::details choice);

}  // namespace ui::mossHarbour

template <>
struct com::interface_traits<ui::mossHarbour::IFileSelectionService> : com::extends<> {
    static constexpr GUID id = com::guid("B24A1C9F-775B-4712-B1DA-84E776966AD7");
};
