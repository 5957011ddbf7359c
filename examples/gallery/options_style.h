#pragma once

#include "com/object.h"
#include "d2d/ui/IPopupOptionsStyle.h"
#include "look.h"

namespace gallery {

/// The default style with another colour for the text of the option that is about to be chosen: a style of
/// one's own need not draw everything itself.
class options_style : public com::base_object<com::object_base, d2d::ui::IPopupOptionsStyle> {
public:
    explicit options_style(look::brush chosen) : chosen_text(std::move(chosen)) {}

    com::ptr<d2d::ui::IStyleSettings> get_settings() override { return usual->get_settings(); }
    look::brush label_brush(bool enabled, bool hot) override {
        return hot ? chosen_text : usual->label_brush(enabled, hot);
    }
    void draw_frame(d2d::scene::IDrawingContext* context, ID2D1Geometry* shape, bool hot,
                    bool focused) override {
        usual->draw_frame(context, shape, hot, focused);
    }
    void draw_option(d2d::scene::IDrawingContext* context, ID2D1Geometry* shape, bool hot,
                     bool down) override {
        usual->draw_option(context, shape, hot, down);
    }

private:
    const look::brush chosen_text;
    const com::ptr<d2d::ui::IPopupOptionsStyle> usual{d2d::ui::get_default_style(nullptr)};
};

}  // namespace gallery
