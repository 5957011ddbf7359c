#pragma once

#include "portable/ID2dWidget.h"
#include "portable/IHwndWidget.h"
#include "portable/basic_facade.h"
#include "scene/handler_slot.h"
#include "ui/mossHarbour/IPushButtonControl.h"

#include <functional>
#include <utility>

namespace ui::mossHarbour::push_button_control_impl {

/// What the form on the screen tells the facade.
struct facade : IUnknown {
    virtual void fire_click(IPanel* panel) = 0;
};

/// What the facade asks of the form on the screen.
struct materialization : IMaterializedElement {
    virtual void set_text(const wchar_t* text) = 0;
    virtual void set_enabled(bool enabled) = 0;
};

}  // namespace ui::mossHarbour::push_button_control_impl

template <>
struct com::interface_traits<ui::mossHarbour::push_button_control_impl::facade> : com::extends<> {
    static constexpr GUID id = com::guid("54967F47-2A94-4E9E-91DA-261BD29FEF67");
};

template <>
struct com::interface_traits<ui::mossHarbour::push_button_control_impl::materialization>
    : com::extends<ui::mossHarbour::IMaterializedElement> {
    static constexpr GUID id = com::guid("9D23A256-5A7E-4A3A-8952-AED07A007E78");
};

namespace ui::mossHarbour::push_button_control_impl {

class facade_impl : public basic_facade<facade_impl, IPushButtonControl, facade, materialization> {
public:
    // IPushButtonControl
    void set_text(const wchar_t* text) override { live().set_text(text); }
    void set_enabled(bool enabled) override { live().set_enabled(enabled); }
    void set_on_click(std::function<void(IPanel*)> handler) override { on_click.set(std::move(handler)); }
    // facade
    void fire_click(IPanel* panel) override { on_click.call(panel); }

protected:
    ~facade_impl() = default;

private:
    d2d::scene::handler_slot<std::function<void(IPanel*)>> on_click;
};

/// The form on the scene.
[[nodiscard]] com::ptr<ID2dWidget> make_d2d_widget();
/// The native form.
[[nodiscard]] com::ptr<IHwndWidget> make_win32_widget();

}  // namespace ui::mossHarbour::push_button_control_impl
