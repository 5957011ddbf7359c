#pragma once

#include "host/testing/svg_path_recorder.h"

#include <string>
#include <string_view>
#include <vector>

namespace d2d::fakes {

/// What path data means, read a second time: first cut into commands with their numbers, then drawn. Slow and
/// plain, to compare the parser with.
struct svg_path_model {
    enum class outcome { drawn, bad, endless };

    svg_path_model(const std::string& text, const svg_transform& transform);

    outcome result = outcome::drawn;
    std::vector<svg_call> calls;  // of a bad path: those ahead of the command that is bad
};

/// Parses the text and compares with the model. Empty when they agree or when parsing would never end; else
/// says what differs.
[[nodiscard]] std::string compare_with_model(std::string_view text, const svg_transform& transform);

}  // namespace d2d::fakes
