#include "controls/settings.h"

#include "com/object.h"
#include "controls/default_style_settings.h"
#include "controls/testing/style_test.h"
#include "d2d/factory.h"
#include "d2d/ui/IStyle.h"
#include "d2d/ui/IStyleSettingsBuilder.h"
#include "scene/testing/allocation_count.h"
#include "scene/testing/call_text.h"

#include <gtest/gtest.h>

#include <array>
#include <stdexcept>
#include <string>

namespace d2d {
namespace {

using scene::ITextFormat;
using scene::fakes::allocation_count;
using scene::fakes::call_text;
using ui::IStyleSettings;
using ui::IStyleSettingsBuilder;

/// "none" without a value.
template <class Value>
std::string text_of(const std::optional<Value>& value) {
    return value ? call_text(*value) : "none";
}

com::ptr<ITextFormat> sans_serif(float size) {
    return ITextFormat::get(L"Sans Serif", DWRITE_FONT_WEIGHT_NORMAL, DWRITE_FONT_STYLE_NORMAL, size);
}

struct named_color {
    const char* key;
    const char* value;
};

constexpr named_color default_colors[] = {
    {"text", "0 0 0 1"},
    {"down.text", "1 1 1 1"},
    {"selected.text", "1 1 1 1"},
    {"disabled.text", "0.5 0.5 0.5 1"},
    {"background", "1 1 1 1"},
    {"hot.background", "0.9 0.9 1 1"},
    {"down.background", "0.3 0.3 0.7 1"},
    {"checked.background", "0.5 0.5 0.5 1"},
    {"selected.background", "0.3 0.3 0.7 1"},
    {"hot.disabled.background", "0.827451 0.827451 0.827451 1"},
    {"outline", "0 0 0 1"},
    {"hot.outline", "0.3 0.3 0.7 1"},
    {"idle.outline", "0.5 0.5 0.5 1"},
    {"disabled.outline", "0.5 0.5 0.5 1"},
    {"hot.disabled.outline", "0 0 0 1"},
    {"scroll.track.background", "0.827451 0.827451 0.827451 1"},
    {"scroll.thumb.background", "0.439216 0.501961 0.564706 1"},
    {"scroll.area.outline", "0.439216 0.501961 0.564706 1"},
    {"tray.switch.background", "0.827451 0.827451 0.827451 1"},
    {"tray.switch.hot.background", "0.9 0.9 1 1"},
    {"button.switch.outline", "0.9 0.9 1 1"},
    {"button.switch.disabled.outline", "0.827451 0.827451 0.827451 1"},
};

/// The settings of the default style.
class default_settings_test : public fakes::style_test {
protected:
    void SetUp() override {
        style_test::SetUp();
        values = ui::get_default_style(nullptr)->get_settings();
    }
    void TearDown() override {
        values.reset();
        style_test::TearDown();
    }

    /// The tables themselves.
    [[nodiscard]] const settings& tables() const { return static_cast<default_style_settings&>(*values); }

    com::ptr<IStyleSettings> values;
};

TEST_F(default_settings_test, have_these_colors) {
    EXPECT_EQ(22u, std::size(default_colors));
    EXPECT_EQ(std::size(default_colors), tables().colors.size());
    for (const auto& [key, value] : default_colors) {
        const auto* const found = find_setting(tables().colors, key);
        ASSERT_TRUE(found) << key;
        EXPECT_EQ(key, found->key);
        EXPECT_EQ(value, call_text(found->value)) << key;
        EXPECT_EQ(value, text_of(values->get_color(key))) << key;
    }
}

TEST_F(default_settings_test, have_these_flags) {
    EXPECT_EQ(2u, tables().bools.size());
    EXPECT_EQ(true, values->get_bool("outline"));
    EXPECT_EQ(false, values->get_bool("selected.outline"));
}

TEST_F(default_settings_test, have_these_text_formats) {
    EXPECT_EQ(3u, tables().text_formats.size());
    EXPECT_EQ(sans_serif(12), values->get_text_format("text"));
    EXPECT_EQ(sans_serif(14), values->get_text_format("error.text"));
    EXPECT_EQ(sans_serif(16), values->get_text_format("header.text"));
}

TEST_F(default_settings_test, have_one_number_and_no_sizes) {
    EXPECT_EQ(1u, tables().floats.size());
    EXPECT_EQ(3.0f, values->get_float("corner.radius"));
    for (const auto* const key : {"text", "outline", "corner.radius", "size", "a"}) {
        EXPECT_FALSE(values->get_size(key)) << key;
    }
}

TEST_F(default_settings_test, are_in_the_order_of_lookups) {
    const auto in_order = [](const auto& table) {
        return std::is_sorted(table.begin(), table.end(),
                              [](const auto& a, const auto& b) { return reads_ahead(a.key, b.key); });
    };
    EXPECT_TRUE(in_order(tables().colors));
    EXPECT_TRUE(in_order(tables().bools));
    EXPECT_TRUE(in_order(tables().text_formats));
}

TEST_F(default_settings_test, answer_every_key_that_controls_ask_for) {
    constexpr std::pair<const char*, const char*> answers[] = {
        {"idle.text", "text"},
        {"hot.text", "text"},
        {"idle.background", "background"},
        {"idle.disabled.background", "background"},
        {"idle.disabled.outline", "disabled.outline"},
        {"line-edit.idle.text", "text"},
        {"line-edit.selected.background", "selected.background"},
        {"line-edit.selected.text", "selected.text"},
        {"line-edit.hot.outline", "hot.outline"},
        {"line-edit.idle.outline", "idle.outline"},
        {"hot.selected.background", "selected.background"},
        {"selected.outline", "outline"},
        {"hot.selected.outline", "outline"},
        {"normal.label.text", "text"},
        {"switch.background", "background"},
    };
    for (const auto& [key, answer] : answers) {
        const auto* const found = find_setting(tables().colors, key);
        ASSERT_TRUE(found) << key;
        EXPECT_EQ(answer, found->key) << key;
    }
    EXPECT_EQ(sans_serif(12), values->get_text_format("normal.label.text"));
    EXPECT_EQ(3.0f, values->get_float("selection.corner.radius"));
    EXPECT_EQ(3.0f, values->get_float("radius"));
}

TEST_F(default_settings_test, are_of_four_name_spaces) {
    EXPECT_EQ("0 0 0 1", text_of(values->get_color("selected.outline")));
    EXPECT_EQ(false, values->get_bool("selected.outline"));
    EXPECT_EQ(false, values->get_bool("hot.selected.outline"));
    EXPECT_EQ(true, values->get_bool("hot.outline"));
    EXPECT_EQ("0.3 0.3 0.7 1", text_of(values->get_color("hot.outline")));
    EXPECT_EQ("none", text_of(values->get_color("error.texts")));
    EXPECT_EQ("0 0 0 1", text_of(values->get_color("error.text")));
    EXPECT_EQ("none", text_of(values->get_color("corner.radius")));
    EXPECT_EQ("none", text_of(values->get_bool("text")));
    EXPECT_EQ("none", text_of(values->get_float("text")));
    EXPECT_FALSE(values->get_text_format("outline"));
}

TEST_F(default_settings_test, answer_no_key_of_one_character) {
    for (int character = -128; character < 128; ++character) {
        const std::string key(1, static_cast<char>(character));
        EXPECT_EQ("none", text_of(values->get_color(key))) << character;
        EXPECT_EQ("none", text_of(values->get_bool(key))) << character;
        EXPECT_EQ("none", text_of(values->get_float(key))) << character;
        EXPECT_FALSE(values->get_text_format(key)) << character;
    }
}

TEST_F(default_settings_test, answer_no_key_of_nothing_and_of_dots_alone) {
    for (const std::string_view key : {std::string_view(), std::string_view(""), std::string_view("."),
                                       std::string_view("..."), std::string_view("\0", 1)}) {
        EXPECT_EQ("none", text_of(values->get_color(key)));
        EXPECT_EQ("none", text_of(values->get_bool(key)));
        EXPECT_EQ("none", text_of(values->get_float(key)));
        EXPECT_FALSE(values->get_text_format(key));
        EXPECT_FALSE(values->get_brush(key));
    }
    for (const auto* const key : {".text", "..text", "a..text", ".....text"}) {
        EXPECT_EQ("0 0 0 1", text_of(values->get_color(key))) << key;
    }
    for (const auto* const key : {"text.", "hot.text.", "text..", " text", "Text", "text "}) {
        EXPECT_EQ("none", text_of(values->get_color(key))) << key;
    }
}

TEST_F(default_settings_test, take_no_character_beyond_the_end_of_a_key) {
    const std::string_view longer = "hot.outline and more";
    EXPECT_EQ("0.3 0.3 0.7 1", text_of(values->get_color(longer.substr(0, 11))));
    EXPECT_EQ("0 0 0 1", text_of(values->get_color(longer.substr(4, 7))));
    EXPECT_EQ("none", text_of(values->get_color(longer)));
}

TEST_F(default_settings_test, answer_no_tail_without_its_dot) {
    for (const auto* const key : {"context", "xbackground", "xoutline", "hot.context", "text.x"}) {
        EXPECT_EQ("none", text_of(values->get_color(key))) << key;
    }
    EXPECT_EQ("0 0 0 1", text_of(values->get_color("xhot.outline")));
}

TEST_F(default_settings_test, make_brushes_of_their_colors) {
    for (const auto* const key : {"text", "hot.background", "line-edit.idle.outline"}) {
        const auto brush = values->get_brush(key);
        EXPECT_TRUE(brush);
        EXPECT_EQ(scene::create_solid_color_brush(*values->get_color(key)), brush) << key;
    }
    EXPECT_FALSE(values->get_brush("radius"));
    EXPECT_FALSE(values->get_brush("t"));
}

TEST_F(default_settings_test, are_found_without_an_allocation) {
    constexpr std::array keys = {"text",          "normal.label.text",       "selection.corner.radius",
                                 "a.b.c.outline", "hot.disabled.background", "x",
                                 "\x80.\xff"};
    const auto before = allocation_count();
    for (const auto* const key : keys) {
        (void)values->get_color(key);
        (void)values->get_bool(key);
        (void)values->get_text_format(key);
        (void)values->get_float(key);
        (void)values->get_size(key);
    }
    EXPECT_EQ(before, allocation_count());
    const std::string longer_than_a_string_keeps_within_itself(100, 'x');
    EXPECT_LT(before, allocation_count()) << "the counter counts";
}

TEST_F(default_settings_test, are_settings_alone) {
    com::ptr<IUnknown> found;
    EXPECT_EQ(S_OK,
              values->QueryInterface(com::guid_of<IStyleSettings>(), reinterpret_cast<void**>(found.put())));
    EXPECT_EQ(values.get(), found.get());
    void* none = nullptr;
    EXPECT_EQ(E_NOINTERFACE, values->QueryInterface(com::guid_of<ui::IStyle>(), &none));
    EXPECT_EQ(E_NOINTERFACE, values->QueryInterface(com::guid_of<IStyleSettingsBuilder>(), &none));
}

/// Has one colour.
class one_color : public com::base_object<com::object_base, IStyleSettings> {
public:
    std::optional<_D3DCOLORVALUE> get_color(std::string_view key) override {
        return key == "this" ? std::optional(_D3DCOLORVALUE{0, 0.25f, 0.5f, 1}) : std::nullopt;
    }

protected:
    ~one_color() = default;
};

class style_settings_test : public test_support::leak_checked_test {};

TEST_F(style_settings_test, of_a_client_answer_what_they_have) {
    const com::ptr<IStyleSettings> own = com::create_object<one_color>();
    EXPECT_EQ(scene::create_solid_color_brush({0, 0.25f, 0.5f, 1}), own->get_brush("this"));
    EXPECT_FALSE(own->get_brush("that"));
    EXPECT_FALSE(own->get_bool("this"));
    EXPECT_FALSE(own->get_float("this"));
    EXPECT_FALSE(own->get_size("this"));
    EXPECT_FALSE(own->get_text_format("this"));
}

TEST_F(style_settings_test, that_are_built_hold_a_factory_token) {
    auto built = ui::create_style_settings_builder(false)->build();
    EXPECT_TRUE(factory::d2d1());
    built.reset();
    EXPECT_FALSE(factory::d2d1());
}

class style_settings_builder_test : public fakes::style_test, public testing::WithParamInterface<bool> {};

INSTANTIATE_TEST_SUITE_P(without_and_with_defaults, style_settings_builder_test, testing::Bool());

TEST_P(style_settings_builder_test, can_set_nothing) {
    const auto builder = ui::create_style_settings_builder(GetParam());
    const auto expect_refusal = [](const auto& set) {
        try {
            set();
            ADD_FAILURE() << "accepted";
        } catch (const std::logic_error& refused) {
            EXPECT_STREQ("not implemented", refused.what());
        }
    };
    expect_refusal([&] { builder->set_color("text", {1, 0, 0, 1}); });
    expect_refusal([&] { builder->set_bool("text", true); });
    expect_refusal([&] { builder->set_text_format("text", sans_serif(12)); });
    expect_refusal([&] { builder->set_float("text", 1); });
    expect_refusal([&] { builder->set_size("text", {1, 1}); });
}

TEST_P(style_settings_builder_test, builds_empty_settings) {
    const auto builder = ui::create_style_settings_builder(GetParam());
    const auto built = builder->build();
    for (const auto* const key : {"text", "outline", "corner.radius", "idle.background", "radius"}) {
        EXPECT_EQ("none", text_of(built->get_color(key))) << key;
        EXPECT_EQ("none", text_of(built->get_bool(key))) << key;
        EXPECT_EQ("none", text_of(built->get_float(key))) << key;
        EXPECT_EQ("none", text_of(built->get_size(key))) << key;
        EXPECT_FALSE(built->get_text_format(key)) << key;
        EXPECT_FALSE(built->get_brush(key)) << key;
    }
    const auto again = builder->build();
    EXPECT_NE(built, again);
    EXPECT_EQ("none", text_of(again->get_color("text")));
}

// It is no settings object, but answers for one: kept, clients rely on it.
TEST_P(style_settings_builder_test, answers_to_builder_and_settings_with_one_pointer) {
    const auto builder = ui::create_style_settings_builder(GetParam());
    const GUID answered[] = {com::guid_of<IStyleSettingsBuilder>(), com::guid_of<IStyleSettings>(),
                             com::guid_of<IUnknown>()};
    for (const GUID& id : answered) {
        IUnknown* found = nullptr;
        ASSERT_EQ(S_OK, builder->QueryInterface(id, reinterpret_cast<void**>(&found)));
        EXPECT_EQ(static_cast<IUnknown*>(builder.get()), found);
        found->Release();
    }
    void* none = nullptr;
    EXPECT_EQ(E_NOINTERFACE, builder->QueryInterface(com::guid_of<ui::IStyle>(), &none));
}

TEST_P(style_settings_builder_test, is_a_new_one_each_time) {
    const auto builder = ui::create_style_settings_builder(GetParam());
    EXPECT_NE(builder, ui::create_style_settings_builder(GetParam()));
}

TEST_F(style_settings_test, of_a_builder_hold_no_factory_token) {
    const auto builder = ui::create_style_settings_builder(true);
    EXPECT_FALSE(factory::d2d1());
}

}  // namespace
}  // namespace d2d
