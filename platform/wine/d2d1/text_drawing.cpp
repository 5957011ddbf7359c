// Wine makes the pictures of all glyphs anew whenever a layout is drawn, also where no pixel of it shows. A
// window full of text took most of its time with that, for each small part that was painted.

#include "text_drawing.h"

#include "clip_stacks.h"
#include "guarded.h"
#include "table_slot.h"

#include <algorithm>

#include <dwrite.h>

namespace completion {

namespace {

using draw_layout_method = void (STDMETHODCALLTYPE ID2D1RenderTarget::*)(D2D1_POINT_2F, IDWriteTextLayout*,
                                                                         ID2D1Brush*, D2D1_DRAW_TEXT_OPTIONS);

table_slot<draw_layout_method> layout_slot{&ID2D1RenderTarget::DrawTextLayout};

/// Whether no pixel of the layout can show. Ink may leave the box of its lines, by less than their height.
bool lies_outside(ID2D1RenderTarget* target, D2D1_POINT_2F origin, IDWriteTextLayout* layout) {
    const auto clip = clip_stacks::all().top(target);
    DWRITE_TEXT_METRICS text{};
    if (!clip || !layout || FAILED(layout->GetMetrics(&text))) {
        return false;
    }
    const float left = origin.x + text.left;
    const float top = origin.y + text.top;
    const float width = std::max(text.width, text.widthIncludingTrailingWhitespace);
    const D2D1_RECT_F ink{left - text.height, top - text.height, left + width + text.height,
                          top + 2 * text.height};
    return leaves_nothing(common(behind_transform(target, ink), *clip));
}

void STDMETHODCALLTYPE draw_layout(ID2D1RenderTarget* self, D2D1_POINT_2F origin, IDWriteTextLayout* layout,
                                   ID2D1Brush* fill, D2D1_DRAW_TEXT_OPTIONS options) noexcept {
    bool outside = false;
    static_cast<void>(guarded([&] {
        outside = lies_outside(self, origin, layout);
        return S_OK;
    }));
    if (!outside) {
        layout_slot.original()(self, origin, layout, fill, options);
    }
}

}  // namespace

void complete_text_drawing(ID2D1DeviceContext* context) {
    layout_slot.replace(context, &draw_layout);
}

}  // namespace completion
