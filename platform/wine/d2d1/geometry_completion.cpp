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
    using bounds = completed_operation<Kind, &geometry::bounds, &ID2D1Geometry::GetBounds>;
    using fill_contains = completed_operation<Kind, &geometry::fill_contains, &ID2D1Geometry::FillContainsPoint>;
    using simplify = completed_operation<Kind, &geometry::simplify, &ID2D1Geometry::Simplify>;
};

/// The order matters: what a kind is completed with serves the tests of what it answers.
template <typename Kind>
void complete_kind(ID2D1Geometry* sample, bool known_shape) {
    if (!sample) {
        return;
    }
    using all = operations<Kind>;
    all::simplify::complete(sample);
    all::bounds::complete(sample);
    all::fill_contains::complete(sample);
    if (!known_shape) {
        return;
    }
    if (!answers_fill_hits(sample)) {
        all::fill_contains::distrust();
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

} // namespace

void complete_geometries(ID2D1Factory* factory) {
    static std::once_flag once;
    std::call_once(once, [factory] {
        const geometry_samples samples(factory);
        if (samples.path && !keeps_curves(factory)) {
            open_slot.replace(samples.path.get(), &open_refined);
        }
        complete_kind<struct rectangle_kind>(samples.rectangle.get(), true);
        complete_kind<struct path_kind>(samples.path.get(), true);
        complete_kind<struct rounded_kind>(samples.rounded.get(), false);
        complete_kind<struct ellipse_kind>(samples.ellipse.get(), false);
        complete_kind<struct group_kind>(samples.group.get(), true);
        complete_kind<struct transformed_kind>(samples.transformed.get(), true);
    });
}

} // namespace completion
