#pragma once

#include "controls/testing/named_settings.h"
#include "controls/testing/recording_scroll_style.h"

namespace d2d::fakes {

/// A style without looks for anything.
class plain_style : public com::base_object<com::object_base, ui::IStyle> {
public:
    com::ptr<ui::IStyleSettings> get_settings() override { return nullptr; }

protected:
    ~plain_style() = default;
};

/// A style for controls that draw by the keys of settings, in a scroll area.
struct named_style {
    com::ptr<named_settings> settings = com::create_object<named_settings>();
    com::ptr<recording_scroll_style> style = com::create_object<recording_scroll_style>([](std::string) {});

    named_style() { style->settings = settings; }

    [[nodiscard]] ui::IStyle* get() const { return static_cast<ui::IScrollAreaStyle*>(style.get()); }

    /// The rounded rectangles of a painting, with the keys of their brushes: "Fill(8 0 56 14 3 3)
    /// background", "Draw(8.5 0.5 55.5 13.5 3 3) outline 1 null".
    [[nodiscard]] std::vector<std::string> shapes_of(const std::vector<std::string>& painted) const {
        constexpr std::string_view kind = "Geometry rounded_rectangle";
        std::vector<std::string> found;
        for (std::string line : painted) {
            const std::size_t at = line.find(kind);
            if (at == std::string::npos) continue;
            found.push_back(settings->with_keys(line.erase(at, kind.size())));
        }
        return found;
    }
};

}  // namespace d2d::fakes
