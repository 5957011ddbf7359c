// The user's choice between native panels and those on the scene, as a program that starts finds it.

#include "program_output.h"
#include "support/user_key.h"

#include <cstdint>
#include <string>
#include <vector>

#include <gtest/gtest.h>

namespace {

class chosen_panels : public testing::Test {
protected:
    static constexpr const char* native =
        "panel native, dialog native, popup native, unforced dialog native, unforced popup native, "
        "forced dialog scene, forced popup scene, floating popup native, "
        "of a native panel: dialog native, popup native, of a scene panel: dialog scene, popup scene, ";
    static constexpr const char* scene =
        "panel scene, dialog scene, popup scene, unforced dialog scene, unforced popup scene, "
        "forced dialog scene, forced popup scene, floating popup scene, "
        "of a native panel: dialog scene, popup scene, of a scene panel: dialog scene, popup scene, ";

    [[nodiscard]] static std::string probe() {
        return client_test::output_of_program(L"panel_choice_probe.exe");
    }
    void set(DWORD type, const std::vector<std::uint8_t>& bytes) const {
        key.set(L"useD2D", type, bytes.data(), bytes.size());
    }

    test_support::user_key key{L"SOFTWARE\\Tarnwick\\QRD\\3.0\\mossHarbour.ui"};
};

TEST_F(chosen_panels, are_native_without_a_setting) {
    EXPECT_EQ(probe(), native);
    key.create();
    EXPECT_EQ(probe(), native);
}

TEST_F(chosen_panels, are_on_the_scene_for_any_four_bytes_that_are_not_all_zero) {
    set(REG_DWORD, {0, 0, 0, 0});
    EXPECT_EQ(probe(), native);
    set(REG_DWORD, {1, 0, 0, 0});
    EXPECT_EQ(probe(), scene);
    set(REG_SZ, {'1', 0, 0, 0});
    EXPECT_EQ(probe(), scene);
    set(REG_BINARY, {0, 0, 0, 4});
    EXPECT_EQ(probe(), scene);
    set(REG_BINARY, {1, 0, 0, 0, 0});
    EXPECT_EQ(probe(), native);
}

}  // namespace
