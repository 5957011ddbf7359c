#pragma once

#include "controls/label_list.h"
#include "controls/label_watcher.h"
#include "controls/mouse_state.h"
#include "controls/text_label.h"

namespace d2d::ui {

/// A row. Its node holds the label's, and draws what lies behind it.
class label_list::item : public com::base_object<com::object_base, scene::layout::IElement>,
                         private label_watcher {
public:
    item(label_list& owner, ILabel* shown, int row_value);
    void final_construct();

    // IElement
    scene::layout::metrics measure() override;
    void arrange(D2D_RECT_F new_rect) override;

    void redraw(const label_list& owner);
    /// Adds the row to a stack, which the list keeps, ahead of the one at `index`.
    void add_to(scene::layout::stack& rows, std::size_t index);
    /// The row is no longer one of the list.
    void leave_list() noexcept { list = nullptr; }
    [[nodiscard]] bool is_in_list() const noexcept { return list != nullptr; }

    const com::ptr<ILabel> label;
    const int value;
    const com::ptr<scene::INode> node = scene::create_node();

protected:
    ~item();

private:
    void label_changed() override;
    /// Whether it draws anything.
    [[nodiscard]] bool is_filled(const label_list& owner) const;
    void handle_mouse(label_list& owner, const input::mouse::event& event);

    // Borrowed: it says when it ends. A weak reference from each row would be more than an object can have.
    label_list* list;
    D2D_RECT_F margin{};  // around the label, as of the latest `measure`
    D2D_RECT_F rect{};
    mouse_state mouse;
    // The label, when it tells of its changes. A client's does not, and is asked each time.
    com::ptr<text_label> watched;
    bool placing = false;                         // and so the cause of a change
    scene::layout::stack::item* place = nullptr;  // in the list's stack
};

}  // namespace d2d::ui
