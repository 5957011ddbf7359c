#pragma once

#include <cstdint>
#include <string>
#include <vector>

#include <windows.h>

namespace test_support {

/// A key below `HKEY_CURRENT_USER` for a test's own values. What was there is taken away for its lifetime,
/// and put back at the end; keys above it that are empty then go, too. For keys without keys of their own.
class user_key {
public:
    explicit user_key(std::wstring path);
    user_key(const user_key&) = delete;
    user_key& operator=(const user_key&) = delete;
    ~user_key();

    // Each of these makes the key when it is not there, and throws `std::runtime_error` when it cannot.
    void create() const;
    void set(const wchar_t* name, DWORD type, const void* bytes, std::size_t size) const;
    void set_number(const wchar_t* name, DWORD value) const;
    void set_text(const wchar_t* name, const std::wstring& text) const;

    void erase() const;

    [[nodiscard]] const wchar_t* path() const noexcept { return name_.c_str(); }

private:
    struct stored_value {
        std::wstring name;
        DWORD type;
        std::vector<std::uint8_t> bytes;
    };

    void remember();

    const std::wstring name_;
    bool was_there_ = false;
    std::vector<stored_value> values_;
};

}  // namespace test_support
