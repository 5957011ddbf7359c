#pragma once

#include "com/ptr.h"

namespace com {

/// A marker without operations of its own. Class `T` lists `IObjectInternal<T>` among its interfaces, so that
/// code which receives a public interface can get back to the class (see `internal_object`). Its identifier
/// stands beside `T`, as a specialization of `com::interface_traits`.
template <class T>
struct IObjectInternal : IUnknown {};

/// The library's own object behind an interface. Null gives null; an object of another make throws
/// `com::error`.
template <class T, class I>
[[nodiscard]] ptr<T> internal_object(I* interface_pointer) {
    ptr<IObjectInternal<T>> marker(interface_pointer);
    T* const object = static_cast<T*>(marker.get());
    static_cast<void>(marker.detach());
    return ptr<T>::attach(object);
}

}  // namespace com
