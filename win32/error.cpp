#include "win32/error.h"

#include <array>
#include <string>

namespace win32 {
namespace {

std::string text_of(DWORD code) {
    std::array<char, 260> buffer{};
    const DWORD length = FormatMessageA(FORMAT_MESSAGE_FROM_SYSTEM, nullptr, code, 0, buffer.data(),
                                        static_cast<DWORD>(buffer.size()), nullptr);
    if (length == 0) return "unknown error";
    if (length >= 2 && buffer[length - 2] == '\r') buffer[length - 2] = '\0';
    return buffer.data();
}

}  // namespace

error::error(DWORD error_code) : std::runtime_error(text_of(error_code)), code(error_code) {}

void throw_last_error() {
    throw error(GetLastError());
}

}  // namespace win32
