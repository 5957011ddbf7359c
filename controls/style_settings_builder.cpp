#include "controls/style_settings_builder.h"

#include "com/object.h"
#include "controls/default_style_settings.h"

#include <stdexcept>
#include <utility>

namespace d2d {
namespace {

[[noreturn]] void not_implemented() {
    throw std::logic_error("not implemented");
}

}  // namespace

void style_settings_builder::set_color(std::string_view, _D3DCOLORVALUE) {
    not_implemented();
}

void style_settings_builder::set_bool(std::string_view, bool) {
    not_implemented();
}

void style_settings_builder::set_text_format(std::string_view, com::ptr<scene::ITextFormat>) {
    not_implemented();
}

void style_settings_builder::set_float(std::string_view, float) {
    not_implemented();
}

void style_settings_builder::set_size(std::string_view, D2D_SIZE_F) {
    not_implemented();
}

com::ptr<ui::IStyleSettings> style_settings_builder::build() {
    auto built = com::create_object<default_style_settings>();
    built->bools = std::exchange(built_bools, {});
    built->colors = std::exchange(built_colors, {});
    built->text_formats = std::exchange(built_text_formats, {});
    built->sort();
    return built;
}

namespace ui {

com::ptr<IStyleSettingsBuilder> create_style_settings_builder(bool with_defaults) {
    auto builder = com::create_object<style_settings_builder>();
    if (with_defaults) builder->load_defaults();
    return builder;
}

}  // namespace ui
}  // namespace d2d
