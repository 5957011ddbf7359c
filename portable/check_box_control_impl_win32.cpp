#include "portable/check_box_control_impl.h"

#include "com/object.h"
#include "portable/checked_win32_materialization_impl.h"

namespace ui::mossHarbour::check_box_control_impl {
namespace {

class win32_materialization
    : public checked_win32_materialization_impl<win32_materialization, facade, materialization> {
public:
    [[nodiscard]] static window_kind kind() noexcept {
        return {L"BUTTON", WS_CHILD | WS_VISIBLE | WS_TABSTOP | BS_AUTOCHECKBOX};
    }

    // IHwndWidget
    std::optional<LRESULT> on_command(WPARAM wparam) override {
        if (HIWORD(wparam) != BN_CLICKED) return {};
        tell([checked = is_checked()](facade& told, IPanel* shown_in) {
            told.fire_toggled(shown_in, checked);
        });
        return 0;
    }

    // materialization
    bool is_checked() override { return check_state() != BST_UNCHECKED; }

protected:
    ~win32_materialization() = default;
};

}  // namespace

com::ptr<IHwndWidget> make_win32_widget() {
    return com::create_object<win32_materialization>();
}

}  // namespace ui::mossHarbour::check_box_control_impl
