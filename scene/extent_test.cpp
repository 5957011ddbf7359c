#include "scene/extent.h"
#include "support/random_seed.h"

#include <limits>
#include <optional>
#include <random>
#include <vector>

#include <gtest/gtest.h>

namespace {

using namespace d2d::scene;

extent of(float left, float top, float right, float bottom) {
    return {true, {left, top, right, bottom}};
}

void expect_same(const extent& expected, const extent& actual) {
    EXPECT_EQ(expected.valid, actual.valid);
    EXPECT_EQ(expected.rect.left, actual.rect.left);
    EXPECT_EQ(expected.rect.top, actual.rect.top);
    EXPECT_EQ(expected.rect.right, actual.rect.right);
    EXPECT_EQ(expected.rect.bottom, actual.rect.bottom);
}

TEST(extent, first_part_is_the_total_whatever_stood_there) {
    extent total;
    total.add({5, 6, 5, 6});
    expect_same(of(5, 6, 5, 6), total);
    total.add({1, 2, 3, 4});
    expect_same(of(1, 2, 5, 6), total);
}

TEST(extent, difference_is_presence_or_an_edge) {
    EXPECT_FALSE(differs({}, {}));
    EXPECT_FALSE(differs({false, {1, 2, 3, 4}}, {}));
    EXPECT_TRUE(differs({}, of(0, 0, 0, 0)));
    EXPECT_FALSE(differs(of(1, 2, 3, 4), of(1, 2, 3, 4)));
    EXPECT_FALSE(differs(of(0.0f, 0, 0, 0), of(-0.0f, 0, 0, 0)));
    EXPECT_TRUE(differs(of(1, 2, 3, 4), of(0, 2, 3, 4)));
    EXPECT_TRUE(differs(of(1, 2, 3, 4), of(1, 0, 3, 4)));
    EXPECT_TRUE(differs(of(1, 2, 3, 4), of(1, 2, 0, 4)));
    EXPECT_TRUE(differs(of(1, 2, 3, 4), of(1, 2, 3, 0)));
}

TEST(extent, mapped_keeps_absence) {
    expect_same({}, extent{}.mapped(translation_matrix(5, 5)));
    expect_same(of(6, 7, 8, 9), of(1, 2, 3, 4).mapped(translation_matrix(5, 5)));
}

TEST(extent, replaced_part_is_taken_in_without_asking_the_others_when_it_holds_no_edge) {
    struct {
        extent before, after;
        bool known;
        extent total;
    } const cases[] = {
        {of(20, 20, 30, 30), of(40, 40, 50, 50), true, of(0, 0, 100, 100)},    // inside, stays inside
        {of(20, 20, 30, 30), of(-5, 40, 50, 120), true, of(-5, 0, 100, 120)},  // inside, grows out
        {of(20, 20, 30, 30), {}, true, of(0, 0, 100, 100)},                    // inside, goes
        {{}, of(90, 90, 110, 95), true, of(0, 0, 110, 100)},                   // comes
        {{}, {}, true, of(0, 0, 100, 100)},                                    // was never there
        {of(0, 20, 30, 30), of(-1, 20, 30, 30), true, of(-1, 0, 100, 100)},    // holds an edge, grows
        {of(0, 20, 30, 30), of(0, 25, 30, 26), true, of(0, 0, 100, 100)},      // holds it, keeps it
        {of(0, 20, 30, 30), of(1, 20, 30, 30), false, {}},                     // left draws back
        {of(20, 0, 30, 30), of(20, 1, 30, 30), false, {}},                     // top
        {of(20, 20, 100, 30), of(20, 20, 99, 30), false, {}},                  // right
        {of(20, 20, 30, 100), of(20, 20, 30, 99), false, {}},                  // bottom
        {of(20, 20, 100, 30), {}, false, {}},                                  // holds an edge, goes
        {of(0, 0, 100, 100), of(0, 0, 100, 100), true, of(0, 0, 100, 100)},
    };
    for (std::size_t i = 0; i < std::size(cases); ++i) {
        SCOPED_TRACE(i);
        extent total = of(0, 0, 100, 100);
        ASSERT_EQ(cases[i].known, replace_part(total, {cases[i].before, cases[i].after}));
        if (cases[i].known) expect_same(cases[i].total, total);
    }
}

TEST(extent, replaced_part_that_was_not_a_number_has_the_others_asked) {
    constexpr float odd = std::numeric_limits<float>::quiet_NaN();
    extent total = of(0, 0, 100, 100);
    EXPECT_FALSE(replace_part(total, {of(odd, 1, 2, 2), of(1, 1, 2, 2)}));
    EXPECT_FALSE(replace_part(total, {of(0, 1, 2, 2), of(odd, 1, 2, 2)}));
}

extent united(const std::vector<extent>& parts) {
    extent total;
    for (const extent& part : parts) {
        if (!part.valid) continue;
        if (!total.valid) {
            total = part;
            continue;
        }
        if (part.rect.left < total.rect.left) total.rect.left = part.rect.left;
        if (part.rect.top < total.rect.top) total.rect.top = part.rect.top;
        if (part.rect.right > total.rect.right) total.rect.right = part.rect.right;
        if (part.rect.bottom > total.rect.bottom) total.rect.bottom = part.rect.bottom;
    }
    return total;
}

TEST(extent, edge_that_the_anchor_reaches_stays_known) {
    const extent background = of(0, 0, 100, 100);
    extent total = background;
    EXPECT_TRUE(replace_part(total, {of(0, 0, 10, 100), of(5, 5, 15, 90)}, background));
    EXPECT_FALSE(differs(background, total));
    extent wider = of(0, 0, 120, 100);
    EXPECT_FALSE(replace_part(wider, {of(110, 0, 120, 100), of(50, 5, 60, 90)}, background));
}

TEST(extent, random_replacements_never_differ_from_asking_all_parts) {
    const unsigned seed = test_support::random_seed();
    SCOPED_TRACE(testing::Message() << "seed " << seed);
    std::mt19937 random(seed);
    // Few values, so that parts share edges, touch and coincide; empty and inverted ones among them.
    const auto edge = [&] { return static_cast<float>(static_cast<int>(random() % 7) - 3); };
    const auto part = [&]() -> extent {
        if (random() % 4 == 0) return {};
        return of(edge(), edge(), edge(), edge());
    };
    int known = 0;
    constexpr int steps = 200000;
    std::vector<extent> parts(4);
    extent total;
    for (int step = 0; step < steps; ++step) {
        const std::size_t index = random() % parts.size();
        const part_change change{parts[index], part()};
        parts[index] = change.after;
        // The first part is known to whoever asks, half of the time.
        const extent anchor = random() % 2 == 0 ? parts[0] : extent{};
        if (replace_part(total, change, anchor)) {
            ++known;
            const extent expected = united(parts);
            ASSERT_FALSE(differs(expected, total)) << "step " << step;
        } else {
            total = united(parts);
        }
    }
    EXPECT_GT(known, steps / 10) << "the shortcut is hardly ever taken";
    EXPECT_LT(known, steps);
}

}  // namespace
