// What rows cost and where they lie when labels change: text labels tell their row, others are asked each
// time.

#include "d2d/ui/ILabelList.h"
#include "d2d/ui/ITextLabel.h"
#include "scene/testing/input_test.h"
#include "support/random_seed.h"

#include <memory>
#include <random>
#include <string>
#include <vector>

#include <gtest/gtest.h>

namespace d2d {
namespace {

/// A client's label, which passes everything on to a text label.
class plain_label : public com::base_object<com::object_base, ui::ILabel> {
public:
    explicit plain_label(com::ptr<ui::ITextLabel> real) : inner(std::move(real)) {}

    scene::layout::metrics measure() override { return inner->measure(); }
    void arrange(D2D_RECT_F rect) override { inner->arrange(rect); }
    com::ptr<scene::INode> get_node() override { return inner->get_node(); }
    D2D_RECT_F get_rect() override { return inner->get_rect(); }
    void set_brush(com::ptr<scene::IBrush> brush) override { inner->set_brush(std::move(brush)); }

protected:
    ~plain_label() = default;

private:
    const com::ptr<ui::ITextLabel> inner;
};

com::ptr<ui::ITextLabel> make_label(const std::string& text) {
    return ui::create_text_label(text, nullptr, nullptr);
}

class label_list_layout : public scene::fakes::input_test {
protected:
    static constexpr D2D_RECT_F area{0, 0, 120, 100};

    void SetUp() override {
        input_test::SetUp();
        list = ui::create_label_list(nullptr);
        list->arrange(area);
        root->add_child(list->get_node());
        show();
    }
    void TearDown() override {
        if (list) root->remove_child(list->get_node());
        list.reset();
        labels.clear();
        input_test::TearDown();
    }

    ui::ITextLabel& append(const std::string& text = "row") {
        labels.push_back(make_label(text));
        list->insert_item(-1, labels.back().get(), static_cast<int>(labels.size()));
        return *labels.back();
    }
    void press_row(float y) { press(10, y); }

    com::ptr<ui::ILabelList> list;
    std::vector<com::ptr<ui::ITextLabel>> labels;
};

TEST_F(label_list_layout, row_that_comes_asks_for_no_repaint_of_the_others) {
    for (int i = 0; i < 10; ++i) append();
    forget();
    append();
    const std::size_t calls_of_few = calls().size();
    for (int i = 0; i < 200; ++i) append();
    forget();
    append();
    EXPECT_EQ(calls_of_few, calls().size());
}

TEST_F(label_list_layout, label_with_another_text_is_placed_when_the_next_row_comes) {
    append("a");
    const D2D_RECT_F first = labels[0]->get_rect();
    append("a");
    labels[0]->set_text("something longer");
    EXPECT_LT(labels[0]->get_rect().left, 0) << "around its own origin";
    append("a");
    EXPECT_EQ(6, labels[0]->get_rect().left);
    EXPECT_EQ(first.top, labels[0]->get_rect().top);
    EXPECT_GT(labels[0]->get_rect().right, first.right + 20);
    labels[1]->arrange({50, 50, 60, 60});
    append("a");
    EXPECT_EQ(6, labels[1]->get_rect().left);
}

TEST_F(label_list_layout, label_is_no_longer_watched_when_its_row_has_gone) {
    append("a");
    list->clear();
    labels[0]->set_text("b");
    append("c");
    list->insert_item(-1, labels[0].get(), 7);
    labels[0]->set_text("ddd");
    append("e");
    EXPECT_EQ(6, labels[0]->get_rect().left);
    EXPECT_LT(labels[1]->get_rect().top, labels[0]->get_rect().top);
}

TEST_F(label_list_layout, label_in_the_rows_of_two_lists_serves_both) {
    const auto other = ui::create_label_list(nullptr);
    append("a");
    // Its node is taken away by hand: the first list still places it.
    const auto node = labels[0]->get_node();
    node->get_parent()->remove_child(node);
    other->insert_item(-1, labels[0].get(), 1);
    labels[0]->set_text("wide enough to tell");
    other->insert_item(0, make_label("b").get(), 2);
    EXPECT_EQ(6, labels[0]->get_rect().left);
    EXPECT_EQ(19, labels[0]->get_rect().top) << "the second row there";
    append("c");
    EXPECT_EQ(1, labels[0]->get_rect().top) << "the first row here";
}

TEST_F(label_list_layout, row_that_comes_while_another_is_placed_has_its_room) {
    append("a");
    const auto late = make_label("late");
    const auto node = labels[0]->get_node()->get_parent()->get_parent();
    bool added = false;
    node->add_bounds_handler([&](bool, D2D_RECT_F) {
        if (!std::exchange(added, true)) list->insert_item(0, late.get(), 9);
    });
    append("a long text, which changes what the rows cover");
    EXPECT_TRUE(added);
    EXPECT_EQ(60, list->measure().preferred_size.height);
    EXPECT_EQ(1, late->get_rect().top);
    EXPECT_EQ(19, labels[0]->get_rect().top);
    EXPECT_EQ(37, labels[1]->get_rect().top);
}

TEST_F(label_list_layout, many_rows_come_and_go) {
    for (int i = 0; i < 5000; ++i) append(std::to_string(i));
    EXPECT_EQ(20 * 5000, list->measure().preferred_size.height);
    press_row(5);
    EXPECT_EQ(1, list->get_selection());
    list->clear();
    EXPECT_EQ(0, list->measure().preferred_size.height);
}

TEST_F(label_list_layout, list_may_go_while_a_row_is_pressed) {
    append("a");
    const auto content = labels[0]->get_node()->get_parent()->get_parent();
    edge->on_focus_gained();
    content->set_focus_handler(false, [&](scene::INode*, scene::INode*) {
        if (!list) return;
        root->remove_child(list->get_node());
        list.reset();
    });
    press_row(5);
    EXPECT_FALSE(list);
    labels[0]->set_text("b");
}

/// Two lists with the same texts, which change alike: in one the labels tell of their changes, in the other
/// all are asked.
class random_label_lists : public label_list_layout {
protected:
    struct side {
        com::ptr<ui::ILabelList> list;
        std::vector<com::ptr<ui::ITextLabel>> labels;
    };

    void SetUp() override {
        label_list_layout::SetUp();
        for (side& each : sides) {
            each.list = ui::create_label_list(nullptr);
            each.list->arrange(area);
        }
    }
    void TearDown() override {
        for (side& each : sides) each = {nullptr, {}};
        label_list_layout::TearDown();
    }

    [[nodiscard]] std::size_t below(std::size_t limit) { return random() % limit; }
    [[nodiscard]] std::string any_text() { return std::string(below(12), "iwm"[below(3)]); }

    void insert() {
        const std::string text = any_text();
        const std::size_t count = sides[0].labels.size();
        const std::size_t place = below(2) == 0 ? count : below(count + 1);
        for (side& each : sides) {
            const auto label = make_label(text);
            each.labels.insert(each.labels.begin() + static_cast<std::ptrdiff_t>(place), label);
            com::ptr<ui::ILabel> shown = label;
            if (&each == &sides[1]) shown = com::create_object<plain_label>(label);
            each.list->insert_item(static_cast<int>(place), shown.get(), 0);
        }
    }
    /// What the lists learn of when the next row comes.
    void change_a_label() {
        const std::size_t chosen = below(sides[0].labels.size());
        const std::string text = any_text();
        const bool moves = below(3) == 0;
        for (side& each : sides) {
            if (moves) {
                each.labels[chosen]->arrange({1, 2, 30, 40});
            } else {
                each.labels[chosen]->set_text(text);
            }
        }
    }
    void clear() {
        for (side& each : sides) {
            each.list->clear();
            each.labels.clear();
        }
    }

    void compare() {
        using scene::fakes::call_text;
        const auto text_of = [](const side& of) {
            const D2D_SIZE_F size = of.list->measure().preferred_size;
            std::string text = call_text(size.width, size.height, of.list->get_node()->get_bounds(true));
            for (const auto& label : of.labels) {
                text += "; " + call_text(label->get_rect(), label->get_node()->get_bounds(true),
                                         label->get_node()->get_parent()->get_bounds(true));
            }
            return text;
        };
        EXPECT_EQ(text_of(sides[1]), text_of(sides[0]));
    }

    unsigned seed = test_support::random_seed();
    std::mt19937 random{seed};
    side sides[2];
};

TEST_F(random_label_lists, are_laid_out_alike_whether_labels_tell_or_not) {
    SCOPED_TRACE(testing::Message() << "seed " << seed);
    for (int step = 0; step < 1500 && !HasFailure(); ++step) {
        SCOPED_TRACE(testing::Message() << "step " << step);
        if (below(60) == 0) clear();
        for (std::size_t changes = sides[0].labels.empty() ? 0 : below(3); changes > 0; --changes) {
            change_a_label();
            compare();
        }
        insert();
        compare();
    }
}

}  // namespace
}  // namespace d2d
