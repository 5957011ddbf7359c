#pragma once

#include "controls.h"
#include "d2d/ui/ITreeView.h"
#include "d2d/ui/tree_handler.h"
#include "frame.h"

#include <functional>
#include <string>

namespace gallery {

/// A tree of ships, holds and crates, whose rows come when their parent is expanded and can be dragged to
/// another parent.
class cargo_tree final : private d2d::ui::tree_handler {
public:
    /// `told` is given a sentence about whatever happens.
    cargo_tree(const look& colours, std::function<void(const std::wstring&)> told);
    ~cargo_tree();
    cargo_tree(const cargo_tree&) = delete;
    cargo_tree& operator=(const cargo_tree&) = delete;

    [[nodiscard]] const sketch::node& node() const noexcept { return around.node(); }
    void place(D2D_RECT_F rect) { around.place(rect); }

private:
    using tree_node = com::ptr<d2d::ui::ITreeNode>;
    struct entry;

    bool can_expand(d2d::ui::ITreeNode* node) override;
    void collapsed(d2d::ui::ITreeNode* node) override;
    void context_menu(d2d::ui::ITreeNode* node) override;
    void drag_begin(d2d::ui::ITreeNode* node, D2D_POINT_2F point, d2d::input::mouse::button button) override;
    void selection_changed(d2d::ui::ITreeNode* old_node, d2d::ui::ITreeNode* new_node) override;

    entry& add_entry(entry* parent, std::wstring name);
    [[nodiscard]] static entry& entry_of(d2d::ui::ITreeNode& node);
    void fill(entry& parent);
    void open_at_first(entry& shown);
    [[nodiscard]] entry* target_at(D2D_POINT_2F point, const entry& dragged) const;
    void move(entry& dragged, entry& target);

    std::function<void(const std::wstring&)> tell;
    std::vector<com::ptr<d2d::scene::IBitmap>> icons;  // of the levels
    std::vector<std::unique_ptr<entry>> entries;
    com::ptr<d2d::ui::ITreeView> tree = d2d::ui::ITreeView::create();
    frame around;
};

}  // namespace gallery
