#pragma once

#include "portable/ID2dWidget.h"
#include "portable/IHwndWidget.h"
#include "portable/basic_facade.h"
#include "scene/handler_slot.h"
#include "ui/mossHarbour/ICheckBoxControl.h"

#include <functional>
#include <utility>

namespace ui::mossHarbour::check_box_control_impl {

/// What the form on the screen tells the facade.
struct facade : IUnknown {
    virtual void fire_toggled(IPanel* panel, bool checked) = 0;
};

/// What the facade asks of the form on the screen.
struct materialization : IMaterializedElement {
    virtual void set_text(const wchar_t* text) = 0;
    virtual bool is_checked() = 0;
    virtual void set_checked(bool checked) = 0;
};

}  // namespace ui::mossHarbour::check_box_control_impl

template <>
struct com::interface_traits<ui::mossHarbour::check_box_control_impl::facade> : com::extends<> {
    static constexpr GUID id = com::guid("7D7516D3-B074-4F30-9A35-3EA5D774BF7A");
};

template <>
struct com::interface_traits<ui::mossHarbour::check_box_control_impl::materialization>
    : com::extends<ui::mossHarbour::IMaterializedElement> {
    static constexpr GUID id = com::guid("8709EDD4-F01C-4682-BA9F-E91A0F3FFDA3");
};

namespace ui::mossHarbour::check_box_control_impl {

class facade_impl : public basic_facade<facade_impl, ICheckBoxControl, facade, materialization> {
public:
    // ICheckBoxControl
    void set_text(const wchar_t* text) override { live().set_text(text); }
    bool is_checked() override { return live().is_checked(); }
    void set_checked(bool checked) override { live().set_checked(checked); }
    void set_on_toggled(std::function<void(IPanel*, bool)> handler) override {
        on_toggled.set(std::move(handler));
    }
    // facade
    void fire_toggled(IPanel* panel, bool checked) override { on_toggled.call(panel, checked); }

protected:
    ~facade_impl() = default;

private:
    d2d::scene::handler_slot<std::function<void(IPanel*, bool)>> on_toggled;
};

/// The form on the scene.
[[nodiscard]] com::ptr<ID2dWidget> make_d2d_widget();
/// The native form.
[[nodiscard]] com::ptr<IHwndWidget> make_win32_widget();

}  // namespace ui::mossHarbour::check_box_control_impl
