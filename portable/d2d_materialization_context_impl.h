#pragma once

#include "portable/d2d_materialization_context.h"

namespace ui::mossHarbour {

class d2d_materialization_context_impl final : public d2d_materialization_context {
public:
    d2d_materialization_context_impl(d2d::scene::INode* below, IPanel* shown_in) noexcept
        : node(below), panel(shown_in) {}

    // materialization_context
    com::ptr<IMaterializedElement> materialize(const std::type_info& facade_type,
                                               IMaterializableElement* element) override;
    void dematerialize(IMaterializableElement* element, IMaterializedElement* live) override;
    // d2d_materialization_context
    IPanel* get_panel() override { return panel; }
    d2d::scene::INode* get_scene_node() override { return node; }

private:
    d2d::scene::INode* node;
    IPanel* panel;
};

}  // namespace ui::mossHarbour
