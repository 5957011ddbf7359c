#include "portable/layout_arithmetic.h"
#include "portable/testing/layout_fixture.h"
#include "ui/mossHarbour/IStackLayout.h"

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

TEST(length, of_another_mark_is_plain_pixels) {
    for (const int plain : {0, 16, -1, -3, 0xffffff, 0x02000064, 0x7f000064, static_cast<int>(0x81000064)}) {
        EXPECT_EQ(decode_length(plain), plain);
    }
    EXPECT_EQ(decode_length(0x1000064), font_height);
    EXPECT_EQ(decode_length(0x1000000), 0);
}

}  // namespace
