#include "controls/line_edit/text_visual.h"

#include "com/check.h"
#include "controls/line_edit/text_renderer.h"
#include "scene/rectangle.h"

namespace d2d::line_edit {

void text_visual::render(ID2D1RenderTarget* target) {
    if (!brush) return;  // its making has failed
    text_renderer renderer(*target, *brush);
    com::check(layout->Draw(nullptr, &renderer, origin.x, origin.y));
}

bool text_visual::hit_test(float x, float y, float) {
    return scene::contains(bounds, {x, y});
}

void text_visual::bind(scene::IResourceBindingContext* context) {
    constexpr _D3DCOLORVALUE black{0, 0, 0, 1};
    com::check(context->get_render_target()->CreateSolidColorBrush(&black, nullptr, brush.put()));
}

void text_visual::unbind(scene::IResourceBindingContext*) {
    brush.reset();
}

}  // namespace d2d::line_edit
