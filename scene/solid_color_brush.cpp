#include "scene/solid_color_brush.h"

#include "scene/process_wide.h"

#include <cstdint>
#include <unordered_map>

namespace d2d::scene {
namespace {

struct color_hash {
    std::size_t operator()(const _D3DCOLORVALUE& color) const noexcept { return hash_of_color(color); }
};

struct color_equal {
    bool operator()(const _D3DCOLORVALUE& a, const _D3DCOLORVALUE& b) const noexcept {
        return a.r == b.r && a.g == b.g && a.b == b.b && a.a == b.a;
    }
};

using brush_table = std::unordered_map<_D3DCOLORVALUE, solid_color_brush*, color_hash, color_equal>;

/// The brushes in it are not owned.
brush_table& shared_brushes() {
    static process_wide<brush_table> table;
    return table.value;
}

/// A channel as the hash sees it: scaled, truncated and cut to 8 bits; 0 for what no integer can hold.
std::uint32_t channel_byte(float channel) noexcept {
    const float scaled = (channel + 0.5f) * 255.0f;
    if (!(scaled > -2147483648.0f && scaled < 2147483648.0f)) return 0;
    return static_cast<std::uint32_t>(static_cast<std::int32_t>(scaled)) & 0xFFu;
}

}  // namespace

std::size_t hash_of_color(const _D3DCOLORVALUE& color) noexcept {
    std::uint32_t bits = channel_byte(color.r) | channel_byte(color.g) << 8 | channel_byte(color.b) << 16 |
                         channel_byte(color.a) << 24;
    // Reverses the bits of each byte: halves, then quarters, then neighbours change places.
    bits = (bits & 0x0F0F0F0Fu) << 4 | (bits >> 4 & 0x0F0F0F0Fu);
    bits = (bits & 0x33333333u) << 2 | (bits >> 2 & 0x33333333u);
    bits = (bits & 0x55555555u) << 1 | (bits >> 1 & 0x55555555u);
    return (bits & 0xFFu) | (bits >> 8 & 0xFFu) << 1 | (bits >> 16 & 0xFFu) << 2 | (bits >> 24) << 3;
}

com::ptr<solid_color_brush> solid_color_brush::shared(const _D3DCOLORVALUE& color) {
    brush_table& table = shared_brushes();
    if (const auto found = table.find(color); found != table.end()) return found->second;
    auto made = com::create_object<solid_color_brush>(color);
    // A colour that is not equal to itself (NaN) could be found neither again nor to be taken out.
    if (color_equal()(color, color)) table.emplace(color, made.get());
    return made;
}

std::size_t solid_color_brush::shared_count() noexcept {
    return shared_brushes().size();
}

void solid_color_brush::final_release() {
    if (animation) return;
    brush_table& table = shared_brushes();
    const auto found = table.find(color);
    if (found != table.end() && found->second == this) table.erase(found);
}

com::ptr<ID2D1SolidColorBrush> solid_color_brush::create_device_object(ID2D1RenderTarget* target) const {
    com::ptr<ID2D1SolidColorBrush> brush;
    com::check(target->CreateSolidColorBrush(&color, nullptr, brush.put()));
    return brush;
}

void solid_color_brush::update_device_object(ID2D1SolidColorBrush* brush, double time) const {
    if (!animation) return;
    const _D3DCOLORVALUE now = animation->get_value(time);
    brush->SetColor(&now);
}

com::ptr<IBrush> create_solid_color_brush(_D3DCOLORVALUE color) {
    return solid_color_brush::shared(color);
}

com::ptr<IBrush> create_animation_solid_color_brush(IValueAnimation<_D3DCOLORVALUE>* animation) {
    return com::create_object<solid_color_brush>(animation);
}

}  // namespace d2d::scene
