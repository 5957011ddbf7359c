#include "portable/edit_control_impl.h"

#include "com/object.h"
#include "d2d/ui/ILineEdit.h"
#include "portable/d2d_materialization_impl.h"

#include <algorithm>
#include <string>

namespace ui::mossHarbour::edit_control_impl {
namespace {

class d2d_materialization
    : public d2d_materialization_impl<d2d_materialization, d2d::ui::ILineEdit, facade, materialization> {
public:
    d2d_materialization()
        : d2d_materialization_impl(d2d::ui::create_line_edit(L"", {}, true, nullptr, nullptr)) {}

    // materialization
    void set_text(const wchar_t* text) override { control->set_text(text); }
    /// What the text leaves of the buffer becomes zero: kept, clients compare whole buffers.
    void get_text(wchar_t* buffer, int capacity) override {
        if (capacity <= 0) return;
        const std::wstring text = control->get_text();
        wchar_t* const end = buffer + capacity;
        std::fill(buffer + text.copy(buffer, static_cast<std::size_t>(capacity) - 1), end, L'\0');
    }

protected:
    ~d2d_materialization() = default;
};

}  // namespace

com::ptr<ID2dWidget> make_d2d_widget() {
    return com::create_object<d2d_materialization>();
}

}  // namespace ui::mossHarbour::edit_control_impl
