#pragma once

#include "portable/ID2dWidget.h"
#include "portable/IHwndWidget.h"
#include "portable/basic_facade.h"
#include "scene/handler_slot.h"
#include "ui/mossHarbour/IRadioButtonControl.h"

#include <functional>
#include <utility>

namespace ui::mossHarbour::radio_button_control_impl {

/// What the form on the screen asks and tells the facade.
struct facade : IUnknown {
    virtual bool is_group_start() = 0;
    virtual void fire_click(IPanel* panel) = 0;
};

/// What the facade asks of the form on the screen.
struct materialization : IMaterializedElement {
    virtual void set_text(const wchar_t* text) = 0;
    virtual void set_checked(bool checked) = 0;
    virtual bool is_checked() = 0;
};

}  // namespace ui::mossHarbour::radio_button_control_impl

template <>
struct com::interface_traits<ui::mossHarbour::radio_button_control_impl::facade> : com::extends<> {
    static constexpr GUID id = com::guid("88F2A083-C5D4-46DB-97FB-615E06E98757");
};

template <>
struct com::interface_traits<ui::mossHarbour::radio_button_control_impl::materialization>
    : com::extends<ui::mossHarbour::IMaterializedElement> {
    static constexpr GUID id = com::guid("08D35DCB-5CF0-4FD1-B40E-FB3BD5B9407F");
};

namespace ui::mossHarbour::radio_button_control_impl {

class facade_impl : public basic_facade<facade_impl, IRadioButtonControl, facade, materialization> {
public:
    explicit facade_impl(bool first_of_group) noexcept : group_start(first_of_group) {}

    // IRadioButtonControl
    void set_text(const wchar_t* text) override { live().set_text(text); }
    void set_checked(bool checked) override { live().set_checked(checked); }
    bool is_checked() override { return live().is_checked(); }
    void set_on_click(std::function<void(IPanel*)> handler) override { on_click.set(std::move(handler)); }
    // facade
    bool is_group_start() override { return group_start; }
    void fire_click(IPanel* panel) override { on_click.call(panel); }

protected:
    ~facade_impl() = default;

private:
    const bool group_start;
    d2d::scene::handler_slot<std::function<void(IPanel*)>> on_click;
};

/// The form on the scene.
[[nodiscard]] com::ptr<ID2dWidget> make_d2d_widget();
/// The native form.
[[nodiscard]] com::ptr<IHwndWidget> make_win32_widget();

}  // namespace ui::mossHarbour::radio_button_control_impl
