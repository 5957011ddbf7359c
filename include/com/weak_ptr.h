#pragma once

#include "com/object_base.h"
#include "com/ptr.h"

#include <cstddef>
#include <utility>

namespace com {

/// A weak reference to an object of class `T`: keeps its storage, not its life. `lock` gives a strong
/// reference while there is one, and null from the moment the last one goes. How an object captures itself in
/// a handler that it hands to something it owns. `T` derives from `com::object_base`, and may be incomplete
/// here.
template <class T>
class weak_ptr {
public:
    constexpr weak_ptr() noexcept = default;
    constexpr weak_ptr(std::nullptr_t) noexcept {}
    weak_ptr(T* object) noexcept : target_(object) { add_reference(); }
    weak_ptr(const ptr<T>& object) noexcept : weak_ptr(object.get()) {}
    weak_ptr(const weak_ptr& other) noexcept : target_(other.target_) { add_reference(); }
    weak_ptr(weak_ptr&& other) noexcept : target_(std::exchange(other.target_, nullptr)) {}
    ~weak_ptr() {
        if (target_) target_->release_weak_reference();
    }

    weak_ptr& operator=(const weak_ptr& other) noexcept {
        weak_ptr(other).swap(*this);
        return *this;
    }
    weak_ptr& operator=(weak_ptr&& other) noexcept {
        weak_ptr(std::move(other)).swap(*this);
        return *this;
    }

    void swap(weak_ptr& other) noexcept { std::swap(target_, other.target_); }

    [[nodiscard]] ptr<T> lock() const noexcept {
        if (!target_ || !target_->lock_reference()) return {};
        return ptr<T>::attach(static_cast<T*>(target_));
    }

private:
    void add_reference() const noexcept {
        if (target_) target_->add_weak_reference();
    }

    object_base* target_ = nullptr;
};

}  // namespace com
