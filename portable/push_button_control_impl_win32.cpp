#include "portable/push_button_control_impl.h"

#include "com/object.h"
#include "portable/labelled_win32_materialization_impl.h"

namespace ui::mossHarbour::push_button_control_impl {
namespace {

class win32_materialization
    : public labelled_win32_materialization_impl<win32_materialization, facade, materialization> {
public:
    static constexpr SIZE room_around{8, 8};

    [[nodiscard]] static window_kind kind() noexcept {
        return {L"BUTTON", WS_CHILD | WS_VISIBLE | WS_TABSTOP};
    }

    // IHwndWidget
    std::optional<LRESULT> on_command(WPARAM wparam) override {
        if (HIWORD(wparam) != BN_CLICKED) return {};
        tell([](facade& told, IPanel* shown_in) { told.fire_click(shown_in); });
        return 0;
    }

    // materialization
    void set_enabled(bool enabled) override { EnableWindow(window, enabled); }

protected:
    ~win32_materialization() = default;
};

}  // namespace

com::ptr<IHwndWidget> make_win32_widget() {
    return com::create_object<win32_materialization>();
}

}  // namespace ui::mossHarbour::push_button_control_impl
