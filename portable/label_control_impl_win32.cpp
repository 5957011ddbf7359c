#include "portable/label_control_impl.h"

#include "com/object.h"
#include "portable/labelled_win32_materialization_impl.h"

namespace ui::mossHarbour::label_control_impl {
namespace {

class win32_materialization
    : public labelled_win32_materialization_impl<win32_materialization, facade, materialization> {
public:
    static constexpr SIZE room_around{0, 0};

    [[nodiscard]] static window_kind kind() noexcept { return {L"STATIC", WS_CHILD | WS_VISIBLE}; }

protected:
    ~win32_materialization() = default;
};

}  // namespace

com::ptr<IHwndWidget> make_win32_widget() {
    return com::create_object<win32_materialization>();
}

}  // namespace ui::mossHarbour::label_control_impl
