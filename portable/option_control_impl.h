#pragma once

#include "portable/IHwndWidget.h"
#include "portable/basic_facade.h"
#include "scene/handler_slot.h"
#include "ui/mossHarbour/IOptionControl.h"

#include <functional>
#include <utility>

namespace ui::mossHarbour::option_control_impl {

/// What the form on the screen tells the facade.
struct facade : IUnknown {
    virtual void fire_changed(IPanel* panel) = 0;
};

/// What the facade asks of the form on the screen.
struct materialization : IMaterializedElement {
    virtual void add_option(const wchar_t* text) = 0;
    virtual void select_option(int index) = 0;
    virtual int get_selection() = 0;
};

}  // namespace ui::mossHarbour::option_control_impl

template <>
struct com::interface_traits<ui::mossHarbour::option_control_impl::facade> : com::extends<> {
    static constexpr GUID id = com::guid("E0B4F956-348D-48B7-8730-972359C56BBB");
};

template <>
struct com::interface_traits<ui::mossHarbour::option_control_impl::materialization>
    : com::extends<ui::mossHarbour::IMaterializedElement> {
    static constexpr GUID id = com::guid("067F6A5D-40AA-4074-9BF4-340536C622B0");
};

namespace ui::mossHarbour::option_control_impl {

class facade_impl : public basic_facade<facade_impl, IOptionControl, facade, materialization> {
public:
    // IOptionControl
    void add_option(const wchar_t* text) override { live().add_option(text); }
    void select_option(int index) override { live().select_option(index); }
    int get_selection() override { return live().get_selection(); }
    void set_on_selection_changed(std::function<void(IPanel*)> handler) override {
        on_changed.set(std::move(handler));
    }
    // facade
    void fire_changed(IPanel* panel) override { on_changed.call(panel); }

protected:
    ~facade_impl() = default;

private:
    d2d::scene::handler_slot<std::function<void(IPanel*)>> on_changed;
};

/// The native form: there is no other.
[[nodiscard]] com::ptr<IHwndWidget> make_win32_widget();

}  // namespace ui::mossHarbour::option_control_impl
