#pragma once

#include "com/ptr.h"
#include "d2d/scene/IBitmap.h"
#include "d2d/scene/IBrush.h"
#include "d2d/scene/ITextFormat.h"

namespace d2d::ui::tree {

/// What a row's text lies on.
struct background {
    com::ptr<scene::IBrush> fill;
    com::ptr<scene::IBrush> outline;
};

/// What rows are drawn with: colours and font of the system as they are when this is made. A `d2d::factory`
/// has to be alive.
struct looks {
    looks();

    background hot;
    background selected;  // while the view has the focus
    background inactive;  // selected while it has not
    com::ptr<scene::ITextFormat> text_format;
    com::ptr<scene::IBrush> text_brush;
    com::ptr<scene::IBrush> selected_text_brush;
    com::ptr<scene::IBrush> inactive_text_brush;
    com::ptr<scene::IBitmap> collapsed_icon;
    com::ptr<scene::IBitmap> expanded_icon;
};

}  // namespace d2d::ui::tree
