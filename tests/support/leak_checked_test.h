#pragma once

#include "com/diagnostics.h"
#include "support/resource_counts.h"

#include <gtest/gtest.h>

namespace test_support {

/// A fixture to derive from: at the end of each test no object of the library and no window may be alive that
/// was not there at its start. Members of a derived fixture that hold such objects let go of them in its
/// `TearDown`, ahead of this one. GDI objects and handles are partly made once and kept; for those see
/// `expect_no_growth`.
///
/// All in the header, so that one support library serves tests of the library's objects and tests of the DLL.
class leak_checked_test : public testing::Test {
protected:
    void SetUp() override {
        objects_before_ = com::live_object_count();
        windows_before_ = own_windows();
    }

    void TearDown() override {
        EXPECT_EQ(objects_before_, com::live_object_count()) << "objects of the library are still alive";
        EXPECT_GE(windows_before_, own_windows()) << "windows are still there";
    }

private:
    long objects_before_ = 0;
    unsigned windows_before_ = 0;
};

}  // namespace test_support
