#pragma once

#include "com/check.h"
#include "com/interface_traits.h"

#include <concepts>
#include <cstddef>
#include <type_traits>
#include <utility>

namespace com {

/// A strong reference to an object through interface (or library class) `T`: null, or one count on the
/// object.
///
/// Construction from a `T*` or a pointer to something derived from `T` adds a reference. Construction from a
/// pointer to any other interface asks it for `T`: null stays null, and an object that lacks `T` throws
/// `com::error` with the result of `QueryInterface`, so a conversion never turns a non-null pointer into
/// null. Assignment takes the new reference ahead of releasing the old one: `p = p->next` is safe.
template <class T>
class ptr {
public:
    constexpr ptr() noexcept = default;
    constexpr ptr(std::nullptr_t) noexcept {}

    /// Adds a reference.
    template <class U>
    requires std::convertible_to<U*, T*> ptr(U* object)
    noexcept : pointer_(object) { add_reference(); }

    /// Asks `object` for `T`; throws `com::error` when it has none.
    template <class U>
    requires(!std::convertible_to<U*, T*>) ptr(U* object) : pointer_(query(object)) {}

    ptr(const ptr& other) noexcept : pointer_(other.pointer_) { add_reference(); }
    ptr(ptr&& other) noexcept : pointer_(std::exchange(other.pointer_, nullptr)) {}

    template <class U>
    ptr(const ptr<U>& other) noexcept(std::convertible_to<U*, T*>) : ptr(other.get()) {}

    template <class U>
    requires std::convertible_to<U*, T*> ptr(ptr<U>&& other)
    noexcept : pointer_(other.detach()) {}

    ~ptr() {
        if (pointer_) pointer_->Release();
    }

    ptr& operator=(const ptr& other) noexcept {
        ptr(other).swap(*this);
        return *this;
    }
    ptr& operator=(ptr&& other) noexcept {
        ptr(std::move(other)).swap(*this);
        return *this;
    }

    [[nodiscard]] T* get() const noexcept { return pointer_; }
    T* operator->() const noexcept { return pointer_; }
    T& operator*() const noexcept { return *pointer_; }
    explicit operator bool() const noexcept { return pointer_ != nullptr; }

    /// Takes over a pointer together with the reference that somebody else took on it.
    [[nodiscard]] static ptr attach(T* object) noexcept {
        ptr result;
        result.pointer_ = object;
        return result;
    }

    /// Gives the pointer away with its reference, and becomes null.
    [[nodiscard]] T* detach() noexcept { return std::exchange(pointer_, nullptr); }

    void reset() noexcept { ptr().swap(*this); }
    void swap(ptr& other) noexcept { std::swap(pointer_, other.pointer_); }

    /// For a call that returns a referenced object through an argument: releases what is held and gives the
    /// address of the pointer.
    [[nodiscard]] T** put() noexcept {
        reset();
        return &pointer_;
    }
    /// The same for calls that take a `void**`.
    [[nodiscard]] void** put_void() noexcept { return reinterpret_cast<void**>(put()); }

    /// The interface `U` of this object, or null when it has none. Null for null.
    template <class U>
    [[nodiscard]] ptr<U> try_as() const noexcept {
        ptr<U> result;
        if (pointer_) static_cast<void>(pointer_->QueryInterface(guid_of<U>(), result.put_void()));
        return result;
    }

    template <class U>
    friend bool operator==(const ptr& a, const ptr<U>& b) noexcept {
        return a.get() == b.get();
    }
    template <class U>
    friend bool operator==(const ptr& a, U* b) noexcept {
        return a.get() == b;
    }
    friend bool operator==(const ptr& a, std::nullptr_t) noexcept { return a.get() == nullptr; }

private:
    template <class U>
    static T* query(U* object) {
        void* result = nullptr;
        if (object) check(object->QueryInterface(guid_of<T>(), &result));
        return static_cast<T*>(result);
    }

    void add_reference() const noexcept {
        if (pointer_) pointer_->AddRef();
    }

    T* pointer_ = nullptr;
};

}  // namespace com
