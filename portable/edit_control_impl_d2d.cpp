#include "portable/edit_control_impl.h"

#include "com/object.h"
#include "d2d/ui/ILineEdit.h"
#include "portable/d2d_materialization_impl.h"

namespace ui::mossHarbour::edit_control_impl {
namespace {

class d2d_materialization
    : public d2d_materialization_impl<d2d_materialization, d2d::ui::ILineEdit, facade, materialization> {
public:
    d2d_materialization()
        : d2d_materialization_impl(d2d::ui::create_line_edit(L"", {}, true, nullptr, nullptr)) {}

    // materialization
    void set_text(const wchar_t* text) override { control->set_text(text); }
    void get_text(wchar_t* buffer, int capacity) override {
        if (capacity <= 0) return;
        const auto room = static_cast<std::size_t>(capacity) - 1;
        const std::wstring text = control->get_text();
        const std::size_t copied = text.copy(buffer, room);
        buffer[copied] = 0;
    }

protected:
    ~d2d_materialization() = default;
};

}  // namespace

com::ptr<ID2dWidget> make_d2d_widget() {
    return com::create_object<d2d_materialization>();
}

}  // namespace ui::mossHarbour::edit_control_impl
