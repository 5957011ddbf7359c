#include "hit_test.h"

#include <algorithm>

namespace completion {

namespace {

DWRITE_HIT_TEST_METRICS metrics_of(const placed_cluster& cluster) {
    return {cluster.position, cluster.length,     cluster.left,    cluster.top,       cluster.width,
            cluster.height,   cluster.bidi_level, cluster.is_text, cluster.is_trimmed};
}

/// Of a place between clusters, where no text is.
DWRITE_HIT_TEST_METRICS empty_metrics(UINT32 position, float x, float top, float height, UINT32 bidi_level) {
    return {position, 0, x, top, 0.0f, height, bidi_level, TRUE, FALSE};
}

const placed_line& line_at(const text_snapshot& text, float y) {
    const auto lines = text.lines();
    const auto found =
        std::ranges::find_if(lines, [y](const placed_line& line) { return y < line.bottom(); });
    return found != lines.end() ? *found : lines.back();
}

/// The outermost cluster of a line on one side. A line's end is in front of the newline, unless there is
/// nothing else on the line.
const placed_cluster& outermost(const placed_line& line, bool at_right) {
    const placed_cluster* result = &line.clusters.front();
    for (const placed_cluster& cluster : line.clusters) {
        const bool further =
            at_right ? cluster.right() > result->right() ||
                           (cluster.right() == result->right() && !cluster.leftwards())
                     : cluster.left < result->left || (cluster.left == result->left && cluster.leftwards());
        if (!cluster.is_newline && (further || result->is_newline)) {
            result = &cluster;
        }
    }
    return *result;
}

const placed_cluster& cluster_at(const placed_line& line, float x) {
    if (x < line.left) {
        return outermost(line, false);
    }
    const auto found = std::ranges::find_if(line.clusters, [x](const placed_cluster& cluster) {
        return x >= cluster.left && x < cluster.right();
    });
    if (found != line.clusters.end()) {
        return *found;
    }
    if (x >= line.right) {
        return outermost(line, true);
    }
    const auto distance = [x](const placed_cluster& cluster) {
        return std::max(cluster.left - x, x - cluster.right());
    };
    return *std::ranges::min_element(line.clusters, {}, distance);  // a gap of rounding between two runs
}

bool in_trailing_half(const placed_cluster& cluster, float x) {
    const float middle = cluster.left + cluster.width / 2;
    return !cluster.is_newline && (cluster.leftwards() ? x < middle : x >= middle);
}

position_hit end_of_text(const text_snapshot& text) {
    const placed_line& line = text.lines().back();
    if (line.clusters.empty()) {
        const auto metrics =
            empty_metrics(text.length(), line.left, line.top, line.height, text.paragraph_level());
        return {metrics, line.left, line.top};
    }
    const placed_cluster& last = line.clusters.back();
    const auto metrics =
        empty_metrics(text.length(), last.trailing(), last.top, last.height, last.bidi_level);
    return {metrics, metrics.left, metrics.top};
}

}  // namespace

point_hit hit_test_point(const text_snapshot& text, float x, float y) {
    const placed_line& line = line_at(text, y);
    if (line.clusters.empty()) {
        return {empty_metrics(line.position, line.left, line.top, line.height, text.paragraph_level()), false,
                false};
    }
    const placed_cluster& cluster = cluster_at(line, x);
    const bool inside = x >= line.left && x < line.right && y >= line.top && y < line.bottom();
    return {metrics_of(cluster), in_trailing_half(cluster, x), inside};
}

position_hit hit_test_position(const text_snapshot& text, UINT32 position, bool trailing) {
    for (const placed_line& line : text.lines()) {
        for (const placed_cluster& cluster : line.clusters) {
            if (position < cluster.end()) {
                return {metrics_of(cluster), trailing ? cluster.trailing() : cluster.leading(), cluster.top};
            }
        }
    }
    return end_of_text(text);
}

std::vector<DWRITE_HIT_TEST_METRICS> hit_test_range(const text_snapshot& text, UINT32 position, UINT32 length,
                                                    float origin_x, float origin_y) {
    const UINT32 end = position + std::min(length, text.length() - std::min(position, text.length()));
    std::vector<DWRITE_HIT_TEST_METRICS> rectangles;
    for (const placed_line& line : text.lines()) {
        const placed_cluster* previous = nullptr;
        for (const placed_cluster& cluster : line.clusters) {
            if (cluster.end() <= position || cluster.position >= end) {
                continue;
            }
            if (previous && previous->bidi_level == cluster.bidi_level &&
                previous->is_text == cluster.is_text && previous->is_trimmed == cluster.is_trimmed) {
                DWRITE_HIT_TEST_METRICS& rectangle = rectangles.back();
                const float left = std::min(rectangle.left, origin_x + cluster.left);
                rectangle.width =
                    std::max(rectangle.left + rectangle.width, origin_x + cluster.right()) - left;
                rectangle.left = left;
                rectangle.length += cluster.length;
            } else {
                rectangles.push_back(metrics_of(cluster));
                rectangles.back().left += origin_x;
                rectangles.back().top = line.top + origin_y;
                rectangles.back().height = line.height;
            }
            previous = &cluster;
        }
    }
    return rectangles;
}

}  // namespace completion
