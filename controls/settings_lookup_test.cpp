#include "controls/settings_lookup.h"

#include "controls/testing/settings_lookup_model.h"
#include "support/debug_heap.h"
#include "support/random_seed.h"

#include <gtest/gtest.h>

#include <cstdio>
#include <initializer_list>
#include <random>

namespace d2d {
namespace {

using fakes::answer;
using fakes::keys;
using fakes::settings_lookup_model;

/// Refers to the text of `of`.
settings_table<std::size_t> sorted_table(const keys& of) {
    settings_table<std::size_t> table;
    for (const std::string& key : of) table.push_back({key, table.size()});
    sort_settings(table);
    return table;
}

answer found_in(const settings_table<std::size_t>& table, std::string_view key) {
    const auto* const found = find_setting(table, key);
    return found ? answer(found->key) : std::nullopt;
}

/// The key that answers, or "none".
std::string answer_of(const keys& table, std::string_view key) {
    return found_in(sorted_table(table), key).value_or("none");
}

keys order_of(const settings_table<std::size_t>& table) {
    keys order;
    for (const auto& one : table) order.emplace_back(one.key);
    return order;
}

TEST(settings_order, reads_keys_from_their_ends) {
    const keys unsorted = {"b", "ab", "a", "ba", "aa", "a.b", "bb"};
    EXPECT_EQ((keys{"a", "aa", "ba", "b", "a.b", "ab", "bb"}), order_of(sorted_table(unsorted)));
}

TEST(settings_order, takes_characters_as_signed) {
    const keys unsorted = {"a", "\x7f", "\xff", "\x80", "a\x80", "\x80z", ".", "z"};
    EXPECT_EQ((keys{"\x80", "a\x80", "\xff", ".", "a", "z", "\x80z", "\x7f"}),
              order_of(sorted_table(unsorted)));
}

TEST(settings_order, moves_values_with_their_keys) {
    const keys unsorted = {"c", "a", "b"};
    const auto table = sorted_table(unsorted);
    for (const auto& one : table) EXPECT_EQ(unsorted[one.value], one.key);
}

struct lookup_case {
    keys table;
    std::string key;
    std::string expected;
};

void expect_answers(std::initializer_list<lookup_case> cases) {
    for (const auto& [table, key, expected] : cases) {
        SCOPED_TRACE(key + " in " + testing::PrintToString(table));
        EXPECT_EQ(expected, answer_of(table, key));
        EXPECT_EQ(expected, settings_lookup_model(table).find(key).value_or("none")) << "the model";
    }
}

TEST(settings_lookup, takes_the_longest_tail_that_starts_behind_a_dot) {
    expect_answers({
        {{}, "a", "none"},
        {{"a"}, "a", "a"},
        {{"a"}, "b", "none"},
        {{"a"}, "b.a", "a"},
        {{"a"}, "ba", "none"},
        {{"a"}, ".a", "a"},
        {{"a"}, "a.", "none"},
        {{"text"}, "idle.text", "text"},
        {{"text"}, "context", "none"},
        {{"text"}, "hot.context", "none"},
        {{"text"}, "ext", "none"},
        {{"text"}, "a.b.c.text", "text"},
        {{"text"}, "text.a", "none"},
        {{"c", "b.c"}, "a.b.c", "b.c"},
        {{"c", "b.c"}, "a.d.c", "c"},
        {{"c", "b.c"}, "b.c", "b.c"},
        {{"c", "b.c"}, "c", "c"},
        {{"c", "b.c"}, "bb.c", "c"},
        {{"c", "b.c", "a.b.c"}, "a.b.c", "a.b.c"},
        {{"c", "b.c", "a.b.c"}, "x.a.b.c", "a.b.c"},
        {{"c", "b.c", "a.b.c"}, "xa.b.c", "b.c"},
        {{"c", "xy.bb.c"}, "bb.c", "c"},
        {{"c", "a.b.c"}, "d.b.c", "c"},
        {{"c", "xb.c", "yb.c"}, "b.c", "c"},
        {{"a", "a"}, "b.a", "a"},
    });
}

// The first of the longer forms answers when it has a dot where the key has its end, counted from the front.
TEST(settings_lookup, takes_some_longer_forms_of_a_key) {
    expect_answers({
        {{"corner.radius"}, "radius", "corner.radius"},
        {{"corner.radius"}, "selection.corner.radius", "corner.radius"},
        {{"corner.radius"}, "edge.radius", "none"},
        {{"corners.radius"}, "radius", "none"},
        {{"corner.radius"}, "us", "none"},
        {{"a.b"}, "b", "a.b"},
        {{"aa.b"}, "b", "none"},
        {{"a.b", "c.b"}, "b", "a.b"},
        {{"aa.b", "c.b"}, "b", "none"},
        {{"b.b", "c.b"}, "x.b", "none"},
        {{"b.b"}, "x.b", "none"},
        {{"b", "a.b"}, "b", "b"},
        {{"b", "a.b"}, "x.b", "b"},
        {{"c", "a.b.c"}, "b.c", "a.b.c"},
        {{"cd.ab", "ab"}, "ab", "ab"},
        {{"abc.e.d", "d"}, "e.d", "abc.e.d"},
        {{"abcd.e.d", "d"}, "e.d", "d"},
        {{"background", "tray.switch.background"}, "switch.background", "background"},
    });
}

TEST(settings_lookup, takes_the_bytes_of_utf_8_like_any_character) {
    expect_answers({
        {{"gr\xC3\xBC\xC3\x9F"}, "hot.gr\xC3\xBC\xC3\x9F", "gr\xC3\xBC\xC3\x9F"},
        {{"\xBC", "\xC3\xBC"}, "\xC3\xBC", "\xC3\xBC"},
        {{"\xBC", "\xC3\xBC"}, "x.\xBC", "\xBC"},
        {{"\x80", "a.\x80", "\xff", "z"}, "a.\x80", "a.\x80"},
        {{"\x80", "a.\x80", "\xff", "z"}, "a.\xff", "\xff"},
        {{"\x80.x", "a.x"}, "x", "\x80.x"},
        {{"\xff.x", "\x80.x", "\x7f.x"}, "x", "\x80.x"},
    });
}

TEST(settings_lookup, finds_each_of_many_keys) {
    keys many;
    for (int i = 0; i < 4096; ++i) many.push_back("part" + std::to_string(i) + ".color");
    const auto table = sorted_table(many);
    for (int i = 0; i < 4096; i += 17) {
        const std::string key = "part" + std::to_string(i) + ".color";
        EXPECT_EQ(key, found_in(table, key));
        EXPECT_EQ(key, found_in(table, "some." + key));
        EXPECT_EQ(std::nullopt, found_in(table, "some-" + key));
    }
}

/// Draws tables and keys in which much is alike: short runs of few characters, and paths of few words.
class random_keys {
public:
    explicit random_keys(std::uint32_t seed) : random(seed) {}

    [[nodiscard]] keys table() {
        of_words = chance(2);
        keys drawn(below(12));
        for (std::string& one : drawn) one = key();
        return drawn;
    }

    /// A key that is new, or made of one that is there.
    [[nodiscard]] std::string key_for(const keys& in) {
        if (in.empty() || chance(4)) return key();
        const std::string& taken = in[below(in.size())];
        switch (below(5)) {
            case 0:
                return taken;
            case 1:
                return key() + "." + taken;
            case 2:
                return key() + taken;
            case 3:
                return taken.substr(below(taken.size()));
            default:
                return key() + "." + taken.substr(below(taken.size()));
        }
    }

private:
    [[nodiscard]] std::size_t below(std::size_t limit) {
        return std::uniform_int_distribution<std::size_t>(0, limit - 1)(random);
    }
    [[nodiscard]] bool chance(std::size_t one_in) { return below(one_in) == 0; }

    [[nodiscard]] std::string key() {
        static constexpr const char* words[] = {"hot",       "idle",    "text",    "t",
                                                "line-edit", "context", "\xC3\xBC"};
        static constexpr char characters[] = {'a', 'b', 'a', 'b', '.', '.', '\x80', '\xff'};
        std::string made;
        for (std::size_t left = 1 + below(of_words ? 4 : 7); left > 0; --left) {
            if (of_words && !made.empty()) made += '.';
            if (of_words) made += words[below(std::size(words))];
            if (!of_words) made += characters[below(std::size(characters))];
        }
        return made;
    }

    std::mt19937 random;
    bool of_words = false;
};

TEST(random_settings, are_found_as_the_rule_says) {
    const std::uint32_t seed = test_support::random_seed();
    SCOPED_TRACE("seed " + std::to_string(seed));
    std::printf("seed %lu\n", static_cast<unsigned long>(seed));
    random_keys random(seed);
    int found = 0;
    int ordinary = 0;
    int beyond_tails = 0;
    const int rounds = test_support::debug_heap::steps(100'000);
    for (int round = 0; round < rounds && !testing::Test::HasFailure(); ++round) {
        const keys unsorted = random.table();
        const settings_lookup_model model(unsorted);
        const auto table = sorted_table(unsorted);
        const keys order = order_of(table);
        ASSERT_EQ(model.sorted(), order);
        for (int i = 0; i < 4; ++i) {
            const std::string key = random.key_for(unsorted);
            const answer actual = found_in(table, key);
            ASSERT_EQ(model.find(key), actual) << key << " in " << testing::PrintToString(order);
            found += actual.has_value();
            beyond_tails += actual != model.longest_tail(key);
            if (model.has_longer_forms(key)) continue;
            ++ordinary;
            ASSERT_EQ(model.longest_tail(key), actual) << key << " in " << testing::PrintToString(order);
        }
    }
    // The draw is worth its while: both sides of each question come up.
    EXPECT_LT(rounds, found);
    EXPECT_LT(rounds, 4 * rounds - found);
    EXPECT_LT(2 * rounds, ordinary);
    EXPECT_LT(rounds / 100, beyond_tails);
}

}  // namespace
}  // namespace d2d
