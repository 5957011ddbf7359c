// What a tree view and its entries do, and say.

#include "controls/testing/answers.h"
#include "controls/testing/failure_of.h"
#include "controls/testing/refused_layout_operation.h"
#include "controls/testing/tree_fixture.h"
#include "scene/matrix.h"

#include <algorithm>
#include <memory>
#include <stdexcept>
#include <string>
#include <string_view>

#include <gtest/gtest.h>

namespace d2d::ui::tree {
namespace {

using fakes::answers;
using fakes::failure_of;
using scene::fakes::call_text;
using scene::fakes::thrown_by;

using tree_test = fakes::tree_fixture;

TEST_F(tree_test, answers_for_its_interfaces) {
    EXPECT_TRUE(answers<ITreeView>(shown));
    EXPECT_TRUE(answers<IControl>(shown));
    EXPECT_TRUE(answers<scene::layout::IElement>(shown));
    EXPECT_FALSE(answers<IScrollArea>(shown));
    EXPECT_TRUE(answers<ITreeNode>(a));
    EXPECT_FALSE(answers<ITreeView>(a));
    shown->arrange({1, 2, 31, 42});
    EXPECT_TRUE(scene::fakes::same({1, 2, 31, 42}, shown->get_rect()));
}

TEST_F(tree_test, an_entry_keeps_the_word_of_its_owner) {
    EXPECT_EQ(nullptr, a->get_data());
    int word = 0;
    a->set_data(&word);
    r->remove_child(a.get());
    EXPECT_EQ(&word, a->get_data());
}

// Selection

TEST_F(tree_test, selects_one_entry_and_tells_of_the_former) {
    shown->select(a.get());
    EXPECT_EQ("selection_changed none a", told());
    shown->select(a.get());
    EXPECT_EQ("", told()) << "selected already";
    shown->select(b.get());
    EXPECT_EQ("selection_changed a b", told());
    EXPECT_FALSE(a->is_selected());
    EXPECT_TRUE(b->is_selected());
    shown->set_handler(nullptr);
    shown->select(r.get());
    EXPECT_TRUE(r->is_selected());
    EXPECT_FALSE(b->is_selected());
}

TEST_F(tree_test, selects_rows_that_are_not_to_be_seen) {
    r->set_expanded(false);
    shown->select(a.get());
    EXPECT_EQ("collapsed r, selection_changed none a", told());
}

TEST_F(tree_test, selects_only_what_is_in_it) {
    const auto free_one = entry("free");
    const auto other = com::create_object<control>();
    const auto elsewhere = entry("elsewhere");
    other->set_root(elsewhere.get());
    EXPECT_EQ("tree node must be in tree", thrown_by([&] { shown->select(free_one.get()); }));
    EXPECT_EQ("tree node must be in tree", thrown_by([&] { shown->select(elsewhere.get()); }));
    r->remove_child(a.get());
    EXPECT_EQ("tree node must be in tree", thrown_by([&] { shown->select(a.get()); }));
    EXPECT_EQ("", told());
}

TEST_F(tree_test, an_entry_stays_selected_where_it_goes_until_another_is) {
    shown->select(a.get());
    r->remove_child(a.get());
    EXPECT_TRUE(a->is_selected());
    static_cast<void>(told());
    b->add_child(a.get());
    shown->select(r.get());
    EXPECT_EQ("selection_changed a r", told());
    EXPECT_FALSE(a->is_selected());
}

class foreign_node : public com::base_object<com::object_base, ITreeNode> {
public:
    void* get_data() const override { return nullptr; }
    void set_data(void*) override {}
    void set_icon(scene::IBitmap*) override {}
    void set_text(const wchar_t*, std::size_t) override {}
    void set_state_icon(scene::IBitmap*) override {}
    void add_child(ITreeNode*) override {}
    void remove_child(ITreeNode*) override {}
    void set_expandable(bool) override {}
    void set_expanded(bool) override {}
    bool is_expanded() const override { return false; }
    bool is_selected() const override { return false; }
    void set_highlighted(bool) override {}
    com::ptr<scene::INode> create_drag_image() override { return nullptr; }

protected:
    ~foreign_node() = default;
};

TEST_F(tree_test, refuses_entries_of_another_make) {
    const auto foreign = com::create_object<foreign_node>();
    EXPECT_EQ("bad tree node type", thrown_by([&] { r->add_child(foreign.get()); }));
    EXPECT_EQ("bad tree node type", thrown_by([&] { r->remove_child(foreign.get()); }));
    EXPECT_EQ("bad tree node type", thrown_by([&] { shown->set_root(foreign.get()); }));
    EXPECT_EQ("bad tree node type", thrown_by([&] { shown->select(foreign.get()); }));
    EXPECT_EQ("bad tree node type", thrown_by([&] { r->add_child(nullptr); }));
    EXPECT_EQ("bad tree node type", thrown_by([&] { shown->select(nullptr); }));
    EXPECT_EQ(3u, rows());
}

TEST_F(tree_test, refuses_cycles_and_roots_with_a_parent) {
    const auto deep = entry("deep", a);
    const std::string cycle = "a tree node can't be put below itself";
    EXPECT_EQ(cycle, thrown_by([&] { deep->add_child(r.get()); }));
    EXPECT_EQ(cycle, thrown_by([&] { a->add_child(a.get()); }));
    EXPECT_EQ("a tree's root can't have a parent", thrown_by([&] { shown->set_root(a.get()); }));
    EXPECT_EQ("r", at(on_r));
    EXPECT_EQ("a", at(on_a));
}

// Expansion

TEST_F(tree_test, asks_before_it_expands_and_tells_when_it_has_collapsed) {
    r->set_expanded(false);
    EXPECT_EQ("collapsed r", told());
    EXPECT_EQ(1u, rows());
    r->set_expanded(false);
    EXPECT_EQ("", told());
    when("tree: can_expand r", [] { return true; });
    r->set_expanded(true);
    EXPECT_EQ("can_expand r", told());
    EXPECT_FALSE(r->is_expanded()) << "refused";
    EXPECT_EQ(1u, rows());
    r->set_expanded(true);
    EXPECT_EQ("can_expand r", told());
    EXPECT_EQ(3u, rows());
}

TEST_F(tree_test, the_handler_fills_an_entry_when_it_is_asked) {
    b->set_expandable(true);
    com::ptr<ITreeNode> late;
    pass_after("tree: can_expand b", [&] { late = entry("late", b); });
    b->set_expanded(true);
    EXPECT_EQ("can_expand b", told());
    EXPECT_EQ(4u, rows());
    EXPECT_EQ("late", at({64, 62}));
}

TEST_F(tree_test, only_keeps_the_value_where_there_is_no_expander) {
    const auto free_one = entry("free");
    const auto below = entry("below", free_one);
    free_one->set_expanded(true);
    a->set_expanded(true);
    EXPECT_TRUE(free_one->is_expanded());
    EXPECT_TRUE(a->is_expanded());
    a->add_child(free_one.get());
    EXPECT_EQ("", told()) << "nobody is asked";
    EXPECT_EQ(5u, rows());
}

TEST_F(tree_test, collapses_with_its_last_child) {
    r->remove_child(a.get());
    EXPECT_TRUE(r->is_expanded());
    r->remove_child(a.get());
    EXPECT_EQ(2u, rows()) << "is no child any more";
    r->remove_child(b.get());
    EXPECT_FALSE(r->is_expanded());
    EXPECT_EQ("", told());
    EXPECT_EQ(1u, rows());
    EXPECT_EQ("none", at(on_expander));
}

// The mouse

TEST_F(tree_test, a_press_on_a_row_selects_it_and_takes_the_focus) {
    press_at(on_a);
    EXPECT_EQ("selection_changed none a", told());
    EXPECT_TRUE(content()->has_focus(false));
    r->set_expanded(false);
    EXPECT_TRUE(content()->has_focus(false)) << "though the row is gone";
}

TEST_F(tree_test, presses_on_rows_and_expanders_go_no_further) {
    hear_mouse(root);
    for (const D2D_POINT_2F point : {on_a, on_expander}) {
        press_at(point);
        EXPECT_EQ(std::string::npos, heard().find("root 6")) << "on the way back";
    }
    press_at(on_expander, mouse_button::right);
    EXPECT_EQ("root -6, root 6", heard()) << "nobody wants it";
}

TEST_F(tree_test, a_press_on_the_background_only_takes_the_focus) {
    EXPECT_FALSE(content()->has_focus(true));
    press_at(beside);
    EXPECT_TRUE(content()->has_focus(false));
    EXPECT_EQ("", told());
}

TEST_F(tree_test, a_press_on_what_has_just_left_its_view_fails_for_want_of_a_focus) {
    root->add_mouse_handler([this](scene::INode*, int depth, input::mouse::event event) {
        if (depth < 0 && event.type == input::mouse::event_type::button_down) root->remove_child(own);
        return false;
    });
    EXPECT_EQ("not expected", thrown_by<std::runtime_error>([&] { press_at(on_a); }));
    root->add_mouse_handler(nullptr);
    root->add_child(own);
    EXPECT_EQ("", told());
    EXPECT_FALSE(a->is_selected());
}

TEST_F(tree_test, a_right_press_asks_for_the_menu_and_selects_nothing) {
    press_at(on_a, mouse_button::right);
    EXPECT_EQ("context_menu a", told());
    EXPECT_FALSE(a->is_selected());
}

TEST_F(tree_test, a_drag_starts_with_any_button_and_selects) {
    site.drag_detected = true;
    press_at(on_a, mouse_button::right);
    // The row stands at (14, 18).
    EXPECT_EQ("selection_changed none a, drag_begin a 36 8 1", told());
    press_at(on_a);
    EXPECT_EQ("drag_begin a 36 8 0", told());
}

TEST_F(tree_test, a_press_waits_for_a_drag_of_its_button_and_selects_unless_it_is_the_right_one) {
    const struct {
        mouse_button button;
        const char* detected;
        bool selects;
    } cases[] = {{mouse_button::right, "drag_detect 50 26 1", false},
                 {mouse_button::left, "drag_detect 50 26 0", true},
                 {mouse_button::middle, "drag_detect 50 26 4", true},
                 {mouse_button::extended, "drag_detect 50 26 5", true}};
    for (const auto& [button, detected, selects] : cases) {
        shown->select(r.get());
        forget();
        press_at(on_a, button);
        const lines said = calls();
        EXPECT_EQ(1, std::count(said.begin(), said.end(), detected)) << detected;
        EXPECT_EQ(selects, a->is_selected()) << detected;
    }
}

TEST_F(tree_test, a_press_on_an_icon_is_one_on_its_row) {
    a->set_icon(scene::IBitmap::create({16, 16}, std::make_unique<unsigned[]>(256)).get());
    press_at({36, 26});
    EXPECT_EQ("selection_changed none a", told());
    site.drag_detected = true;
    press_at({37, 27});
    EXPECT_EQ("drag_begin a 23 9 0", told()) << "in the space of the row all the same";
}

TEST_F(tree_test, does_its_work_without_a_handler) {
    shown->set_handler(nullptr);
    press_at(on_a, mouse_button::right);
    EXPECT_FALSE(a->is_selected());
    site.drag_detected = true;
    press_at(on_a);
    EXPECT_TRUE(a->is_selected());
    press_at(on_expander);
    EXPECT_FALSE(r->is_expanded());
    EXPECT_EQ(1u, rows());
    press_at(on_expander);
    EXPECT_TRUE(r->is_expanded());
    EXPECT_EQ(3u, rows());
    EXPECT_EQ("", told());
}

TEST_F(tree_test, the_expander_toggles_when_the_press_ends_on_it) {
    site.drag = [](const auto& moved) {
        moved({500, 500});
        return true;
    };
    press_at(on_expander);
    EXPECT_EQ("", told()) << "released off it";
    EXPECT_TRUE(r->is_expanded());
    site.drag = [](const auto& moved) {
        moved({500, 500});
        moved({0, 0});
        return true;
    };
    press_at(on_expander);
    EXPECT_EQ("collapsed r", told());
    site.drag = nullptr;
    press_at(on_expander);
    EXPECT_EQ("can_expand r", told());
    press_at(on_expander, mouse_button::right);
    EXPECT_EQ("", told());
    EXPECT_TRUE(r->is_expanded());
}

TEST_F(tree_test, finds_the_entry_at_a_point_of_the_view) {
    shown->get_node()->set_transform(scene::translation_matrix(5, 5));
    EXPECT_EQ("r", at(on_r));
    EXPECT_EQ("a", at(on_a));
    EXPECT_EQ("b", at(on_b));
    EXPECT_EQ("r", at(on_expander)) << "the expander is of the row";
    EXPECT_EQ("none", at(beside));
    shown->set_root(nullptr);
    EXPECT_EQ("a", at(on_a)) << "rows of a former root stay";
}

// Rows

TEST_F(tree_test, the_same_text_again_touches_nothing) {
    a->set_text(L"a", 1);
    EXPECT_EQ(lines{}, calls());
    a->set_text(L"", 0);
    EXPECT_NE(lines{}, calls());
    a->set_text(nullptr, 0);
    EXPECT_EQ(lines{}, calls());
}

TEST_F(tree_test, an_icon_moves_nothing) {
    const auto icon = scene::IBitmap::create({16, 16}, std::make_unique<unsigned[]>(256));
    const auto before = shown->measure().preferred_size;
    a->set_icon(icon.get());
    EXPECT_EQ((lines{"invalidate_rect 28 18 44 34"}), calls());
    a->set_icon(nullptr);
    EXPECT_EQ((lines{"invalidate_rect 28 18 44 34"}), calls());
    EXPECT_EQ(call_text(before), call_text(shown->measure().preferred_size));
    EXPECT_EQ("a", at(on_a));
}

TEST_F(tree_test, a_text_that_cannot_be_laid_out_leaves_the_former) {
    const auto width = shown->measure().preferred_size.width;
    const auto layout = shown->get_view().look().text_format->create_layout(std::wstring_view(L"any"), 0, 0);
    {
        const fakes::refused_layout_operation<fakes::get_metrics> refused(layout.get());
        EXPECT_EQ(refused.failure, failure_of([&] { a->set_text(L"a longer one", 12); }));
    }
    EXPECT_EQ(lines{}, calls());
    EXPECT_EQ(width, shown->measure().preferred_size.width);
    a->set_text(L"a longer one", 12);
    EXPECT_LT(width, shown->measure().preferred_size.width) << "was not taken for the same text";
}

TEST_F(tree_test, a_child_that_cannot_be_laid_out_has_no_place) {
    const auto layout = shown->get_view().look().text_format->create_layout(std::wstring_view(L"any"), 0, 0);
    const auto child = entry("child");
    const auto below = entry("below", child);
    {
        const fakes::refused_layout_operation<fakes::get_metrics> refused(layout.get());
        EXPECT_EQ(refused.failure, failure_of([&] { b->add_child(child.get()); }));
        EXPECT_EQ(refused.failure, failure_of([&] { shown->set_root(child.get()); }));
    }
    EXPECT_EQ(3u, rows());
    EXPECT_EQ("r", at(on_r)) << "the former root is shown still";
    EXPECT_EQ("tree node must be in tree", thrown_by([&] { shown->select(child.get()); }));
    b->remove_child(child.get());  // is none
    b->add_child(child.get());
    child->set_expanded(true);
    b->set_expanded(true);
    EXPECT_EQ("can_expand child, can_expand b", told());
    EXPECT_EQ(5u, rows());
    r->remove_child(b.get());
    EXPECT_EQ(2u, rows());
}

TEST_F(tree_test, large_icons_make_high_rows) {
    drop_view();
    make_view();
    shown->get_view().large_icons = true;
    const auto icon = scene::IBitmap::create({32, 32}, std::make_unique<unsigned[]>(std::size_t{32} * 32));
    r->set_icon(icon.get());
    shown->set_root(r.get());
    EXPECT_EQ(3 * (32 + 2), shown->measure().preferred_size.height);
    EXPECT_EQ("r", at({52, 16}));
    EXPECT_EQ("r", at({15, 31})) << "its icon";
    EXPECT_EQ("none", at({52, 33})) << "between rows";
    EXPECT_EQ("a", at({66, 50}));
    EXPECT_EQ("r", at({6, 16})) << "its expander";
}

}  // namespace
}  // namespace d2d::ui::tree
