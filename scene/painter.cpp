#include "scene/painter.h"

#include "com/check.h"
#include "scene/materialized_effect.h"
#include "scene/rectangle.h"

#include <cassert>

#include <d2d1_1.h>

namespace d2d::scene {

void painter::paint(node& root) {
    walk_tree(
        root, [this](node& at) { return enter(at); }, [this](node& at) { leave(at); });
}

bool painter::enter(node& at) {
    if (at.clip_flags & node::has_transform) {
        assert(depth < saved.size());
        saved[depth++] = world;
        world = multiply(at.transform, world);
        target->SetTransform(&world);
    }
    if (at.content_flags & node::content_animated) {
        for (command& recorded : at.foreground) update_command(recorded, time);
        for (command& recorded : at.background) update_command(recorded, time);
    }
    if (at.clip_flags & node::has_clip) {
        target->PushAxisAlignedClip(&at.clip_rect, D2D1_ANTIALIAS_MODE_PER_PRIMITIVE);
    }
    if (!at.background.empty()) {
        if (at.effect_binding) {
            replay_through_effect(at);
        } else {
            replay(at.background);
        }
    }
    return (at.content_flags & node::has_subtree_bounds) != 0;
}

void painter::leave(node& at) {
    replay(at.foreground);
    if (at.clip_flags & node::has_clip) target->PopAxisAlignedClip();
    if (at.clip_flags & node::has_transform) {
        world = saved[--depth];
        target->SetTransform(&world);
    }
}

void painter::replay(const command_list& commands) const {
    for (const command& recorded : commands) replay_command(recorded, target);
}

void painter::replay_through_effect(const node& at) const {
    const D2D_RECT_F area = map_rect(at.content_bounds, world);
    const D2D_SIZE_F size{area.right - area.left, area.bottom - area.top};
    com::ptr<ID2D1BitmapRenderTarget> layer;
    com::check(target->CreateCompatibleRenderTarget(&size, nullptr, nullptr,
                                                    D2D1_COMPATIBLE_RENDER_TARGET_OPTIONS_NONE, layer.put()));
    const D2D_MATRIX_3X2_F to_layer = multiply(world, translation_matrix(-area.left, -area.top));
    layer->BeginDraw();
    layer->Clear(nullptr);
    layer->SetTransform(&to_layer);
    for (const command& recorded : at.background) replay_command(recorded, layer.get());
    com::check(layer->EndDraw(nullptr, nullptr));
    com::ptr<ID2D1Bitmap> picture;
    com::check(layer->GetBitmap(picture.put()));

    target->SetTransform(&identity_matrix);
    const com::ptr<ID2D1DeviceContext> context(target);
    const D2D_POINT_2F offset{area.left, area.top};
    context->DrawImage(at.effect_binding->get()->apply(picture.get()), &offset, nullptr,
                       D2D1_INTERPOLATION_MODE_LINEAR, D2D1_COMPOSITE_MODE_SOURCE_OVER);
    target->SetTransform(&world);
}

}  // namespace d2d::scene
