#include "cargo_tree.h"

#include "d2d/scene/IMovableFloatingNode.h"

#include <array>
#include <span>

namespace gallery {

namespace ui = d2d::ui;

/// What a row stands for. The node of the tree points here.
struct cargo_tree::entry {
    std::wstring name;
    tree_node node = ui::ITreeNode::create();
    entry* parent = nullptr;
    int level = 0;
    bool filled = false;
};

namespace {

constexpr std::array<std::wstring_view, 4> ships{L"Alcyone", L"Kittiwake", L"Moss Rose", L"Seal"};
constexpr std::array<std::wstring_view, 3> holds{L"Fore hold", L"Main hold", L"Aft hold"};
constexpr std::array<std::wstring_view, 8> crates{L"Charts", L"Lamps", L"Ropes",  L"Salt",
                                                  L"Sails",  L"Tar",   L"Timber", L"Wool"};

constexpr int crate_level = 3;

/// A disc in the colour of the level.
[[nodiscard]] com::ptr<d2d::scene::IBitmap> make_icon_of(int level) {
    constexpr std::array<unsigned, 4> colours{0xFF4D4DB3, 0xFF3F7C91, 0xFF5E8C61, 0xFFC8553D};
    constexpr int side = 16;
    constexpr int radius = 5;
    auto pixels = std::make_unique<unsigned[]>(side * side);
    for (int i = 0; i < side * side; ++i) {
        const int x = 2 * (i % side) - side + 1;  // from the middle, in half pixels
        const int y = 2 * (i / side) - side + 1;
        if (x * x + y * y <= 4 * radius * radius)
            pixels[static_cast<std::size_t>(i)] = colours[static_cast<std::size_t>(level)];
    }
    return d2d::scene::IBitmap::create({side, side}, std::move(pixels));
}

[[nodiscard]] std::span<const std::wstring_view> names_below(int level) {
    switch (level) {
        case 0:
            return ships;
        case 1:
            return holds;
        default:
            return crates;
    }
}

[[nodiscard]] D2D_POINT_2F cursor_on_screen() {
    POINT at{};
    GetCursorPos(&at);
    return {static_cast<float>(at.x), static_cast<float>(at.y)};
}

/// The row that shows as the one to drop on.
class highlight {
public:
    highlight() = default;
    ~highlight() { show(nullptr); }
    highlight(const highlight&) = delete;
    highlight& operator=(const highlight&) = delete;

    void show(const com::ptr<ui::ITreeNode>& next) {
        if (next == lit) return;
        if (lit) lit->set_highlighted(false);
        lit = next;
        if (lit) lit->set_highlighted(true);
    }

private:
    com::ptr<ui::ITreeNode> lit;
};

}  // namespace

cargo_tree::cargo_tree(const look& colours, std::function<void(const std::wstring&)> told)
    : tell(std::move(told)), around(colours, tree) {
    for (int level = 0; level <= crate_level; ++level) icons.push_back(make_icon_of(level));
    entry& root = add_entry(nullptr, L"The fleet");
    open_at_first(root);
    open_at_first(*entries[1]);
    for (std::size_t hold = 0; hold < 2; ++hold) open_at_first(*entries[1 + ships.size() + hold]);
    tree->set_root(root.node.get());
    tree->set_handler(this);
}

cargo_tree::~cargo_tree() {
    tree->set_handler(nullptr);
}

cargo_tree::entry& cargo_tree::add_entry(entry* parent, std::wstring name) {
    entry& added = *entries.emplace_back(std::make_unique<entry>());
    added.name = std::move(name);
    added.parent = parent;
    added.level = parent ? parent->level + 1 : 0;
    added.node->set_data(&added);
    added.node->set_text(added.name.data(), added.name.size());
    added.node->set_icon(icons[static_cast<std::size_t>(added.level)].get());
    added.node->set_expandable(added.level < crate_level);
    if (parent) parent->node->add_child(added.node.get());
    return added;
}

cargo_tree::entry& cargo_tree::entry_of(ui::ITreeNode& node) {
    return *static_cast<entry*>(node.get_data());
}

void cargo_tree::fill(entry& parent) {
    if (parent.filled || parent.level == crate_level) return;
    parent.filled = true;
    for (const std::wstring_view name : names_below(parent.level)) add_entry(&parent, std::wstring(name));
}

void cargo_tree::open_at_first(entry& shown) {
    fill(shown);
    shown.node->set_expanded(true);
}

bool cargo_tree::can_expand(ui::ITreeNode* node) {
    entry& opened = entry_of(*node);
    fill(opened);
    tell(opened.name + L" is opened.");
    return true;
}

void cargo_tree::collapsed(ui::ITreeNode* node) {
    tell(entry_of(*node).name + L" is closed.");
}

void cargo_tree::context_menu(ui::ITreeNode* node) {
    tell(L"A menu of " + entry_of(*node).name + L" would open here.");
}

void cargo_tree::selection_changed(ui::ITreeNode*, ui::ITreeNode* new_node) {
    tell(entry_of(*new_node).name + L" is selected.");
}

// A ship moves among ships, a crate among holds: a row can go to any other of its parent's level.
cargo_tree::entry* cargo_tree::target_at(D2D_POINT_2F point, const entry& dragged) const {
    const tree_node found = tree->node_at(point);
    if (!found || !dragged.parent) return nullptr;
    entry& target = entry_of(*found);
    return target.level == dragged.parent->level && &target != dragged.parent ? &target : nullptr;
}

void cargo_tree::drag_begin(ui::ITreeNode* node, D2D_POINT_2F, d2d::input::mouse::button button) {
    entry& dragged = entry_of(*node);
    const auto image = node->create_drag_image();
    image->set_hit_transparent(true);
    const auto place = tree->get_node();
    const com::ptr<d2d::scene::IMovableFloatingNode> floating =
        d2d::scene::IFloatingNode::float_node(place.get(), image.get());
    const auto follow = [&] {
        constexpr float beside = 16;  // the row beneath stays in sight
        constexpr float below = 10;
        const D2D_POINT_2F cursor = cursor_on_screen();
        floating->set_position({cursor.x + beside, cursor.y + below});
        floating->commit();
    };
    follow();
    highlight beneath;
    entry* target = nullptr;
    const bool dropped = place->drag_loop(button, [&](D2D_POINT_2F point) {
        follow();
        target = target_at(point, dragged);
        beneath.show(target ? target->node : nullptr);
        return false;
    });
    if (dropped && target) {
        move(dragged, *target);
    } else {
        tell(dragged.name + L" stays where it is.");
    }
}

void cargo_tree::move(entry& dragged, entry& target) {
    fill(target);
    target.node->add_child(dragged.node.get());
    dragged.parent = &target;
    target.node->set_expanded(true);
    tree->select(dragged.node.get());
    tell(dragged.name + L" goes to " + target.name + L".");
}

}  // namespace gallery
