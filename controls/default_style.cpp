#include "controls/default_style.h"

#include "com/object.h"
#include "controls/default_style_settings.h"

#include <utility>

namespace d2d {
namespace {
default_style* current_default_style;  // not owned
}

default_style::default_style(com::ptr<ui::IStyleSettings> values) : default_style_base(std::move(values)) {
    current_default_style = this;
}

default_style::~default_style() {
    current_default_style = nullptr;
}

namespace ui {
namespace {

com::ptr<default_style> shared_style() {
    if (current_default_style) return current_default_style;
    return com::create_object<default_style>(default_style_settings::current());
}

/// Settings of a client's own are not taken yet: the style is made on empty ones, which fails.
com::ptr<default_style> style_on_own_settings() {
    return com::create_object<default_style>(com::create_object<default_style_settings>());
}

}  // namespace

com::ptr<IStyle> get_default_style(com::ptr<IStyleSettings> settings) {
    return settings ? style_on_own_settings() : shared_style();
}

}  // namespace ui
}  // namespace d2d
