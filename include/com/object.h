#pragma once

#include "com/base_object.h"
#include "com/diagnostics.h"
#include "com/ptr.h"

#include <memory>
#include <new>
#include <utility>

namespace com {

template <class T>
class object;

/// Completes `T`, makes one and returns the first reference to it. In order: storage, constructors,
/// `T::final_construct()` if there is one (no strong reference is counted yet), first reference. What a
/// constructor or `final_construct` throws passes on, with nothing left behind; weak references that
/// `final_construct` handed out before it threw stay safe to lock and to drop.
template <class T, class... Arguments>
[[nodiscard]] ptr<T> create_object(Arguments&&... arguments);

namespace detail {

template <class T>
void free_object_storage(void* storage) noexcept {
    if constexpr (requires { T::operator delete(storage, sizeof(object<T>)); }) {
        T::operator delete(storage, sizeof(object<T>));
    } else if constexpr (requires { T::operator delete(storage); }) {
        T::operator delete(storage);
    } else if constexpr (alignof(T) > __STDCPP_DEFAULT_NEW_ALIGNMENT__) {
        ::operator delete (storage, std::align_val_t{alignof(T)});
    } else {
        ::operator delete(storage);
    }
}

/// Stands in a destroyed object's place while weak references keep the storage: it carries the table with the
/// two operations that are still allowed, and leaves the count as it lies.
template <class T>
class dead_object final : public object_base {
public:
    dead_object() noexcept : object_base(count_word::keep_tag{}) {}

    [[nodiscard]] IUnknown* get_IUnknown() noexcept override {
        return static_cast<typename T::identity_interface*>(whole());
    }

private:
    void free_storage() noexcept override { free_object_storage<T>(whole()); }

    // Only the address is wanted: nothing of the object is alive.
    object<T>* whole() noexcept { return static_cast<object<T>*>(static_cast<object_base*>(this)); }
};

}  // namespace detail

/// The final class behind every object: `T` completed by the three operations of `IUnknown`. Clients never
/// name it; creation functions do, through `com::create_object`.
///
/// `T` may declare `void final_construct()`, run once the object is whole, and `void final_release()`, run
/// when the last strong reference has gone, ahead of all destructors; not as private members, which are not
/// found. References to the object that are taken and given back inside the two, or inside constructors and
/// destructors, are counted and start no further teardown. None may be kept beyond the teardown. Objects of a
/// class that declares a type `uncounted` are left out of `live_object_count`: for what is made and dropped
/// all the time.
template <class T>
class object final : public T {
public:
    HRESULT STDMETHODCALLTYPE QueryInterface(const GUID& id, void** out) noexcept override {
        if (!out) return E_POINTER;
        IUnknown* const found = this->query_interface(id);
        if (!found) return E_NOINTERFACE;  // *out stays as it was: kept, callers clear it first
        *out = found;
        this->count_.add_strong();
        return S_OK;
    }

    ULONG STDMETHODCALLTYPE AddRef() noexcept override { return this->count_.add_strong(); }

    ULONG STDMETHODCALLTYPE Release() noexcept override {
        if (const std::uint32_t word = this->count_.drop_strong_unless_last()) return word;
        return release_last();
    }

private:
    template <class U, class... Arguments>
    friend ptr<U> create_object(Arguments&&... arguments);

    template <class... Arguments>
    explicit object(Arguments&&... arguments) : T(std::forward<Arguments>(arguments)...) {
        if constexpr (is_counted) detail::count_object(1);
    }

    ~object() {
        if constexpr (is_counted) detail::count_object(-1);
    }

    static constexpr bool is_counted = !requires { typename T::uncounted; };

    void free_storage() noexcept override { detail::free_object_storage<T>(this); }

    ULONG release_last() noexcept {
        // From here on this call holds a weak reference: the storage outlives whatever teardown drops.
        const bool was_last = this->count_.only_strong_to_weak() ||
                              (this->count_.strong_to_weak() & count_word::strong_mask) == 0;
        if (was_last && std::exchange(whole_, false)) {
            if constexpr (requires { this->final_release(); }) this->final_release();
            return destroy();
        }
        return static_cast<object_base*>(this)->release_weak_reference();
    }

    /// Runs the destructors, leaves the dead table in the object's place and drops the caller's weak
    /// reference.
    ULONG destroy() noexcept {
        object_base* const base = this;
        this->~object();
        object_base* const dead = ::new (static_cast<void*>(base)) detail::dead_object<T>;
        static_assert(sizeof(detail::dead_object<T>) == sizeof(object_base));
        return dead->release_teardown_reference();
    }

    ptr<T> construct() {
        if constexpr (requires { this->final_construct(); }) {
            // A weak reference for the time of the construction: weak ones that come and go in it free
            // nothing.
            object_base* const base = this;
            base->add_weak_reference();
            struct guard {
                object* pending;
                ~guard() {
                    if (pending) pending->destroy();
                }
            } unwinding{this};
            this->final_construct();
            unwinding.pending = nullptr;
            whole_ = true;
            ptr<T> first(static_cast<T*>(this));
            base->release_weak_reference();
            return first;
        } else {
            whole_ = true;
            return static_cast<T*>(this);
        }
    }

    bool whole_ = false;  // between construction and teardown: only then does the last release tear down
};

template <class T, class... Arguments>
ptr<T> create_object(Arguments&&... arguments) {
    auto* const created = new object<T>(std::forward<Arguments>(arguments)...);  // counts itself from here on
    return created->construct();
}

}  // namespace com
