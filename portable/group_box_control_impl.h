#pragma once

#include "portable/ID2dWidget.h"
#include "portable/IHwndWidget.h"
#include "portable/basic_facade.h"
#include "portable/box_lengths.h"
#include "ui/mossHarbour/IGroupBoxControl.h"

#include <utility>

namespace ui::mossHarbour::group_box_control_impl {

/// What the form on the screen asks of the facade.
struct facade : IUnknown {
    virtual com::ptr<ILayout> get_content() = 0;
    virtual box_lengths get_padding() = 0;
};

/// What the facade asks of the form on the screen.
struct materialization : IMaterializedElement {
    virtual void set_text(const wchar_t* text) = 0;
};

}  // namespace ui::mossHarbour::group_box_control_impl

template <>
struct com::interface_traits<ui::mossHarbour::group_box_control_impl::facade> : com::extends<> {
    static constexpr GUID id = com::guid("8E144BC4-2255-4DA5-8001-E572356B9F68");
};

template <>
struct com::interface_traits<ui::mossHarbour::group_box_control_impl::materialization>
    : com::extends<ui::mossHarbour::IMaterializedElement> {
    static constexpr GUID id = com::guid("B6311CA9-E3CB-48E0-92AF-52A361B44F8D");
};

namespace ui::mossHarbour::group_box_control_impl {

class facade_impl : public basic_facade<facade_impl, IGroupBoxControl, facade, materialization> {
public:
    // IGroupBoxControl
    void set_text(const wchar_t* text) override { live().set_text(text); }
    void set_padding(int left, int top, int right, int bottom) override {
        require_not_materialized();
        padding = {left, top, right, bottom};
    }
    com::ptr<ILayout> set_content(com::ptr<ILayout> new_content) override {
        require_not_materialized();
        return std::exchange(content, std::move(new_content));
    }
    // facade
    com::ptr<ILayout> get_content() override { return content; }
    box_lengths get_padding() override { return padding; }

protected:
    ~facade_impl() = default;

private:
    com::ptr<ILayout> content;
    box_lengths padding{};
};

/// The form on the scene.
[[nodiscard]] com::ptr<ID2dWidget> make_d2d_widget();
/// The native form.
[[nodiscard]] com::ptr<IHwndWidget> make_win32_widget();

}  // namespace ui::mossHarbour::group_box_control_impl
