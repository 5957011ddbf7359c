#include "com/error.h"

#include <array>
#include <cstdio>
#include <string>

namespace com {
namespace {

constexpr int text_limit = 260;
using text_buffer = std::array<char, text_limit + 1>;  // with room for the terminator of a text that was cut

bool description_of(IErrorInfo* info, text_buffer& buffer) {
    BSTR description = nullptr;
    if (!info || info->GetDescription(&description) < 0 || !description) return false;
    // Not checked: of a description that is too long the text is what was written up to there.
    WideCharToMultiByte(CP_UTF8, 0, description, -1, buffer.data(), text_limit, nullptr, nullptr);
    SysFreeString(description);
    return true;
}

std::string text_of(HRESULT result, IErrorInfo* info) {
    text_buffer buffer{};
    if (description_of(info, buffer)) return buffer.data();
    if (FormatMessageA(FORMAT_MESSAGE_FROM_SYSTEM, nullptr, static_cast<DWORD>(result), 0, buffer.data(),
                       text_limit, nullptr) == 0) {
        std::snprintf(buffer.data(), buffer.size(), "unknown error (0x%08X) occurred",
                      static_cast<unsigned>(result));
    }
    return buffer.data();
}

}  // namespace

error::error(HRESULT result, IErrorInfo* info)
    : std::runtime_error(text_of(result, info)), hresult(result), error_info(info) {}

void throw_error(HRESULT result) {
    ptr<IErrorInfo> info;
    GetErrorInfo(0, info.put());
    throw error(result, info.get());
}

}  // namespace com
