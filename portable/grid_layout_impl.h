#pragma once

#include "portable/grid_tracks.h"
#include "portable/layout_impl.h"
#include "ui/mossHarbour/IElement.h"
#include "ui/mossHarbour/grid_item_details.h"

namespace ui::mossHarbour {

/// An item of a grid as the client gave it.
struct grid_layout_item {
    com::ptr<IElement> element;
    grid_item_details details;
};

/// A grid as it stands on the screen.
class grid_layout_impl : public layout_impl<grid_layout_impl, grid_layout_item> {
protected:
    ~grid_layout_impl() = default;

    element_metrics measure_items() override;
    /// Arranges each element as well; that they are arranged again behind it is harmless.
    void arrange_items(int left, int top, int right, int bottom) override;

private:
    /// Throws unless each item has a row and a column.
    void require_tracks() const;

    grid_tracks rows;
    grid_tracks columns;
};

}  // namespace ui::mossHarbour
