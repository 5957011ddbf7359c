#pragma once

#include "com/interface_traits.h"

#include <d2d1.h>

namespace d2d::scene::fakes {

/// A geometry that has what a test says: bounds, or a failure to tell them. Its area is empty, or all of its
/// bounds; its stroke is empty, or all of its widened bounds.
///
/// Stands on the stack of a test: it is not destroyed by its count, and has to outlive whoever uses it.
class fake_geometry final : public ID2D1Geometry {
public:
    explicit fake_geometry(D2D_RECT_F has_bounds = {}) : bounds(has_bounds), widened_bounds(has_bounds) {}
    fake_geometry(const fake_geometry&) = delete;
    fake_geometry& operator=(const fake_geometry&) = delete;

    D2D_RECT_F bounds;
    D2D_RECT_F widened_bounds;
    bool filled = false;   ///< whether it contains the points inside its bounds
    bool stroked = false;  ///< whether its stroke contains the points inside its widened bounds
    /// What it answers when it is asked for bounds or for a point; a failure leaves the bounds unwritten.
    HRESULT result = S_OK;

    /// References on this geometry.
    [[nodiscard]] ULONG references() const noexcept { return reference_count; }

    // What the last call was given.
    mutable bool got_matrix = false;
    mutable float got_width = 0;
    mutable float got_tolerance = 0;
    mutable ID2D1StrokeStyle* got_style = nullptr;

    HRESULT STDMETHODCALLTYPE QueryInterface(const GUID& id, void** out) noexcept override {
        const bool known = com::same_guid(id, com::guid_of<ID2D1Geometry>()) ||
                           com::same_guid(id, com::guid_of<ID2D1Resource>()) ||
                           com::same_guid(id, com::guid_of<IUnknown>());
        *out = known ? this : nullptr;
        if (!known) return E_NOINTERFACE;
        AddRef();
        return S_OK;
    }
    ULONG STDMETHODCALLTYPE AddRef() noexcept override { return ++reference_count; }
    ULONG STDMETHODCALLTYPE Release() noexcept override { return --reference_count; }
    void STDMETHODCALLTYPE GetFactory(ID2D1Factory** factory) const override { *factory = nullptr; }

    HRESULT STDMETHODCALLTYPE GetBounds(const D2D1_MATRIX_3X2_F* matrix, D2D1_RECT_F* out) const override {
        got_matrix = matrix != nullptr;
        if (result >= 0) *out = bounds;
        return result;
    }
    HRESULT STDMETHODCALLTYPE GetWidenedBounds(FLOAT width, ID2D1StrokeStyle* style,
                                               const D2D1_MATRIX_3X2_F* matrix, FLOAT tolerance,
                                               D2D1_RECT_F* out) const override {
        got_matrix = matrix != nullptr;
        got_width = width;
        got_style = style;
        got_tolerance = tolerance;
        if (result >= 0) *out = widened_bounds;
        return result;
    }
    HRESULT STDMETHODCALLTYPE StrokeContainsPoint(D2D1_POINT_2F point, FLOAT width, ID2D1StrokeStyle* style,
                                                  const D2D1_MATRIX_3X2_F* matrix, FLOAT tolerance,
                                                  BOOL* contains) const override {
        got_matrix = matrix != nullptr;
        got_width = width;
        got_style = style;
        got_tolerance = tolerance;
        *contains = stroked && within(widened_bounds, point);
        return result;
    }
    HRESULT STDMETHODCALLTYPE FillContainsPoint(D2D1_POINT_2F point, const D2D1_MATRIX_3X2_F* matrix,
                                                FLOAT tolerance, BOOL* contains) const override {
        got_matrix = matrix != nullptr;
        got_tolerance = tolerance;
        *contains = filled && within(bounds, point);
        return result;
    }
    HRESULT STDMETHODCALLTYPE CompareWithGeometry(ID2D1Geometry*, const D2D1_MATRIX_3X2_F*, FLOAT,
                                                  D2D1_GEOMETRY_RELATION*) const override {
        return E_NOTIMPL;
    }
    HRESULT STDMETHODCALLTYPE Simplify(D2D1_GEOMETRY_SIMPLIFICATION_OPTION, const D2D1_MATRIX_3X2_F*, FLOAT,
                                       ID2D1SimplifiedGeometrySink*) const override {
        return E_NOTIMPL;
    }
    HRESULT STDMETHODCALLTYPE Tessellate(const D2D1_MATRIX_3X2_F*, FLOAT,
                                         ID2D1TessellationSink*) const override {
        return E_NOTIMPL;
    }
    HRESULT STDMETHODCALLTYPE CombineWithGeometry(ID2D1Geometry*, D2D1_COMBINE_MODE, const D2D1_MATRIX_3X2_F*,
                                                  FLOAT, ID2D1SimplifiedGeometrySink*) const override {
        return E_NOTIMPL;
    }
    HRESULT STDMETHODCALLTYPE Outline(const D2D1_MATRIX_3X2_F*, FLOAT,
                                      ID2D1SimplifiedGeometrySink*) const override {
        return E_NOTIMPL;
    }
    HRESULT STDMETHODCALLTYPE ComputeArea(const D2D1_MATRIX_3X2_F*, FLOAT, FLOAT*) const override {
        return E_NOTIMPL;
    }
    HRESULT STDMETHODCALLTYPE ComputeLength(const D2D1_MATRIX_3X2_F*, FLOAT, FLOAT*) const override {
        return E_NOTIMPL;
    }
    HRESULT STDMETHODCALLTYPE ComputePointAtLength(FLOAT, const D2D1_MATRIX_3X2_F*, FLOAT, D2D1_POINT_2F*,
                                                   D2D1_POINT_2F*) const override {
        return E_NOTIMPL;
    }
    HRESULT STDMETHODCALLTYPE Widen(FLOAT, ID2D1StrokeStyle*, const D2D1_MATRIX_3X2_F*, FLOAT,
                                    ID2D1SimplifiedGeometrySink*) const override {
        return E_NOTIMPL;
    }

private:
    static bool within(const D2D_RECT_F& area, D2D1_POINT_2F point) noexcept {
        return area.left <= point.x && point.x <= area.right && area.top <= point.y && point.y <= area.bottom;
    }

    ULONG reference_count = 0;
};

}  // namespace d2d::scene::fakes
