#pragma once

#include "text_snapshot.h"

#include <windows.h>

#include <dwrite.h>

#include <vector>

namespace completion {

struct point_hit {
    DWRITE_HIT_TEST_METRICS metrics;
    bool trailing;  ///< the point is in the half of the cluster where the next one begins
    bool inside;
};

/// The cluster at a point of the layout; for a point outside, the nearest one of the nearest line.
[[nodiscard]] point_hit hit_test_point(const text_snapshot& text, float x, float y);

struct position_hit {
    DWRITE_HIT_TEST_METRICS metrics;
    float x;
    float y;
};

/// The place of an edge of the cluster that holds a position; behind the text, the place of its end.
[[nodiscard]] position_hit hit_test_position(const text_snapshot& text, UINT32 position, bool trailing);

/// The rectangles that a range covers, one for each line and direction, each as high as its line.
[[nodiscard]] std::vector<DWRITE_HIT_TEST_METRICS> hit_test_range(const text_snapshot& text, UINT32 position,
                                                                  UINT32 length, float origin_x,
                                                                  float origin_y);

}  // namespace completion
