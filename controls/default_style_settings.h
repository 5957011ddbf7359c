#pragma once

#include "com/base_object.h"
#include "controls/settings.h"
#include "d2d/factory.h"
#include "d2d/ui/IStyleSettings.h"

namespace d2d {

/// The settings of the library's own make. New ones are empty; whoever makes them fills the tables, sorts
/// them and leaves them alone from then on.
class default_style_settings : public com::base_object<com::object_base, ui::IStyleSettings>,
                               public settings {
public:
    /// The newest ones while they are there, or those of the default style, made now.
    [[nodiscard]] static com::ptr<default_style_settings> current();

    default_style_settings();

    // IStyleSettings
    std::optional<_D3DCOLORVALUE> get_color(std::string_view key) override { return find_color(key); }
    std::optional<bool> get_bool(std::string_view key) override { return find_bool(key); }
    com::ptr<scene::ITextFormat> get_text_format(std::string_view key) override {
        return find_text_format(key);
    }
    std::optional<float> get_float(std::string_view key) override { return find_float(key); }

protected:
    ~default_style_settings();

private:
    factory graphics;  // alive as long as the settings and every style on them
};

}  // namespace d2d
