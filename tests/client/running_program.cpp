#include "running_program.h"

#include "support/message_pump.h"

#include <array>
#include <atomic>
#include <filesystem>
#include <stdexcept>
#include <thread>

namespace client_test {
namespace {

std::filesystem::path own_folder() {
    std::array<wchar_t, 1024> name{};
    GetModuleFileNameW(nullptr, name.data(), static_cast<DWORD>(name.size()));
    return std::filesystem::path(name.data()).parent_path();
}

std::chrono::microseconds microseconds_of(FILETIME time) {
    ULARGE_INTEGER ticks{};  // of 100 nanoseconds
    ticks.LowPart = time.dwLowDateTime;
    ticks.HighPart = time.dwHighDateTime;
    return std::chrono::microseconds(ticks.QuadPart / 10);
}

}  // namespace

running_program::running_program(const std::wstring& name, const std::wstring& title,
                                 const std::wstring& arguments) {
    const std::wstring file = (own_folder() / name).wstring();
    std::wstring command = L"\"" + file + L"\" " + arguments;
    STARTUPINFOW startup{};
    startup.cb = sizeof(startup);
    if (!CreateProcessW(file.c_str(), command.data(), nullptr, nullptr, FALSE, 0, nullptr, nullptr, &startup,
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

bool running_program::has_capture() const {
    GUITHREADINFO state{};
    state.cbSize = sizeof(state);
    if (!GetGUIThreadInfo(GetWindowThreadProcessId(window_, nullptr), &state))
        throw std::runtime_error("the state of the program's thread cannot be read");
    return state.hwndCapture == window_;
}

std::chrono::microseconds running_program::processor_time() const {
    FILETIME created{};
    FILETIME ended{};
    FILETIME kernel{};
    FILETIME user{};
    if (!GetThreadTimes(process_.hThread, &created, &ended, &kernel, &user))
        throw std::runtime_error("the times of the program's thread cannot be read");
    return microseconds_of(kernel) + microseconds_of(user);
}

void running_program::set_position(int x, int y, int width, int height, UINT flags) {
    std::atomic<bool> done = false;
    std::thread call([&] {
        SetWindowPos(window_, nullptr, x, y, width, height, flags | SWP_NOZORDER | SWP_NOACTIVATE);
        done = true;
    });
    while (!done) {
        PostMessageW(window_, WM_NULL, 0, 0);
        Sleep(10);
    }
    call.join();
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
