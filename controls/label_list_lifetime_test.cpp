// What labels and handlers may do to a label list meanwhile, and what is left behind.

#include "controls/testing/label_list_fixture.h"
#include "controls/testing/label_test.h"
#include "controls/testing/once.h"

#include <functional>
#include <memory>
#include <stdexcept>
#include <string>
#include <utility>
#include <vector>

#include <gtest/gtest.h>

namespace d2d {
namespace {

using scene::fakes::references;
using scene::fakes::thrown_by;

class label_list_lifetime : public fakes::label_list_fixture {
protected:
    struct meddling {
        const char* name;
        std::function<void()> action;
    };
    [[nodiscard]] std::vector<meddling> all_meddling() {
        return {
            {"clear", [this] { list->clear(); }},
            {"insert", [this] { list->insert_item(0, &make_label(), 99); }},
            {"fill anew",
             [this] {
                 list->clear();
                 list->insert_item(0, &make_label(), 98);
             }},
            {"press another", [this] { press_at(on_label(2)); }},
            {"leave", [this] { mouse(input::mouse::event_type::leave, 0, 0); }},
            {"drop", [this] { drop_list(); }},
        };
    }
    void make_anew() {
        drop_list();
        labels.clear();
        make_list(look->get());
        fill(3);
        move_to(on_label(0));
        press_at(on_label(0));
    }
    void expect_usable() {
        if (!list) return;
        list->clear();
        for (const auto& label : labels) {
            EXPECT_EQ(1u, references(label.get()));
            EXPECT_FALSE(label->node->get_parent());
        }
        labels.clear();
        EXPECT_EQ(std::nullopt, list->get_selection());
        fill(2);
        move_to(on_label(1));
        press_at(on_label(1));
        EXPECT_EQ(11, list->get_selection());
        EXPECT_EQ("selected.text", color(1));
        EXPECT_EQ(2u, shapes().size());
    }
    /// Lets each thing happen once, at the first call of what `arrange_for` is given.
    void meddle(const std::function<void(std::function<void()>)>& arrange_for,
                const std::function<void()>& act) {
        for (const auto& each : all_meddling()) {
            SCOPED_TRACE(each.name);
            make_anew();
            const auto done = std::make_shared<bool>(false);
            arrange_for(fakes::once(each.action, done));
            act();
            EXPECT_TRUE(*done);
            for (const auto& label : labels) {
                label->on_measure = label->on_arrange = label->on_set_brush = nullptr;
            }
            expect_usable();
        }
    }
};

TEST_F(label_list_lifetime, labels_may_do_anything_as_they_are_recolored) {
    meddle([this](auto action) { labels[0]->on_set_brush = action; }, [this] { press_at(on_label(1)); });
    meddle([this](auto action) { labels[1]->on_set_brush = action; }, [this] { press_at(on_label(1)); });
}

TEST_F(label_list_lifetime, labels_may_do_anything_as_they_are_measured_and_placed) {
    meddle([this](auto action) { labels[0]->on_measure = action; }, [this] { append(); });
    meddle([this](auto action) { labels[2]->on_measure = action; }, [this] { append(); });
    meddle([this](auto action) { labels[0]->on_arrange = action; }, [this] { append(); });
    meddle([this](auto action) { labels[2]->on_arrange = action; }, [this] { append(); });
}

TEST_F(label_list_lifetime, anything_may_happen_when_the_focus_comes) {
    meddle(
        [this](auto action) {
            content_of(*labels[0])->set_focus_handler(false, [action](auto*, auto*) { action(); });
        },
        [this] { press_at(on_label(1)); });
}

TEST_F(label_list_lifetime, anything_may_happen_when_the_content_has_other_bounds) {
    std::function<void()> action;
    const auto handler = root->add_bounds_handler([&](bool, D2D_RECT_F) {
        if (action) action();
    });
    meddle([&](auto given) { action = given; },
           [&] {
               list->insert_item(0, &make_label(), 7);
               labels.back()->node->set_transform({{{1, 0, 0, 1, 300, 300}}});
               record(labels.back()->node, {0, 0, 500, 500});
               action = nullptr;
           });
    root->remove_bounds_handler(handler);
}

TEST_F(label_list_lifetime, anything_may_happen_as_a_row_comes) {
    std::function<void()> action;
    const auto handler = root->add_bounds_handler([&](bool, D2D_RECT_F) {
        if (action) action();
    });
    meddle([&](auto given) { action = given; },
           [&] {
               fakes::fake_label& added = make_label();
               record(added.node, {0, 0, 500, 500});
               list->insert_item(1, &added, 7);
               action = nullptr;
           });
    root->remove_bounds_handler(handler);
}

TEST_F(label_list_lifetime, label_under_the_mouse_may_fill_the_list_anew_with_itself) {
    fill(2);
    int pressed = 0;
    labels[0]->node->add_mouse_handler([&](scene::INode*, int, input::mouse::event event) {
        if (event.type != input::mouse::event_type::button_down) return false;
        ++pressed;
        list->clear();
        list->insert_item(0, labels[0].get(), 20);
        record(labels[0]->node, labels[0]->rect);
        return false;
    });
    move_to(on_label(0));
    press_at(on_label(0));
    EXPECT_EQ(1, pressed);
    EXPECT_EQ(std::nullopt, list->get_selection()) << "the row of the press has gone";
    press_at(on_label(0));
    EXPECT_EQ(1, pressed) << "a row that goes takes the handlers of its label along";
    EXPECT_EQ(20, list->get_selection());
}

TEST_F(label_list_lifetime, list_that_is_cleared_as_it_takes_the_focus_selects_nothing) {
    fill(2);
    content_of(*labels[0])->set_focus_handler(false, [this](auto*, auto*) {
        if (list) list->clear();  // gone where the focus goes at the end
    });
    press_at(on_label(0));
    EXPECT_EQ(std::nullopt, list->get_selection());
    EXPECT_EQ("none", color(0));
}

TEST_F(label_list_lifetime, list_that_is_cleared_by_the_former_label_selects_nothing) {
    fill(2);
    press_at(on_label(0));
    labels[0]->on_set_brush = [this] { list->clear(); };
    press_at(on_label(1));
    EXPECT_EQ(std::nullopt, list->get_selection());
    EXPECT_EQ("none", color(1));
}

TEST_F(label_list_lifetime, exceptions_pass_and_leave_a_whole_list) {
    fill(3);
    const auto content = content_of(*labels[0]);
    content->set_focus_handler(false, [](auto*, auto*) { throw std::runtime_error("no focus"); });
    EXPECT_EQ("no focus", thrown_by<std::runtime_error>([&] { press_at(on_label(0)); }));
    EXPECT_EQ(std::nullopt, list->get_selection());
    content->set_focus_handler(false, nullptr);
    labels[1]->on_set_brush = [] { throw std::runtime_error("no color"); };
    EXPECT_EQ("no color", thrown_by<std::runtime_error>([&] { press_at(on_label(1)); }));
    EXPECT_EQ(11, list->get_selection());
    labels[1]->on_set_brush = nullptr;
    press_at(on_label(2));
    EXPECT_EQ(12, list->get_selection());
    EXPECT_EQ("idle.text", color(1));
    labels[0]->on_measure = [] { throw std::logic_error("no size"); };
    EXPECT_EQ("no size", thrown_by([&] { append(); }));
    EXPECT_EQ("0 0 0 0", place(3));
    labels[0]->on_measure = nullptr;
    append();
    EXPECT_EQ("6 43 28 55", place(3)) << "the row is there";
    EXPECT_EQ("6 57 28 69", place(4));
}

TEST_F(label_list_lifetime, label_that_is_shown_elsewhere_is_refused_and_changes_nothing) {
    fill(1);
    root->add_child(make_label().node);
    EXPECT_EQ("unexpected", thrown_by([&] { list->insert_item(0, labels[1].get(), 5); }));
    EXPECT_EQ("unexpected", thrown_by([&] { list->insert_item(0, labels[0].get(), 5); }));
    EXPECT_EQ(1u, references(labels[1].get()));
    append();
    EXPECT_EQ("6 15 28 27", place(2));
    root->remove_child(labels[1]->node);
}

TEST_F(label_list_lifetime, holds_labels_until_they_go_and_not_itself) {
    fill(2);
    move_to(on_label(0));
    press_at(on_label(0));
    EXPECT_EQ(1u, references(list.get()));
    drop_list();
    EXPECT_EQ(1u, references(labels[0].get()));
    EXPECT_FALSE(labels[0]->node->get_parent());
}

TEST_F(label_list_lifetime, nodes_that_are_kept_show_the_picture_and_do_nothing) {
    fill(2);
    press_at(on_label(0));
    const auto before = painted();
    list.reset();
    root->set_focus();
    forget();
    move_to(on_label(1));
    press_at(on_label(1));
    EXPECT_EQ("", heard());
    EXPECT_TRUE(root->has_focus(false));
    EXPECT_EQ(before, painted());
}

TEST_F(label_list_lifetime, style_without_looks_for_scroll_areas_is_refused) {
    const auto plain = com::create_object<fakes::plain_style>();
    EXPECT_EQ(E_NOINTERFACE,
              fakes::failure_of([&] { static_cast<void>(ui::create_label_list(plain.get())); }));
}

}  // namespace
}  // namespace d2d
