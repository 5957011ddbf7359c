#pragma once

#include "guarded.h"
#include "table_slot.h"

#include <d2d1.h>

namespace completion {

template <typename Function>
struct geometry_method;

template <typename... Arguments>
struct geometry_method<HRESULT (*)(ID2D1Geometry*, Arguments...)> {
    using type = HRESULT (STDMETHODCALLTYPE ID2D1Geometry::*)(Arguments...) const;
};

/// One operation of the geometries of a kind: the original, and `own` where the original isn't implemented.
template <typename Kind, auto own, typename geometry_method<decltype(own)>::type method>
class completed_operation {
public:
    static void complete(ID2D1Geometry* sample) { slot_.replace(sample, &replacement<decltype(own)>::call); }

    /// From now on the original isn't asked any more: its answers are wrong.
    static void distrust() noexcept { trusted_ = false; }

private:
    template <typename Function>
    struct replacement;

    template <typename... Arguments>
    struct replacement<HRESULT (*)(ID2D1Geometry*, Arguments...)> {
        static HRESULT STDMETHODCALLTYPE call(ID2D1Geometry* self, Arguments... arguments) noexcept {
            if (trusted_) {
                const HRESULT result = slot_.original()(self, arguments...);
                if (result != E_NOTIMPL) {
                    return result;
                }
            }
            return guarded([&] { return own(self, arguments...); });
        }
    };

    static inline table_slot<typename geometry_method<decltype(own)>::type> slot_{method};
    static inline bool trusted_ = true;
};

}  // namespace completion
