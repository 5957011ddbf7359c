#pragma once

#include "com/base_object.h"
#include "com/object.h"
#include "d2d/ui/IStyleSettings.h"
#include "scene/testing/test_resources.h"

#include <map>
#include <string>

namespace d2d::fakes {

/// Settings that answer every key, with a brush of its own for each: tests see which key was asked for. The
/// colour of a key is its length in red.
class named_settings : public com::base_object<com::object_base, ui::IStyleSettings> {
public:
    /// The one key that has no answer.
    std::string missing;
    /// What every other key of a text format answers.
    com::ptr<scene::ITextFormat> format =
        scene::ITextFormat::get(L"Tahoma", DWRITE_FONT_WEIGHT_BOLD, DWRITE_FONT_STYLE_NORMAL, 10);
    std::vector<std::string> formats_asked_for;

    std::optional<_D3DCOLORVALUE> get_color(std::string_view key) override {
        if (key == missing) return std::nullopt;
        return _D3DCOLORVALUE{static_cast<float>(key.size()), 0, 0, 1};
    }
    com::ptr<scene::ITextFormat> get_text_format(std::string_view key) override {
        formats_asked_for.emplace_back(key);
        return key == missing ? nullptr : format;
    }
    com::ptr<scene::IBrush> get_brush(std::string_view key) override {
        if (key == missing) return nullptr;
        com::ptr<scene::IBrush>& brush = brushes[std::string(key)];
        if (!brush) brush = com::create_object<scene::fakes::test_brush>(*get_color(key));
        return brush;
    }

    /// The key that a brush was given for.
    [[nodiscard]] std::string key_of(scene::IBrush* brush) const {
        for (const auto& [key, made] : brushes) {
            if (made == brush) return key;
        }
        return "unknown brush";
    }

protected:
    ~named_settings() = default;

private:
    std::map<std::string, com::ptr<scene::IBrush>> brushes;
};

}  // namespace d2d::fakes
