#include "running_program.h"

#include "support/message_pump.h"

#include <array>
#include <filesystem>
#include <stdexcept>

namespace client_test {
namespace {

std::filesystem::path own_folder() {
    std::array<wchar_t, 1024> name{};
    GetModuleFileNameW(nullptr, name.data(), static_cast<DWORD>(name.size()));
    return std::filesystem::path(name.data()).parent_path();
}

}  // namespace

running_program::running_program(const std::wstring& name, const std::wstring& title) {
    std::wstring file = (own_folder() / name).wstring();
    STARTUPINFOW startup{};
    startup.cb = sizeof(startup);
    if (!CreateProcessW(file.c_str(), file.data(), nullptr, nullptr, FALSE, 0, nullptr, nullptr, &startup,
                        &process_)) {
        throw std::runtime_error("the program does not start");
    }
    const auto appears = [&] {
        window_ = FindWindowW(nullptr, title.c_str());
        return window_ && IsWindowVisible(window_);
    };
    if (!test_support::pump_until(appears, std::chrono::seconds(60))) {
        throw std::runtime_error("the program shows no window");
    }
}

running_program::~running_program() {
    if (WaitForSingleObject(process_.hProcess, 0) == WAIT_TIMEOUT) TerminateProcess(process_.hProcess, 99);
    CloseHandle(process_.hThread);
    CloseHandle(process_.hProcess);
}

DWORD running_program::exit_code() {
    if (WaitForSingleObject(process_.hProcess, 30'000) != WAIT_OBJECT_0) {
        throw std::runtime_error("the program does not end");
    }
    DWORD code = 0;
    GetExitCodeProcess(process_.hProcess, &code);
    return code;
}

}  // namespace client_test
