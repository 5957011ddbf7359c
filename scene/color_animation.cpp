// The ready-made animations of a brush's colour. They have no start of their own: brushes of one period are
// in step.

#include "com/object.h"
#include "d2d/scene/IBrush.h"

#include <cmath>
#include <cstdint>

namespace d2d::scene {
namespace {

using color_animation = com::base_object<com::object_base, IValueAnimation<_D3DCOLORVALUE>>;

/// A number of periods without its fraction; 0 for what 64 bits cannot hold.
std::int64_t whole_periods(double periods) noexcept {
    constexpr double limit = 9223372036854775808.0;
    return periods > -limit && periods < limit ? static_cast<std::int64_t>(periods) : 0;
}

}  // namespace

com::ptr<IBrush> create_blinking_solid_color_brush(_D3DCOLORVALUE first, _D3DCOLORVALUE second,
                                                   float period) {
    class blink_animation : public color_animation {
    public:
        blink_animation(const _D3DCOLORVALUE& even, const _D3DCOLORVALUE& odd, float seconds) noexcept
            : first_(even), second_(odd), period_(seconds) {}

        bool is_stepped() override { return true; }
        double next_update(double time) override {
            const double seconds = period_;
            return std::ceil(time / seconds) * seconds;
        }
        _D3DCOLORVALUE get_value(double time) override {
            return whole_periods(time / static_cast<double>(period_)) % 2 == 0 ? first_ : second_;
        }

    protected:
        ~blink_animation() = default;

    private:
        _D3DCOLORVALUE first_;
        _D3DCOLORVALUE second_;
        float period_;
    };
    return create_animation_solid_color_brush(
        com::create_object<blink_animation>(first, second, period).get());
}

com::ptr<IBrush> create_pulsating_solid_color_brush(_D3DCOLORVALUE first, _D3DCOLORVALUE second,
                                                    double period, double exponent) {
    class animation : public color_animation {
    public:
        animation(const _D3DCOLORVALUE& low, const _D3DCOLORVALUE& high, double seconds,
                  double power) noexcept
            : first_(low), second_(high), period_(seconds), exponent_(power) {}

        bool is_stepped() override { return false; }
        double next_update(double) override { return 0.05; }
        _D3DCOLORVALUE get_value(double time) override {
            constexpr double full_circle = 6.283185307179586;
            const double swing = std::sin(time * full_circle / period_);
            const auto high = static_cast<float>(std::pow((swing + 1.0) * 0.5, exponent_));
            const float low = 1.0f - high;
            const auto mix = [=](float a, float b) { return a * low + b * high; };
            return {mix(first_.r, second_.r), mix(first_.g, second_.g), mix(first_.b, second_.b),
                    mix(first_.a, second_.a)};
        }

    protected:
        ~animation() = default;

    private:
        _D3DCOLORVALUE first_;
        _D3DCOLORVALUE second_;
        double period_;
        double exponent_;
    };
    return create_animation_solid_color_brush(
        com::create_object<animation>(first, second, period, exponent).get());
}

}  // namespace d2d::scene
