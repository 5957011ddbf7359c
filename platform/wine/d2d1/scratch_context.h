#pragma once

#include "bitmap_transfer.h"
#include "owned.h"

#include <optional>

namespace completion {

/// A small context of another one's device, cleared, to find out what drawing does.
class scratch_context {
public:
    static constexpr UINT size = 16;

    explicit scratch_context(ID2D1DeviceContext* other);

    /// Null when it can't be made.
    [[nodiscard]] ID2D1DeviceContext* get() const noexcept { return target_ ? context_.get() : nullptr; }

    /// What the drawing leaves; nothing when it fails.
    template <typename Drawing>
    [[nodiscard]] std::optional<pixel_image> draw(Drawing drawing) const {
        context_->BeginDraw();
        context_->Clear(nullptr);
        drawing();
        return SUCCEEDED(context_->EndDraw()) ? read_bitmap(context_.get(), target_.get()) : std::nullopt;
    }

private:
    owned<ID2D1DeviceContext> context_;
    owned<ID2D1Bitmap1> target_;
};

}  // namespace completion
