#pragma once

#include "com/base_object.h"
#include "controls/settings.h"
#include "d2d/ui/IStyleSettingsBuilder.h"

namespace d2d {

/// A marked place: the setters are still to come, so that what `build` hands over is empty.
class style_settings_builder : public com::base_object<com::object_base, ui::IStyleSettingsBuilder>,
                               public settings {
public:
    // IStyleSettingsBuilder
    void set_color(std::string_view key, _D3DCOLORVALUE value) override;
    void set_bool(std::string_view key, bool value) override;
    void set_text_format(std::string_view key, com::ptr<scene::ITextFormat> value) override;
    void set_float(std::string_view key, float value) override;
    void set_size(std::string_view key, D2D_SIZE_F value) override;
    com::ptr<ui::IStyleSettings> build() override;

protected:
    ~style_settings_builder() = default;

private:
    // What `build` hands over; the inherited tables hold the values that it starts from.
    settings_table<bool> built_bools;
    settings_table<_D3DCOLORVALUE> built_colors;
    settings_table<com::ptr<scene::ITextFormat>> built_text_formats;
};

}  // namespace d2d
