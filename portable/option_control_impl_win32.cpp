#include "portable/option_control_impl.h"

#include "com/object.h"
#include "portable/hwnd_materialization_impl.h"
#include "portable/notification_silence.h"

#include <algorithm>
#include <string>

namespace ui::mossHarbour::option_control_impl {
namespace {

class win32_materialization
    : public hwnd_materialization_impl<win32_materialization, facade, materialization> {
public:
    [[nodiscard]] static window_kind kind() noexcept {
        return {L"COMBOBOX", WS_CHILD | WS_VISIBLE | WS_TABSTOP | CBS_DROPDOWNLIST, WS_EX_CLIENTEDGE};
    }

    // IHwndWidget
    std::optional<LRESULT> on_command(WPARAM wparam) override {
        if (HIWORD(wparam) == CBN_DROPDOWN) make_room_for_list();
        if (HIWORD(wparam) != CBN_SELCHANGE) return {};
        if (suppress_notification) return 0;
        tell([](facade& told, IPanel* shown_in) { told.fire_changed(shown_in); });
        return 0;
    }

    // materialization
    void add_option(const wchar_t* text) override {
        SendMessageW(window, CB_ADDSTRING, 0, reinterpret_cast<LPARAM>(text));
    }
    void select_option(int index) override {
        const notification_silence silence(suppress_notification);
        SendMessageW(window, CB_SETCURSEL, static_cast<WPARAM>(index), 0);
    }
    int get_selection() override { return static_cast<int>(SendMessageW(window, CB_GETCURSEL, 0, 0)); }

    // IMaterializedElement
    element_metrics measure(measure_context& context) override {
        const SIZE options = size_of_options(context);
        return field_metrics(least_field_size(context), options);
    }

protected:
    ~win32_materialization() = default;

private:
    /// A closed window keeps the height of its line, whatever it is given; the rest is room for the list that
    /// drops from it. A layout gives it none, and without the newer classes of controls the system then shows
    /// no list at all.
    void make_room_for_list() const {
        constexpr LRESULT most_at_once = 30;  // as with the newer classes
        const LRESULT count = std::min(SendMessageW(window, CB_GETCOUNT, 0, 0), most_at_once);
        const LRESULT list =
            count * SendMessageW(window, CB_GETITEMHEIGHT, 0, 0) + 2 * GetSystemMetrics(SM_CYBORDER);
        RECT closed{};
        GetWindowRect(window, &closed);
        SetWindowPos(window, nullptr, 0, 0, closed.right - closed.left,
                     closed.bottom - closed.top + static_cast<int>(list),
                     SWP_NOMOVE | SWP_NOZORDER | SWP_NOACTIVATE);
    }

    /// The widest and the tallest.
    [[nodiscard]] SIZE size_of_options(measure_context& context) const {
        SIZE result{};
        const auto count = static_cast<int>(SendMessageW(window, CB_GETCOUNT, 0, 0));
        for (int i = 0; i < count; ++i) {
            const SIZE size = text_size(context, option(i));
            result = {std::max(result.cx, size.cx), std::max(result.cy, size.cy)};
        }
        return result;
    }

    [[nodiscard]] std::wstring option(int index) const {
        const auto at = static_cast<WPARAM>(index);
        const LRESULT length = SendMessageW(window, CB_GETLBTEXTLEN, at, 0);
        if (length <= 0) return {};
        std::wstring text(static_cast<std::size_t>(length) + 1, L'\0');  // with room for the terminator
        const LRESULT copied = SendMessageW(window, CB_GETLBTEXT, at, reinterpret_cast<LPARAM>(text.data()));
        text.resize(copied > 0 ? static_cast<std::size_t>(copied) : 0);
        return text;
    }

    bool suppress_notification = false;
};

}  // namespace

com::ptr<IHwndWidget> make_win32_widget() {
    return com::create_object<win32_materialization>();
}

}  // namespace ui::mossHarbour::option_control_impl
