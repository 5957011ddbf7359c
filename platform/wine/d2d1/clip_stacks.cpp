#include "clip_stacks.h"

#include "plane.h"

#include <algorithm>

namespace completion {

bool leaves_nothing(const D2D1_RECT_F& clip) noexcept {
    return clip.right <= clip.left || clip.bottom <= clip.top;
}

D2D1_RECT_F common(const D2D1_RECT_F& a, const D2D1_RECT_F& b) noexcept {
    const D2D1_RECT_F both{std::max(a.left, b.left), std::max(a.top, b.top), std::min(a.right, b.right),
                           std::min(a.bottom, b.bottom)};
    return leaves_nothing(both) ? D2D1_RECT_F{b.left, b.top, b.left, b.top} : both;
}

D2D1_RECT_F behind_transform(ID2D1RenderTarget* target, const D2D1_RECT_F& rect) {
    D2D1_MATRIX_3X2_F transform{};
    target->GetTransform(&transform);
    const affine map(transform);
    extent covered;
    for (const point corner : {point{rect.left, rect.top}, point{rect.right, rect.top},
                               point{rect.left, rect.bottom}, point{rect.right, rect.bottom}}) {
        covered.add(map.apply(corner));
    }
    return covered.rectangle();
}

clip_stacks& clip_stacks::all() {
    static clip_stacks stacks;
    return stacks;
}

D2D1_RECT_F clip_stacks::push(ID2D1RenderTarget* target, const D2D1_RECT_F& clip) {
    const std::lock_guard lock(mutex_);
    std::vector<D2D1_RECT_F>& clips = stacks_[target];
    clips.push_back(clips.empty() ? clip : common(clip, clips.back()));
    return clips.back();
}

void clip_stacks::pop(ID2D1RenderTarget* target) noexcept {
    const std::lock_guard lock(mutex_);
    const auto found = stacks_.find(target);
    if (found == stacks_.end()) {
        return;
    }
    found->second.pop_back();
    if (found->second.empty()) {
        stacks_.erase(found);
    }
}

std::optional<D2D1_RECT_F> clip_stacks::top(ID2D1RenderTarget* target) {
    const std::lock_guard lock(mutex_);
    const auto found = stacks_.find(target);
    return found == stacks_.end() ? std::nullopt : std::optional(found->second.back());
}

}  // namespace completion
