#pragma once

#include "com/base_object.h"
#include "com/weak_ptr.h"
#include "d2d/input/mouse.h"
#include "d2d/scene/INode.h"
#include "d2d/ui/ILabelList.h"
#include "d2d/ui/IScrollArea.h"
#include "scene/layout_stack.h"

#include <vector>

namespace d2d::ui {

class label_list : public com::base_object<com::object_base, ILabelList> {
public:
    class item;

    explicit label_list(IStyle* given_style);
    void final_release();

    // IElement
    scene::layout::metrics measure() override;
    void arrange(D2D_RECT_F rect) override { scroll_area->arrange(rect); }
    // IControl
    com::ptr<scene::INode> get_node() override { return scroll_area->get_node(); }
    D2D_RECT_F get_rect() override { return scroll_area->get_rect(); }
    // ILabelList
    void insert_item(int index, ILabel* label, int value) override;
    void reserved1() override;
    void reserved2() override;
    void clear() override;
    std::optional<int> get_selection() override;
    void reserved3() override;

    // What the rows ask for.
    [[nodiscard]] bool is_selected(const item& row) const;
    [[nodiscard]] com::ptr<scene::IBrush> brush(std::string_view key) const;
    /// A row is not what the stack has made of it.
    void announce(scene::layout::stack::item* changed) { stack->announce(changed); }
    /// A press on a row.
    void press(item& row, const input::mouse::event& event);

protected:
    ~label_list() = default;

private:
    void lay_out();
    void select(item& row);

    const com::ptr<IStyle> style;
    std::vector<com::ptr<item>> items;
    const com::ptr<scene::INode> content_node = scene::create_node();
    com::ptr<scene::layout::stack> stack = scene::layout::create_stack(0);
    const com::ptr<IScrollArea> scroll_area;
    com::weak_ptr<item> selected;
    unsigned layouts = 0;
};

}  // namespace d2d::ui
