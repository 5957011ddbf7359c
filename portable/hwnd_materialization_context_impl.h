#pragma once

#include "portable/hwnd_materialization_context.h"

namespace ui::mossHarbour {

class hwnd_materialization_context_impl final : public hwnd_materialization_context {
public:
    hwnd_materialization_context_impl(HWND within, IPanel* shown_in) noexcept
        : parent(within), panel(shown_in) {}

    // materialization_context
    com::ptr<IMaterializedElement> materialize(const std::type_info& facade_type,
                                               IMaterializableElement* element) override;
    void dematerialize(IMaterializableElement* element, IMaterializedElement* live) override;
    // hwnd_materialization_context
    HWND get_parent_window() override { return parent; }
    IPanel* get_panel() override { return panel; }

private:
    HWND parent;
    IPanel* panel;
};

}  // namespace ui::mossHarbour
