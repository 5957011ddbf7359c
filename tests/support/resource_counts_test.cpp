#include "support/resource_counts.h"
#include "support/recording_window.h"

#include <windows.h>

#include <gtest/gtest-spi.h>
#include <gtest/gtest.h>

#include <memory>

namespace test_support {
namespace {

TEST(resource_counts, follow_windows_gdi_objects_and_handles) {
    { const recording_window first; }  // what is made once and kept is made now
    (void)current_resources();
    const auto before = current_resources();
    EXPECT_EQ(before, current_resources());

    const HPEN pen = CreatePen(PS_SOLID, 1, RGB(1, 2, 3));
    EXPECT_EQ(before.gdi_objects + 1, current_resources().gdi_objects);
    DeleteObject(pen);

    const HANDLE event = CreateEventW(nullptr, FALSE, FALSE, nullptr);
    EXPECT_EQ(before.handles + 1, current_resources().handles);
    CloseHandle(event);

    {
        const recording_window window;
        const HWND child = CreateWindowExW(0, L"STATIC", L"", WS_CHILD, 0, 0, 9, 9, window.handle(), nullptr,
                                           nullptr, nullptr);
        ASSERT_NE(nullptr, child);
        EXPECT_EQ(before.windows + 2, current_resources().windows);
    }
    EXPECT_EQ(before.windows, current_resources().windows);
}

TEST(growth, of_work_that_gives_everything_back_is_none) {
    expect_no_growth([] {
        const recording_window window;
        DeleteObject(CreatePen(PS_SOLID, 1, RGB(1, 2, 3)));
        CloseHandle(CreateEventW(nullptr, FALSE, FALSE, nullptr));
    });
}

TEST(growth, of_gdi_objects_fails) {
    EXPECT_NONFATAL_FAILURE(expect_no_growth([] { (void)CreatePen(PS_SOLID, 1, RGB(1, 2, 3)); }),
                            "after.gdi_objects");
}

TEST(growth, of_handles_fails) {
    EXPECT_NONFATAL_FAILURE(expect_no_growth([] { (void)CreateEventW(nullptr, FALSE, FALSE, nullptr); }),
                            "after.handles");
}

}  // namespace
}  // namespace test_support
