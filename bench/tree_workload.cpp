#include "d2d/ui/ITreeNode.h"
#include "d2d/ui/ITreeView.h"
#include "measure.h"
#include "scene_fixture.h"
#include "workloads.h"

#include <cstddef>
#include <string>
#include <vector>

namespace bench {
namespace {

using d2d::ui::ITreeNode;

com::ptr<ITreeNode> make_node(const std::string& name) {
    auto made = ITreeNode::create();
    const std::wstring text(name.begin(), name.end());
    made->set_text(text.data(), text.size());
    return made;
}

/// A view that is shown, with an expanded root.
struct shown_tree {
    explicit shown_tree(scene_fixture& scene) : shown_in(scene) {
        view->arrange({0, 0, 300, 400});
        root->set_expandable(true);
        view->set_root(root.get());
        root->set_expanded(true);
        shown_in.show(view->get_node());
    }
    shown_tree(const shown_tree&) = delete;
    shown_tree& operator=(const shown_tree&) = delete;
    ~shown_tree() { shown_in.show(nullptr); }

    scene_fixture& shown_in;
    com::ptr<d2d::ui::ITreeView> view = d2d::ui::ITreeView::create();
    com::ptr<ITreeNode> root = make_node("root");
};

/// Adds rows, one by one.
void run_fill(scene_fixture& scene, const char* name, std::size_t rows) {
    if (!selected(name)) return;
    stopwatch watch;
    for (int i = 0; i < stopwatch::repetitions; ++i) {
        shown_tree tree(scene);
        std::vector<com::ptr<ITreeNode>> nodes;
        for (std::size_t k = 0; k < rows; ++k) nodes.push_back(make_node("row " + std::to_string(k)));
        watch.run_once([&] {
            for (const auto& node : nodes) tree.root->add_child(node.get());
        });
    }
    report(name, watch.nanoseconds(), rows);
}

/// Expands and collapses a node of ten children at the end of many rows.
void run_toggle(scene_fixture& scene, const char* name, std::size_t rows) {
    if (!selected(name)) return;
    constexpr std::size_t times = 100;
    shown_tree tree(scene);
    for (std::size_t k = 0; k < rows; ++k) tree.root->add_child(make_node("row").get());
    const auto parent = make_node("parent");
    for (int k = 0; k < 10; ++k) parent->add_child(make_node("child").get());
    tree.root->add_child(parent.get());
    measure(name, times, [&] {
        for (std::size_t i = 0; i < times; ++i) parent->set_expanded(i % 2 == 0);
    });
}

/// Expands and collapses a root with many children.
void run_toggle_root(scene_fixture& scene, const char* name, std::size_t rows) {
    if (!selected(name)) return;
    shown_tree tree(scene);
    for (std::size_t k = 0; k < rows; ++k) tree.root->add_child(make_node("row").get());
    measure(name, rows, [&] {
        tree.root->set_expanded(false);
        tree.root->set_expanded(true);
    });
}

/// Selects two rows in turn.
void run_select(scene_fixture& scene, const char* name, std::size_t rows) {
    if (!selected(name)) return;
    constexpr std::size_t times = 1'000;
    shown_tree tree(scene);
    const com::ptr<ITreeNode> ends[] = {make_node("first"), make_node("last")};
    tree.root->add_child(ends[0].get());
    for (std::size_t k = 0; k < rows; ++k) tree.root->add_child(make_node("row").get());
    tree.root->add_child(ends[1].get());
    measure(name, times, [&] {
        for (std::size_t i = 0; i < times; ++i) tree.view->select(ends[i % 2].get());
    });
}

}  // namespace

void run_tree_workloads() {
    scene_fixture scene;
    run_fill(scene, "tree_fill_1000", 1'000);
    run_fill(scene, "tree_fill", 10'000);
    run_toggle(scene, "tree_toggle_1000", 1'000);
    run_toggle(scene, "tree_toggle", 10'000);
    run_toggle_root(scene, "tree_toggle_root_1000", 1'000);
    run_toggle_root(scene, "tree_toggle_root", 10'000);
    run_select(scene, "tree_select_1000", 1'000);
    run_select(scene, "tree_select", 10'000);
}

}  // namespace bench
