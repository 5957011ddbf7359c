#include "portable/d2d_scene_panel_impl.h"

#include "com/object.h"

#include <utility>

namespace ui::mossHarbour {

HRESULT d2d_scene_panel_impl::QueryService(const GUID& service, const GUID& iid, void** result) {
    return upstream ? upstream->QueryService(service, iid, result) : E_NOINTERFACE;
}

com::ptr<ILayout> d2d_scene_panel_impl::set_content(com::ptr<ILayout> layout) {
    return content.replace(std::move(layout), this);
}

void d2d_scene_panel_impl::arrange(int left, int top, int right, int bottom) {
    content.live()->arrange(left, top, right, bottom);
}

com::ptr<ID2DScenePanel> create_d2d_scene_node_panel(IServiceProvider* upstream) {
    return com::create_object<d2d_scene_panel_impl>(upstream);
}

}  // namespace ui::mossHarbour
