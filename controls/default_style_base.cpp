#include "controls/default_style_base.h"

#include "controls/style_brush.h"

#include <utility>

namespace d2d {
namespace {

com::ptr<scene::ITextFormat> find_label_format(ui::IStyleSettings& values) {
    auto format = values.get_text_format("normal.label.text");
    if (!format) unrecognized_style_key();
    return format;
}

}  // namespace

default_style_base::default_style_base(com::ptr<ui::IStyleSettings> values)
    : settings(std::move(values)), label_format(find_label_format(*settings)) {}

com::ptr<scene::IBrush> default_style_base::brush(std::string_view key) const {
    return style_brush(*settings, key);
}

_D3DCOLORVALUE default_style_base::color(std::string_view key) const {
    const auto found = settings->get_color(key);
    if (!found) unrecognized_style_key();
    return *found;
}

void default_style_base::fill(scene::IDrawingContext* context, ID2D1Geometry* shape,
                              std::string_view key) const {
    context->fill_geometry(shape, brush(key).get());
}

void default_style_base::stroke(scene::IDrawingContext* context, ID2D1Geometry* shape,
                                std::string_view key) const {
    context->draw_geometry(shape, brush(key).get(), 1, nullptr);
}

}  // namespace d2d
