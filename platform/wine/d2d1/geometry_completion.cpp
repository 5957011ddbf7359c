#include "geometry_completion.h"

#include "completed_operation.h"
#include "geometry_operations.h"
#include "geometry_samples.h"
#include "refined_sink.h"

#include <mutex>

namespace completion {

namespace {

template <typename Kind>
struct operations {
    template <auto own, typename geometry_method<decltype(own)>::type method>
    using operation = completed_operation<Kind, own, method>;

    using bounds = operation<&geometry::bounds, &ID2D1Geometry::GetBounds>;
    using widened_bounds = operation<&geometry::widened_bounds, &ID2D1Geometry::GetWidenedBounds>;
    using stroke_contains = operation<&geometry::stroke_contains, &ID2D1Geometry::StrokeContainsPoint>;
    using fill_contains = operation<&geometry::fill_contains, &ID2D1Geometry::FillContainsPoint>;
    using compare = operation<&geometry::compare, &ID2D1Geometry::CompareWithGeometry>;
    using simplify = operation<&geometry::simplify, &ID2D1Geometry::Simplify>;
    using combine = operation<&geometry::combine, &ID2D1Geometry::CombineWithGeometry>;
    using remove_overlaps = operation<&geometry::remove_overlaps, &ID2D1Geometry::Outline>;
    using area = operation<&geometry::area, &ID2D1Geometry::ComputeArea>;
    using perimeter = operation<&geometry::perimeter, &ID2D1Geometry::ComputeLength>;
    using point_at_length = operation<&geometry::point_at_length, &ID2D1Geometry::ComputePointAtLength>;
    using widen = operation<&geometry::widen, &ID2D1Geometry::Widen>;

    static void complete(ID2D1Geometry* sample) {
        simplify::complete(sample);
        bounds::complete(sample);
        widened_bounds::complete(sample);
        fill_contains::complete(sample);
        stroke_contains::complete(sample);
        compare::complete(sample);
        combine::complete(sample);
        remove_overlaps::complete(sample);
        area::complete(sample);
        perimeter::complete(sample);
        point_at_length::complete(sample);
        widen::complete(sample);
    }
};

template <typename Kind>
void complete_kind(ID2D1Geometry* sample, ID2D1Factory* factory) {
    if (!sample) {
        return;
    }
    using all = operations<Kind>;
    all::complete(sample);
    if (!answers_fill_hits(sample)) {
        all::fill_contains::distrust();
    }
    if (!answers_stroke_hits(sample, factory)) {
        all::stroke_contains::distrust();
    }
}

HRESULT STDMETHODCALLTYPE open_refined(ID2D1PathGeometry* self, ID2D1GeometrySink** sink) noexcept;

using open_method = HRESULT (STDMETHODCALLTYPE ID2D1PathGeometry::*)(ID2D1GeometrySink**);
table_slot<open_method> open_slot{&ID2D1PathGeometry::Open};

HRESULT STDMETHODCALLTYPE open_refined(ID2D1PathGeometry* self, ID2D1GeometrySink** sink) noexcept {
    const HRESULT result = open_slot.original()(self, sink);
    if (FAILED(result)) {
        return result;
    }
    owned<ID2D1GeometrySink> original(*sink);
    *sink = nullptr;
    return guarded([&] {
        *sink = new refined_sink(std::move(original));
        return S_OK;
    });
}

}  // namespace

void complete_geometries(ID2D1Factory* factory) {
    static std::once_flag once;
    std::call_once(once, [factory] {
        const geometry_samples samples(factory);
        if (samples.path && !keeps_curves(factory)) {
            open_slot.replace(samples.path.get(), &open_refined);
        }
        complete_kind<struct rectangle_kind>(samples.rectangle.get(), factory);
        complete_kind<struct path_kind>(samples.path.get(), factory);
        operations<struct rounded_kind>::complete(samples.rounded.get());
        operations<struct ellipse_kind>::complete(samples.ellipse.get());
        complete_kind<struct group_kind>(samples.group.get(), factory);
        complete_kind<struct transformed_kind>(samples.transformed.get(), factory);
    });
}

}  // namespace completion
