#pragma once

#include "com/count_word.h"

#include <unknwn.h>

namespace com {

/// First base of every class of the object model: the count word and the two operations that outlive the
/// object.
///
/// Destruction and the freeing of the storage are two moments. Between them, while weak references remain,
/// the storage carries a table of the class's own with just these two operations (see `com::object`).
class object_base {
public:
    object_base(const object_base&) = delete;
    object_base& operator=(const object_base&) = delete;

private:
    /// Frees the storage of the whole object and runs no destructor. Does nothing while constructors and
    /// destructors run: the storage is not the last weak reference's to free then.
    virtual void free_storage() noexcept {}

public:
    /// The object's identity: its first listed interface. No reference is added.
    [[nodiscard]] virtual IUnknown* get_IUnknown() noexcept = 0;

    /// Takes a weak reference.
    void add_weak_reference() noexcept { count_.add_weak(); }

    /// Gives a weak reference back, and frees the storage with the last one. Returns the new word.
    std::uint32_t release_weak_reference() noexcept {
        const std::uint32_t before = count_.drop_weak();
        if (before == count_word::one_weak) free_storage();
        return before - count_word::one_weak;
    }

    /// The same at the end of a teardown, when nobody else is expected to hold one.
    std::uint32_t release_teardown_reference() noexcept {
        if (!count_.only_weak()) return release_weak_reference();
        free_storage();
        return 0;
    }

    /// Makes a strong reference from a weak one that the caller holds; false when the object is gone or
    /// going.
    [[nodiscard]] bool lock_reference() noexcept { return count_.lock(); }

    /// The count word as it stands: for tests.
    [[nodiscard]] std::uint32_t reference_word() const noexcept { return count_.load(); }

protected:
    object_base() noexcept = default;
    explicit object_base(count_word::keep_tag keep) noexcept : count_(keep) {}
    ~object_base() = default;

    count_word count_;
};

}  // namespace com
