#pragma once

#include "round_box.h"

#include <optional>

namespace completion {

/// The closed form of a rectangle, a rounded rectangle or an ellipse; nothing for other geometries.
[[nodiscard]] std::optional<round_box> round_box_of(ID2D1Geometry* geometry);

}  // namespace completion
