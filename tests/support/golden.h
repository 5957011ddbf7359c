#pragma once

#include "support/picture.h"

#include <gtest/gtest.h>

#include <filesystem>
#include <string_view>

namespace test_support {

/// What two pictures may differ by and still count as equal.
struct tolerance {
    unsigned channel = 0;  ///< a pixel differs when one of its four bytes differs by more than this
    unsigned pixels = 0;   ///< how many pixels may differ
};

/// Where two pictures differ.
struct picture_difference {
    bool same_size = true;
    unsigned pixels = 0;            ///< how many differ by more than the tolerance's channel
    unsigned greatest_channel = 0;  ///< the greatest difference of a byte, over all pixels
    picture image;                  ///< the second picture, dimmed, with the differing pixels in red
};

[[nodiscard]] picture_difference compare(const picture& expected, const picture& actual,
                                         tolerance allowed = {});

/// Compares with the golden picture `name` (such as "button/pressed"), a PNG file in the folder of goldens:
///
///     EXPECT_TRUE(matches_golden(picture_of(bitmap), "button/pressed", {.channel = 2}));
///
/// Goldens are the pixels of the system that made them: those of Wine stand apart, under `wine`. On failure
/// `<name>.actual.png` and `<name>.difference.png` are written to the folder of failures, and the message
/// says where. With the environment variable MOSSHARBOUR_UPDATE_GOLDENS set to 1 the golden is written
/// instead, and the comparison succeeds: look at what changed before you keep it.
[[nodiscard]] testing::AssertionResult matches_golden(const picture& actual, std::string_view name,
                                                      tolerance allowed = {});

[[nodiscard]] std::filesystem::path golden_file(std::string_view name);
[[nodiscard]] std::filesystem::path failure_file(std::string_view name, std::string_view kind);

}  // namespace test_support
