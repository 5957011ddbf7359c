#include "geometry_kind.h"
#include "geometry_operations.h"
#include "outline.h"
#include "owned.h"

namespace completion::geometry {

namespace {

/// Forwards the figures of one member of a group; the group's own fill mode stands.
class member_sink final : public ID2D1SimplifiedGeometrySink {
public:
    explicit member_sink(ID2D1SimplifiedGeometrySink* whole) noexcept : whole_(whole) {}
    ~member_sink() = default;

    HRESULT STDMETHODCALLTYPE QueryInterface(REFIID, void** object) noexcept override {
        *object = nullptr;
        return E_NOINTERFACE;
    }
    ULONG STDMETHODCALLTYPE AddRef() noexcept override { return 1; }
    ULONG STDMETHODCALLTYPE Release() noexcept override { return 1; }

    void STDMETHODCALLTYPE SetFillMode(D2D1_FILL_MODE) noexcept override {}
    void STDMETHODCALLTYPE SetSegmentFlags(D2D1_PATH_SEGMENT flags) noexcept override {
        whole_->SetSegmentFlags(flags);
    }
    void STDMETHODCALLTYPE BeginFigure(D2D1_POINT_2F start, D2D1_FIGURE_BEGIN begin) noexcept override {
        whole_->BeginFigure(start, begin);
    }
    void STDMETHODCALLTYPE AddLines(const D2D1_POINT_2F* points, UINT count) noexcept override {
        whole_->AddLines(points, count);
    }
    void STDMETHODCALLTYPE AddBeziers(const D2D1_BEZIER_SEGMENT* curves, UINT count) noexcept override {
        whole_->AddBeziers(curves, count);
    }
    void STDMETHODCALLTYPE EndFigure(D2D1_FIGURE_END end) noexcept override { whole_->EndFigure(end); }
    HRESULT STDMETHODCALLTYPE Close() noexcept override { return S_OK; }

private:
    ID2D1SimplifiedGeometrySink* whole_;
};

HRESULT simplify_group(ID2D1GeometryGroup* group, D2D1_GEOMETRY_SIMPLIFICATION_OPTION option,
                       const D2D1_MATRIX_3X2_F* world, float tolerance, ID2D1SimplifiedGeometrySink* sink) {
    const UINT count = group->GetSourceGeometryCount();
    std::vector<ID2D1Geometry*> borrowed(count);
    group->GetSourceGeometries(borrowed.data(), count);
    std::vector<owned<ID2D1Geometry>> members(borrowed.begin(), borrowed.end());
    sink->SetFillMode(group->GetFillMode());
    member_sink forward(sink);
    for (const auto& member : members) {
        const HRESULT result = member->Simplify(option, world, tolerance, &forward);
        if (FAILED(result)) {
            return result;
        }
    }
    return S_OK;
}

}  // namespace

HRESULT bounds(ID2D1Geometry* self, const D2D1_MATRIX_3X2_F* world, D2D1_RECT_F* result) {
    if (const auto box = round_box_of(self)) {
        *result = box->bounds(affine(world)).rectangle();
        return S_OK;
    }
    HRESULT outcome = S_OK;
    const outline shape = outline_of(self, affine(world), 1.0 / 256, outcome);
    extent grown;
    for (const figure& each : shape.figures) {
        for (const point p : each.points) {
            if (each.filled) {
                grown.add(p);
            }
        }
    }
    *result = grown.rectangle();
    return outcome;
}

HRESULT fill_contains(ID2D1Geometry* self, D2D1_POINT_2F p, const D2D1_MATRIX_3X2_F* world, float tolerance,
                      BOOL* contains) {
    *contains = FALSE;
    const affine transform(world);
    if (!transform.invertible()) {
        return static_cast<HRESULT>(D2DERR_UNSUPPORTED_OPERATION);
    }
    // The tolerance isn't transformed: it belongs to the geometry's own space.
    const double reach = usable_tolerance(tolerance);
    HRESULT outcome = S_OK;
    const outline shape = outline_of(self, affine(), reach / 16, outcome);
    *contains = completion::fill_contains(shape, transform.inverse().apply(from(p)), reach);
    return outcome;
}

HRESULT simplify(ID2D1Geometry* self, D2D1_GEOMETRY_SIMPLIFICATION_OPTION option,
                 const D2D1_MATRIX_3X2_F* world, float tolerance, ID2D1SimplifiedGeometrySink* sink) {
    if (const auto box = round_box_of(self)) {
        box->write(option, affine(world), usable_tolerance(tolerance), sink);
        return S_OK;
    }
    if (const auto group = query<ID2D1GeometryGroup>(self)) {
        return simplify_group(group.get(), option, world, tolerance, sink);
    }
    return E_NOTIMPL;
}

}  // namespace completion::geometry
