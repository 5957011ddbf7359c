#include "support/user_key.h"

#include <optional>
#include <string>

#include <gtest/gtest.h>

namespace {

using test_support::user_key;

class user_keys : public testing::Test {
protected:
    [[nodiscard]] static bool is_there(const std::wstring& path) {
        HKEY opened = nullptr;
        if (RegOpenKeyExW(HKEY_CURRENT_USER, path.c_str(), 0, KEY_READ, &opened) != ERROR_SUCCESS)
            return false;
        RegCloseKey(opened);
        return true;
    }
    [[nodiscard]] static std::optional<DWORD> number(const std::wstring& path, const wchar_t* name) {
        DWORD value = 0;
        DWORD size = sizeof value;
        if (RegGetValueW(HKEY_CURRENT_USER, path.c_str(), name, RRF_RT_REG_DWORD, nullptr, &value, &size) !=
            ERROR_SUCCESS) {
            return {};
        }
        return value;
    }

    const std::wstring folder = L"Software\\mossHarbour.tests.keys." + std::to_wstring(GetCurrentProcessId());
    const std::wstring path = folder + L"\\inner\\values";
};

TEST_F(user_keys, go_with_the_empty_keys_above_them) {
    {
        const user_key key(path);
        EXPECT_FALSE(is_there(folder));
        key.set_number(L"n", 7);
        EXPECT_EQ(number(path, L"n"), 7u);
    }
    EXPECT_FALSE(is_there(folder));
    EXPECT_TRUE(is_there(L"Software"));
}

TEST_F(user_keys, put_back_what_was_there) {
    const user_key outer(path);
    outer.set_number(L"n", 7);
    outer.set_text(L"t", L"text");
    {
        const user_key inner(path);
        EXPECT_FALSE(is_there(path));
        inner.set_number(L"n", 8);
        inner.set_number(L"another", 9);
    }
    EXPECT_EQ(number(path, L"n"), 7u);
    EXPECT_EQ(number(path, L"another"), std::nullopt);
    wchar_t text[8] = L"";
    DWORD size = sizeof text;
    EXPECT_EQ(RegGetValueW(HKEY_CURRENT_USER, path.c_str(), L"t", RRF_RT_REG_SZ, nullptr, text, &size),
              ERROR_SUCCESS);
    EXPECT_STREQ(text, L"text");
}

TEST_F(user_keys, leave_keys_above_them_that_hold_something_else) {
    const user_key other(folder);
    other.set_number(L"n", 7);
    {
        const user_key key(path);
        key.create();
    }
    EXPECT_FALSE(is_there(folder + L"\\inner"));
    EXPECT_EQ(number(folder, L"n"), 7u);
}

}  // namespace
