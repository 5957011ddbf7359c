#pragma once

#include "controls/control_impl.h"
#include "d2d/ui/ILabelStyle.h"

#include <utility>

namespace d2d {

/// Base of the labels: a brush. `Derived` has `void redraw()`, which draws the label anew.
template <class Derived, class Interface, class... More>
class label_impl : public control_impl<Derived, ui::ILabelStyle, Interface, More...> {
public:
    // ILabel
    void set_brush(com::ptr<scene::IBrush> new_brush) override {
        if (brush == new_brush) return;
        brush = std::move(new_brush);
        this->derived()->redraw();
    }

protected:
    explicit label_impl(IUnknown* style_source)
        : control_impl<Derived, ui::ILabelStyle, Interface, More...>(style_source) {}
    ~label_impl() = default;

    [[nodiscard]] com::ptr<scene::IBrush> effective_brush() const {
        return brush ? brush : this->style->text_brush(true);
    }

private:
    com::ptr<scene::IBrush> brush;  // null: the style's
};

}  // namespace d2d
