#pragma once

#include "d2d/ui/IStyle.h"

namespace d2d::ui {

/// How labels look that nobody gave a brush or a format.
struct ILabelStyle : IStyle {
    virtual com::ptr<scene::IBrush> text_brush(bool enabled) = 0;
    virtual com::ptr<scene::ITextFormat> text_format() = 0;
};

}  // namespace d2d::ui

template <>
struct com::interface_traits<d2d::ui::ILabelStyle> : com::extends<d2d::ui::IStyle> {
    static constexpr GUID id = com::guid("E57E7307-F63E-4D60-8886-81614AA4D301");
};
