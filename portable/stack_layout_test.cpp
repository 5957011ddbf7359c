#include "portable/layout_arithmetic.h"
#include "portable/testing/layout_fixture.h"
#include "scene/testing/allocation_count.h"
#include "ui/mossHarbour/IStackLayout.h"

#include <utility>

namespace {

using namespace ui::mossHarbour;
using namespace ui::mossHarbour::stubs;
using testing::ElementsAre;

constexpr int endless = unbounded_extent;

class stack_layout : public layout_fixture {
protected:
    void start(orientation direction) {
        stack = create_stack_layout(direction);
        layout = com::ptr<IMaterializableElement>(stack.get());
    }
    stub_element& add(const element_metrics& said, const stack_item_details& details = {}) {
        auto& added = make_stub(said);
        stack->add_item(details, com::ptr<IElement>(static_cast<IElement*>(&added)));
        return added;
    }
    void TearDown() override {
        stack.reset();
        layout_fixture::TearDown();
    }

    com::ptr<IStackLayout> stack;
};

TEST_F(stack_layout, shares_what_is_left_by_preference_up_to_the_maximum) {
    start(orientation::vertical);
    auto& a = add(tall(10, 20, 30));
    auto& b = add(tall(10, 60, endless));
    arrange(0, 0, 50, 100);
    EXPECT_THAT(edges_of(a.placed.back()), ElementsAre(0, 0, 50, 30));
    EXPECT_THAT(edges_of(b.placed.back()), ElementsAre(0, 30, 50, 100));
}

TEST_F(stack_layout, overflows_its_room_with_minimums) {
    start(orientation::vertical);
    auto& a = add(tall(10, 20, 30));
    auto& b = add(tall(10, 60, endless));
    arrange(0, 0, 50, 15);
    EXPECT_THAT(edges_of(a.placed.back()), ElementsAre(0, 0, 50, 10));
    EXPECT_THAT(edges_of(b.placed.back()), ElementsAre(0, 10, 50, 20));
}

TEST_F(stack_layout, hands_out_no_pixel_that_is_less_than_a_share) {
    start(orientation::vertical);
    auto& a = add(tall(10, 20, endless));
    auto& b = add(tall(10, 20, endless));
    auto& c = add(tall(10, 20, endless));
    arrange(0, 0, 50, 32);
    EXPECT_EQ(a.placed.back().bottom, 10);
    EXPECT_EQ(b.placed.back().bottom, 20);
    EXPECT_EQ(c.placed.back().bottom, 30);
    live->arrange(0, 0, 50, 33);
    EXPECT_EQ(c.placed.back().bottom, 33);
    live->arrange(0, 0, 50, 35);
    EXPECT_EQ(c.placed.back().bottom, 33);
}

TEST_F(stack_layout, grows_nobody_where_nobody_prefers_anything) {
    start(orientation::vertical);
    auto& a = add(tall(0, 0, endless));
    auto& b = add(tall(0, 0, endless));
    arrange(0, 0, 50, 100);
    EXPECT_THAT(edges_of(a.placed.back()), ElementsAre(0, 0, 50, 0));
    EXPECT_THAT(edges_of(b.placed.back()), ElementsAre(0, 0, 50, 0));
}

// Their total is cut off at what has no limit, so each one's share is all of it.
TEST_F(stack_layout, gives_all_its_room_to_each_item_that_prefers_everything) {
    start(orientation::vertical);
    auto& a = add(tall(0, endless, endless));
    auto& b = add(tall(0, endless, endless));
    arrange(0, 0, 50, 100);
    EXPECT_THAT(edges_of(a.placed.back()), ElementsAre(0, 0, 50, 100));
    EXPECT_THAT(edges_of(b.placed.back()), ElementsAre(0, 100, 50, 200));
}

TEST_F(stack_layout, lets_an_item_shrink_to_a_maximum_below_its_minimum_while_there_is_room) {
    start(orientation::vertical);
    stack_item_details details;
    details.min_height = 20;
    details.max_height = 10;
    auto& item = add(tall(5, 15, 30), details);
    arrange(0, 0, 50, 100);
    EXPECT_EQ(item.placed.back().bottom, 10);
    live->arrange(0, 0, 50, 15);
    EXPECT_EQ(item.placed.back().bottom, 20);
}

TEST_F(stack_layout, leaves_its_outer_margins_to_what_it_stands_in) {
    start(orientation::horizontal);
    auto said = wide(10, 10, 10);
    said.margin_left = said.margin_top = said.margin_right = said.margin_bottom = 7;
    auto& a = add(said);
    auto& b = add(said);
    EXPECT_THAT(fields_of(measure()), ElementsAre(7, 7, 7, 7, 27, 10, 27, endless, 27, 10));
    live->arrange(0, 0, 27, 30);
    EXPECT_THAT(edges_of(a.placed.back()), ElementsAre(0, 0, 10, 30));
    EXPECT_THAT(edges_of(b.placed.back()), ElementsAre(17, 0, 27, 30));
}

TEST_F(stack_layout, goes_across_in_every_direction_but_down) {
    start(static_cast<orientation>(7));
    add(wide(10, 20, 30));
    add(wide(10, 20, 30));
    EXPECT_THAT(fields_of(measure()), ElementsAre(0, 0, 0, 0, 20, 10, 60, endless, 40, 10));
}

TEST_F(stack_layout, goes_across_in_the_same_way) {
    start(orientation::horizontal);
    auto& a = add(wide(10, 20, 30));
    auto& b = add(wide(10, 60, endless));
    arrange(5, 7, 105, 57);
    EXPECT_THAT(edges_of(a.placed.back()), ElementsAre(5, 7, 35, 57));
    EXPECT_THAT(edges_of(b.placed.back()), ElementsAre(35, 7, 105, 57));
}

TEST_F(stack_layout, keeps_the_larger_of_two_margins_between_items) {
    start(orientation::vertical);
    auto first = tall(10, 10, 10);
    first.margin_bottom = 8;
    auto second = tall(10, 10, 10);
    second.margin_top = 3;
    auto& a = add(first);
    auto& b = add(second);
    EXPECT_EQ(measure().min_height, 28);
    arrange(0, 0, 10, 28);
    EXPECT_EQ(a.placed.back().bottom, 10);
    EXPECT_EQ(b.placed.back().top, 18);
}

TEST_F(stack_layout, reports_sums_along_and_maxima_across) {
    start(orientation::vertical);
    add({1, 2, 3, 4, 10, 11, 100, 12, 20, 12});
    add({5, 1, 1, 9, 30, 21, 40, 22, 35, 22});
    EXPECT_THAT(fields_of(measure()), ElementsAre(5, 2, 3, 9, 30, 36, 100, 38, 35, 38));
}

TEST_F(stack_layout, is_without_limit_across_with_an_item_without_one) {
    start(orientation::vertical);
    add({0, 0, 0, 0, 1, 1, endless, 5, 2, 2});
    add({0, 0, 0, 0, 1, 1, 7, 6, 2, 3});
    const auto measured = measure();
    EXPECT_EQ(measured.max_width, endless);
    EXPECT_EQ(measured.max_height, 11);
}

TEST_F(stack_layout, adds_nothing_to_what_has_no_limit) {
    start(orientation::vertical);
    auto said = tall(endless, endless + 5, endless);
    said.margin_top = said.margin_bottom = 9;
    add(said);
    add(said);
    EXPECT_THAT(fields_of(measure()), ElementsAre(0, 9, 0, 9, 10, endless, endless, endless, 10, endless));
    dematerialize();
    start(orientation::vertical);
    auto limited = tall(1, 2, 3);
    limited.margin_top = limited.margin_bottom = endless + 1;
    add(limited);
    add(limited);
    // Gaps are cut off one by one, their sum is not.
    EXPECT_EQ(measure().max_height, 6 + endless);
}

TEST_F(stack_layout, reports_a_maximum_no_less_than_what_it_prefers) {
    start(orientation::vertical);
    stack_item_details details;
    details.max_height = 5;
    details.min_height = 9;  // preferred becomes 9: the minimum goes ahead of the maximum
    add(tall(1, 2, 3), details);
    const auto measured = measure();
    EXPECT_EQ(measured.preferred_height, 9);
    EXPECT_EQ(measured.max_height, 9);
}

struct alignment_case {
    int alignment;
    int left;
};

class stack_alignment : public stack_layout, public testing::WithParamInterface<alignment_case> {};

TEST_P(stack_alignment, places_an_item_that_is_narrower_than_the_stack) {
    start(orientation::vertical);
    auto& item = add({0, 0, 0, 0, 5, 10, 31, 10, 8, 10},
                     stack_item_details(static_cast<item_alignment>(GetParam().alignment)));
    arrange(100, 0, 200, 10);
    const LONG left = GetParam().left;
    EXPECT_THAT(edges_of(item.placed.back()), ElementsAre(left, 0, left + 31, 10));
}

INSTANTIATE_TEST_SUITE_P(each, stack_alignment,
                         testing::Values(alignment_case{-1, 100}, alignment_case{0, 134},
                                         alignment_case{1, 169}, alignment_case{7, 169},
                                         alignment_case{-2, 169}));

TEST_F(stack_layout, cannot_be_measured_without_items) {
    for (const auto direction : {orientation::vertical, orientation::horizontal}) {
        start(direction);
        EXPECT_THAT([this] { static_cast<void>(measure()); },
                    testing::ThrowsMessage<std::logic_error>("empty layouts not supported!"));
    }
}

TEST_F(stack_layout, has_no_items_without_elements) {
    start(orientation::vertical);
    EXPECT_THROW(stack->add_item({}, nullptr), std::logic_error);
}

TEST_F(stack_layout, takes_a_new_item_into_account_when_it_is_materialized_again) {
    start(orientation::vertical);
    add(tall(10, 10, 10));
    EXPECT_EQ(measure().min_height, 10);
    auto& late = add(tall(20, 20, 20));
    EXPECT_EQ(live->measure(context).min_height, 10);
    EXPECT_EQ(late.materialized, 0);
    dematerialize();
    EXPECT_EQ(measure().min_height, 30);
    EXPECT_EQ(late.materialized, 1);
}

TEST_F(stack_layout, takes_in_what_is_added_while_it_is_materialized) {
    start(orientation::vertical);
    stack_item_details details;
    details.min_height = 15;
    auto& adding = add(tall(10, 20, 30), details);
    adding.when_coming = [this] {
        for (int i = 0; i < 20; ++i) add(tall(1, 1, 1));  // the list of items moves
    };
    EXPECT_EQ(measure().min_height, 15 + 20);
    adding.when_coming = nullptr;
}

TEST_F(stack_layout, lets_go_of_its_former_form_when_it_is_materialized_again) {
    start(orientation::vertical);
    auto& item = add(tall(10, 10, 10));
    const auto former = layout->materialize(context);
    former->AddRef();
    EXPECT_EQ(former->Release(), 2u);
    materialize();
    former->AddRef();
    EXPECT_EQ(former->Release(), 1u);
    EXPECT_EQ(item.materialized, 2);
    EXPECT_EQ(measure().min_height, 10);
}

TEST_F(stack_layout, leaves_nothing_behind_when_an_item_refuses) {
    start(orientation::vertical);
    auto& first = add(tall(10, 10, 10));
    auto& second = add(tall(10, 10, 10));
    second.is_refusing = true;
    EXPECT_THROW(materialize(), std::runtime_error);
    EXPECT_EQ(first.materialized, 0);
    second.is_refusing = false;
    materialize();
    EXPECT_EQ(first.materialized, 1);
    EXPECT_EQ(second.materialized, 1);
}

struct size_case {
    int choice;
    int min_height;
    int preferred_height;
    int max_height;
};

class item_size : public stack_layout, public testing::WithParamInterface<size_case> {};

// The element says 10, 20, 30; the choice is made for all three.
TEST_P(item_size, is_the_elements_or_a_length) {
    start(orientation::vertical);
    stack_item_details details;
    details.min_height = details.preferred_height = details.max_height = GetParam().choice;
    add(tall(10, 20, 30), details);
    const auto measured = measure();
    EXPECT_EQ(measured.min_height, GetParam().min_height);
    EXPECT_EQ(measured.preferred_height, GetParam().preferred_height);
    EXPECT_EQ(measured.max_height, GetParam().max_height);
}

INSTANTIATE_TEST_SUITE_P(each, item_size,
                         testing::Values(size_case{use_preferred, 20, 20, 20},
                                         size_case{use_control_value, 10, 20, 30}, size_case{17, 17, 17, 17},
                                         size_case{0, 0, 0, 0}));

TEST_F(stack_layout, lets_an_item_be_as_high_as_it_prefers) {
    start(orientation::vertical);
    stack_item_details details;
    details.max_height = use_preferred;
    auto& list = add({0, 0, 0, 0, 10, 16, endless, 16, 10, 80}, details);  // one line at most, by itself
    EXPECT_THAT(fields_of(measure()), ElementsAre(0, 0, 0, 0, 10, 16, endless, 80, 10, 80));
    live->arrange(0, 0, 10, 80);
    EXPECT_EQ(list.placed.back().bottom, 80);
}

TEST_F(stack_layout, keeps_a_preferred_size_between_the_limits) {
    start(orientation::vertical);
    for (const auto& [preferred, expected] : {std::pair{5, 10}, {10, 10}, {25, 25}, {30, 30}, {31, 30}}) {
        start(orientation::vertical);
        stack_item_details details;
        details.preferred_height = preferred;
        add(tall(10, 20, 30), details);
        EXPECT_EQ(measure().preferred_height, expected);
        dematerialize();
    }
}

TEST_F(stack_layout, takes_the_larger_of_an_items_margin_and_its_elements) {
    start(orientation::vertical);
    stack_item_details details;
    details.margin_left = details.margin_right = 5;
    details.margin_top = font_percent(0);
    details.margin_bottom = -20;
    add({3, 4, 8, 1, 1, 1, 1, 1, 1, 1}, details);
    EXPECT_THAT(fields_of(measure()), ElementsAre(5, 4, 8, 1, 1, 1, 1, 1, 1, 1));
}

TEST_F(stack_layout, decodes_lengths_by_the_font) {
    start(orientation::vertical);
    stack_item_details details;
    details.min_height = details.preferred_height = details.max_height = font_percent(250);
    details.margin_top = font_percent(100);
    add(tall(1, 1, 1), details);
    const auto measured = measure();
    EXPECT_EQ(measured.min_height, font_height * 5 / 2);
    EXPECT_EQ(measured.margin_top, font_height);
}

TEST_F(stack_layout, allocates_a_list_of_sizes_and_no_more) {
    start(orientation::vertical);
    for (int i = 0; i < 20; ++i) add(tall(10, 20, 30)).placed.reserve(4);
    static_cast<void>(measure());
    const auto before = d2d::scene::fakes::allocation_count();
    static_cast<void>(live->measure(context));
    EXPECT_EQ(d2d::scene::fakes::allocation_count(), before);
    live->arrange(0, 0, 10, 500);
    EXPECT_EQ(d2d::scene::fakes::allocation_count(), before + 1);
}

TEST(length, of_another_mark_is_plain_pixels) {
    for (const int plain :
         {0, 16, -1, -3, 0xffffff, 0x2000000, 0x02000064, 0x7f000064, static_cast<int>(0x81000064)}) {
        EXPECT_EQ(decode_length(plain), plain);
    }
    EXPECT_EQ(decode_length(0x1000064), font_height);
    EXPECT_EQ(decode_length(0x1000000), 0);
    EXPECT_EQ(decode_length(0x1ffffff),
              static_cast<int>(16777215.0f * static_cast<float>(font_height) / 100.0f));
}

}  // namespace
