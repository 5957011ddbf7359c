#pragma once

#include "com/ptr.h"
#include "ui/mossHarbour/IElement.h"
#include "ui/mossHarbour/ILayout.h"

#include <string>
#include <vector>

#include <windows.h>

namespace client_test {

/// The two forms of portable controls.
enum class form { scene, native };

inline const std::vector<form> all_forms{form::scene, form::native};

/// For tests with a form as their parameter.
template <class ParameterInfo>
std::string name_of(const ParameterInfo& info) {
    return info.param == form::scene ? "scene" : "native";
}

/// An element in a stack of its own, with a size that is its only one.
[[nodiscard]] com::ptr<ui::mossHarbour::ILayout> fixed(const com::ptr<ui::mossHarbour::IElement>& element,
                                                       int width, int height);
/// A label without text, with such a size.
[[nodiscard]] com::ptr<ui::mossHarbour::ILayout> blank(int width, int height);

/// The height of the toolkit font.
[[nodiscard]] int font_height();

/// The size that a push button prefers on the scene.
[[nodiscard]] SIZE scene_button_size(const wchar_t* text);

}  // namespace client_test
