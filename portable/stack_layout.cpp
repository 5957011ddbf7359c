#include "portable/layout_facade.h"
#include "portable/stack_layout_impl.h"
#include "ui/mossHarbour/IStackLayout.h"

namespace ui::mossHarbour {

class stack_layout_facade
    : public layout_facade<stack_layout_facade, stack_layout_item, stack_layout_impl, IStackLayout> {
public:
    explicit stack_layout_facade(orientation chosen) noexcept : direction(chosen) {}

    [[nodiscard]] com::ptr<stack_layout_impl> make_impl() const {
        return com::create_object<stack_layout_impl>(direction);
    }

protected:
    ~stack_layout_facade() = default;

private:
    const orientation direction;
};

com::ptr<IStackLayout> create_stack_layout(orientation direction) {
    return com::create_object<stack_layout_facade>(direction);
}

}  // namespace ui::mossHarbour
