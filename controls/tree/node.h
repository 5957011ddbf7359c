#pragma once

#include "com/base_object.h"
#include "com/weak_ptr.h"
#include "d2d/ui/ITreeNode.h"

#include <string>
#include <string_view>
#include <vector>

#include <d2d1.h>
#include <dwrite.h>

namespace d2d::ui::tree {

class view;

/// An entry of a tree. Out of a view it is data alone; in one it has a row: scene nodes, which join the
/// view's content while all of its ancestors are expanded.
///
/// A node keeps its children, and refers to its parent and its view without a reference: each clears that
/// field when it goes.
class node : public com::base_object<com::object_base, ITreeNode> {
public:
    /// The node behind the interface. Throws `std::logic_error` "bad tree node type" for any other
    /// implementation and for null.
    [[nodiscard]] static node& from(ITreeNode* given);

    // ITreeNode
    void* get_data() const override { return data; }
    void set_data(void* new_data) override { data = new_data; }
    void set_icon(scene::IBitmap* new_icon) override;
    void set_text(const wchar_t* new_text, std::size_t length) override;
    void set_state_icon(scene::IBitmap* new_icon) override;
    void add_child(ITreeNode* given) override;
    void remove_child(ITreeNode* given) override;
    void set_expandable(bool value) override;
    void set_expanded(bool value) override;
    bool is_expanded() const override { return expanded; }
    bool is_selected() const override { return selected; }
    void set_highlighted(bool value) override;
    com::ptr<scene::INode> create_drag_image() override;

    // For the view.
    [[nodiscard]] node* get_parent() const noexcept { return parent; }
    [[nodiscard]] view* get_view() const noexcept { return shown_in; }
    /// Makes the rows of the node and of all below it.
    void enter(view& entered);
    /// Drops them. Does nothing out of a view. Mouse handlers of the nodes around the view hear when the
    /// mouse was on a row; the nodes are out of the view by then.
    void leave();
    /// Puts the rows that are to be seen into the view's content.
    void show();
    void set_selected(bool value);
    void redraw_text();

    // Placing rows. `lay_out` brings the tree up to date behind a change of this node; see node_layout.cpp.
    void lay_out();
    void place(D2D_POINT_2F at);
    [[nodiscard]] D2D_SIZE_F extent() const noexcept { return {subtree_right, subtree_bottom}; }

protected:
    ~node();

private:
    [[nodiscard]] bool is_below(const node& other) const noexcept;
    [[nodiscard]] bool is_row_shown() const noexcept;
    void take_from_owner();
    void take_out(node& child);
    void renumber_children(std::size_t from) noexcept;

    // The row.
    using scene_nodes = std::vector<com::ptr<scene::INode>>;

    void make_row();
    [[nodiscard]] scene_nodes forget_rows();
    void forget_rows(scene_nodes& shown);
    void collect_rows(scene_nodes& shown) const;
    static void detach_rows(const scene_nodes& shown);
    void hide_children();
    void make_layout();
    void update_expander();
    void draw_expander();
    void draw_icons();
    [[nodiscard]] float state_icon_width() const;

    // Input.
    void listen_to_row();
    void listen_to_expander();
    bool handle_row_mouse(scene::INode& source, const input::mouse::event& event);
    bool handle_expander_mouse(const input::mouse::event& event);
    void press_row(scene::INode& source, const input::mouse::event& event);
    void count_hot(int change);
    void open_context_menu();

    void toggle();
    void expand();
    void collapse();

    // Layout.
    [[nodiscard]] float row_height() const noexcept;
    void place_row(D2D_POINT_2F at);
    void place_expander();
    void place_children(std::size_t from);
    void set_placed(bool value) noexcept;
    void mark_unplaced() noexcept;

    void* data = nullptr;
    std::wstring text;
    view* shown_in = nullptr;  // null out of a view
    node* parent = nullptr;
    std::vector<com::ptr<node>> children;
    bool expanded = false;
    bool expandable = false;
    com::ptr<scene::INode> row_node;
    com::ptr<scene::INode> expander_node;  // while it can be expanded
    com::ptr<scene::INode> icon_node;
    com::ptr<scene::IBitmap> icon;
    com::ptr<scene::IBitmap> state_icon;
    com::ptr<scene::INode> text_node;
    com::ptr<IDWriteTextLayout> layout;
    float text_width = 0;
    float text_height = 0;
    int hot_count = 0;
    bool selected = false;
    bool highlighted = false;

    // Where the row stands and what it takes, with the rows below it that are to be seen. Holds while
    // `placed`.
    bool placed = false;
    std::size_t unplaced_children = 0;
    std::size_t index = 0;  // among the parent's children, in a view or not
    D2D_POINT_2F origin{};
    float row_bottom = 0;
    float row_right = 0;
    float subtree_bottom = 0;
    float subtree_right = 0;
    float widest_so_far = 0;  // of the parent's row and the siblings up to this one
};

}  // namespace d2d::ui::tree
