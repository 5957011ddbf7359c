// What labels, handlers and whoever else is called may do to a table meanwhile, and what is left behind.

#include "controls/testing/label_table_fixture.h"
#include "controls/testing/label_test.h"
#include "controls/testing/once.h"
#include "win32/scope_exit.h"

#include <algorithm>
#include <functional>
#include <memory>
#include <stdexcept>
#include <string>
#include <utility>
#include <vector>

#include <gtest/gtest.h>

namespace d2d::ui {
namespace {

using scene::fakes::references;
using scene::fakes::thrown_by;

class label_table_lifetime : public fakes::label_table_fixture {
protected:
    void SetUp() override {
        label_table_fixture::SetUp();
        table->enable_multi_select();
    }
    /// What a client may do to a table from within. The table is usable behind each.
    struct meddling {
        const char* name;
        std::function<void()> action;
    };
    [[nodiscard]] std::vector<meddling> all_meddling() {
        return {
            {"remove the row", [this] { table->remove_row(0, body); }},
            {"remove the last row", [this] { table->remove_row(table->get_row_count() - 1, body); }},
            {"clear", [this] { table->clear(); }},
            {"clear the body", [this] { table->clear_section(body); }},
            {"lay out", [this] { lay_out(); }},
            {"add", [this] { add(50); }},
            {"fill anew",
             [this] {
                 table->clear();
                 const labels& made = make_labels(60);
                 table->add_row(0, 60, body, {made[0].get()});
                 make_labels(61);
                 table->add_row(0, 61, body, {rows.at(61)[0].get()});
                 lay_out();
             }},
            {"insert and lay out",
             [this] {
                 insert(0, 70);
                 lay_out();
             }},
            {"press", [this] { press_row(2); }},
            {"remove and press",
             [this] {
                 table->remove_row(0, body);
                 lay_out();
                 press_row(0, left_held | shift);
             }},
            {"leave", [this] { leave(); }},
            {"drop", [this] { drop_table(); }},
        };
    }
    void make_anew() {
        drop_table();
        rows.clear();
        table = create_label_table(look->get());
        table->enable_multi_select();
        table->arrange({0, 0, 100, 100});
        own = table->get_node();
        root->add_child(own);
        fill(3);
        move_to(in_row(0));
    }
    /// The table does what tables do: all rows that it has are shown, pressed, and counted.
    void expect_usable() {
        if (!table) return;
        lay_out();
        const unsigned count = table->get_row_count();
        if (count > 0) press_row(0);
        EXPECT_EQ(count > 0 ? 1u : 0u, selected().size());
        leave();
        EXPECT_EQ(selected().size(), shapes().size());
        table->clear();
        lay_out();
        EXPECT_EQ((lines{}), shapes());
        for (const auto& [key, of_row] : rows) {
            for (const auto& each : of_row) EXPECT_FALSE(each->node->get_parent()) << key;
        }
    }
    void meddle(const std::function<void(std::function<void()>)>& arrange_for,
                const std::function<void()>& act) {
        for (const auto& [called, action] : all_meddling()) {
            SCOPED_TRACE(called);
            make_anew();
            const auto done = std::make_shared<bool>(false);
            arrange_for(fakes::once(action, done));
            act();
            EXPECT_TRUE(*done);
            for (const auto& [key, of_row] : rows) {
                for (const auto& each : of_row)
                    each->on_measure = each->on_arrange = each->on_set_brush = nullptr;
            }
            site.while_detecting = nullptr;
            site.drag = nullptr;
            site.drag_detected = false;
            expect_usable();
        }
    }
};

TEST_F(label_table_lifetime, labels_may_do_anything_as_they_are_recolored) {
    meddle([this](auto action) { label(1).on_set_brush = action; },
           [this] {
               press_row(0, left_held | shift);
               if (table) press_row(2, left_held | shift);
           });
    meddle([this](auto action) { label(2, 1).on_set_brush = action; },
           [this] {
               press_row(0, left_held | shift);
               press_row(2, left_held | shift);
           });
}

TEST_F(label_table_lifetime, labels_may_do_anything_as_they_are_measured) {
    meddle([this](auto action) { label(1).on_measure = action; }, [this] { lay_out(); });
    meddle([this](auto action) { label(3, 1).on_measure = action; }, [this] { lay_out(); });
}

TEST_F(label_table_lifetime, labels_may_do_anything_as_they_are_placed) {
    meddle([this](auto action) { label(1).on_arrange = action; }, [this] { lay_out(); });
    meddle([this](auto action) { label(2).on_arrange = action; }, [this] { lay_out(); });
}

TEST_F(label_table_lifetime, anything_may_happen_in_the_order) {
    meddle(
        [this](auto action) {
            table->set_compare([action](int, int) {
                action();
                return 0;
            });
        },
        [this] { lay_out(); });
}

TEST_F(label_table_lifetime, anything_may_happen_while_a_drag_is_awaited) {
    meddle([this](auto action) { site.while_detecting = action; }, [this] { press_row(1); });
    meddle(
        [this](auto action) {
            site.while_detecting = action;
            site.drag_detected = true;
        },
        [this] { press_row(1, left_held | control); });
}

TEST_F(label_table_lifetime, anything_may_happen_in_a_drag) {
    meddle(
        [this](auto action) {
            site.drag_detected = true;
            site.drag = [action](const auto& moved) {
                action();
                moved({1, 1});
                return true;
            };
        },
        [this] { press_row(1); });
}

TEST_F(label_table_lifetime, anything_may_happen_when_the_content_has_other_bounds) {
    std::function<void()> action;
    const auto handler = root->add_bounds_handler([&](bool, D2D_RECT_F) {
        if (action) action();
    });
    meddle(
        [&](auto given) {
            for (int key = 1; key <= 3; ++key) record(label(key).node, {0, 0, 10, 10});
            action = given;
        },
        [&] {
            press_row(0);
            label(3).node->set_transform({{{1, 0, 0, 1, 200, 300}}});
            action = nullptr;
        });
    root->remove_bounds_handler(handler);
}

TEST_F(label_table_lifetime, anything_may_happen_as_a_row_comes_and_as_shapes_are_drawn) {
    std::function<void()> action;
    const auto arm = [&](auto given) {
        leave();
        // What the body and the shapes beneath it cover.
        const auto content = label(1).node->get_parent()->get_parent()->get_parent();
        content->add_bounds_handler([&](bool, D2D_RECT_F) {
            if (action) action();
        });
        action = given;
    };
    const std::function<void()> acts[] = {
        [&] {
            const labels made = make_labels(40);
            for (const auto& each : made) record(each->node, {0, 0, 500, 500});
            table->insert_row(3, body, 0, 40, {made[0].get(), made[1].get()});
        },
        [&] { move_to(in_row(1)); },
        [&] { press_row(1, left_held | control); },
    };
    for (const auto& act : acts) {
        meddle(arm, [&] {
            act();
            action = nullptr;
        });
    }
    drop_table();
}

TEST_F(label_table_lifetime, row_that_is_refused_when_it_has_been_laid_out_already_leaves_nothing_behind) {
    fill(2);
    const labels made = make_labels(9);
    record(made[0]->node, {0, 0, 500, 500});
    const auto handler = root->add_bounds_handler([this](bool, D2D_RECT_F) { lay_out(); });
    EXPECT_EQ("unexpected", thrown_by([&] { table->insert_row(1, body, 0, 9, {made[0].get(), &label(1)}); }));
    root->remove_bounds_handler(handler);
    EXPECT_FALSE(made[0]->node->get_parent());
    EXPECT_TRUE(label(1).node->get_parent());
    EXPECT_EQ(2u, table->get_row_count());
    table->enable_multi_select();
    press_row(0, left_held | control);
    press_row(1, left_held | control);
    press_row(2, left_held | control);
    EXPECT_EQ((keys{1, 2}), selected());
}

TEST_F(label_table_lifetime, row_that_moves_while_a_drag_is_awaited_is_the_one_selected) {
    fill(3);
    site.while_detecting = [this] {
        insert(0, 9);
        lay_out();
    };
    press_row(1);
    EXPECT_EQ(keys{2}, selected());
    site.while_detecting = [this] { table->remove_row(2, body); };
    press_row(2);
    EXPECT_EQ(keys{}, selected()) << "the row has gone";
}

TEST_F(label_table_lifetime, table_that_leaves_its_view_while_a_drag_is_awaited_drags_no_more) {
    add(8, header);
    fill(2);
    int clicks = 0;
    table->set_on_header_click([&](ILabelTable::row_key) { ++clicks; });
    site.drag_detected = true;
    for (const D2D_POINT_2F point : {D2D_POINT_2F{20, 22}, D2D_POINT_2F{20, 7}}) {
        site.while_detecting = [this] { root->remove_child(own); };
        site.drag = [](const auto&) {
            ADD_FAILURE() << "was dragged";
            return false;
        };
        press_at(point);
        root->add_child(own);
    }
    EXPECT_EQ(keys{1}, selected());
    EXPECT_EQ(1, clicks);
}

TEST_F(label_table_lifetime, press_reaches_a_table_that_has_just_left_its_view) {
    fill(1);
    root->add_mouse_handler([this](scene::INode*, int depth, input::mouse::event event) {
        if (depth < 0 && event.type == input::mouse::event_type::button_down) root->remove_child(own);
        return false;
    });
    press_row(0);
    EXPECT_EQ(keys{1}, selected());
    root->add_mouse_handler(nullptr);
}

TEST_F(label_table_lifetime, handler_of_clicks_may_do_anything) {
    const std::vector<std::function<void()>> all{
        [this] { drop_table(); },
        [this] { table->clear(); },
        [this] { table->remove_row(0, header); },
        [this] { table->set_on_header_click(nullptr); },
        [this] { lay_out(); },
        [this] { root->remove_child(own); },
    };
    for (const auto& action : all) {
        make_anew();
        add(8, header);
        lay_out();
        int clicks = 0;
        table->set_on_header_click([&](ILabelTable::row_key key) {
            EXPECT_EQ(8, key);
            ++clicks;
            action();
        });
        press_at({20, 7});
        EXPECT_EQ(1, clicks);
    }
}

TEST_F(label_table_lifetime, exception_of_a_handler_of_clicks_passes_and_leaves_a_whole_table) {
    add(8, header);
    fill(1);
    table->set_on_header_click([](ILabelTable::row_key) { throw std::runtime_error("sorted enough"); });
    EXPECT_EQ("sorted enough", thrown_by<std::runtime_error>([&] { press_at({20, 7}); }));
    press_at({20, 22});
    EXPECT_EQ(keys{1}, selected());
}

TEST_F(label_table_lifetime, exception_of_a_label_that_is_measured_leaves_the_rows_where_they_were) {
    fill(2);
    press_row(1);
    add(3);
    label(2).measured.preferred_size.height = 50;
    label(3).on_measure = [] { throw std::runtime_error("no size"); };
    EXPECT_EQ("no size", thrown_by<std::runtime_error>([&] { lay_out(); }));
    EXPECT_EQ("8 14 28 24", place(2));
    EXPECT_EQ((lines{"Fill(8 12 56 26 3 3) selected.background"}), shapes());
    press_row(0);
    EXPECT_EQ(keys{1}, selected());
    label(3).on_measure = nullptr;
    lay_out();
    EXPECT_EQ("8 14 28 64", place(2));
    EXPECT_EQ("8 66 28 76", place(3));
}

TEST_F(label_table_lifetime, exception_of_the_order_leaves_the_former_one) {
    for (const auto& [key, value] : {std::pair{1, 3}, {2, 2}, {3, 1}}) add(key, body, value);
    lay_out();
    table->set_compare([](int, int) -> int { throw std::runtime_error("alike"); });
    EXPECT_EQ("alike", thrown_by<std::runtime_error>([&] { lay_out(); }));
    EXPECT_EQ("8 2 28 12", place(1));
    press_row(2);
    EXPECT_EQ(keys{3}, selected());
    table->set_compare([](int a, int b) { return a - b; });
    lay_out();
    EXPECT_EQ("8 2 28 12", place(3));
}

TEST_F(label_table_lifetime, exception_of_a_label_that_is_recolored_passes) {
    fill(3);
    label(2).on_set_brush = [] { throw std::runtime_error("no color"); };
    press_row(0, left_held | shift);
    EXPECT_EQ("no color", thrown_by<std::runtime_error>([&] { press_row(2, left_held | shift); }));
    EXPECT_EQ((keys{1, 2, 3}), selected());
    label(2).on_set_brush = nullptr;
    press_row(0);
    EXPECT_EQ(keys{1}, selected());
    EXPECT_EQ("text", color(2));
    EXPECT_EQ((lines{"Fill(8 0 56 14 3 3) selected.background"}), shapes());
}

TEST_F(label_table_lifetime, last_label_may_call_the_table_as_it_goes) {
    fill(3);
    for (int key = 1; key <= 3; ++key) {
        label(key).on_measure = [this,
                                 guard = std::make_shared<win32::scope_exit<std::function<void()>>>([this] {
                                     if (table) table->clear();
                                     site.calls.emplace_back("gone");
                                 })] {};
    }
    rows.clear();
    table->remove_row(1, body);
    EXPECT_EQ(0u, table->get_row_count());
    EXPECT_EQ(3u, static_cast<std::size_t>(std::count(site.calls.begin(), site.calls.end(), "gone")));
}

TEST_F(label_table_lifetime, label_under_the_mouse_may_fill_the_table_anew_with_itself) {
    for (const bool whole : {true, false}) {
        make_anew();
        for (const auto& each : rows.at(1)) record(each->node, each->rect);
        int pressed = 0;
        label(1).node->add_mouse_handler([&](scene::INode*, int, input::mouse::event event) {
            if (event.type != input::mouse::event_type::button_down) return false;
            ++pressed;
            if (whole) {
                table->clear();
            } else {
                table->clear_section(body);
            }
            table->add_row(0, 1, body, {&label(1), &label(1, 1)});
            lay_out();
            return false;
        });
        press_at(in_row(0), 2, mouse_button::right);
        EXPECT_EQ(1, pressed);
        EXPECT_EQ(1u, table->get_row_count());
        EXPECT_EQ("8 2 28 12", place(1));
        drop_table();
    }
}

TEST_F(label_table_lifetime, holds_labels_until_their_rows_go_and_not_itself) {
    fill(2);
    EXPECT_EQ(2u, references(&label(1)));
    move_to(in_row(0));
    press_row(0);
    EXPECT_EQ(1u, references(table.get()));
    table->remove_row(0, body);
    EXPECT_EQ(1u, references(&label(1)));
    drop_table();
    EXPECT_EQ(1u, references(&label(2)));
    EXPECT_FALSE(label(2).node->get_parent());
}

TEST_F(label_table_lifetime, nodes_that_are_kept_show_the_picture_and_do_nothing) {
    add(8, header);
    fill(2);
    press_at({20, 22});
    const auto before = painted();
    table.reset();
    EXPECT_EQ(before, painted());
    forget();
    move_to({20, 34});
    press_at({20, 34});
    press_at({20, 7});
    EXPECT_EQ((lines{}), calls());
    EXPECT_EQ(before, painted());
}

TEST_F(label_table_lifetime, style_without_looks_for_scroll_areas_is_refused) {
    const auto plain = com::create_object<fakes::plain_style>();
    EXPECT_EQ(E_NOINTERFACE, fakes::failure_of([&] { static_cast<void>(create_label_table(plain.get())); }));
}

}  // namespace
}  // namespace d2d::ui
