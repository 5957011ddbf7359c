#pragma once

#include "com/guid.h"

#include <type_traits>

#include <unknwn.h>

namespace com {

/// What the object model knows of an interface `I`: its identifier and the interface that it extends.
///
/// The library's interfaces, and clients' own, specialize it behind their declaration:
///
///     template <>
///     struct com::interface_traits<IButton> : com::extends<IControl> {
///         static constexpr GUID id = com::guid("...");
///     };
///
/// Interfaces of the platform need nothing: the identifier is the compiler's.
template <class I>
struct interface_traits {
    using base = IUnknown;
    static constexpr GUID id = __uuidof(I);
};

/// Base of a specialization of `interface_traits`: names the interface that this one extends.
template <class Base = IUnknown>
struct extends {
    using base = Base;
};

template <>
struct interface_traits<IUnknown> {
    using base = void;
    static constexpr GUID id = guid("00000000-0000-0000-C000-000000000046");
};

/// The identifier of interface `I`.
template <class I>
[[nodiscard]] constexpr const GUID& guid_of() noexcept {
    return interface_traits<I>::id;
}

/// True when `id` is the identifier of `I` or of an interface that `I` extends, `IUnknown` apart.
template <class I>
[[nodiscard]] constexpr bool answers_to(const GUID& id) noexcept {
    if constexpr (std::is_same_v<I, IUnknown>) {
        return false;
    } else {
        return same_guid(id, guid_of<I>()) || answers_to<typename interface_traits<I>::base>(id);
    }
}

}  // namespace com
