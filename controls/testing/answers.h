#pragma once

#include "com/ptr.h"

namespace d2d::fakes {

/// Whether `QueryInterface` of an object gives interface `I`, of the same object.
template <class I, class T>
[[nodiscard]] bool answers(const com::ptr<T>& object) {
    const com::ptr<I> found = object.template try_as<I>();
    return found &&
           com::ptr<IUnknown>(found).template try_as<IUnknown>() == object.template try_as<IUnknown>();
}

}  // namespace d2d::fakes
