#include "controls/settings.h"

#include "d2d/factory.h"

namespace d2d {
namespace {

constexpr _D3DCOLORVALUE black{0, 0, 0, 1};
constexpr _D3DCOLORVALUE white{1, 1, 1, 1};
constexpr _D3DCOLORVALUE gray{0.5f, 0.5f, 0.5f, 1};
constexpr _D3DCOLORVALUE light_gray{0.827451f, 0.827451f, 0.827451f, 1};
constexpr _D3DCOLORVALUE slate{0.439216f, 0.501961f, 0.564706f, 1};
constexpr _D3DCOLORVALUE pale_blue{0.9f, 0.9f, 1, 1};
constexpr _D3DCOLORVALUE strong_blue{0.3f, 0.3f, 0.7f, 1};

constexpr setting<_D3DCOLORVALUE> default_colors[] = {
    {"text", black},
    {"down.text", white},
    {"selected.text", white},
    {"disabled.text", gray},

    {"background", white},
    {"hot.background", pale_blue},
    {"down.background", strong_blue},
    {"checked.background", gray},
    {"selected.background", strong_blue},
    {"hot.disabled.background", light_gray},

    {"outline", black},
    {"hot.outline", strong_blue},
    {"idle.outline", gray},
    {"disabled.outline", gray},
    {"hot.disabled.outline", black},

    {"scroll.track.background", light_gray},
    {"scroll.thumb.background", slate},
    {"scroll.area.outline", slate},

    // For clients; the library's controls ask for none of these.
    {"tray.switch.background", light_gray},
    {"tray.switch.hot.background", pale_blue},
    {"button.switch.outline", pale_blue},
    {"button.switch.disabled.outline", light_gray},
};

constexpr setting<bool> default_bools[] = {
    {"outline", true},
    {"selected.outline", false},
};

constexpr setting<float> default_floats[] = {
    {"corner.radius", 3},
};

constexpr setting<float> default_text_sizes[] = {
    {"text", 12},
    {"error.text", 14},
    {"header.text", 16},
};

template <class Value>
std::optional<Value> find_value(const settings_table<Value>& table, std::string_view key) noexcept {
    const auto* const found = find_setting(table, key);
    return found ? std::optional(found->value) : std::nullopt;
}

}  // namespace

void settings::load_defaults() {
    const factory graphics;  // text formats are made with them
    bools.assign(std::begin(default_bools), std::end(default_bools));
    colors.assign(std::begin(default_colors), std::end(default_colors));
    floats.assign(std::begin(default_floats), std::end(default_floats));
    text_formats.clear();
    for (const auto& [key, size] : default_text_sizes) {
        text_formats.push_back({key, scene::ITextFormat::get(L"Sans Serif", DWRITE_FONT_WEIGHT_NORMAL,
                                                             DWRITE_FONT_STYLE_NORMAL, size)});
    }
}

void settings::sort() {
    sort_settings(bools);
    sort_settings(colors);
    sort_settings(text_formats);
}

std::optional<bool> settings::find_bool(std::string_view key) const noexcept {
    return find_value(bools, key);
}

std::optional<_D3DCOLORVALUE> settings::find_color(std::string_view key) const noexcept {
    return find_value(colors, key);
}

com::ptr<scene::ITextFormat> settings::find_text_format(std::string_view key) const noexcept {
    const auto* const found = find_setting(text_formats, key);
    return found ? found->value : nullptr;
}

std::optional<float> settings::find_float(std::string_view key) const noexcept {
    return find_value(floats, key);
}

}  // namespace d2d
