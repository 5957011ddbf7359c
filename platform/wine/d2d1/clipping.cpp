// Two clips without a common pixel leave nothing to draw on. Wine passes on their intersection, whose sides
// are exchanged then; OpenGL refuses it, and drawing goes on with the clip that was set before.

#include "clipping.h"

#include "guarded.h"
#include "owned.h"
#include "plane.h"
#include "scratch_context.h"
#include "table_slot.h"

#include <algorithm>
#include <mutex>
#include <unordered_map>
#include <vector>

namespace completion {

namespace {

using push_method = void (STDMETHODCALLTYPE ID2D1RenderTarget::*)(const D2D1_RECT_F*, D2D1_ANTIALIAS_MODE);

table_slot<push_method> push_slot{&ID2D1RenderTarget::PushAxisAlignedClip};
table_slot<decltype(&ID2D1RenderTarget::PopAxisAlignedClip)> pop_slot{&ID2D1RenderTarget::PopAxisAlignedClip};

bool leaves_nothing(const D2D1_RECT_F& clip) {
    return clip.right <= clip.left || clip.bottom <= clip.top;
}

/// What two clips have in common; nothing lies at the corner of the second one.
D2D1_RECT_F common(const D2D1_RECT_F& a, const D2D1_RECT_F& b) {
    const D2D1_RECT_F both{std::max(a.left, b.left), std::max(a.top, b.top), std::min(a.right, b.right),
                           std::min(a.bottom, b.bottom)};
    return leaves_nothing(both) ? D2D1_RECT_F{b.left, b.top, b.left, b.top} : both;
}

/// The clips of the targets that have some, behind the transform, each cut by those beneath it.
class clip_stacks {
public:
    /// Returns what the new clip leaves.
    D2D1_RECT_F push(ID2D1RenderTarget* target, const D2D1_RECT_F& clip) {
        const std::lock_guard lock(mutex_);
        std::vector<D2D1_RECT_F>& clips = stacks_[target];
        clips.push_back(clips.empty() ? clip : common(clip, clips.back()));
        return clips.back();
    }

    void pop(ID2D1RenderTarget* target) noexcept {
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

private:
    std::mutex mutex_;
    std::unordered_map<ID2D1RenderTarget*, std::vector<D2D1_RECT_F>> stacks_;
};

clip_stacks& stacks() {
    static clip_stacks all;
    return all;
}

/// Draws on a context of its own: a little inside one clip, and all over behind a second one elsewhere.
bool original_clips_to_nothing(ID2D1RenderTarget* any) {
    const scratch_context scratch(query<ID2D1DeviceContext>(any).get());
    ID2D1DeviceContext* const context = scratch.get();
    if (!context) {
        return true;
    }
    constexpr D2D1_COLOR_F white{1, 1, 1, 1};
    const auto fill = make<ID2D1SolidColorBrush>([&](ID2D1SolidColorBrush** result) {
        return context->CreateSolidColorBrush(&white, nullptr, result);
    });
    const auto drawn = scratch.draw([&] {
        constexpr D2D1_RECT_F little{0, 0, 1, 1};
        constexpr D2D1_RECT_F first{0, 0, 8, 8};
        constexpr D2D1_RECT_F second{10, 10, 16, 16};
        constexpr D2D1_RECT_F all{0, 0, scratch_context::size, scratch_context::size};
        push_slot.original()(context, &first, D2D1_ANTIALIAS_MODE_ALIASED);
        context->FillRectangle(&little, fill.get());
        push_slot.original()(context, &second, D2D1_ANTIALIAS_MODE_ALIASED);
        context->FillRectangle(&all, fill.get());
        pop_slot.original()(context);
        pop_slot.original()(context);
    });
    return drawn && drawn->at(4, 4)[3] == 0 && drawn->at(12, 12)[3] == 0;
}

D2D1_RECT_F behind_transform(ID2D1RenderTarget* target, const D2D1_RECT_F& clip) {
    D2D1_MATRIX_3X2_F transform{};
    target->GetTransform(&transform);
    const affine map(transform);
    extent covered;
    for (const point corner : {point{clip.left, clip.top}, point{clip.right, clip.top},
                               point{clip.left, clip.bottom}, point{clip.right, clip.bottom}}) {
        covered.add(map.apply(corner));
    }
    return covered.rectangle();
}

void push_untransformed(ID2D1RenderTarget* target, const D2D1_RECT_F& clip, D2D1_ANTIALIAS_MODE mode) {
    D2D1_MATRIX_3X2_F transform{};
    target->GetTransform(&transform);
    const D2D1_MATRIX_3X2_F identity = affine().matrix();
    target->SetTransform(&identity);
    push_slot.original()(target, &clip, mode);
    target->SetTransform(&transform);
}

void STDMETHODCALLTYPE push_clip(ID2D1RenderTarget* self, const D2D1_RECT_F* clip,
                                 D2D1_ANTIALIAS_MODE mode) noexcept {
    bool own = false;
    static_cast<void>(guarded([&] {
        const D2D1_RECT_F left = stacks().push(self, behind_transform(self, *clip));
        if (leaves_nothing(left)) {
            static const bool trusted = original_clips_to_nothing(self);
            own = !trusted;
        }
        if (own) {
            push_untransformed(self, left, mode);
        }
        return S_OK;
    }));
    if (!own) {
        push_slot.original()(self, clip, mode);
    }
}

void STDMETHODCALLTYPE pop_clip(ID2D1RenderTarget* self) noexcept {
    stacks().pop(self);
    pop_slot.original()(self);
}

}  // namespace

void complete_clipping(ID2D1DeviceContext* context) {
    push_slot.replace(context, &push_clip);
    pop_slot.replace(context, &pop_clip);
}

}  // namespace completion
