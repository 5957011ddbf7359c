#pragma once

#include <string>

#include <d2d1.h>

namespace d2d::scene::fakes {

/// A geometry by its numbers: "rectangle(0 0 10 10)", "rounded_rectangle(0 0 10 10 2 2)", "ellipse(5 5 2 2)";
/// any other one is "geometry".
[[nodiscard]] std::string geometry_text(ID2D1Geometry* geometry);

/// The figures of a geometry, one line each: "open 0 0 - 10 0 - 10 10", "closed 5 5 - 6 6". Curves are
/// flattened. Throws `com::error`.
[[nodiscard]] std::string figures_text(ID2D1Geometry* geometry);

}  // namespace d2d::scene::fakes
