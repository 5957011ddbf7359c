#pragma once

#include "com/base_object.h"
#include "com/ptr.h"
#include "d2d/scene/IVisual.h"

#include <dwrite.h>

namespace d2d::line_edit {

/// A line edit's text, painted by a `text_renderer`.
class text_visual : public com::base_object<com::object_base, scene::IVisual> {
public:
    explicit text_visual(const D2D_RECT_F& edit_rect) noexcept : bounds(edit_rect) {}

    // IVisual
    void attach(ISite*) override {}
    void detach(ISite*) override {}
    std::optional<animation> get_animation() override { return {}; }
    void render(ID2D1RenderTarget* target) override;
    bool hit_test(float x, float y, float tolerance) override;
    void animate(double) override {}
    void bind(scene::IResourceBindingContext* context) override;
    void unbind(scene::IResourceBindingContext* context) override;
    D2D_RECT_F get_bounds() override { return bounds; }

    D2D_POINT_2F origin{};  // of the layout
    D2D_RECT_F bounds;      // the control's rectangle
    com::ptr<IDWriteTextLayout> layout;

protected:
    ~text_visual() = default;

private:
    com::ptr<ID2D1SolidColorBrush> brush;  // while bound to a target
};

}  // namespace d2d::line_edit
