#include "scene/layout_stack.h"

#include "scene/testing/allocation_count.h"
#include "scene/testing/fake_element.h"
#include "scene/testing/metrics_text.h"
#include "support/leak_checked_test.h"

#include <cstdio>
#include <functional>
#include <stdexcept>
#include <string>

#include <gtest/gtest.h>

namespace {

using namespace d2d::scene::layout;
using d2d::scene::fakes::fake_element;
using d2d::scene::fakes::text_of;

constexpr float any = unlimited;

/// Sizes along the axis of a stack that runs down, and what follows from them.
struct sharing_case {
    struct item {
        float min, max, preferred;
    };
    const char* what;
    float room;
    std::vector<item> items;
    std::vector<float> expected;
};

class layout_stack : public test_support::leak_checked_test {
protected:
    void SetUp() override {
        leak_checked_test::SetUp();
        down = create_stack(0);
        across = create_stack(1);
    }
    void TearDown() override {
        elements_.clear();
        down.reset();
        across.reset();
        leak_checked_test::TearDown();
    }
    fake_element& add(stack& to, const metrics& measured, bool own_margins = true,
                      const stack_item_details& details = {}) {
        elements_.push_back(com::create_object<fake_element>(measured));
        to.add_item(elements_.back(), own_margins, details);
        return *elements_.back();
    }
    /// Arranges and tells where the elements are.
    std::string arranged(stack& of, D2D_RECT_F rect) {
        static_cast<void>(of.measure());
        of.arrange(rect);
        std::string text;
        for (const auto& each : elements_) text += (text.empty() ? "" : " ") + text_of(each->rect);
        return text;
    }
    void check_sharing(const sharing_case& expected, bool is_across);

    std::vector<com::ptr<fake_element>> elements_;
    com::ptr<stack> down;
    com::ptr<stack> across;
};

constexpr metrics fixed(float width, float height) {
    return {{}, {width, height}, {width, height}, {width, height}};
}

TEST_F(layout_stack, is_asked_for_as_an_element) {
    IElement& element = *down;
    com::ptr<IUnknown> asked;
    EXPECT_EQ(S_OK,
              element.QueryInterface(com::guid("E32D91BF-E7DF-406C-83EF-4250CD0CFBF1"), asked.put_void()));
    EXPECT_EQ(&element, asked.get());
}

TEST_F(layout_stack, without_items_is_all_zero_and_arranges_nothing) {
    for (const auto& each : {down, across}) {
        EXPECT_EQ("margin 0,0,0,0 min 0x0 max 0x0 preferred 0x0", text_of(each->measure()));
        each->arrange({1, 2, 3, 4});
    }
}

TEST_F(layout_stack, items_come_in_the_order_in_which_they_are_inserted) {
    auto& second = add(*down, fixed(10, 20));
    add(*down, fixed(10, 40));
    elements_.push_back(com::create_object<fake_element>(fixed(10, 10)));
    down->insert_item(0, elements_.back(), true);
    elements_.push_back(com::create_object<fake_element>(fixed(10, 30)));
    down->insert_item(2, elements_.back(), true);
    elements_.push_back(com::create_object<fake_element>(fixed(10, 50)));
    down->insert_item(99, elements_.back(), true);
    EXPECT_EQ("0,10,10,30 0,60,10,100 0,0,10,10 0,30,10,60 0,100,10,150", arranged(*down, {0, 0, 10, 150}));
    EXPECT_EQ(1, second.arranges);
}

TEST_F(layout_stack, measures_sums_along_its_axis_and_the_largest_across) {
    add(*down, {{1, 2, 3, 4}, {10, 20}, {100, 200}, {50, 60}});
    add(*down, {{5, 6, 7, 8}, {11, 21}, {90, 210}, {51, 61}});
    add(*down, {{2, 1, 1, 2}, {9, 22}, {80, 220}, {49, 62}});
    EXPECT_EQ("margin 5,2,7,2 min 11x77 max 100x644 preferred 51x197", text_of(down->measure()));
}

TEST_F(layout_stack, across_measures_with_the_axes_exchanged) {
    add(*across, {{2, 1, 4, 3}, {20, 10}, {200, 100}, {60, 50}});
    add(*across, {{6, 5, 8, 7}, {21, 11}, {210, 90}, {61, 51}});
    add(*across, {{1, 2, 2, 1}, {22, 9}, {220, 80}, {62, 49}});
    EXPECT_EQ("margin 2,5,2,7 min 77x11 max 644x100 preferred 197x51", text_of(across->measure()));
}

TEST_F(layout_stack, any_orientation_but_0_is_across) {
    for (const int orientation : {1, 2, -1}) {
        const auto made = create_stack(orientation);
        made->add_item(com::create_object<fake_element>(fixed(10, 20)), true);
        made->add_item(com::create_object<fake_element>(fixed(30, 40)), true);
        EXPECT_EQ("margin 0,0,0,0 min 40x40 max 40x40 preferred 40x40", text_of(made->measure()))
            << orientation;
    }
}

TEST_F(layout_stack, sums_without_limit_stay_without_limit) {
    add(*down, {{0, 0, 0, 5}, {10, 10}, {any, any}, {20, 20}});
    add(*down, {{0, 3, 0, 0}, {10, 10}, {30, 30}, {20, 20}});
    EXPECT_EQ("margin 0,0,0,0 min 10x25 max anyxany preferred 20x45", text_of(down->measure()));
    add(*down, {{}, {any, any}, {any, any}, {any, any}});
    EXPECT_EQ("margin 0,0,0,0 min anyxany max anyxany preferred anyxany", text_of(down->measure()));
}

TEST_F(layout_stack, sums_beyond_the_largest_number_are_without_limit) {
    add(*down, {{}, {1, 1}, {1, 3e38f}, {1, 1}});
    add(*down, {{}, {1, 1}, {1, 3e38f}, {1, 1}});
    EXPECT_EQ("margin 0,0,0,0 min 1x2 max 1xany preferred 1x2", text_of(down->measure()));
}

TEST_F(layout_stack, the_maximum_is_not_below_what_is_preferred) {
    add(*down, {{0, 0, 0, 1}, {1, 1}, {5, 6}, {10, 20}});
    add(*down, {{}, {1, 1}, {7, 8}, {9, 4}});
    EXPECT_EQ("margin 0,0,0,0 min 1x3 max 10x25 preferred 10x25", text_of(down->measure()));
}

TEST_F(layout_stack, margins_that_are_not_kept_apart_are_part_of_the_sizes) {
    add(*down, {{1, 2, 3, 4}, {10, 20}, {100, any}, {50, 60}}, false);
    EXPECT_EQ("margin 0,0,0,0 min 14x26 max 104xany preferred 54x66", text_of(down->measure()));
    add(*down, {{9, 5, 9, 6}, {1, 1}, {1, 1}, {1, 1}}, true);
    EXPECT_EQ("margin 9,0,9,6 min 14x32 max 104xany preferred 54x72", text_of(down->measure()));
}

TEST_F(layout_stack, margins_that_are_not_kept_apart_surround_the_element) {
    add(*down, {{1, 2, 3, 4}, {10, 20}, {any, 20}, {10, 20}}, false);
    add(*down, {{5, 5, 5, 5}, {10, 10}, {any, 10}, {10, 10}}, false);
    EXPECT_EQ("1,2,97,22 5,31,95,41", arranged(*down, {0, 0, 100, 46}));
}

TEST_F(layout_stack, margins_of_neighbours_collapse) {
    add(*down, {{0, 50, 0, 4}, {10, 10}, {any, 10}, {10, 10}});
    add(*down, {{0, 6, 0, 60}, {10, 10}, {any, 10}, {10, 10}});
    EXPECT_EQ("margin 0,50,0,60 min 10x26 max anyx26 preferred 10x26", text_of(down->measure()));
    EXPECT_EQ("0,0,30,10 0,16,30,26", arranged(*down, {0, 0, 30, 26}));
}

TEST_F(layout_stack, a_gap_below_zero_counts_when_it_measures_and_not_when_it_places) {
    add(*down, {{0, 0, 0, -4}, {10, 10}, {10, 10}, {10, 10}});
    add(*down, {{0, -6, 0, 0}, {10, 10}, {10, 10}, {10, 10}});
    EXPECT_EQ("margin 0,0,0,0 min 10x16 max 10x16 preferred 10x16", text_of(down->measure()));
    EXPECT_EQ("0,0,10,10 0,10,10,20", arranged(*down, {0, 0, 10, 16}));
}

TEST_F(layout_stack, across_the_axis_the_alignment_decides_where_there_is_more_room_than_the_maximum) {
    for (const int alignment : {0, 1, 2, -1}) {
        add(*down, fixed(10, 10), true, {.alignment = alignment});
        add(*across, fixed(10, 10), true, {.alignment = alignment});
    }
    EXPECT_EQ(
        "100,0,110,10 0,100,10,110 120,10,130,20 10,120,20,130 140,20,150,30 20,140,30,150 "
        "140,30,150,40 30,140,40,150",
        (arranged(*across, {0, 100, 40, 150}), arranged(*down, {100, 0, 150, 40})));
}

TEST_F(layout_stack, across_the_axis_an_item_takes_the_room_up_to_its_maximum) {
    add(*down, {{}, {10, 10}, {30, 10}, {20, 10}});
    add(*down, {{}, {10, 10}, {any, 10}, {20, 10}}, true, {.alignment = 2});
    add(*down, {{}, {50, 10}, {60, 10}, {60, 10}}, true, {.alignment = 1});
    EXPECT_EQ("0,0,30,10 0,10,40,20 0,20,40,30", arranged(*down, {0, 0, 40, 30}));
    EXPECT_EQ("0,0,5,10 0,10,5,20 0,20,5,30", arranged(*down, {0, 0, 5, 30}));
}

TEST_F(layout_stack, sizes_come_from_the_element_from_the_details_or_from_what_the_element_prefers) {
    const metrics measured{{}, {10, 11}, {100, 110}, {50, 55}};
    using enum size_source;
    struct choice_case {
        stack_item_details details;
        const char* expected;
    };
    for (const auto& each : std::initializer_list<choice_case>{
             {{}, "margin 0,0,0,0 min 10x11 max 100x110 preferred 50x55"},
             {{.min_width = {given, 7}}, "margin 0,0,0,0 min 7x11 max 100x110 preferred 50x55"},
             {{.min_height = {given, 7}}, "margin 0,0,0,0 min 10x7 max 100x110 preferred 50x55"},
             {{.max_width = {given, 70}}, "margin 0,0,0,0 min 10x11 max 70x110 preferred 50x55"},
             {{.max_height = {given, any}}, "margin 0,0,0,0 min 10x11 max 100xany preferred 50x55"},
             {{.preferred_width = {given, 70}}, "margin 0,0,0,0 min 10x11 max 100x110 preferred 70x55"},
             {{.preferred_height = {given, 70}}, "margin 0,0,0,0 min 10x11 max 100x110 preferred 50x70"},
             {{.min_width = {element_preferred, 7}}, "margin 0,0,0,0 min 50x11 max 100x110 preferred 50x55"},
             {{.min_height = {element_preferred, 7}}, "margin 0,0,0,0 min 10x55 max 100x110 preferred 50x55"},
             {{.max_width = {element_preferred, 7}}, "margin 0,0,0,0 min 10x11 max 50x110 preferred 50x55"},
             {{.max_height = {element_preferred, 7}, .preferred_height = {given, 12}},
              "margin 0,0,0,0 min 10x11 max 100x55 preferred 50x12"},
             {{.preferred_width = {element_preferred, 7}, .preferred_height = {element_preferred, 7}},
              "margin 0,0,0,0 min 10x11 max 100x110 preferred 50x55"},
             {{.min_width = {size_source{3}, 7}, .min_height = {size_source{-1}, 8}},
              "margin 0,0,0,0 min 7x8 max 100x110 preferred 50x55"}}) {
        const auto made = create_stack(0);
        made->add_item(com::create_object<fake_element>(measured), true, each.details);
        EXPECT_EQ(each.expected, text_of(made->measure()));
    }
}

TEST_F(layout_stack, arranges_by_what_it_measured_last) {
    auto& element = add(*down, fixed(10, 10));
    EXPECT_EQ("0,0,10,10", arranged(*down, {0, 0, 10, 10}));
    element.own = fixed(20, 20);
    down->arrange({0, 0, 30, 30});
    EXPECT_EQ("0,0,10,10", text_of(element.rect));
    EXPECT_EQ(1, element.measures);
    EXPECT_EQ("0,0,20,20", arranged(*down, {0, 0, 30, 30}));
    EXPECT_EQ(2, element.measures);
    EXPECT_EQ(3, element.arranges);
}

TEST_F(layout_stack, an_item_that_was_never_measured_gets_nothing) {
    auto& element = add(*down, fixed(10, 10));
    down->arrange({5, 6, 30, 30});
    EXPECT_EQ("5,6,5,6", text_of(element.rect));
}

TEST_F(layout_stack, is_an_element_of_another_stack) {
    add(*across, fixed(10, 20));
    add(*across, fixed(30, 5));
    down->add_item(across, true);
    down->add_item(com::create_object<fake_element>(fixed(7, 8)), true);
    EXPECT_EQ("margin 0,0,0,0 min 40x28 max 40x28 preferred 40x28", text_of(down->measure()));
    EXPECT_EQ("1,2,11,22 11,2,41,7", arranged(*down, {1, 2, 41, 30}));
}

void layout_stack::check_sharing(const sharing_case& expected, bool is_across) {
    const auto made = create_stack(is_across);
    std::vector<com::ptr<fake_element>> added;
    for (const auto& item : expected.items) {
        const auto size = [&](float along) {
            return is_across ? D2D_SIZE_F{along, 1} : D2D_SIZE_F{1, along};
        };
        added.push_back(com::create_object<fake_element>(
            metrics{{}, size(item.min), size(item.max), size(item.preferred)}));
        made->add_item(added.back(), true);
    }
    static_cast<void>(made->measure());
    made->arrange(is_across ? D2D_RECT_F{0, 0, expected.room, 1} : D2D_RECT_F{0, 0, 1, expected.room});
    std::string actual;
    std::string wanted;
    for (const auto& each : added) {
        const D2D_RECT_F r = each->rect;
        actual += text_of(is_across ? r.right - r.left : r.bottom - r.top) + " ";
    }
    for (const float length : expected.expected) wanted += text_of(length) + " ";
    EXPECT_EQ(wanted, actual) << expected.what << (is_across ? ", across" : ", down");
}

TEST_F(layout_stack, shares_its_room) {
    const sharing_case cases[] = {
        {"just the minimums", 30, {{10, 50, 20}, {20, 50, 30}}, {10, 20}},
        {"too little room", 5, {{10, 50, 20}, {20, 50, 30}}, {10, 20}},
        {"no room at all", -5, {{10, 50, 20}}, {10}},
        {"one without limit takes all", 100, {{10, any, 20}}, {100}},
        {"one without limit takes fractions too", 100.75f, {{10, any, 20}}, {100.75f}},
        {"one without limit takes what the others cannot", 100, {{10, 30, 20}, {10, any, 0}}, {30, 70}},
        {"the shortfall is that of the one without limit", 25, {{10, 50, 20}, {20, any, 30}}, {10, 15}},
        {"below nothing, too", 5, {{10, 50, 20}, {20, any, 30}}, {10, -5}},
        {"several without limit lack the same",
         20,
         {{10, any, 20}, {20, any, 30}, {10, 20, 20}},
         {0, 10, 10}},
        {"by preference", 130, {{10, 100, 20}, {20, 200, 60}}, {35, 95}},
        {"up to the maximum, and the rest to the others", 100, {{10, 30, 20}, {10, any, 60}}, {30, 70}},
        {"shares are whole, which leaves something", 10, {{0, 5, 1}, {0, 100, 2}}, {3, 6}},
        {"what rounding leaves goes by maximum", 10, {{0, any, 1}, {0, 100, 2}}, {3, 7}},
        {"all without limit share what rounding leaves", 10, {{0, any, 1}, {0, any, 2}}, {3.5f, 6.5f}},
        {"what nobody may take stays", 100, {{10, 20, 15}, {10, 30, 15}}, {20, 30}},
        {"without preference by maximum", 30, {{0, 10, 0}, {0, 20, 0}}, {10, 20}},
        {"without preference, in whole pixels", 20, {{0, 10, 0}, {0, 20, 0}}, {6, 13}},
        {"without preference, one too small for a share", 16, {{0, 1, 0}, {0, 30, 0}}, {0, 15}},
        {"an overshoot is taken back from those without limit", 30, {{0, 10, 0}, {0, any, 0}}, {10, 20}},
        {"an overshoot of two", 30, {{0, 10, 0}, {0, any, 0}, {0, any, 0}}, {10, 10, 10}},
        {"a minimum above the maximum stays", 100, {{30, 20, 10}, {0, any, 10}}, {30, 70}},
        {"preferring without limit", 50, {{10, any, any}, {10, 15, 10}}, {40, 10}},
        {"all minimums without limit", 50, {{any, any, any}}, {0}},
        {"nothing wanted", 10, {{0, 0, 0}}, {0}},
    };
    for (const auto& each : cases) {
        check_sharing(each, false);
        check_sharing(each, true);
    }
}

TEST_F(layout_stack, arranging_allocates_one_list_and_measuring_none) {
    for (int i = 0; i < 100; ++i) add(*down, {{1, 1, 1, 1}, {1, 1}, {any, 20}, {5, 5}});
    const auto before = d2d::scene::fakes::allocation_count();
    static_cast<void>(down->measure());
    EXPECT_EQ(before, d2d::scene::fakes::allocation_count());
    down->arrange({0, 0, 10, 2000});
    EXPECT_EQ(before + 1, d2d::scene::fakes::allocation_count());
}

/// A stack of rigid rows, one wider than the other, laid out in what it prefers.
class announcing_stack : public layout_stack {
protected:
    void SetUp() override {
        layout_stack::SetUp();
        for (std::size_t i = 0; i < 100; ++i) insert(i, 10);
        lay_out();
    }
    /// Inserts a row that is not as wide as it prefers to be.
    fake_element& insert(std::size_t index, float height) {
        const float width = static_cast<float>(elements_.size());
        const metrics measured{{}, {width, height}, {width, height}, {width + 2, height + 2}};
        elements_.push_back(com::create_object<fake_element>(measured));
        tokens_.push_back(down->insert_item(index, elements_.back(), true, {}, element_changes::announced));
        return *elements_.back();
    }
    /// How often elements are asked and placed.
    std::string lay_out() {
        for (const auto& each : elements_) each->measures = each->arranges = 0;
        const D2D_SIZE_F size = down->measure().preferred_size;
        down->arrange({0, 0, size.width, size.height});
        int measures = 0;
        int arranges = 0;
        for (const auto& each : elements_) {
            measures += each->measures;
            arranges += each->arranges;
        }
        return std::to_string(measures) + " " + std::to_string(arranges);
    }

    std::vector<stack::item*> tokens_;
};

TEST_F(announcing_stack, asks_and_places_what_has_come) {
    EXPECT_EQ("0 0", lay_out());
    const fake_element& last = insert(100, 10);
    EXPECT_EQ("1 1", lay_out());
    EXPECT_EQ("0,1000,100,1010", text_of(last.rect));
}

TEST_F(announcing_stack, moves_what_lies_behind_a_change_alone) {
    insert(90, 7);
    EXPECT_EQ("1 11", lay_out());
    EXPECT_EQ("0,907,90,917", text_of(elements_[90]->rect));
    elements_[80]->own.min_size.height = elements_[80]->own.max_size.height = 12;
    EXPECT_EQ("0 0", lay_out()) << "was not announced";
    down->announce(tokens_[80]);
    EXPECT_EQ("1 21", lay_out());
}

TEST_F(announcing_stack, places_again_what_is_announced_where_it_is) {
    elements_[5]->rect = {};
    down->announce(tokens_[5]);
    EXPECT_EQ("1 1", lay_out());
    EXPECT_EQ("0,50,5,60", text_of(elements_[5]->rect));
}

TEST_F(announcing_stack, places_again_as_wide_rows_when_the_width_changes) {
    elements_[5]->own.max_size.width = any;
    down->announce(tokens_[5]);
    EXPECT_EQ("1 1", lay_out());
    EXPECT_EQ("0,50,101,60", text_of(elements_[5]->rect));
    insert(100, 10);
    EXPECT_EQ("1 2", lay_out());
    EXPECT_EQ("0,50,102,60", text_of(elements_[5]->rect));
}

TEST_F(announcing_stack, remembers_a_change_that_an_insertion_pushes_on) {
    elements_[50]->own.margin.bottom = 9;
    down->announce(tokens_[50]);
    static_cast<void>(down->measure());
    insert(0, 0);
    lay_out();
    EXPECT_EQ("0,519,51,529", text_of(elements_[51]->rect));
}

TEST_F(announcing_stack, asks_those_that_announce_nothing_each_time) {
    fake_element& unknown = add(*down, fixed(3, 3));
    EXPECT_EQ("1 1", lay_out());
    EXPECT_EQ("1 1", lay_out());
    unknown.own.min_size.height = unknown.own.max_size.height = 5;
    EXPECT_EQ("1 1", lay_out());
    EXPECT_EQ("0,1000,3,1005", text_of(unknown.rect));
}

TEST_F(announcing_stack, keeps_to_a_change_when_an_element_throws) {
    class failing : public fake_element {
    public:
        using fake_element::fake_element;
        metrics measure() override {
            if (fails) throw std::logic_error("no size");
            return fake_element::measure();
        }
        void arrange(D2D_RECT_F given) override {
            if (fails) throw std::logic_error("no place");
            fake_element::arrange(given);
        }
        bool fails = true;
    };
    const auto element = com::create_object<failing>(fixed(1, 1));
    down->insert_item(50, element, true, {}, element_changes::announced);
    EXPECT_THROW(lay_out(), std::logic_error);
    EXPECT_EQ("0,990,99,1000", text_of(elements_[99]->rect));
    element->fails = false;
    static_cast<void>(down->measure());
    element->fails = true;
    EXPECT_THROW(down->arrange({0, 0, 101, 1203}), std::logic_error);
    element->fails = false;
    EXPECT_EQ("0 50", lay_out());
    EXPECT_EQ("0,500,1,501", text_of(element->rect));
    EXPECT_EQ("0,991,99,1001", text_of(elements_[99]->rect));
}

TEST_F(announcing_stack, an_inner_pass_counts) {
    class nesting : public fake_element {
    public:
        using fake_element::fake_element;
        void arrange(D2D_RECT_F given) override {
            fake_element::arrange(given);
            if (const auto action = std::exchange(then, nullptr)) action();
        }
        std::function<void()> then;
    };
    const auto element = com::create_object<nesting>(fixed(1, 1));
    down->insert_item(50, element, true, {}, element_changes::announced);
    element->then = [&] {
        insert(0, 20);
        lay_out();
    };
    lay_out();
    EXPECT_EQ("0,0,100,20", text_of(elements_.back()->rect));
    EXPECT_EQ("0,20,0,30", text_of(elements_[0]->rect));
    EXPECT_EQ("0,520,1,521", text_of(element->rect));
    EXPECT_EQ("0,1011,99,1021", text_of(elements_[99]->rect));
    EXPECT_EQ("0 0", lay_out());
}

}  // namespace
