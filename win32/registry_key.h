#pragma once

#include <utility>

#include <windows.h>

namespace win32 {

/// An open registry key, closed on every way out.
class registry_key {
public:
    registry_key() = default;
    registry_key(registry_key&& other) noexcept : handle_(std::exchange(other.handle_, nullptr)) {}
    registry_key& operator=(registry_key&& other) noexcept {
        std::swap(handle_, other.handle_);
        return *this;
    }
    ~registry_key() {
        if (handle_) RegCloseKey(handle_);
    }

    /// For the call that opens the key.
    [[nodiscard]] HKEY* put() noexcept { return &handle_; }
    [[nodiscard]] HKEY get() const noexcept { return handle_; }

private:
    HKEY handle_ = nullptr;
};

}  // namespace win32
