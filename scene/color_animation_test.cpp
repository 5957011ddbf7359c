#include "scene/solid_color_brush.h"
#include "scene/testing/recording_render_target.h"
#include "support/leak_checked_test.h"

#include <gtest/gtest.h>

#include <cmath>
#include <string>
#include <vector>

namespace d2d::scene {
namespace {

using color = _D3DCOLORVALUE;
using color_value_animation = IValueAnimation<color>;

constexpr color red{1, 0, 0, 1};
constexpr color blue{0, 0, 1, 0.5f};
constexpr color black{0, 0, 0, 1};
constexpr color white{1, 1, 1, 1};

void expect_color(const color& expected, const color& actual) {
    EXPECT_EQ(expected.r, actual.r);
    EXPECT_EQ(expected.g, actual.g);
    EXPECT_EQ(expected.b, actual.b);
    EXPECT_EQ(expected.a, actual.a);
}

/// The animation behind a brush.
com::ptr<color_value_animation> animation_of(const com::ptr<IBrush>& brush) {
    const com::ptr<solid_color_brush_resource> implementation(brush);
    return static_cast<solid_color_brush&>(*implementation).get_animation();
}

class color_animation_test : public test_support::leak_checked_test {};

TEST_F(color_animation_test, a_blinking_colour_shows_each_of_two_for_one_period) {
    const auto blinking = animation_of(create_blinking_solid_color_brush(red, blue, 0.5f));
    EXPECT_TRUE(blinking->is_stepped());
    for (const double time : {0.0, 0.25, 0.49, 1.0, 1.49, 2.0, 1000.0}) {
        SCOPED_TRACE(time);
        expect_color(red, blinking->get_value(time));
    }
    for (const double time : {0.5, 0.75, 0.99, 1.5, 1000.5}) {
        SCOPED_TRACE(time);
        expect_color(blue, blinking->get_value(time));
    }
}

TEST_F(color_animation_test, a_blinking_colour_truncates_towards_zero_in_negative_time) {
    const auto blinking = animation_of(create_blinking_solid_color_brush(red, blue, 0.5f));
    expect_color(red, blinking->get_value(-0.49));
    expect_color(blue, blinking->get_value(-0.5));
    expect_color(blue, blinking->get_value(-0.99));
    expect_color(red, blinking->get_value(-1.0));
}

TEST_F(color_animation_test, a_blinking_colour_widens_its_period_from_single_precision) {
    const double period = static_cast<double>(0.1f);
    const auto blinking = animation_of(create_blinking_solid_color_brush(red, blue, 0.1f));
    expect_color(red, blinking->get_value(0.1));  // 0.1f is a little more than 0.1
    expect_color(blue, blinking->get_value(period));
    EXPECT_EQ(3 * period, blinking->next_update(0.25));
}

TEST_F(color_animation_test, a_blinking_colour_names_its_next_step) {
    const auto blinking = animation_of(create_blinking_solid_color_brush(red, blue, 0.5f));
    EXPECT_EQ(1.0, blinking->next_update(0.6));
    EXPECT_EQ(0.5, blinking->next_update(0.5));
    EXPECT_EQ(0.0, blinking->next_update(0.0));
    EXPECT_EQ(-0.5, blinking->next_update(-0.6));
}

TEST_F(color_animation_test, a_period_of_zero_stays_at_the_first_colour) {
    const auto blinking = animation_of(create_blinking_solid_color_brush(red, blue, 0.0f));
    expect_color(red, blinking->get_value(0.0));
    expect_color(red, blinking->get_value(1.0));
}

TEST_F(color_animation_test, a_pulsating_colour_swings_between_two) {
    const auto pulsating = animation_of(create_pulsating_solid_color_brush(black, white, 1.0, 1.0));
    EXPECT_FALSE(pulsating->is_stepped());
    expect_color({0.5f, 0.5f, 0.5f, 1}, pulsating->get_value(0.0));
    expect_color(white, pulsating->get_value(0.25));
    EXPECT_NEAR(0.5, static_cast<double>(pulsating->get_value(0.5).r), 1e-6);
    EXPECT_NEAR(0.0, static_cast<double>(pulsating->get_value(0.75).r), 1e-6);
    EXPECT_NEAR(1.0, static_cast<double>(pulsating->get_value(3.25).r), 1e-6);
}

TEST_F(color_animation_test, a_pulsating_colour_asks_for_twenty_updates_a_second) {
    const auto pulsating = animation_of(create_pulsating_solid_color_brush(black, white, 7.0, 2.0));
    for (const double time : {0.0, 3.3, 1e6}) EXPECT_EQ(0.05, pulsating->next_update(time));
}

TEST_F(color_animation_test, an_exponent_keeps_a_pulsating_colour_near_the_first) {
    const color first{0.2f, 0.4f, 0.6f, 0.8f};
    const color second{1, 0, 0.5f, 0};
    const double period = 2.5;
    const double exponent = 3.0;
    const auto pulsating = animation_of(create_pulsating_solid_color_brush(first, second, period, exponent));
    expect_color({first.r * 0.875f + second.r * 0.125f, first.g * 0.875f + second.g * 0.125f,
                  first.b * 0.875f + second.b * 0.125f, first.a * 0.875f + second.a * 0.125f},
                 pulsating->get_value(0.0));
    for (int step = 0; step < 100; ++step) {
        const double time = step * 0.037;
        const double swing = std::sin(time * 6.283185307179586 / period);
        const auto share = static_cast<float>(std::pow((swing + 1.0) * 0.5, exponent));
        const color now = pulsating->get_value(time);
        EXPECT_FLOAT_EQ(first.r * (1.0f - share) + second.r * share, now.r);
        EXPECT_FLOAT_EQ(first.a * (1.0f - share) + second.a * share, now.a);
    }
}

TEST_F(color_animation_test, animated_brushes_are_not_shared) {
    const auto first = create_blinking_solid_color_brush(red, blue, 0.5f);
    const auto second = create_blinking_solid_color_brush(red, blue, 0.5f);
    EXPECT_NE(first.get(), second.get());
    EXPECT_NE(create_pulsating_solid_color_brush(red, blue, 1, 1).get(),
              com::ptr<IBrush>(create_pulsating_solid_color_brush(red, blue, 1, 1)).get());
    const auto animation = animation_of(first);
    const auto third = create_animation_solid_color_brush(animation.get());
    EXPECT_NE(first.get(), third.get());
    EXPECT_EQ(animation, animation_of(third));
    EXPECT_EQ(0u, solid_color_brush::shared_count());
    // A plain brush of the colour that an animated one starts with is another one, and stays when that goes.
    const auto plain = create_solid_color_brush(red);
    EXPECT_NE(first.get(), plain.get());
}

/// Nothing but the time, as red; keeps the times that it was asked for.
class time_as_red : public com::base_object<com::object_base, color_value_animation> {
public:
    std::vector<double> asked;

    bool is_stepped() override { return false; }
    double next_update(double) override { return 0.05; }
    color get_value(double time) override {
        asked.push_back(time);
        return {static_cast<float>(time) + 0.25f, 0, 0, 1};
    }

protected:
    ~time_as_red() = default;
};

TEST_F(color_animation_test, an_animated_brush_starts_with_the_colour_of_time_zero_and_follows_the_frame) {
    using lines = std::vector<std::string>;
    fakes::recording_render_target target;
    const auto animation = com::create_object<time_as_red>();
    {
        const auto brush = create_animation_solid_color_brush(animation.get());
        EXPECT_EQ(std::vector<double>{0.0}, animation->asked);
        const auto& inside = static_cast<solid_color_brush&>(*com::ptr<solid_color_brush_resource>(brush));
        const auto device_brush = inside.create_device_object(&target);
        EXPECT_EQ(lines{"CreateSolidColorBrush 0.25 0 0 1"}, target.take_calls());
        EXPECT_EQ(std::vector<double>{0.0}, animation->asked) << "the making of a device object asks nothing";
        inside.update_device_object(device_brush.get(), 2.5);
        EXPECT_EQ(lines{"SetColor 2.75 0 0 1"}, target.take_calls());
        EXPECT_EQ((std::vector<double>{0.0, 2.5}), animation->asked);
    }
    EXPECT_EQ(0, target.live_brushes());
}

TEST_F(color_animation_test, a_brush_of_one_colour_leaves_its_device_object_alone) {
    fakes::recording_render_target target;
    const auto brush = solid_color_brush::shared(red);
    const auto device_brush = brush->create_device_object(&target);
    static_cast<void>(target.take_calls());
    brush->update_device_object(device_brush.get(), 2.5);
    EXPECT_EQ(std::vector<std::string>{}, target.take_calls());
}

TEST_F(color_animation_test, an_animated_brush_that_goes_leaves_the_shared_one_of_its_colour_alone) {
    const auto plain = create_solid_color_brush(red);
    static_cast<void>(create_blinking_solid_color_brush(red, blue, 0.5f));
    EXPECT_EQ(1u, solid_color_brush::shared_count());
    EXPECT_EQ(plain.get(), create_solid_color_brush(red).get());
}

}  // namespace
}  // namespace d2d::scene
