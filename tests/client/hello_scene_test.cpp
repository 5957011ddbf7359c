// The example as its user sees it.

#include "running_program.h"
#include "settled_picture.h"
#include "support/golden.h"
#include "support/picture.h"

#include <gtest/gtest.h>

namespace {

using client_test::running_program;
using client_test::settled_picture;
using test_support::picture;

// Text may be smoothed a little differently from one version of the fonts to the next.
constexpr test_support::tolerance fonts{.channel = 24, .pixels = 1500};

TEST(hello_scene, shows_its_scene_follows_its_window_and_ends_with_it) {
    running_program program(L"hello_scene.exe", L"Hello, scene");
    EXPECT_TRUE(matches_golden(settled_picture(program.window()), "hello_scene/start", fonts));

    program.set_position(0, 0, 720, 500, SWP_NOMOVE);
    const picture larger = settled_picture(program.window());
    EXPECT_GT(larger.width, 700u);
    EXPECT_TRUE(matches_golden(larger, "hello_scene/larger", fonts));

    PostMessageW(program.window(), WM_CLOSE, 0, 0);
    EXPECT_EQ(0u, program.exit_code());
}

}  // namespace
