#pragma once

#include "portable/ID2dWidget.h"
#include "portable/IHwndWidget.h"
#include "portable/basic_facade.h"
#include "scene/handler_slot.h"
#include "ui/mossHarbour/IEditControl.h"

#include <functional>
#include <utility>

namespace ui::mossHarbour::edit_control_impl {

/// What the form on the screen tells the facade.
struct facade : IUnknown {
    virtual void fire_changed(IPanel* panel) = 0;
};

/// What the facade asks of the form on the screen.
struct materialization : IMaterializedElement {
    virtual void set_text(const wchar_t* text) = 0;
    virtual void get_text(wchar_t* buffer, int capacity) = 0;
};

}  // namespace ui::mossHarbour::edit_control_impl

template <>
struct com::interface_traits<ui::mossHarbour::edit_control_impl::facade> : com::extends<> {
    static constexpr GUID id = com::guid("88CAA40F-3D05-4654-A545-8E6CAE08D35B");
};

template <>
struct com::interface_traits<ui::mossHarbour::edit_control_impl::materialization>
    : com::extends<ui::mossHarbour::IMaterializedElement> {
    static constexpr GUID id = com::guid("2EFD5373-B500-40CD-8902-9B95BA2046AF");
};

namespace ui::mossHarbour::edit_control_impl {

class facade_impl : public basic_facade<facade_impl, IEditControl, facade, materialization> {
public:
    // IEditControl
    void set_text(const wchar_t* text) override { live().set_text(text); }
    void get_text(wchar_t* buffer, int capacity) override { live().get_text(buffer, capacity); }
    void set_on_changed(std::function<void(IPanel*)> handler) override { on_changed.set(std::move(handler)); }
    // facade
    void fire_changed(IPanel* panel) override { on_changed.call(panel); }

protected:
    ~facade_impl() = default;

private:
    d2d::scene::handler_slot<std::function<void(IPanel*)>> on_changed;
};

/// The form on the scene.
[[nodiscard]] com::ptr<ID2dWidget> make_d2d_widget();
/// The native form.
[[nodiscard]] com::ptr<IHwndWidget> make_win32_widget();

}  // namespace ui::mossHarbour::edit_control_impl
