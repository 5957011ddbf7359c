#pragma once

#include "com/interface_traits.h"
#include "portable/d2d_materialization_context.h"

namespace ui::mossHarbour {

/// The form of a control on the scene.
struct ID2dWidget : IUnknown {
    /// Joins the form to its facade and shows it. What fails leaves nothing behind.
    virtual void materialize(d2d_materialization_context& context, IUnknown* facade) = 0;
    virtual void dematerialize(d2d_materialization_context& context, IUnknown* facade) = 0;
};

}  // namespace ui::mossHarbour

template <>
struct com::interface_traits<ui::mossHarbour::ID2dWidget> : com::extends<> {
    static constexpr GUID id = com::guid("15FC184B-1A40-4BCA-B568-067FB2DF2771");
};
