// The example as its user sees it.

#include "onlooker.h"
#include "running_program.h"

#include <gtest/gtest.h>

namespace {

using client_test::onlooker;
using client_test::running_program;

// Text may be smoothed a little differently from one version of the fonts to the next.
constexpr test_support::tolerance fonts{.channel = 24, .pixels = 1500};

TEST(hello_scene, shows_its_scene_follows_its_window_and_ends_with_it) {
    running_program program(L"hello_scene.exe", L"Hello, scene");
    onlooker eye(program.window());
    EXPECT_TRUE(eye.shows_golden("hello_scene/start", fonts));

    program.set_position(0, 0, 720, 500, SWP_NOMOVE);
    EXPECT_TRUE(eye.shows_golden("hello_scene/larger", fonts));
    EXPECT_GT(eye.shown().width, 700u);

    PostMessageW(program.window(), WM_CLOSE, 0, 0);
    EXPECT_EQ(0u, program.exit_code());
}

}  // namespace
