#include "portable/file_request.h"

#include <cstdint>
#include <cstring>
#include <string>

#include <gtest/gtest.h>

namespace {

using namespace ui::mossHarbour;

TEST(file_request, asks_with_the_client_s_strings_and_nothing_else) {
    const std::wstring filter(L"Charts\0*.chart\0", 16);
    const auto owner = reinterpret_cast<HWND>(std::intptr_t{0x1234});
    file_request request(owner, {L"harbour.chart", filter.c_str(), L"chart"}, OFN_EXPLORER);
    OPENFILENAMEW& asked = *request.get();
    EXPECT_STREQ(asked.lpstrFile, L"harbour.chart");
    EXPECT_EQ(request.chosen(), L"harbour.chart");
    OPENFILENAMEW expected{};
    expected.lStructSize = sizeof(OPENFILENAMEW);
    expected.hwndOwner = owner;
    expected.lpstrFilter = filter.c_str();
    expected.lpstrFile = asked.lpstrFile;
    expected.nMaxFile = 260;
    expected.Flags = OFN_EXPLORER;
    expected.lpstrDefExt = asked.lpstrDefExt;
    EXPECT_STREQ(asked.lpstrDefExt, L"chart");
    EXPECT_EQ(std::memcmp(&asked, &expected, sizeof expected), 0);
}

TEST(file_request, names_a_hook_that_is_not_there_and_what_each_dialog_checks) {
    EXPECT_EQ(input_file_flags, 0x881020u);
    EXPECT_EQ(output_file_flags, 0x880022u);
}

TEST(file_request, keeps_what_fits_of_a_long_name) {
    const std::wstring longest(259, L'n');
    const std::wstring longer = longest + L"more";
    file_request request(nullptr, {longer.c_str(), nullptr, nullptr}, 0);
    EXPECT_EQ(request.get()->lpstrFile, longest);
}

TEST(file_request, has_an_empty_name_at_first_and_gives_what_the_dialog_writes) {
    file_request request(nullptr, {}, 0);
    OPENFILENAMEW& asked = *request.get();
    EXPECT_STREQ(asked.lpstrFile, L"");
    EXPECT_EQ(asked.lpstrFilter, nullptr);
    EXPECT_EQ(asked.lpstrDefExt, nullptr);
    std::wstring(L"C:\\M\u00fcggelsee.chart").copy(asked.lpstrFile, asked.nMaxFile);
    EXPECT_EQ(request.chosen(), L"C:\\M\u00fcggelsee.chart");
}

}  // namespace
