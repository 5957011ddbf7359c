#include "banner.h"

#include "common/shapes.h"
#include "icons.h"
#include "water.h"

namespace gallery {
namespace {

constexpr auto no_options = D2D1_DRAW_TEXT_OPTIONS_NONE;

}  // namespace

void banner::place(float width) {
    const auto context = band->draw(true);
    band->set_clip_rect({0, 0, width, height});
    context->fill_geometry(sketch::rectangle(0, 0, width, height).get(), style.dark.get());
    context->fill_geometry(water(width, height - 20, height, 12).get(), style.foam.get());
    context->fill_geometry(water(width, height - 10, height, 36).get(), style.foam.get());
    const auto anchor = d2d::factory::parse_svg_path(icons::anchor, {{{1.5f, 0, 0, 1.5f, 22, 14}}});
    context->fill_geometry(anchor.get(), style.tint.get());
    const auto name = style.title->create_layout(L"mossHarbour.ui", 0, 0);
    context->draw_text_layout(72, 10, name.get(), style.card.get(), no_options);
    const auto words = style.body->create_layout(L"The controls of the scene, all of them live", 0, 0);
    context->draw_text_layout(72, 40, words.get(), style.faint_foam.get(), no_options);
}

}  // namespace gallery
