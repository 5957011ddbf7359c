#include "geometry_kind.h"

#include "owned.h"

namespace completion {

std::optional<round_box> round_box_of(ID2D1Geometry* geometry) {
    if (const auto rectangle = query<ID2D1RectangleGeometry>(geometry)) {
        D2D1_RECT_F shape{};
        rectangle->GetRect(&shape);
        return round_box(shape);
    }
    if (const auto rounded = query<ID2D1RoundedRectangleGeometry>(geometry)) {
        D2D1_ROUNDED_RECT shape{};
        rounded->GetRoundedRect(&shape);
        return round_box(shape);
    }
    if (const auto ellipse = query<ID2D1EllipseGeometry>(geometry)) {
        D2D1_ELLIPSE shape{};
        ellipse->GetEllipse(&shape);
        return round_box(shape);
    }
    return std::nullopt;
}

}  // namespace completion
