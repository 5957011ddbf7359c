#pragma once

#include "com/base_object.h"
#include "portable/scene_content.h"
#include "ui/mossHarbour/ID2DScenePanel.h"

namespace ui::mossHarbour {

class d2d_scene_panel_impl : public com::base_object<com::object_base, ID2DScenePanel> {
public:
    explicit d2d_scene_panel_impl(IServiceProvider* asked_first) noexcept : upstream(asked_first) {}

    // IServiceProvider
    HRESULT STDMETHODCALLTYPE QueryService(const GUID& service, const GUID& iid, void** result) override;
    // IPanel
    com::ptr<ILayout> set_content(com::ptr<ILayout> layout) override;
    // ID2DScenePanel
    com::ptr<d2d::scene::INode> get_node() override { return content.node(); }
    element_metrics measure() override { return measured = content.measure(); }
    element_metrics get_measured() override { return measured; }
    void arrange(int left, int top, int right, int bottom) override;

protected:
    ~d2d_scene_panel_impl() = default;

private:
    const com::ptr<IServiceProvider> upstream;
    scene_content content;
    element_metrics measured{};
};

}  // namespace ui::mossHarbour
