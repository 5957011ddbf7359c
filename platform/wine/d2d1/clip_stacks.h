#pragma once

#include <d2d1.h>

#include <mutex>
#include <optional>
#include <unordered_map>
#include <vector>

namespace completion {

[[nodiscard]] bool leaves_nothing(const D2D1_RECT_F& clip) noexcept;

/// What two clips have in common; nothing lies at the corner of the second one.
[[nodiscard]] D2D1_RECT_F common(const D2D1_RECT_F& a, const D2D1_RECT_F& b) noexcept;

/// The rectangle around what the target's transform makes of one.
[[nodiscard]] D2D1_RECT_F behind_transform(ID2D1RenderTarget* target, const D2D1_RECT_F& rect);

/// The clips of all targets that have some, behind the transform, each cut by those beneath it. From any
/// thread.
class clip_stacks {
public:
    [[nodiscard]] static clip_stacks& all();

    /// Returns what the new clip leaves.
    D2D1_RECT_F push(ID2D1RenderTarget* target, const D2D1_RECT_F& clip);
    void pop(ID2D1RenderTarget* target) noexcept;
    /// What all clips of the target leave; nothing when it has none.
    [[nodiscard]] std::optional<D2D1_RECT_F> top(ID2D1RenderTarget* target);

private:
    std::mutex mutex_;
    std::unordered_map<ID2D1RenderTarget*, std::vector<D2D1_RECT_F>> stacks_;
};

}  // namespace completion
