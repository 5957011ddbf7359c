#include "scene/linked_list.h"
#include "support/random_seed.h"

#include <deque>
#include <optional>
#include <random>
#include <vector>

#include <gtest/gtest.h>

namespace {

class owner;
class other_owner;
class item;
using first_list = d2d::scene::linked_list<item, owner>;
using second_list = d2d::scene::linked_list<item, other_owner>;

class item : public first_list::node, public second_list::node {
public:
    explicit item(int with) : value(with) {}
    int value;
};

template <class List>
std::vector<int> values(const List& list) {
    std::vector<int> result;
    for (auto* at = list.first(); at; at = at->next_item()) result.push_back(static_cast<item*>(at)->value);
    return result;
}

using ints = std::vector<int>;

ints with_first(int value, const ints& others) {
    ints result{value};
    for (const int other : others) result.push_back(other);
    return result;
}

TEST(linked_list, new_items_come_to_the_head) {
    first_list list;
    EXPECT_TRUE(list.empty());
    item one(1), two(2), three(3);
    for (item* each : {&one, &two, &three}) list.push_front(*each);
    EXPECT_EQ((ints{3, 2, 1}), values(list));
    EXPECT_FALSE(list.empty());
}

TEST(linked_list, items_leave_from_any_place_and_come_back) {
    for (int leaving = 1; leaving <= 3; ++leaving) {
        first_list list;
        item one(1), two(2), three(3);
        item* const items[] = {&one, &two, &three};
        for (item* each : items) list.push_front(*each);
        item& gone = *items[leaving - 1];
        gone.first_list::node::unlink();
        EXPECT_FALSE(gone.first_list::node::linked());
        EXPECT_EQ(nullptr, gone.first_list::node::next_item());
        ints left{3, 2, 1};
        std::erase(left, leaving);
        EXPECT_EQ(left, values(list));
        gone.first_list::node::unlink();
        EXPECT_EQ(left, values(list)) << "a second time does nothing";
        list.push_front(gone);
        EXPECT_EQ(with_first(leaving, left), values(list));
    }
}

TEST(linked_list, dying_item_leaves_its_list) {
    first_list list;
    item first(1);
    list.push_front(first);
    {
        item second(2);
        list.push_front(second);
        EXPECT_EQ((ints{2, 1}), values(list));
    }
    EXPECT_EQ((ints{1}), values(list));
}

TEST(linked_list, dying_list_lets_its_items_go) {
    item one(1), two(2);
    {
        first_list list;
        list.push_front(one);
        list.push_front(two);
    }
    EXPECT_FALSE(one.first_list::node::linked());
    EXPECT_FALSE(two.first_list::node::linked());
    first_list next;
    next.push_front(two);
    next.push_front(one);
    EXPECT_EQ((ints{1, 2}), values(next));
}

TEST(linked_list, lists_of_different_owners_do_not_mix) {
    first_list first;
    second_list second;
    item one(1), two(2);
    first.push_front(one);
    first.push_front(two);
    second.push_front(two);
    second.push_front(one);
    two.first_list::node::unlink();
    EXPECT_EQ((ints{1}), values(first));
    EXPECT_EQ((ints{1, 2}), values(second));
}

TEST(linked_list, random_coming_and_going_keeps_the_order) {
    const unsigned seed = test_support::random_seed();
    SCOPED_TRACE(testing::Message() << "seed " << seed);
    std::mt19937 random(seed);
    first_list list;
    std::deque<std::optional<item>> items(12);
    for (int i = 0; i < 12; ++i) items[static_cast<std::size_t>(i)].emplace(i);
    ints model;
    for (int step = 0; step < 20000; ++step) {
        const std::size_t index = random() % items.size();
        item& chosen = *items[index];
        const int value = static_cast<int>(index);
        if (!chosen.first_list::node::linked()) {
            list.push_front(chosen);
            model = with_first(value, model);
        } else {
            if (random() % 2) {
                chosen.first_list::node::unlink();
            } else {
                items[index].reset();
                items[index].emplace(value);
            }
            std::erase(model, value);
        }
        ASSERT_EQ(model, values(list)) << "step " << step;
        ASSERT_EQ(model.empty(), list.empty());
    }
}

}  // namespace
