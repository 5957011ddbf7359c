#include "portable/use_scene_panels.h"

#include "support/user_key.h"

#include <cstdint>
#include <string>
#include <vector>

#include <gtest/gtest.h>

namespace {

using namespace ui::mossHarbour;

class stored_choice : public testing::Test {
protected:
    [[nodiscard]] bool read() const { return read_use_scene_panels(HKEY_CURRENT_USER, key.path()); }

    // The same test may run in another process just now.
    test_support::user_key key{L"Software\\mossHarbour.tests." + std::to_wstring(GetCurrentProcessId())};
};

struct value_case {
    const char* what;
    DWORD type;
    std::vector<std::uint8_t> bytes;
    bool chosen;
};

TEST_F(stored_choice, is_no_without_a_key_or_a_value) {
    EXPECT_FALSE(read());
    key.create();
    EXPECT_FALSE(read());
}

TEST_F(stored_choice, is_whether_four_bytes_of_any_type_are_not_all_zero) {
    const value_case cases[] = {{"zero", REG_DWORD, {0, 0, 0, 0}, false},
                                {"one", REG_DWORD, {1, 0, 0, 0}, true},
                                {"only the highest byte", REG_DWORD, {0, 0, 0, 0x80}, true},
                                {"the text 1", REG_SZ, {'1', 0, 0, 0}, true},
                                {"the text 0, which is a character", REG_SZ, {'0', 0, 0, 0}, true},
                                {"bytes", REG_BINARY, {0, 0, 1, 0}, true},
                                {"bytes of zero", REG_BINARY, {0, 0, 0, 0}, false},
                                {"fewer bytes", REG_BINARY, {7}, true},
                                {"fewer bytes of zero", REG_BINARY, {0, 0}, false},
                                {"no bytes", REG_BINARY, {}, false},
                                {"too many bytes", REG_BINARY, {1, 1, 1, 1, 1}, false},
                                {"a longer text", REG_SZ, {'1', 0, '1', 0, 0, 0}, false},
                                {"eight bytes", REG_QWORD, {1, 0, 0, 0, 0, 0, 0, 0}, false}};
    for (const auto& [what, type, bytes, chosen] : cases) {
        key.set(L"useD2D", type, bytes.data(), bytes.size());
        EXPECT_EQ(read(), chosen) << what;
    }
}

}  // namespace
