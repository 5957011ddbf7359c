#include "portable/check_box_control_impl.h"

#include "com/object.h"
#include "d2d/ui/ICheckBox.h"
#include "portable/labelled_d2d_materialization_impl.h"

namespace ui::mossHarbour::check_box_control_impl {
namespace {

class d2d_materialization : public labelled_d2d_materialization_impl<d2d_materialization, d2d::ui::ICheckBox,
                                                                     facade, materialization> {
public:
    [[nodiscard]] static auto make_control(d2d::ui::ILabel* label) {
        return d2d::ui::create_check_box(label, {}, nullptr);
    }
    static void tell(facade& told, IPanel* shown_in, bool checked) { told.fire_toggled(shown_in, checked); }

    // materialization
    bool is_checked() override { return control->is_checked(); }
    void set_checked(bool checked) override { control->set_checked(checked); }

protected:
    ~d2d_materialization() = default;
};

}  // namespace

com::ptr<ID2dWidget> make_d2d_widget() {
    return com::create_object<d2d_materialization>();
}

}  // namespace ui::mossHarbour::check_box_control_impl
