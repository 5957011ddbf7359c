#include "scene/solid_color_brush.h"

#include "com/weak_ptr.h"
#include "scene/testing/allocation_count.h"
#include "support/leak_checked_test.h"
#include "support/random_seed.h"

#include <gtest/gtest.h>

#include <limits>
#include <map>
#include <random>
#include <vector>

namespace d2d::scene {
namespace {

using color = _D3DCOLORVALUE;

class solid_color_brush_test : public test_support::leak_checked_test {
protected:
    void TearDown() override {
        EXPECT_EQ(0u, solid_color_brush::shared_count());
        leak_checked_test::TearDown();
    }
};

TEST_F(solid_color_brush_test, equal_colours_share_one_brush) {
    const auto first = create_solid_color_brush({0.25f, 0.5f, 0.75f, 1});
    const auto second = create_solid_color_brush({0.25f, 0.5f, 0.75f, 1});
    EXPECT_EQ(first.get(), second.get());
    EXPECT_EQ(1u, solid_color_brush::shared_count());
}

TEST_F(solid_color_brush_test, colours_that_differ_in_any_channel_have_brushes_of_their_own) {
    const color colors[] = {{0.25f, 0.5f, 0.75f, 1},     {0.26f, 0.5f, 0.75f, 1},
                            {0.25f, 0.51f, 0.75f, 1},    {0.25f, 0.5f, 0.76f, 1},
                            {0.25f, 0.5f, 0.75f, 0.99f}, {0.5f, 0.25f, 0.75f, 1},
                            {0.25f, 0.5f, 0.75f, -1},    {0.25000003f, 0.5f, 0.75f, 1.0f}};
    std::vector<com::ptr<IBrush>> brushes;
    for (const color& each : colors) {
        for (const auto& other : brushes) EXPECT_NE(other.get(), create_solid_color_brush(each).get());
        brushes.push_back(create_solid_color_brush(each));
    }
    EXPECT_EQ(std::size(colors), solid_color_brush::shared_count());
}

TEST_F(solid_color_brush_test, zeros_of_both_signs_are_one_colour) {
    const auto positive = create_solid_color_brush({0.0f, 0, 0, 1});
    EXPECT_EQ(positive.get(), create_solid_color_brush({-0.0f, 0, 0, 1}).get());
}

TEST_F(solid_color_brush_test, a_brush_leaves_the_table_with_its_last_reference) {
    auto brush = create_solid_color_brush({1, 0, 0, 1});
    const com::ptr<IBrush> another = brush;
    brush.reset();
    EXPECT_EQ(1u, solid_color_brush::shared_count());
    EXPECT_EQ(another.get(), create_solid_color_brush({1, 0, 0, 1}).get());
    EXPECT_EQ(1u, solid_color_brush::shared_count());
}

TEST_F(solid_color_brush_test, a_new_brush_is_made_after_the_last_reference_went) {
    com::weak_ptr<solid_color_brush> former(solid_color_brush::shared({1, 0, 0, 1}));
    EXPECT_EQ(0u, solid_color_brush::shared_count());
    // The weak reference pins the storage of the former, so that an equal address would be the same object.
    const auto again = solid_color_brush::shared({1, 0, 0, 1});
    EXPECT_FALSE(former.lock());
    EXPECT_EQ(1u, solid_color_brush::shared_count());
    former = again;
    EXPECT_EQ(again, former.lock());
}

TEST_F(solid_color_brush_test, a_colour_that_is_not_a_number_gets_a_brush_that_nobody_shares) {
    const float nan = std::numeric_limits<float>::quiet_NaN();
    const auto first = create_solid_color_brush({nan, 0, 0, 1});
    const auto second = create_solid_color_brush({nan, 0, 0, 1});
    EXPECT_NE(first.get(), second.get());
}

TEST_F(solid_color_brush_test, the_table_agrees_with_a_simple_model) {
    const unsigned seed = test_support::random_seed();
    SCOPED_TRACE(testing::Message() << "seed " << seed);
    std::mt19937 random(seed);
    std::vector<com::ptr<IBrush>> held;
    std::map<int, std::vector<IBrush*>> model;  // the colours held, each with its brush once per reference
    for (int step = 0; step < 5000; ++step) {
        if (held.empty() || random() % 2) {
            const int shade = static_cast<int>(random() % 20);
            auto brush = create_solid_color_brush({static_cast<float>(shade) / 20.0f, 0.5f, 1, 1});
            auto& same = model[shade];
            if (!same.empty()) {
                ASSERT_EQ(same.front(), brush.get());
            }
            same.push_back(brush.get());
            held.push_back(std::move(brush));
        } else {
            const std::size_t index = random() % held.size();
            for (auto entry = model.begin(); entry != model.end(); ++entry) {
                if (entry->second.front() != held[index].get()) continue;
                entry->second.pop_back();
                if (entry->second.empty()) model.erase(entry);
                break;
            }
            std::swap(held[index], held.back());
            held.pop_back();
        }
        ASSERT_EQ(model.size(), solid_color_brush::shared_count());
    }
}

TEST_F(solid_color_brush_test, finding_a_brush_allocates_nothing) {
    const auto brush = create_solid_color_brush({1, 0.5f, 0, 1});
    const auto before = fakes::allocation_count();
    const auto again = create_solid_color_brush({1, 0.5f, 0, 1});
    EXPECT_EQ(before, fakes::allocation_count());
    EXPECT_EQ(brush, again);
    const auto another = create_solid_color_brush({1, 0.5f, 0.5f, 1});
    EXPECT_LT(before, fakes::allocation_count()) << "the counter counts";
}

TEST_F(solid_color_brush_test, a_brush_answers_to_its_interfaces_and_to_no_bitmap) {
    const auto brush = create_solid_color_brush({1, 0, 0, 1});
    EXPECT_EQ(brush, brush.try_as<IBrush>());
    EXPECT_TRUE(brush.try_as<IResource>());
    EXPECT_TRUE(brush.try_as<basic_resource>());
    EXPECT_TRUE(brush.try_as<resource<ID2D1Brush>>());
    EXPECT_TRUE(brush.try_as<solid_color_brush_resource>());
    EXPECT_FALSE(brush.try_as<resource<ID2D1Bitmap>>());
    EXPECT_EQ(com::ptr<IUnknown>(brush), brush.try_as<basic_resource>().try_as<IUnknown>());
}

/// The channel that the hash takes as `byte`, with the half that truncation drops.
float channel_of(int byte) {
    return (static_cast<float>(byte) + 0.5f) / 255.0f - 0.5f;
}

TEST(hash_of_color, spreads_the_bits_of_the_channels_in_reverse_and_one_apart) {
    const float none = channel_of(0);
    const struct {
        color of;
        std::size_t hash;
    } cases[] = {
        {{none, none, none, none}, 0},
        {{channel_of(1), none, none, none}, 0x80},
        {{none, channel_of(1), none, none}, 0x100},
        {{none, none, channel_of(1), none}, 0x200},
        {{none, none, none, channel_of(1)}, 0x400},
        {{channel_of(128), none, none, none}, 1},
        {{none, none, none, channel_of(128)}, 8},
        {{channel_of(0xB0), none, none, none}, 0x0D},
        {{0, 0, 0, 0}, 0x7FE},  // 127 in each channel
        {{0, 0, 0, 1}, 0x3FE},  // 382, of which 8 bits are 126
        {{none, none, none, channel_of(256 + 1)}, 0x400},
    };
    for (const auto& [of, hash] : cases) {
        EXPECT_EQ(hash, hash_of_color(of)) << of.r << ' ' << of.g << ' ' << of.b << ' ' << of.a;
    }
}

TEST(hash_of_color, exists_for_any_colour) {
    const float extremes[] = {std::numeric_limits<float>::infinity(),
                              -std::numeric_limits<float>::infinity(),
                              std::numeric_limits<float>::quiet_NaN(),
                              std::numeric_limits<float>::max(),
                              -1e9f,
                              1e9f};
    for (const float channel : extremes)
        EXPECT_GE(0x7FFu, hash_of_color({channel, channel, channel, channel}));
}

}  // namespace
}  // namespace d2d::scene
