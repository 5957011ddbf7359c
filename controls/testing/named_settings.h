#pragma once

#include "com/base_object.h"
#include "com/object.h"
#include "d2d/ui/IStyleSettings.h"
#include "scene/testing/test_resources.h"

#include <functional>
#include <map>
#include <string>
#include <vector>

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
    /// The numbers that it has.
    std::map<std::string, float, std::less<>> numbers;

    std::optional<_D3DCOLORVALUE> get_color(std::string_view key) override {
        if (key == missing) return std::nullopt;
        return _D3DCOLORVALUE{static_cast<float>(key.size()), 0, 0, 1};
    }
    com::ptr<scene::ITextFormat> get_text_format(std::string_view key) override {
        formats_asked_for.emplace_back(key);
        return key == missing ? nullptr : format;
    }
    std::optional<float> get_float(std::string_view key) override {
        const auto found = numbers.find(key);
        return found == numbers.end() ? std::nullopt : std::optional(found->second);
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
    /// A line of a recording target with the keys of the brushes that it names, as far as one was given.
    [[nodiscard]] std::string with_keys(std::string line) const {
        for (const auto& [key, made] : brushes) {
            const std::string color = "brush(" + std::to_string(key.size()) + " 0 0 1)";
            const std::size_t at = line.find(color);
            if (at != std::string::npos) line.replace(at, color.size(), key);
        }
        return line;
    }

protected:
    ~named_settings() = default;

private:
    std::map<std::string, com::ptr<scene::IBrush>> brushes;
};

}  // namespace d2d::fakes
