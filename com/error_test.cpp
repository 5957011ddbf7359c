#include "com/error.h"

#include "com/counting_fake.h"

#include <array>
#include <memory>
#include <optional>
#include <sstream>
#include <thread>

#include <gtest/gtest.h>

namespace {

using com::ptr;

constexpr HRESULT no_message = static_cast<HRESULT>(0xA1B2C3D4u);

/// The rich error object of a failure, on the stack, with what it answers to GetDescription.
class described_failure final : public IErrorInfo {
public:
    described_failure() = default;
    explicit described_failure(std::wstring description) : description_(std::move(description)) {}

    HRESULT result = S_OK;
    ULONG count = 0;

    HRESULT STDMETHODCALLTYPE QueryInterface(const GUID& id, void** out) override {
        if (!com::same_guid(id, com::guid_of<IUnknown>()) &&
            !com::same_guid(id, com::guid_of<IErrorInfo>())) {
            return E_NOINTERFACE;
        }
        *out = static_cast<IErrorInfo*>(this);
        ++count;
        return S_OK;
    }
    ULONG STDMETHODCALLTYPE AddRef() override { return ++count; }
    ULONG STDMETHODCALLTYPE Release() override { return --count; }

    HRESULT STDMETHODCALLTYPE GetGUID(GUID*) override { return E_NOTIMPL; }
    HRESULT STDMETHODCALLTYPE GetSource(BSTR*) override { return E_NOTIMPL; }
    HRESULT STDMETHODCALLTYPE GetDescription(BSTR* out) override {
        *out = description_ ? SysAllocString(description_->c_str()) : nullptr;
        return result;
    }
    HRESULT STDMETHODCALLTYPE GetHelpFile(BSTR*) override { return E_NOTIMPL; }
    HRESULT STDMETHODCALLTYPE GetHelpContext(DWORD*) override { return E_NOTIMPL; }

private:
    std::optional<std::wstring> description_;
};

std::string system_text(HRESULT result) {
    std::array<char, 260> buffer{};
    const DWORD length = FormatMessageA(FORMAT_MESSAGE_FROM_SYSTEM, nullptr, static_cast<DWORD>(result), 0,
                                        buffer.data(), static_cast<DWORD>(buffer.size()), nullptr);
    return {buffer.data(), length};
}

TEST(com_error, is_a_runtime_error_that_keeps_the_result) {
    const com::error e(E_INVALIDARG, nullptr);
    EXPECT_EQ(e.hresult, E_INVALIDARG);
    EXPECT_EQ(e.error_info, nullptr);
    EXPECT_STREQ(static_cast<const std::runtime_error&>(e).what(), e.what());
    static_assert(std::is_nothrow_copy_constructible_v<com::error>);
}

TEST(com_error, text_is_the_systems_own_message_with_its_line_end) {
    for (const HRESULT result :
         {E_FAIL, E_INVALIDARG, E_OUTOFMEMORY, E_ACCESSDENIED, HRESULT_FROM_WIN32(ERROR_FILE_NOT_FOUND)}) {
        const std::string expected = system_text(result);
        ASSERT_GT(expected.size(), 2u) << std::hex << result;
        const com::error e(result, nullptr);
        EXPECT_EQ(e.what(), expected);
        EXPECT_EQ(std::string(e.what()).substr(expected.size() - 2), "\r\n");
    }
}

TEST(com_error, without_a_system_message_the_text_names_the_code) {
    const std::pair<HRESULT, const char*> cases[] = {
        {no_message, "unknown error (0xA1B2C3D4) occurred"},
        {static_cast<HRESULT>(0xFEDCBA98u), "unknown error (0xFEDCBA98) occurred"},
        {static_cast<HRESULT>(0x0000ABCDu), "unknown error (0x0000ABCD) occurred"},
    };
    for (const auto& [result, text] : cases) {
        ASSERT_EQ(system_text(result), "");
        EXPECT_STREQ(com::error(result, nullptr).what(), text);
    }
}

TEST(com_error, every_result_gives_the_systems_message_or_names_the_code) {
    int known = 0;
    int unknown = 0;
    for (unsigned code = 0; code < 16384; ++code) {
        const HRESULT result = static_cast<HRESULT>(0x80070000u | code);
        std::string expected = system_text(result);
        expected.empty() ? ++unknown : ++known;
        if (expected.empty()) {
            std::ostringstream text;
            text << "unknown error (0x" << std::hex << std::uppercase << (0x80070000u | code) << ") occurred";
            expected = text.str();
        }
        ASSERT_EQ(com::error(result, nullptr).what(), expected);
    }
    EXPECT_GT(known, 100);
    EXPECT_GT(unknown, 100);
}

TEST(com_error, text_is_the_description_of_the_error_object_in_utf_8) {
    const std::pair<const wchar_t*, const char*> cases[] = {
        {L"The brush has dried.", "The brush has dried."},
        {L"ends as it likes\r\n", "ends as it likes\r\n"},
        {L"", ""},
        {L"\u00e4 \u20ac \U0001F4A5", "\xC3\xA4 \xE2\x82\xAC \xF0\x9F\x92\xA5"},
    };
    for (const auto& [description, text] : cases) {
        described_failure info(description);
        EXPECT_STREQ(com::error(E_FAIL, &info).what(), text);
        EXPECT_EQ(info.count, 0u);
    }
}

TEST(com_error, a_null_description_falls_back_to_the_system) {
    described_failure info;
    EXPECT_EQ(com::error(E_FAIL, &info).what(), system_text(E_FAIL));
    EXPECT_STREQ(com::error(no_message, &info).what(), "unknown error (0xA1B2C3D4) occurred");
}

TEST(com_error, a_null_description_leaves_the_error_object_kept) {
    described_failure info;
    {
        const com::error e(E_FAIL, &info);
        EXPECT_EQ(e.error_info.get(), &info);
        EXPECT_EQ(info.count, 1u);
    }
    EXPECT_EQ(info.count, 0u);
}

TEST(com_error, a_failing_description_falls_back_to_the_system) {
    described_failure info;
    info.result = E_OUTOFMEMORY;
    EXPECT_EQ(com::error(E_FAIL, &info).what(), system_text(E_FAIL));
}

TEST(com_error, a_description_up_to_the_limit_is_whole) {
    const std::wstring longest(259, L'x');
    described_failure info(longest);
    EXPECT_EQ(com::error(E_FAIL, &info).what(), std::string(259, 'x'));
}

TEST(com_error, a_description_beyond_the_limit_is_cut_there) {
    for (const std::size_t length : {260u, 261u, 1000u, 100000u}) {
        std::wstring description(length, L'y');
        description[0] = L'x';
        described_failure info(description);
        EXPECT_EQ(com::error(E_FAIL, &info).what(), "x" + std::string(259, 'y')) << length;
    }
}

TEST(com_error, each_copy_counts_on_the_error_object) {
    described_failure info(L"kept");
    {
        const com::error e(E_FAIL, &info);
        EXPECT_EQ(info.count, 1u);
        const com::error copy(e);
        EXPECT_EQ(info.count, 2u);
        EXPECT_EQ(copy.error_info.get(), &info);
        EXPECT_EQ(copy.hresult, E_FAIL);
        EXPECT_STREQ(copy.what(), "kept");
        com::error assigned(E_ABORT, nullptr);
        assigned = copy;
        EXPECT_EQ(info.count, 3u);
        EXPECT_EQ(assigned.hresult, E_FAIL);
        try {
            throw assigned;
        } catch (const com::error& caught) {
            EXPECT_EQ(caught.error_info.get(), &info);
            EXPECT_EQ(info.count, 4u);
        }
        EXPECT_EQ(info.count, 3u);
    }
    EXPECT_EQ(info.count, 0u);
}

std::unique_ptr<com::error> failure_of(HRESULT result) {
    try {
        com::check(result);
    } catch (const com::error& e) {
        return std::make_unique<com::error>(e);
    }
    return nullptr;
}

class check_test : public testing::Test {
protected:
    check_test() { SetErrorInfo(0, nullptr); }
    ~check_test() override { SetErrorInfo(0, nullptr); }

    static HRESULT pending() {
        ptr<IErrorInfo> info;
        return GetErrorInfo(0, info.put());
    }
};

TEST_F(check_test, results_that_are_not_negative_pass) {
    for (const HRESULT result : {S_OK, S_FALSE, static_cast<HRESULT>(0x7FFFFFFF)}) {
        EXPECT_EQ(failure_of(result), nullptr) << result;
    }
}

TEST_F(check_test, every_negative_result_throws_it) {
    for (const HRESULT result :
         {E_FAIL, static_cast<HRESULT>(0x80000000u), static_cast<HRESULT>(0xFFFFFFFFu)}) {
        const auto e = failure_of(result);
        ASSERT_NE(e, nullptr) << result;
        EXPECT_EQ(e->hresult, result);
        EXPECT_EQ(e->error_info, nullptr);
    }
}

TEST_F(check_test, the_pending_error_object_of_the_thread_is_taken) {
    described_failure info(L"what went wrong");
    SetErrorInfo(0, &info);
    ASSERT_EQ(info.count, 1u);
    auto e = failure_of(E_FAIL);
    ASSERT_NE(e, nullptr);
    EXPECT_STREQ(e->what(), "what went wrong");
    EXPECT_EQ(e->error_info.get(), &info);
    EXPECT_EQ(info.count, 1u);
    EXPECT_EQ(pending(), S_FALSE);
    EXPECT_EQ(failure_of(E_FAIL)->what(), system_text(E_FAIL));
    e.reset();
    EXPECT_EQ(info.count, 0u);
}

TEST_F(check_test, a_success_leaves_the_pending_error_object) {
    described_failure info(L"older");
    SetErrorInfo(0, &info);
    com::check(S_FALSE);
    EXPECT_EQ(pending(), S_OK);
    EXPECT_EQ(info.count, 0u);
}

TEST_F(check_test, the_error_object_of_another_thread_is_left_alone) {
    described_failure info(L"mine");
    SetErrorInfo(0, &info);
    std::thread([] { EXPECT_EQ(failure_of(E_FAIL)->error_info, nullptr); }).join();
    EXPECT_EQ(pending(), S_OK);
}

TEST_F(check_test, a_failed_conversion_takes_the_pending_error_object_too) {
    described_failure info(L"no such face");
    call_list calls;
    counting_fake fake("fake", calls);
    SetErrorInfo(0, &info);
    try {
        const ptr<IAbsent> absent(fake.square());
        FAIL() << "no exception";
    } catch (const com::error& e) {
        EXPECT_EQ(e.hresult, E_NOINTERFACE);
        EXPECT_STREQ(e.what(), "no such face");
    }
}

}  // namespace
