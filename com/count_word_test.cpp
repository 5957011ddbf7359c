#include "com/count_word.h"

#include <atomic>
#include <new>
#include <thread>
#include <vector>

#include <gtest/gtest.h>

namespace {

using com::count_word;

TEST(count_word, is_one_word_and_starts_at_zero) {
    EXPECT_EQ(sizeof(count_word), 4u);
    EXPECT_EQ(count_word().load(), 0u);
}

TEST(count_word, counts_strong_references_in_the_low_twenty_bits) {
    count_word word;
    EXPECT_EQ(word.add_strong(), 1u);
    EXPECT_EQ(word.add_strong(), 2u);
    EXPECT_EQ(word.load(), 2u);
}

TEST(count_word, counts_weak_references_in_the_high_twelve_bits) {
    count_word word;
    word.add_weak();
    word.add_weak();
    EXPECT_EQ(word.load(), 0x200000u);
    EXPECT_EQ(word.add_strong(), 0x200001u);
}

TEST(count_word, drop_weak_gives_the_word_ahead_of_it) {
    count_word word;
    word.add_weak();
    word.add_weak();
    EXPECT_EQ(word.drop_weak(), 0x200000u);
    EXPECT_EQ(word.drop_weak(), count_word::one_weak);
    EXPECT_EQ(word.load(), 0u);
}

TEST(count_word, strong_to_weak_is_one_step_of_0xFFFFF) {
    count_word word;
    word.add_strong();
    word.add_strong();
    word.add_weak();
    EXPECT_EQ(word.strong_to_weak(), 0x200001u);
    EXPECT_EQ(word.strong_to_weak(), 0x300000u);
    EXPECT_EQ(word.load(), 0x300000u);
}

TEST(count_word, drop_strong_unless_last_leaves_the_last_one) {
    count_word word;
    word.add_weak();
    word.add_strong();
    word.add_strong();
    EXPECT_EQ(word.drop_strong_unless_last(), 0x100001u);
    EXPECT_EQ(word.drop_strong_unless_last(), 0u);
    EXPECT_EQ(word.load(), 0x100001u);
}

TEST(count_word, lock_needs_a_strong_reference_to_be_there) {
    count_word word;
    word.add_weak();
    EXPECT_FALSE(word.lock());
    EXPECT_EQ(word.load(), 0x100000u);
    word.add_strong();
    EXPECT_TRUE(word.lock());
    EXPECT_EQ(word.load(), 0x100002u);
}

TEST(count_word, both_fields_hold_their_largest_value_side_by_side) {
    count_word word;
    for (int i = 0; i < 0xFFF; ++i) word.add_weak();
    for (int i = 0; i < 0xFFFFF; ++i) word.add_strong();
    EXPECT_EQ(word.load(), 0xFFFFFFFFu);
}

TEST(count_word, the_keeping_constructor_takes_the_word_as_it_lies) {
    alignas(count_word) std::byte storage[sizeof(count_word)];
    auto* const live = ::new (storage) count_word;
    live->add_weak();
    live->add_strong();
    live->~count_word();
    auto* const kept = ::new (storage) count_word(count_word::keep_tag{});
    EXPECT_EQ(kept->load(), 0x100001u);
}

TEST(count_word, no_change_is_lost_between_threads) {
    constexpr int rounds = 20000;
    count_word word;
    word.add_strong();
    std::atomic<int> failures = 0;
    std::vector<std::thread> threads;
    for (int t = 0; t < 4; ++t) {
        threads.emplace_back([&] {
            for (int i = 0; i < rounds; ++i) {
                word.add_weak();
                if (!word.lock()) ++failures;
                if (word.drop_strong_unless_last() == 0) ++failures;
                word.add_strong();
                static_cast<void>(word.strong_to_weak());
                static_cast<void>(word.drop_weak());
                static_cast<void>(word.drop_weak());
            }
        });
    }
    for (std::thread& thread : threads) thread.join();
    EXPECT_EQ(failures, 0);
    EXPECT_EQ(word.load(), 1u);
}

}  // namespace
