#pragma once

#include "com/base_object.h"
#include "d2d/scene/INode.h"
#include "d2d/ui/IControl.h"
#include "d2d/ui/IStyle.h"

namespace d2d {

/// The interface `Style` of the object that a control is given as style, or of the default style for null.
/// Throws `com::error` when the object has none.
template <class Style>
[[nodiscard]] com::ptr<Style> resolve_style(IUnknown* style) {
    if (style) return com::ptr<Style>(style);
    return com::ptr<Style>(ui::get_default_style(nullptr).get());
}

/// Base of the scene's controls: a node, a style and a rectangle. `Derived` is the class of the control,
/// `Style` the interface that it draws itself by, `Interface` what it offers to clients, `More` what it
/// offers to the library.
///
/// What a control puts on its own node (handlers above all) refers to it by `com::weak_ptr`: the control owns
/// the node, and a scene may keep the node for longer.
template <class Derived, class Style, class Interface, class... More>
class control_impl : public com::base_object<com::object_base, Interface, More...> {
public:
    // IControl
    com::ptr<scene::INode> get_node() override { return node; }
    D2D_RECT_F get_rect() override { return rect; }

protected:
    /// `style_source` is null for the default style.
    explicit control_impl(IUnknown* style_source, D2D_RECT_F initial_rect = {})
        : style(resolve_style<Style>(style_source)), rect(initial_rect) {}
    ~control_impl() = default;

    [[nodiscard]] Derived* derived() noexcept { return static_cast<Derived*>(this); }

    const com::ptr<scene::INode> node = scene::create_node();
    const com::ptr<Style> style;
    D2D_RECT_F rect;  // in the node's space
};

}  // namespace d2d
