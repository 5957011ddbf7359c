// Trees whose rows and views go while a call runs.

#include "controls/testing/tree_fixture.h"

#include <functional>
#include <iterator>
#include <stdexcept>
#include <string>
#include <utility>

#include <gtest/gtest.h>

namespace d2d::ui::tree {
namespace {

using scene::fakes::thrown_by;

class tree_lifetime_test : public fakes::tree_fixture {
protected:
    using action = std::function<void()>;

    [[noreturn]] static void fail() { throw std::logic_error("mine"); }

    /// A new view on new entries: "r" with "a" and "b", which is expandable.
    void start_anew() {
        drop_view();
        a = entry("a");
        b = entry("b");
        r = entry("r");
        r->add_child(a.get());
        r->add_child(b.get());
        r->set_expanded(true);
        b->set_expandable(true);
        make_view();
        shown->set_root(r.get());
        forget();
    }
    /// Runs `deed` inside each call of the handler in turn.
    void in_each_call(const std::function<void(const std::string& line, const action& cause)>& deed) {
        const struct {
            const char* line;
            action cause;
        } calls_of_all[] = {
            {"collapsed r", [&] { r->set_expanded(false); }},
            {"can_expand b", [&] { b->set_expanded(true); }},
            {"context_menu a", [&] { press_at(on_a, mouse_button::right); }},
            {"selection_changed none a", [&] { press_at(on_a); }},
            {"drag_begin a 36 8 0",
             [&] {
                 shown->select(a.get());
                 site.drag_detected = true;
                 press_at(on_a);
             }},
        };
        for (const auto& [line, cause] : calls_of_all) {
            SCOPED_TRACE(line);
            start_anew();
            deed(std::string("tree: ") + line, cause);
            site.drag_detected = false;
        }
    }
    /// Whether some row has a background: that of what is hot or selected.
    [[nodiscard]] bool something_is_painted() {
        for (const auto& line : painted()) {
            if (line.starts_with("FillGeometry rounded_rectangle")) return true;
        }
        return false;
    }
};

TEST_F(tree_lifetime_test, each_call_may_release_the_view) {
    in_each_call([&](const std::string& line, const action& cause) {
        pass_after(line, [&] { drop_view(); });
        cause();
        EXPECT_FALSE(shown);
    });
}

TEST_F(tree_lifetime_test, each_call_may_release_all_there_is) {
    in_each_call([&](const std::string& line, const action& cause) {
        pass_after(line, [&] {
            drop_view();
            r.reset();
            a.reset();
            b.reset();
        });
        cause();
        EXPECT_FALSE(shown);
    });
}

TEST_F(tree_lifetime_test, each_call_may_take_all_rows_out) {
    in_each_call([&](const std::string& line, const action& cause) {
        pass_after(line, [&] {
            r->remove_child(a.get());
            r->remove_child(b.get());
        });
        cause();
        EXPECT_EQ(1u, rows());
        EXPECT_FALSE(r->is_expanded());
        r->add_child(a.get());
        r->set_expanded(true);
        EXPECT_EQ(2u, rows());
        EXPECT_EQ("a", at(on_a));
    });
}

TEST_F(tree_lifetime_test, each_call_may_replace_the_root) {
    in_each_call([&](const std::string& line, const action& cause) {
        const auto next = entry("next");
        pass_after(line, [&] {
            shown->set_root(next.get());
            r.reset();
            a.reset();
            b.reset();
        });
        cause();
        EXPECT_EQ(1u, rows()) << "the former root is gone";
        EXPECT_EQ("next", at(on_r));
    });
}

TEST_F(tree_lifetime_test, each_call_may_collapse_the_parent) {
    in_each_call([&](const std::string& line, const action& cause) {
        pass_after(line, [&] { r->set_expanded(false); });
        cause();
        EXPECT_EQ(1u, rows());
        EXPECT_EQ("none", at(on_a));
        r->set_expanded(true);
        EXPECT_EQ(3u, rows());
        EXPECT_EQ("a", at(on_a));
    });
}

TEST_F(tree_lifetime_test, each_call_may_throw) {
    in_each_call([&](const std::string& line, const action& cause) {
        when(line, []() -> bool { fail(); });
        EXPECT_EQ("mine", thrown_by(cause));
        EXPECT_EQ(r->is_expanded() ? 3u : 1u, rows());
        EXPECT_FALSE(b->is_expanded()) << "nobody agreed";
        move_to(beside);
        EXPECT_EQ(a->is_selected(), something_is_painted()) << "nothing is hot";
        site.drag_detected = false;
        r->set_expanded(true);
        static_cast<void>(told());
        press_at(on_b);
        EXPECT_TRUE(b->is_selected());
        EXPECT_FALSE(a->is_selected());
    });
}

TEST_F(tree_lifetime_test, a_node_may_be_toggled_by_those_who_hear_of_it) {
    pass_after("tree: collapsed r", [&] { r->set_expanded(true); });
    r->set_expanded(false);
    EXPECT_EQ("collapsed r, can_expand r", told());
    EXPECT_TRUE(r->is_expanded());
    EXPECT_EQ(3u, rows());
    r->set_expanded(false);
    static_cast<void>(told());
    pass_after("tree: can_expand r", [&] { r->set_expanded(true); });
    r->set_expanded(true);
    EXPECT_EQ("can_expand r, can_expand r", told());
    EXPECT_TRUE(r->is_expanded());
    EXPECT_EQ(3u, rows());
}

// While it is open whether a press becomes a drag, messages arrive.

TEST_F(tree_lifetime_test, what_is_pressed_may_go_before_it_is_a_click_or_a_drag) {
    const struct {
        const char* name;
        action change;
    } changes[] = {
        {"row taken out", [&] { r->remove_child(a.get()); }},
        {"row released",
         [&] {
             r->remove_child(a.get());
             a.reset();
         }},
        {"root released",
         [&] {
             shown->set_root(nullptr);
             r.reset();
             a.reset();
             b.reset();
         }},
        {"view released", [&] { drop_view(); }},
    };
    for (const auto& [name, change] : changes) {
        for (const bool detected : {false, true}) {
            for (const auto button : {mouse_button::left, mouse_button::right}) {
                SCOPED_TRACE(testing::Message() << name << (detected ? ", drag" : "") << ", button "
                                                << static_cast<int>(button));
                start_anew();
                site.while_detecting = change;
                site.drag_detected = detected;
                press_at(on_a, button);
                EXPECT_EQ("", told());
            }
        }
    }
}

TEST_F(tree_lifetime_test, a_press_counts_where_the_row_has_gone_meanwhile) {
    site.while_detecting = [&] { r->set_expanded(false); };
    site.drag_detected = true;
    press_at(on_a);
    EXPECT_EQ("collapsed r, selection_changed none a, drag_begin a 36 8 0", told()) << "out of sight";

    start_anew();
    const auto other = com::create_object<control>();
    other->set_handler(&listener);
    site.while_detecting = [&] {
        r->remove_child(a.get());
        other->set_root(a.get());
    };
    site.drag_detected = false;
    press_at(on_a, mouse_button::right);
    EXPECT_EQ("context_menu a", told()) << "in another view";
    other->select(a.get());
    EXPECT_EQ("selection_changed none a", told());
}

TEST_F(tree_lifetime_test, a_failure_in_the_loop_of_a_press_leaves_the_row_as_it_was) {
    site.while_detecting = [] { fail(); };
    EXPECT_EQ("mine", thrown_by([&] { press_at(on_a); }));
    EXPECT_FALSE(a->is_selected());
    site.while_detecting = nullptr;
    site.drag = [](const auto&) -> bool { fail(); };
    EXPECT_EQ("mine", thrown_by([&] { press_at(on_expander); }));
    EXPECT_TRUE(r->is_expanded());
    EXPECT_EQ("", told());
    press_at(on_a);
    EXPECT_EQ("selection_changed none a", told());
}

TEST_F(tree_lifetime_test, a_row_that_goes_under_the_mouse_comes_back_cold) {
    const std::pair<action, action> ways[] = {
        {[&] { r->set_expanded(false); }, [&] { r->set_expanded(true); }},
        {[&] { r->remove_child(a.get()); }, [&] { r->add_child(a.get()); }},
        {[&] { shown->set_root(nullptr); }, [&] { shown->set_root(r.get()); }},
    };
    for (const auto& [go, come_back] : ways) {
        start_anew();
        move_to(on_a);
        EXPECT_TRUE(something_is_painted());
        go();
        move_to(beside);
        come_back();
        EXPECT_FALSE(something_is_painted());
        move_to(on_a);
        EXPECT_TRUE(something_is_painted());
        move_to(beside);
    }
}

// When the row under the mouse goes, the nodes around the view hear of it, and may change what they like.

TEST_F(tree_lifetime_test, whoever_hears_that_a_row_goes_may_change_the_tree) {
    const action causes[] = {
        [&] { r->set_expanded(false); },
        [&] { r->remove_child(a.get()); },
        [&] { b->add_child(a.get()); },
        [&] { drop_view(); },
        [&] {
            shown->set_root(nullptr);
            r.reset();
        },
    };
    const action deeds[] = {
        [&] {
            if (r) r->remove_child(b.get());
        },
        [&] {
            if (r) r->set_expanded(true);
        },
        [&] { b->set_text(L"another", 7); },
        [&] {
            const auto next = entry("next");
            next->add_child(a.get());
            if (shown) shown->set_root(next.get());
        },
        [&] {
            r.reset();
            a.reset();
            b.reset();
        },
        [&] { drop_view(); },
    };
    hear_mouse(root, words::type);
    for (std::size_t cause = 0; cause < std::size(causes); ++cause) {
        for (std::size_t deed = 0; deed < std::size(deeds); ++deed) {
            SCOPED_TRACE(scene::fakes::call_text("cause", cause, "deed", deed));
            start_anew();
            move_to(on_a);
            bool done = false;
            pass_after("root 2 -6", [&] {
                done = true;
                deeds[deed]();
            });
            causes[cause]();
            EXPECT_TRUE(done);
            move_to(beside);
        }
    }
}

TEST_F(tree_lifetime_test, a_node_that_is_expanded_again_while_it_collapses_stays_open) {
    hear_mouse(root, words::type);
    move_to(on_a);
    forget();
    pass_after("root 2 -6", [&] {
        EXPECT_FALSE(r->is_expanded());
        r->set_expanded(true);
    });
    r->set_expanded(false);
    EXPECT_EQ("can_expand r", told());
    EXPECT_TRUE(r->is_expanded());
    EXPECT_EQ(3u, rows());
    EXPECT_EQ("a", at(on_a));
    EXPECT_EQ("b", at(on_b));
}

TEST_F(tree_lifetime_test, an_expander_that_goes_while_it_is_pressed_toggles_nothing) {
    site.drag = [&](const auto&) {
        r->remove_child(a.get());
        r->remove_child(b.get());
        return true;
    };
    press_at(on_expander);
    EXPECT_EQ("", told());
    r->add_child(a.get());
    site.drag = [&](const auto&) {
        drop_view();
        return true;
    };
    press_at(on_expander);
    EXPECT_EQ("", told());
    EXPECT_FALSE(r->is_expanded());
}

TEST_F(tree_lifetime_test, rows_of_a_former_root_stay_while_it_lives) {
    const auto next = entry("next");
    shown->set_root(next.get());
    EXPECT_EQ(4u, rows());
    shown->select(a.get());
    EXPECT_EQ("selection_changed none a", told()) << "still in the view";
    r.reset();
    EXPECT_EQ(1u, rows()) << "its children leave with it";
    EXPECT_EQ("next", at(on_r));
    EXPECT_EQ("tree node must be in tree", thrown_by([&] { shown->select(b.get()); }));
}

TEST_F(tree_lifetime_test, entries_outlive_the_view_and_go_into_another) {
    drop_view();
    r->set_expanded(false);
    r->set_expanded(true);
    const auto c = entry("c", r);
    EXPECT_EQ("", told());
    make_view();
    shown->set_root(r.get());
    EXPECT_EQ(4u, rows());
    const auto other = com::create_object<control>();
    other->set_root(r.get());
    EXPECT_EQ(0u, rows());
    other->select(c.get());
    EXPECT_EQ("tree node must be in tree", thrown_by([&] { shown->select(c.get()); }));
}

}  // namespace
}  // namespace d2d::ui::tree
