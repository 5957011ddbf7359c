#pragma once

#include "portable/hwnd_materialization_impl.h"

namespace ui::mossHarbour {

/// Base of the native forms whose window's text is a caption and makes their size. `Derived` has
/// `room_around`, the room that the caption is given, on each axis in sum.
template <class Derived, class Facade, class Materialization>
class labelled_win32_materialization_impl
    : public hwnd_materialization_impl<Derived, Facade, Materialization> {
public:
    // materialization
    void set_text(const wchar_t* text) override { SetWindowTextW(this->window, text); }

    // IMaterializedElement
    element_metrics measure(measure_context& context) override {
        const SIZE caption = window_text_size(context, this->window);
        return fixed_metrics({caption.cx + Derived::room_around.cx, caption.cy + Derived::room_around.cy});
    }

protected:
    labelled_win32_materialization_impl() = default;
    ~labelled_win32_materialization_impl() = default;
};

}  // namespace ui::mossHarbour
