#include "win32/error.h"

#include <array>
#include <string>

#include <gtest/gtest.h>

namespace {

std::string system_text(DWORD code) {
    std::array<char, 260> buffer{};
    const DWORD length = FormatMessageA(FORMAT_MESSAGE_FROM_SYSTEM, nullptr, code, 0, buffer.data(),
                                        static_cast<DWORD>(buffer.size()), nullptr);
    return {buffer.data(), length};
}

TEST(win32_error, is_a_runtime_error_that_keeps_the_code) {
    const win32::error e(ERROR_ACCESS_DENIED);
    EXPECT_EQ(e.code, static_cast<DWORD>(ERROR_ACCESS_DENIED));
    const win32::error copy(e);
    EXPECT_EQ(copy.code, e.code);
    EXPECT_STREQ(static_cast<const std::runtime_error&>(copy).what(), e.what());
}

TEST(win32_error, text_is_the_systems_message_without_its_line_end) {
    constexpr DWORD codes[] = {ERROR_SUCCESS, ERROR_FILE_NOT_FOUND, ERROR_ACCESS_DENIED, ERROR_INVALID_HANDLE,
                               ERROR_CLASS_ALREADY_EXISTS};
    for (const DWORD code : codes) {
        const std::string message = system_text(code);
        ASSERT_GT(message.size(), 2u) << code;
        ASSERT_EQ(message.substr(message.size() - 2), "\r\n") << code;
        EXPECT_EQ(win32::error(code).what(), message.substr(0, message.size() - 2)) << code;
    }
}

TEST(win32_error, every_code_gives_the_systems_message_up_to_its_line_end_or_unknown_error) {
    int known = 0;
    int unknown = 0;
    for (DWORD code = 0; code < 16384; ++code) {
        std::string expected = system_text(code);
        expected.empty() ? ++unknown : ++known;
        if (expected.empty()) expected = "unknown error";
        if (expected.ends_with("\r\n")) expected.resize(expected.size() - 2);
        ASSERT_EQ(win32::error(code).what(), expected) << code;
    }
    EXPECT_GT(known, 100);
    EXPECT_GT(unknown, 100);
}

TEST(win32_error, without_a_system_message_the_text_is_unknown_error_alone) {
    for (const DWORD code : {0xA1B2C3D4u, 0x0000ABCDu, 0xFFFFFFFFu}) {
        ASSERT_EQ(system_text(code), "") << code;
        EXPECT_STREQ(win32::error(code).what(), "unknown error");
    }
}

TEST(win32_check, returns_what_is_not_zero_unchanged) {
    int target = 0;
    EXPECT_EQ(win32::check(TRUE), TRUE);
    EXPECT_EQ(win32::check(-1), -1);
    EXPECT_EQ(win32::check<ATOM>(0xC001), 0xC001);
    EXPECT_EQ(win32::check(&target), &target);
}

template <class T>
DWORD code_thrown_for(T nothing) {
    try {
        win32::check(nothing);
    } catch (const win32::error& e) {
        return e.code;
    }
    return ERROR_SUCCESS;
}

TEST(win32_check, throws_the_last_error_of_the_thread_for_zero) {
    SetLastError(ERROR_INVALID_WINDOW_HANDLE);
    EXPECT_EQ(code_thrown_for(FALSE), static_cast<DWORD>(ERROR_INVALID_WINDOW_HANDLE));
    SetLastError(ERROR_CLASS_DOES_NOT_EXIST);
    EXPECT_EQ(code_thrown_for(HWND{}), static_cast<DWORD>(ERROR_CLASS_DOES_NOT_EXIST));
    SetLastError(ERROR_CLASS_ALREADY_EXISTS);
    EXPECT_EQ(code_thrown_for(ATOM{0}), static_cast<DWORD>(ERROR_CLASS_ALREADY_EXISTS));
}

TEST(win32_check, throws_what_a_failed_call_left) {
    EXPECT_EQ(code_thrown_for(GetModuleHandleW(L"there is no such module")),
              static_cast<DWORD>(ERROR_MOD_NOT_FOUND));
}

}  // namespace
