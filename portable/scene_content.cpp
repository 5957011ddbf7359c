#include "portable/scene_content.h"

#include "ui/mossHarbour/d2d_layout.h"
#include "ui/mossHarbour/d2d_measure_context.h"

#include <utility>

namespace ui::mossHarbour {

com::ptr<ILayout> scene_content::replace(com::ptr<ILayout> next, IPanel* panel) {
    if (layout) {
        // One that failed never stood here, and may stand elsewhere by now.
        if (shown) dematerialize_d2d_layout(panel, root.get(), layout);
        shown.reset();
        root->clear();
    }
    auto former = std::exchange(layout, std::move(next));
    if (layout) shown = materialize_d2d_layout(panel, root.get(), layout);
    return former;
}

element_metrics scene_content::measure() const {
    d2d_measure_context context;
    return shown->measure(context);
}

}  // namespace ui::mossHarbour
