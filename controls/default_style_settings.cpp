#include "controls/default_style_settings.h"

#include "com/object.h"

namespace d2d {
namespace {
default_style_settings* current_default_settings;  // not owned
}

com::ptr<default_style_settings> default_style_settings::current() {
    if (current_default_settings) return current_default_settings;
    auto made = com::create_object<default_style_settings>();
    made->load_defaults();
    made->sort();
    return made;
}

default_style_settings::default_style_settings() {
    current_default_settings = this;
}

default_style_settings::~default_style_settings() {
    current_default_settings = nullptr;
}

}  // namespace d2d
