#pragma once

#include "com/api.h"
#include "d2d/ui/ILabel.h"

namespace d2d::ui {

/// A label that fills one geometry. Drawn around (0, 0) it is centred where the label is placed. It takes
/// part in no layout: `measure` and `arrange` throw `std::logic_error` "not implemented".
struct IIconLabel : ILabel {
    /// Keeps a reference. Throws `com::error` when the platform cannot tell the bounds; the label stays as it
    /// was then.
    virtual void set_geometry(ID2D1Geometry* geometry) = 0;
};

/// A label of `geometry`, which is kept. Throws like `set_geometry`.
[[nodiscard]] MOSSHARBOUR_API com::ptr<IIconLabel> create_icon_label(ID2D1Geometry* geometry,
                                                                     IUnknown* style);

}  // namespace d2d::ui

template <>
struct com::interface_traits<d2d::ui::IIconLabel> : com::extends<d2d::ui::ILabel> {
    static constexpr GUID id = com::guid("4FF4C336-6A0E-4690-BA24-4D2DE6E5DA27");
};
