#include "controls/tree/view.h"

#include "com/object.h"

#include <algorithm>
#include <stdexcept>
#include <utility>

namespace d2d::ui::tree {
namespace {

/// What a row's scene node carries: the way back to its tree node, which it does not keep.
struct IRowTag : IUnknown {
    virtual com::ptr<node> get_node() = 0;
};

}  // namespace
}  // namespace d2d::ui::tree

template <>
struct com::interface_traits<d2d::ui::tree::IRowTag> : com::extends<> {
    static constexpr GUID id = com::guid("E07A51C4-6D2B-4B93-9F18-2C5B3D8A64F7");
};

namespace d2d::ui::tree {
namespace {

class row_tag : public com::base_object<com::object_base, IRowTag> {
public:
    explicit row_tag(node& shown) : tagged(&shown) {}

    com::ptr<node> get_node() override { return tagged.lock(); }

protected:
    ~row_tag() = default;

private:
    const com::weak_ptr<node> tagged;
};

}  // namespace

view::view(IUnknown& owning) : owner(owning), scroll_area(create_scroll_area({}, nullptr)) {
    content->set_hit_mode(scene::INode::hit_solid);
    scroll_area->add_content(content);
}

view::~view() {
    if (root) root->leave();
    for (const auto& former : former_roots) {
        const auto alive = former.lock();
        if (alive && alive->get_view() == this) alive->leave();
    }
}

void view::tag_row(scene::INode& row, node& shown) {
    row.set_user_object(com::create_object<row_tag>(shown)->get_IUnknown());
}

void view::set_root(node* new_root) {
    if (new_root == root.get()) return;
    if (new_root && new_root->get_parent()) throw std::logic_error("a tree's root can't have a parent");
    const com::ptr<node> kept(new_root);
    if (kept && kept->get_view()) {
        if (kept->get_view() != this) kept->get_view()->drop_root(*kept);
        kept->leave();
    }
    if (kept) kept->enter(*this);
    if (root) {
        std::erase_if(former_roots, [](const auto& former) { return !former.lock(); });
        former_roots.emplace_back(root);
    }
    const auto former = std::exchange(root, kept);
    if (!root) return content_laid_out();
    root->lay_out();
    root->show();
}

void view::drop_root(node& former) {
    if (root == &former) set_root(nullptr);
}

void view::content_laid_out() {
    const D2D_SIZE_F size = root ? root->extent() : D2D_SIZE_F{};
    scroll_area->set_content_bounds({0, 0, size.width, size.height});
}

void view::select(node& chosen) {
    if (chosen.get_view() != this) throw std::logic_error("tree node must be in tree");
    if (chosen.is_selected()) return;
    const com::ptr<node> keep(&chosen);
    const com::ptr<node> former = selected.empty() ? nullptr : selected.front();
    while (!selected.empty()) {
        node& cleared = *selected.back();
        selected.pop_back();
        cleared.set_selected(false);
    }
    selected.push_back(&chosen);
    chosen.set_selected(true);
    const auto alive = keep_alive();
    if (handler) handler->selection_changed(former.get(), &chosen);
}

void view::redraw_selected() {
    for (node* const shown : selected) shown->redraw_text();
}

com::ptr<ITreeNode> view::node_at(D2D_POINT_2F point) {
    com::ptr<ITreeNode> found;
    scene::map_points(scroll_area->get_node().get(), content.get(), &point, 1);
    content->enumerate_hits(point, true, [&](const com::ptr<scene::INode>& hit, D2D_POINT_2F) {
        const auto tag = hit->get_user_object().try_as<IRowTag>();
        if (tag) found = tag->get_node();
        return static_cast<bool>(found);
    });
    return found;
}

bool view::may_expand(node& asked) {
    return !handler || handler->can_expand(&asked);
}

void view::tell_collapsed(node& told) {
    if (handler) handler->collapsed(&told);
}

void view::open_context_menu(node& clicked) {
    if (handler) handler->context_menu(&clicked);
}

void view::begin_drag(node& dragged, D2D_POINT_2F point, input::mouse::button button) {
    if (handler) handler->drag_begin(&dragged, point, button);
}

}  // namespace d2d::ui::tree
