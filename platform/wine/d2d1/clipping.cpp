// Two clips without a common pixel leave nothing to draw on. Wine passes on their intersection, whose sides
// are exchanged then; OpenGL refuses it, and drawing goes on with the clip that was set before.

#include "clipping.h"

#include "clip_stacks.h"
#include "guarded.h"
#include "owned.h"
#include "plane.h"
#include "scratch_context.h"
#include "table_slot.h"

namespace completion {

namespace {

using push_method = void (STDMETHODCALLTYPE ID2D1RenderTarget::*)(const D2D1_RECT_F*, D2D1_ANTIALIAS_MODE);

table_slot<push_method> push_slot{&ID2D1RenderTarget::PushAxisAlignedClip};
table_slot<decltype(&ID2D1RenderTarget::PopAxisAlignedClip)> pop_slot{&ID2D1RenderTarget::PopAxisAlignedClip};

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
        const D2D1_RECT_F left = clip_stacks::all().push(self, behind_transform(self, *clip));
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
    clip_stacks::all().pop(self);
    pop_slot.original()(self);
}

}  // namespace

void complete_clipping(ID2D1DeviceContext* context) {
    push_slot.replace(context, &push_clip);
    pop_slot.replace(context, &pop_clip);
}

}  // namespace completion
