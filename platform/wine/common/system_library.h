#pragma once

#include <windows.h>

#include <stdexcept>
#include <type_traits>

namespace completion {

/// The system's own DLL of a name, loaded from the system folder by its full path, so that a completion that
/// carries the same name beside the executable reaches the original. It stays loaded until the process ends:
/// objects made by it outlive every scope.
///
/// A completion forwards an export so:
///
///     system_library& original() {
///         static system_library library{L"d2d1.dll"};    // on the first call, never from DllMain
///         return library;
///     }
///
///     extern "C" FLOAT WINAPI D2D1Vec3Length(FLOAT x, FLOAT y, FLOAT z) {
///         static const auto forward = original().function<decltype(D2D1Vec3Length)>("D2D1Vec3Length");
///         return forward(x, y, z);
///     }
class system_library {
public:
    /// Throws std::runtime_error when the folder has no such DLL.
    explicit system_library(const wchar_t* name);

    system_library(const system_library&) = delete;
    system_library& operator=(const system_library&) = delete;

    /// The export of that name, typed as its declaration; throws std::runtime_error when there is none.
    template <typename Function>
    [[nodiscard]] Function* function(const char* name) const {
        static_assert(std::is_function_v<Function>);
        return reinterpret_cast<Function*>(reinterpret_cast<void*>(address(name)));
    }

private:
    [[nodiscard]] FARPROC address(const char* name) const;

    HMODULE module_;
};

}  // namespace completion
