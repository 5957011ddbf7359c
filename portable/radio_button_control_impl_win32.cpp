#include "portable/radio_button_control_impl.h"

#include "com/object.h"
#include "portable/checked_win32_materialization_impl.h"

namespace ui::mossHarbour::radio_button_control_impl {
namespace {

class win32_materialization
    : public checked_win32_materialization_impl<win32_materialization, facade, materialization> {
public:
    /// No tab stop: the system gives it to the one of the group that is checked.
    [[nodiscard]] window_kind kind() const {
        const DWORD group = description->is_group_start() ? WS_GROUP : 0;
        return {L"BUTTON", WS_CHILD | WS_VISIBLE | group | BS_AUTORADIOBUTTON};
    }

    // IHwndWidget
    std::optional<LRESULT> on_command(WPARAM wparam) override {
        if (HIWORD(wparam) != BN_CLICKED) return {};
        tell([](facade& told, IPanel* shown_in) { told.fire_click(shown_in); });
        return 0;
    }

    // materialization
    bool is_checked() override { return check_state() == BST_CHECKED; }

protected:
    ~win32_materialization() = default;
};

}  // namespace

com::ptr<IHwndWidget> make_win32_widget() {
    return com::create_object<win32_materialization>();
}

}  // namespace ui::mossHarbour::radio_button_control_impl
