#include "portable/native_content.h"

#include "portable/hwnd_materialization_context_impl.h"
#include "ui/mossHarbour/IMaterializableElement.h"

#include <utility>

namespace ui::mossHarbour {

com::ptr<ILayout> native_content::replace(com::ptr<ILayout> next) noexcept {
    return std::exchange(layout, std::move(next));
}

void native_content::show(HWND parent, IPanel* panel) {
    if (!layout) return;
    hwnd_materialization_context_impl context(parent, panel);
    shown = com::ptr<IMaterializableElement>(layout.get())->materialize(context);
}

void native_content::hide(HWND parent, IPanel* panel) {
    if (!shown) return;  // what failed never stood here, and may stand elsewhere by now
    shown.reset();
    hwnd_materialization_context_impl context(parent, panel);
    com::ptr<IMaterializableElement>(layout.get())->dematerialize(context);
}

}  // namespace ui::mossHarbour
