#pragma once

#include <windows.h>

#include <chrono>
#include <string>

namespace client_test {

/// A program beside the test's own, from its start until it has ended. Throws `std::runtime_error` when it
/// does not start, or shows no window with the given title in good time.
class running_program {
public:
    running_program(const std::wstring& name, const std::wstring& title, const std::wstring& arguments = {});
    running_program(const running_program&) = delete;
    running_program& operator=(const running_program&) = delete;
    /// Ends it by force when it is still there.
    ~running_program();

    [[nodiscard]] HWND window() const noexcept { return window_; }

    /// `SetWindowPos` on its window. The loop of the library's scene windows sleeps through messages that
    /// other threads send until one is posted: this posts some for as long as the call waits.
    void set_position(int x, int y, int width, int height, UINT flags);

    /// Whether its window has the mouse captured.
    [[nodiscard]] bool has_capture() const;

    /// What its first thread, that of its windows, has used of the processor since the start, in the system's
    /// steps. Of other processes as a whole Wine cannot tell.
    [[nodiscard]] std::chrono::microseconds processor_time() const;

    /// Waits until the program has ended and gives its exit code; throws `std::runtime_error` when it does
    /// not.
    [[nodiscard]] DWORD exit_code();

private:
    PROCESS_INFORMATION process_{};
    HWND window_ = nullptr;
};

}  // namespace client_test
