#include "program_output.h"

#include <array>
#include <filesystem>
#include <stdexcept>

#include <windows.h>

namespace client_test {
namespace {

class handle {
public:
    handle() = default;
    handle(const handle&) = delete;
    handle& operator=(const handle&) = delete;
    ~handle() { close(); }

    [[nodiscard]] HANDLE* put() noexcept { return &held; }
    [[nodiscard]] HANDLE get() const noexcept { return held; }
    void close() noexcept {
        if (held) CloseHandle(held);
        held = nullptr;
    }

private:
    HANDLE held = nullptr;
};

std::wstring beside_this_program(const std::wstring& name) {
    std::array<wchar_t, 1024> own{};
    GetModuleFileNameW(nullptr, own.data(), static_cast<DWORD>(own.size()));
    return (std::filesystem::path(own.data()).parent_path() / name).wstring();
}

std::string all_of(HANDLE pipe) {
    std::string result;
    std::array<char, 1024> buffer{};
    DWORD size = 0;
    while (ReadFile(pipe, buffer.data(), static_cast<DWORD>(buffer.size()), &size, nullptr) && size > 0) {
        result.append(buffer.data(), size);
    }
    return result;
}

}  // namespace

std::string output_of_program(const std::wstring& name) {
    handle reading;
    handle writing;
    SECURITY_ATTRIBUTES inherited{sizeof inherited, nullptr, TRUE};
    CreatePipe(reading.put(), writing.put(), &inherited, 0);
    SetHandleInformation(reading.get(), HANDLE_FLAG_INHERIT, 0);
    STARTUPINFOW startup{};
    startup.cb = sizeof startup;
    startup.dwFlags = STARTF_USESTDHANDLES;
    startup.hStdOutput = writing.get();
    startup.hStdError = GetStdHandle(STD_ERROR_HANDLE);
    const std::wstring file = beside_this_program(name);
    std::wstring command = L"\"" + file + L"\"";
    PROCESS_INFORMATION started{};
    if (!CreateProcessW(file.c_str(), command.data(), nullptr, nullptr, TRUE, 0, nullptr, nullptr, &startup,
                        &started)) {
        throw std::runtime_error("the program does not start");
    }
    handle process;
    handle thread;
    *process.put() = started.hProcess;
    *thread.put() = started.hThread;
    writing.close();
    std::string result = all_of(reading.get());
    DWORD exit_code = 1;
    WaitForSingleObject(process.get(), INFINITE);
    GetExitCodeProcess(process.get(), &exit_code);
    if (exit_code != 0) throw std::runtime_error("the program failed");
    return result;
}

}  // namespace client_test
