#include "portable/label_control_impl.h"

#include "com/object.h"
#include "d2d/ui/ITextLabel.h"
#include "portable/d2d_materialization_impl.h"

namespace ui::mossHarbour::label_control_impl {
namespace {

class d2d_materialization
    : public d2d_materialization_impl<d2d_materialization, d2d::ui::ITextLabel, facade, materialization> {
public:
    d2d_materialization()
        : d2d_materialization_impl(d2d::ui::create_text_label(std::wstring_view(), nullptr, nullptr)) {}

    // materialization
    void set_text(const wchar_t* text) override {
        control->set_text(std::wstring_view(text));
        place_again();
    }

protected:
    ~d2d_materialization() = default;
};

}  // namespace

com::ptr<ID2dWidget> make_d2d_widget() {
    return com::create_object<d2d_materialization>();
}

}  // namespace ui::mossHarbour::label_control_impl
