#include "portable/grid_layout_impl.h"
#include "portable/layout_facade.h"
#include "ui/mossHarbour/IGridLayout.h"

namespace ui::mossHarbour {

class grid_layout_facade
    : public layout_facade<grid_layout_facade, grid_layout_item, grid_layout_impl, IGridLayout> {
public:
    [[nodiscard]] static com::ptr<grid_layout_impl> make_impl() {
        return com::create_object<grid_layout_impl>();
    }

protected:
    ~grid_layout_facade() = default;
};

com::ptr<IGridLayout> create_grid_layout() {
    return com::create_object<grid_layout_facade>();
}

}  // namespace ui::mossHarbour
