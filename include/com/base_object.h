#pragma once

#include "com/interface_traits.h"
#include "com/object_base.h"

namespace com {

/// How a class states its interfaces: derives from `Base` (normally `com::object_base`) and from each
/// interface in the order of the list. The first one is the object's identity.
///
/// A listed interface may also be an implementation base that has an identifier of its own.
template <class Base, class First, class... Rest>
class base_object : public Base, public First, public Rest... {
public:
    using identity_interface = First;

    [[nodiscard]] IUnknown* get_IUnknown() noexcept override { return static_cast<First*>(this); }

    // Declared once for all interfaces, so that a call on the class itself is not ambiguous.
    HRESULT STDMETHODCALLTYPE QueryInterface(const GUID& id, void** out) noexcept override = 0;

    // In force while constructors and destructors run, when `com::object` is not there yet or any more: a
    // reference that comes and goes in them is counted, and starts no teardown.
    ULONG STDMETHODCALLTYPE AddRef() noexcept override { return this->count_.add_strong(); }
    ULONG STDMETHODCALLTYPE Release() noexcept override {
        static_cast<void>(this->count_.strong_to_weak());
        return this->release_weak_reference();
    }

protected:
    using Base::Base;
    base_object() = default;
    ~base_object() = default;

    /// The sub-object that answers to `id`, or null. Interfaces are asked in the order of the list, each with
    /// its bases, most derived first. The count does not change.
    [[nodiscard]] IUnknown* query_interface(const GUID& id) noexcept {
        if (same_guid(id, guid_of<IUnknown>())) return get_IUnknown();
        IUnknown* found = nullptr;
        static_cast<void>((find<First>(id, found) || ... || find<Rest>(id, found)));
        return found;
    }

private:
    template <class I>
    bool find(const GUID& id, IUnknown*& found) noexcept {
        if (!answers_to<I>(id)) return false;
        found = static_cast<I*>(this);
        return true;
    }
};

}  // namespace com
