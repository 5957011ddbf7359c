#pragma once

#include "com/api.h"

#include <stdexcept>

#include <windows.h>

namespace win32 {

/// A failed Win32 call. `what()` is the system's message for the code without its line end, or "unknown error".
class MOSSHARBOUR_API error : public std::runtime_error {
public:
    explicit error(DWORD code);

    /// The Win32 error code.
    DWORD code;
};

/// Throws `win32::error` with the calling thread's last error.
[[noreturn]] MOSSHARBOUR_API void throw_last_error();

/// For calls that report failure by zero: returns `result` unchanged, or throws `win32::error` with
/// `GetLastError()` when it is zero.
template <class T>
T check(T result) {
    if (!result) throw_last_error();
    return result;
}

}  // namespace win32
