#pragma once

#include <wincodec.h>

namespace d2d {

/// A token that keeps the process-wide imaging factory alive, and the thread's COM apartment with it. The
/// first one makes it, the last one releases it; every `factory` token counts as one. For the thread of the
/// user interface alone.
class imaging_hold {
public:
    /// Throws `com::error` when the factory cannot be made. That is fatal: a later hold does not retry.
    imaging_hold() { take(); }
    imaging_hold(const imaging_hold&) { take(); }
    imaging_hold& operator=(const imaging_hold&) noexcept { return *this; }
    ~imaging_hold() { give_back(); }

    /// The imaging factory; no reference is added. Null while there is no hold.
    [[nodiscard]] static IWICImagingFactory* wic_factory() noexcept { return factory_; }

    /// The two halves of a hold, for an owner without fields.
    static void take() {
        if (users_++ == 0) create();
    }
    static void give_back() noexcept {
        if (--users_ == 0) release();
    }

private:
    static void create();
    static void release() noexcept;

    // Plain variables: nothing happens when the library is unloaded.
    static unsigned users_;
    static IWICImagingFactory* factory_;
};

}  // namespace d2d
