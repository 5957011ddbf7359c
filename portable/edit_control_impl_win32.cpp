#include "portable/edit_control_impl.h"

#include "com/object.h"
#include "portable/hwnd_materialization_impl.h"
#include "portable/notification_silence.h"

namespace ui::mossHarbour::edit_control_impl {
namespace {

class win32_materialization
    : public hwnd_materialization_impl<win32_materialization, facade, materialization> {
public:
    [[nodiscard]] static window_kind kind() noexcept {
        return {L"EDIT", WS_CHILD | WS_VISIBLE | WS_TABSTOP | ES_AUTOHSCROLL, WS_EX_CLIENTEDGE};
    }

    // IHwndWidget
    std::optional<LRESULT> on_command(WPARAM wparam) override {
        if (HIWORD(wparam) != EN_CHANGE) return {};
        if (suppress_notification) return 0;
        tell([](facade& told, IPanel* shown_in) { told.fire_changed(shown_in); });
        return 0;
    }

    // materialization
    void set_text(const wchar_t* text) override {
        const notification_silence silence(suppress_notification);
        SetWindowTextW(window, text);
    }
    void get_text(wchar_t* buffer, int capacity) override { GetWindowTextW(window, buffer, capacity); }

    // IMaterializedElement
    element_metrics measure(measure_context& context) override {
        const SIZE text = window_text_size(context, window);
        return field_metrics(least_field_size(context), text);
    }
    void arrange(int left, int top, int right, int bottom) override {
        RECT former{};
        GetClientRect(window, &former);
        hwnd_materialization_impl::arrange(left, top, right, bottom);
        if (former.right == 0) scroll_to_start();
    }

protected:
    ~win32_materialization() = default;

private:
    /// A field that gets the focus when its panel is shown has it ahead of its size, and its text is selected
    /// and scrolled away then.
    void scroll_to_start() const {
        DWORD from = 0;
        DWORD to = 0;
        SendMessageW(window, EM_GETSEL, reinterpret_cast<WPARAM>(&from), reinterpret_cast<LPARAM>(&to));
        SendMessageW(window, EM_SETSEL, 0, 0);
        SendMessageW(window, EM_SCROLLCARET, 0, 0);
        SendMessageW(window, EM_SETSEL, from, static_cast<LPARAM>(to));
    }

    bool suppress_notification = false;
};

}  // namespace

com::ptr<IHwndWidget> make_win32_widget() {
    return com::create_object<win32_materialization>();
}

}  // namespace ui::mossHarbour::edit_control_impl
