#include "portable/group_box_control_impl.h"

#include "com/object.h"
#include "portable/group_box_measure.h"
#include "portable/native_content.h"
#include "portable/subclassed_win32_materialization_impl.h"

#include <stdexcept>

namespace ui::mossHarbour::group_box_control_impl {
namespace {

class win32_materialization
    : public subclassed_win32_materialization_impl<win32_materialization, facade, materialization> {
public:
    [[nodiscard]] static window_kind kind() noexcept {
        return {L"Button", WS_CHILD | WS_VISIBLE | WS_CLIPCHILDREN | BS_GROUPBOX, WS_EX_CONTROLPARENT};
    }

    // materialization
    void set_text(const wchar_t* text) override { SetWindowTextW(window, text); }

    // IMaterializedElement
    element_metrics measure(measure_context& context) override {
        if (!description) throw std::logic_error("Facade not available!");
        const box_lengths padding = description->get_padding();
        caption = window_text_size(context, window);
        const auto inner = content.live() ? content.live()->measure(context) : element_metrics{};
        insets = distances_around(inner, padding);
        return measure_group_box(inner, caption, insets);
    }
    void arrange(int left, int top, int right, int bottom) override {
        subclassed_win32_materialization_impl::arrange(left, top, right, bottom);
        if (!content.live()) return;
        constexpr int frame = 2;
        content.live()->arrange(frame + insets.left, caption.cy + insets.top,
                                difference(right, left) - frame - insets.right,
                                difference(bottom, top) - frame - insets.bottom);
    }

    void show_content() {
        content.replace(description->get_content());
        content.show(window, panel);
    }
    void hide_content() {
        content.hide(window, panel);
        content.replace(nullptr);
    }

protected:
    ~win32_materialization() = default;

    std::optional<LRESULT> window_proc(HWND, UINT message, WPARAM wparam, LPARAM lparam) override {
        switch (message) {
            case WM_ERASEBKGND:
                erase(reinterpret_cast<HDC>(wparam));
                return {};
            case WM_COMMAND:
            case WM_NOTIFY:
                return route_notification(message, wparam, lparam);
            default:
                return {};
        }
    }

private:
    /// A frame draws nothing between its lines.
    void erase(HDC dc) const {
        RECT client{};
        GetClientRect(window, &client);
        FillRect(dc, &client, reinterpret_cast<HBRUSH>(COLOR_BTNFACE + 1));
    }

    SIZE caption{};        // by the latest `measure`
    box_lengths insets{};  // by the latest `measure`
    native_content content;
};

}  // namespace

com::ptr<IHwndWidget> make_win32_widget() {
    return com::create_object<win32_materialization>();
}

}  // namespace ui::mossHarbour::group_box_control_impl
