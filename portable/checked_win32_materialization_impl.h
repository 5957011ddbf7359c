#pragma once

#include "portable/labelled_win32_materialization_impl.h"

namespace ui::mossHarbour {

/// Base of the native forms with a mark beside their caption.
template <class Derived, class Facade, class Materialization>
class checked_win32_materialization_impl
    : public labelled_win32_materialization_impl<Derived, Facade, Materialization> {
public:
    static constexpr SIZE room_around{18, 2};

    // materialization
    void set_checked(bool checked) override {
        SendMessageW(this->window, BM_SETCHECK, checked ? BST_CHECKED : BST_UNCHECKED, 0);
    }

protected:
    checked_win32_materialization_impl() = default;
    ~checked_win32_materialization_impl() = default;

    /// One of the `BST_` values.
    [[nodiscard]] LRESULT check_state() const { return SendMessageW(this->window, BM_GETCHECK, 0, 0); }
};

}  // namespace ui::mossHarbour
