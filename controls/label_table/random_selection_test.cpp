// A table in random use, compared with a plain model.

#include "controls/testing/label_table_fixture.h"
#include "controls/testing/label_table_model.h"
#include "support/random_seed.h"

#include <random>
#include <string>
#include <vector>

#include <gtest/gtest.h>

namespace d2d::ui {
namespace {

using fakes::label_table_model;
using scene::fakes::thrown_by;

class random_label_table : public fakes::label_table_fixture {
protected:
    static constexpr std::size_t most = 12;  // rows at a time

    [[nodiscard]] unsigned below(std::size_t limit) { return static_cast<unsigned>(random() % limit); }
    [[nodiscard]] bool one_in(unsigned chance) { return below(chance) == 0; }

    void insert_row() {
        if (expected.rows.size() == most) return;
        label_table_model::row added;
        added.key = ++last_key;
        added.value = static_cast<int>(below(5)) - 2;
        added.height = static_cast<float>(1 + below(12));
        added.margin_above = static_cast<float>(below(5));
        added.margin_below = static_cast<float>(below(5));
        const labels& made = make_labels(added.key);
        made[0]->measured.margin.top = added.margin_above;
        made[1]->measured.margin.bottom = added.margin_below;
        made[0]->measured.preferred_size.height = added.height;
        made[1]->measured.preferred_size.height = 1;
        if (one_in(3)) {
            table->add_row(added.value, added.key, body, {made[0].get(), made[1].get()});
            expected.insert(most, added);
        } else {
            const unsigned index = below(most);
            table->insert_row(index, body, added.value, added.key, {made[0].get(), made[1].get()});
            expected.insert(index, added);
        }
    }
    void remove_row() {
        if (expected.rows.empty()) return;
        const unsigned index = below(expected.rows.size());
        table->remove_row(index, body);
        rows.erase(expected.rows[index]->key);
        expected.remove(index);
    }
    void clear() {
        if (one_in(2)) {
            table->clear();
        } else {
            table->clear_section(body);
        }
        expected.clear();
        rows.clear();
    }
    void change_order() {
        const auto sign = static_cast<int>(below(3)) - 1;
        const bool by_size = one_in(2);
        if (sign == 0) {
            table->clear_compare();
            expected.compare = nullptr;
            return;
        }
        expected.compare = [=](int a, int b) { return sign * (by_size ? a * a - b * b : a - b); };
        table->set_compare(expected.compare);
    }
    void lay_both_out() {
        lay_out();
        expected.lay_out();
    }
    void choose_multi_select() {
        expected.multi_select = !one_in(3);
        if (expected.multi_select) {
            table->enable_multi_select();
        } else {
            table->disable_multi_select();
        }
    }
    void use_mouse() {
        static constexpr std::uint32_t some[] = {1, 1, 5, 5, 5, 9, 9, 9, 0, 4, 13, 3};
        const auto y = static_cast<float>(below(200)) / 2;
        switch (below(6)) {
            case 0:
                move_to({20, y});
                expected.move(y);
                break;
            case 1:
                if (!one_in(4)) break;
                leave();
                expected.leave();
                break;
            default:
                const std::uint32_t flags = some[below(std::size(some))];
                press_at({20, y}, flags);
                expected.press(y, flags);
        }
    }
    void do_something() {
        switch (below(30)) {
            case 0:
                return choose_multi_select();
            case 1:
                return change_order();
            case 2:
                if (one_in(4)) clear();
                return;
            case 3:
            case 4:
                return remove_row();
            case 5:
            case 6:
            case 7:
                return insert_row();
            case 8:
            case 9:
            case 10:
                return lay_both_out();
            default:
                return use_mouse();
        }
    }

    void compare() {
        EXPECT_EQ(expected.rows.size(), table->get_row_count());
        const auto chosen = expected.selected();
        keys chosen_keys;
        keys values;
        for (const auto* each : chosen) {
            chosen_keys.push_back(each->key);
            values.push_back(each->value);
        }
        EXPECT_EQ(chosen_keys, selected());
        EXPECT_EQ(values, table->get_selected_values());
        if (chosen.size() > 1) {
            EXPECT_EQ("more than one item selected",
                      thrown_by([&] { static_cast<void>(table->get_selected_key()); }));
        } else {
            EXPECT_EQ(chosen.empty() ? std::nullopt : std::optional(chosen[0]->key),
                      table->get_selected_key());
        }
        for (const auto* each : expected.rows) EXPECT_EQ(each->color, color(each->key)) << each->key;
        lines drawn = expected.selection_drawing;
        drawn.insert(drawn.end(), expected.hot_drawing.begin(), expected.hot_drawing.end());
        EXPECT_EQ(drawn, shapes());
    }

    unsigned seed = test_support::random_seed();
    std::mt19937 random{seed};
    label_table_model expected;
    int last_key = 0;
};

TEST_F(random_label_table, behaves_as_the_model_does) {
    SCOPED_TRACE(testing::Message() << "seed " << seed);
    unsigned most_selected = 0;
    unsigned most_shapes = 0;
    for (int step = 0; step < 6000 && !HasFailure(); ++step) {
        SCOPED_TRACE(testing::Message() << "step " << step);
        do_something();
        compare();
        most_selected = std::max(most_selected, static_cast<unsigned>(expected.selected().size()));
        most_shapes = std::max(most_shapes, static_cast<unsigned>(expected.selection_drawing.size()));
    }
    EXPECT_LT(3u, most_selected) << "the use was too dull to tell anything";
    EXPECT_LT(1u, most_shapes);
}

}  // namespace
}  // namespace d2d::ui
