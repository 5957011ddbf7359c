#pragma once

#include "plane.h"

/// What stands in for the operations that the system's geometries lack. Each works on any geometry: through
/// the closed form of a rectangle, a rounded rectangle or an ellipse, else through what its Simplify writes.
/// They may throw std::bad_alloc; results and errors are those that Direct2D documents.
namespace completion::geometry {

[[nodiscard]] HRESULT bounds(ID2D1Geometry* self, const D2D1_MATRIX_3X2_F* world, D2D1_RECT_F* result);
[[nodiscard]] HRESULT widened_bounds(ID2D1Geometry* self, float width, ID2D1StrokeStyle* style,
                                     const D2D1_MATRIX_3X2_F* world, float tolerance, D2D1_RECT_F* result);
[[nodiscard]] HRESULT stroke_contains(ID2D1Geometry* self, D2D1_POINT_2F p, float width,
                                      ID2D1StrokeStyle* style, const D2D1_MATRIX_3X2_F* world,
                                      float tolerance, BOOL* contains);
[[nodiscard]] HRESULT fill_contains(ID2D1Geometry* self, D2D1_POINT_2F p, const D2D1_MATRIX_3X2_F* world,
                                    float tolerance, BOOL* contains);
[[nodiscard]] HRESULT compare(ID2D1Geometry* self, ID2D1Geometry* input, const D2D1_MATRIX_3X2_F* transform,
                              float tolerance, D2D1_GEOMETRY_RELATION* relation);
[[nodiscard]] HRESULT simplify(ID2D1Geometry* self, D2D1_GEOMETRY_SIMPLIFICATION_OPTION option,
                               const D2D1_MATRIX_3X2_F* world, float tolerance,
                               ID2D1SimplifiedGeometrySink* sink);
[[nodiscard]] HRESULT combine(ID2D1Geometry* self, ID2D1Geometry* input, D2D1_COMBINE_MODE mode,
                              const D2D1_MATRIX_3X2_F* transform, float tolerance,
                              ID2D1SimplifiedGeometrySink* sink);
[[nodiscard]] HRESULT remove_overlaps(ID2D1Geometry* self, const D2D1_MATRIX_3X2_F* world, float tolerance,
                                      ID2D1SimplifiedGeometrySink* sink);
[[nodiscard]] HRESULT area(ID2D1Geometry* self, const D2D1_MATRIX_3X2_F* world, float tolerance,
                           float* result);
[[nodiscard]] HRESULT perimeter(ID2D1Geometry* self, const D2D1_MATRIX_3X2_F* world, float tolerance,
                                float* result);
[[nodiscard]] HRESULT point_at_length(ID2D1Geometry* self, float at, const D2D1_MATRIX_3X2_F* world,
                                      float tolerance, D2D1_POINT_2F* p, D2D1_POINT_2F* tangent);
[[nodiscard]] HRESULT widen(ID2D1Geometry* self, float width, ID2D1StrokeStyle* style,
                            const D2D1_MATRIX_3X2_F* world, float tolerance,
                            ID2D1SimplifiedGeometrySink* sink);

}  // namespace completion::geometry
