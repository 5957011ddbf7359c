#pragma once

#include "d2d/ui/ITextLabel.h"
#include "portable/d2d_materialization_impl.h"

#include <string_view>
#include <utility>

namespace ui::mossHarbour {

/// Base of the forms that show a text label inside a button. `Derived` has `make_control(label)`, static, and
/// `tell(facade, panel, checked)`, static, which is what a click calls.
template <class Derived, class Control, class Facade, class Materialization>
class labelled_d2d_materialization_impl
    : public d2d_materialization_impl<Derived, Control, Facade, Materialization> {
public:
    // materialization
    void set_text(const wchar_t* text) override {
        label->set_text(std::wstring_view(text));
        this->place_again();
    }

    void connect() {
        this->control->set_on_click(this->teller(
            [](Facade& told, IPanel* shown_in, bool checked) { Derived::tell(told, shown_in, checked); }));
    }
    void disconnect() { this->control->set_on_click(nullptr); }

protected:
    labelled_d2d_materialization_impl()
        : labelled_d2d_materialization_impl(
              d2d::ui::create_text_label(std::wstring_view(), nullptr, nullptr)) {}
    ~labelled_d2d_materialization_impl() = default;

private:
    using form = d2d_materialization_impl<Derived, Control, Facade, Materialization>;

    explicit labelled_d2d_materialization_impl(com::ptr<d2d::ui::ITextLabel> made)
        : form(Derived::make_control(made.get())), label(std::move(made)) {}

    const com::ptr<d2d::ui::ITextLabel> label;
};

}  // namespace ui::mossHarbour
