#pragma once

#include "portable/ID2dWidget.h"
#include "portable/IHwndWidget.h"
#include "portable/basic_facade.h"
#include "ui/mossHarbour/ILabelControl.h"

namespace ui::mossHarbour::label_control_impl {

/// What the form on the screen asks of the facade: nothing.
struct facade : IUnknown {};

/// What the facade asks of the form on the screen.
struct materialization : IMaterializedElement {
    virtual void set_text(const wchar_t* text) = 0;
};

}  // namespace ui::mossHarbour::label_control_impl

template <>
struct com::interface_traits<ui::mossHarbour::label_control_impl::facade> : com::extends<> {
    static constexpr GUID id = com::guid("109BF4D8-2AA7-4EDE-A991-E5B6D8D847BD");
};

template <>
struct com::interface_traits<ui::mossHarbour::label_control_impl::materialization>
    : com::extends<ui::mossHarbour::IMaterializedElement> {
    static constexpr GUID id = com::guid("5A4016D2-EEDF-4E1F-B485-C0D66BF92EBB");
};

namespace ui::mossHarbour::label_control_impl {

class facade_impl : public basic_facade<facade_impl, ILabelControl, facade, materialization> {
public:
    // ILabelControl
    void set_text(const wchar_t* text) override { live().set_text(text); }

protected:
    ~facade_impl() = default;
};

/// The form on the scene.
[[nodiscard]] com::ptr<ID2dWidget> make_d2d_widget();
/// The native form.
[[nodiscard]] com::ptr<IHwndWidget> make_win32_widget();

}  // namespace ui::mossHarbour::label_control_impl
