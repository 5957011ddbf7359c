#include "controls/default_style.h"

#include "com/error.h"
#include "controls/testing/fake_label.h"
#include "controls/testing/named_settings.h"
#include "controls/testing/recording_context.h"
#include "controls/testing/style_test.h"
#include "d2d/factory.h"
#include "host/testing/table_entry.h"
#include "scene/testing/fake_geometry.h"

#include <gtest/gtest.h>

#include <functional>
#include <stdexcept>
#include <string>
#include <vector>

namespace d2d {
namespace {

using scene::fakes::call_text;
using lines = std::vector<std::string>;

/// A state of a control, in every combination.
struct look {
    bool enabled, hot, down, checked, focused;

    [[nodiscard]] std::string text() const {
        return call_text("enabled", enabled, "hot", hot, "down", down, "checked", checked, "focused",
                         focused);
    }
};

void for_each_look(const std::function<void(const look&)>& action) {
    for (unsigned bits = 0; bits < 32; ++bits) {
        const look shown{(bits & 16) != 0, (bits & 8) != 0, (bits & 4) != 0, (bits & 2) != 0,
                         (bits & 1) != 0};
        SCOPED_TRACE(shown.text());
        action(shown);
    }
}

/// By enabled, hot, down, checked.
std::string background_of(bool enabled, bool hot, bool down, bool checked) {
    static constexpr const char* keys[2][2][2][2] = {
        {{{"idle.disabled.background", "idle.disabled.background"},
          {"idle.disabled.background", "idle.disabled.background"}},
         {{"hot.disabled.background", "hot.disabled.background"},
          {"hot.disabled.background", "hot.disabled.background"}}},
        {{{"idle.background", "checked.background"}, {"down.background", "down.background"}},
         {{"hot.background", "checked.background"}, {"down.background", "down.background"}}},
    };
    return keys[enabled][hot][down][checked];
}

/// By enabled, hot, focused.
std::string outline_of(bool enabled, bool hot, bool focused) {
    static constexpr const char* keys[2][2][2] = {
        {{"idle.disabled.outline", "idle.disabled.outline"},
         {"hot.disabled.outline", "hot.disabled.outline"}},
        {{"idle.outline", "hot.outline"}, {"hot.outline", "hot.outline"}},
    };
    return keys[enabled][hot][focused];
}

/// A style on settings that have a brush for each key, and a context that writes down keys and geometries.
class default_style_drawing : public fakes::style_test {
protected:
    static constexpr D2D_RECT_F rect{10, 20, 110, 50};

    void SetUp() override {
        style_test::SetUp();
        values = com::create_object<fakes::named_settings>();
        style = com::create_object<default_style>(values);
        context = com::create_object<fakes::recording_context>(
            [this](scene::IBrush* brush) { return values->key_of(brush); });
        context->names[&shape] = "shape";
    }
    void TearDown() override {
        context.reset();
        style.reset();
        values.reset();
        EXPECT_EQ(0u, shape.references());
        style_test::TearDown();
    }

    template <class Interface>
    [[nodiscard]] Interface& as() const {
        return *style;
    }
    [[nodiscard]] scene::IDrawingContext* on() const { return context.get(); }
    [[nodiscard]] std::string key_of(const com::ptr<scene::IBrush>& brush) const {
        return values->key_of(brush.get());
    }

    /// Lets `action` fail for want of a key.
    void expect_unrecognized(const std::string& key, const std::function<void()>& action) {
        values->missing = key;
        try {
            action();
            ADD_FAILURE() << "nothing was thrown without " << key;
        } catch (const std::logic_error& refused) {
            EXPECT_STREQ("unrecognized style identifier", refused.what()) << key;
        }
        values->missing.clear();
    }

    com::ptr<fakes::named_settings> values;
    com::ptr<default_style> style;
    com::ptr<fakes::recording_context> context;
    scene::fakes::fake_geometry shape;
};

TEST_F(default_style_drawing, asks_for_the_format_of_labels_once) {
    EXPECT_EQ(lines{"normal.label.text"}, values->formats_asked_for);
    EXPECT_EQ(values->format, as<ui::ILabelStyle>().text_format());
    EXPECT_EQ(values->format, as<ui::ILineEditStyle>().text_format());
    EXPECT_EQ(lines{"normal.label.text"}, values->formats_asked_for);
    expect_unrecognized("normal.label.text", [&] { (void)com::create_object<default_style>(values); });
}

TEST_F(default_style_drawing, of_push_buttons) {
    const std::string frame = "rounded_rectangle(10.5 20.5 109.5 49.5 4 4) ";
    for_each_look([&](const look& of) {
        as<ui::IButtonStyle>().draw(on(), rect, of.enabled, of.hot, of.down, of.checked, of.focused);
        EXPECT_EQ((lines{"fill " + frame + background_of(of.enabled, of.hot, of.down, of.checked),
                         "draw " + frame + outline_of(of.enabled, of.hot, of.focused) + " 1 null"}),
                  context->take_calls());
    });
}

TEST_F(default_style_drawing, of_check_boxes) {
    const std::string frame = "rounded_rectangle(10.5 20.5 39.5 49.5 4 4) ";
    for_each_look([&](const look& of) {
        as<ui::ICheckBoxStyle>().draw(on(), rect, of.enabled, of.hot, of.down, of.checked, of.focused);
        lines expected{"fill " + frame + background_of(of.enabled, of.hot, of.down, false),
                       "draw " + frame + outline_of(of.enabled, of.hot, of.focused) + " 1 null"};
        if (of.checked) expected.push_back("fill rounded_rectangle(13 23 37 47 3 3) idle.text");
        EXPECT_EQ(expected, context->take_calls());
    });
}

TEST_F(default_style_drawing, of_radio_buttons) {
    const std::string frame = "ellipse(25 35 14.5 14.5) ";
    for_each_look([&](const look& of) {
        as<ui::IRadioButtonStyle>().draw(on(), rect, of.enabled, of.hot, of.down, of.checked, of.focused);
        lines expected{"fill " + frame + background_of(of.enabled, of.hot, of.down, false),
                       "draw " + frame + outline_of(of.enabled, of.hot, of.focused) + " 1 null"};
        if (of.checked) expected.push_back("fill ellipse(25 35 11.5 11.5) idle.text");
        EXPECT_EQ(expected, context->take_calls());
    });
}

TEST_F(default_style_drawing, rounds_nothing) {
    constexpr D2D_RECT_F odd{0.25f, 0.5f, 50.25f, 21.5f};
    as<ui::IButtonStyle>().draw(on(), odd, true, false, false, false, false);
    as<ui::ICheckBoxStyle>().draw(on(), odd, true, false, false, true, false);
    as<ui::IRadioButtonStyle>().draw(on(), odd, true, false, false, true, false);
    EXPECT_EQ(
        (lines{"fill rounded_rectangle(0.75 1 49.75 21 4 4) idle.background",
               "draw rounded_rectangle(0.75 1 49.75 21 4 4) idle.outline 1 null",
               "fill rounded_rectangle(0.75 1 20.75 21 4 4) idle.background",
               "draw rounded_rectangle(0.75 1 20.75 21 4 4) idle.outline 1 null",
               "fill rounded_rectangle(3.25 3.5 18.25 18.5 3 3) idle.text",
               "fill ellipse(10.75 11 10 10) idle.background",
               "draw ellipse(10.75 11 10 10) idle.outline 1 null", "fill ellipse(10.75 11 7 7) idle.text"}),
        context->take_calls());
}

TEST_F(default_style_drawing, brushes_of_the_labels_of_buttons) {
    for_each_look([&](const look& of) {
        const std::string pressed = of.down || of.checked ? "down.text" : "idle.text";
        EXPECT_EQ(of.enabled ? pressed : "disabled.text",
                  key_of(as<ui::IButtonStyle>().label_brush(of.enabled, of.hot, of.down, of.checked)));
        const std::string plain = of.enabled ? "idle.text" : "disabled.text";
        EXPECT_EQ(plain,
                  key_of(as<ui::ICheckBoxStyle>().label_brush(of.enabled, of.hot, of.down, of.checked)));
        EXPECT_EQ(plain,
                  key_of(as<ui::IRadioButtonStyle>().label_brush(of.enabled, of.hot, of.down, of.checked)));
    });
}

TEST_F(default_style_drawing, places_labels_in_the_middle_or_beside_the_mark) {
    struct place {
        D2D_RECT_F label;
        const char* of_button;
        const char* of_mark;
    };
    constexpr place places[] = {
        {{-20, -5, 20, 5}, "1 0 0 1 60 35", "1 0 0 1 62 35"},
        {{3, 4, 23, 12}, "1 0 0 1 47 27", "1 0 0 1 39 27"},
        {{-100, -50, 100, 50}, "1 0 0 1 60 35", "1 0 0 1 142 35"},
        {{0, 0, 0, 0}, "1 0 0 1 60 35", "1 0 0 1 42 35"},
        {{0, 0, 5, 3}, "1 0 0 1 57.5 33.5", "1 0 0 1 42 33.5"},
    };
    for (const auto& [own, of_button, of_mark] : places) {
        const auto label = com::create_object<fakes::fake_label>(own);
        EXPECT_EQ(of_button, call_text(as<ui::IButtonStyle>().place_label(rect, label.get())));
        EXPECT_EQ(of_mark, call_text(as<ui::ICheckBoxStyle>().place_label(rect, label.get())));
        EXPECT_EQ(of_mark, call_text(as<ui::IRadioButtonStyle>().place_label(rect, label.get())));
    }
}

TEST_F(default_style_drawing, of_labels_takes_no_note_of_their_state) {
    EXPECT_EQ("idle.text", key_of(as<ui::ILabelStyle>().text_brush(true)));
    EXPECT_EQ("idle.text", key_of(as<ui::ILabelStyle>().text_brush(false)));
}

TEST_F(default_style_drawing, of_line_edits) {
    auto& edits = as<ui::ILineEditStyle>();
    EXPECT_EQ("line-edit.idle.text", key_of(edits.text_brush(true)));
    EXPECT_EQ("line-edit.idle.text", key_of(edits.text_brush(false)));
    EXPECT_EQ("line-edit.selected.background", key_of(edits.selection_background_brush()));
    const auto length = std::string("line-edit.selected.text").size();
    EXPECT_EQ(call_text(length) + " 0 0 1", call_text(edits.selected_text_color()));
    EXPECT_EQ("4 4", call_text(edits.padding()));
    EXPECT_EQ("2 2", call_text(edits.text_inset()));
    for (const bool hot : {false, true}) {
        for (const bool focused : {false, true}) {
            edits.draw_frame(on(), rect, hot, focused);
            const std::string key = hot || focused ? "line-edit.hot.outline" : "line-edit.idle.outline";
            EXPECT_EQ(lines{"draw rectangle(10.5 20.5 109.5 49.5) " + key + " 1 null"},
                      context->take_calls());
        }
    }
}

TEST_F(default_style_drawing, of_command_strips_outlines_over_the_cells) {
    auto& strips = as<ui::ICommandStripStyle>();
    for (const bool first : {false, true}) {
        for (const bool second : {false, true}) {
            strips.draw_outline(on(), &shape, first, second);
            EXPECT_EQ((lines{"foreground", "draw shape " + outline_of(true, first, second) + " 1 null"}),
                      context->take_calls());
            strips.fill_background(on(), &shape, first, second);
            EXPECT_EQ(lines{"fill shape " + background_of(true, first, second, false)},
                      context->take_calls());
        }
    }
}

TEST_F(default_style_drawing, of_popup_options) {
    auto& popups = as<ui::IPopupOptionsStyle>();
    EXPECT_EQ("hot.text", key_of(popups.label_brush(true, true)));
    EXPECT_EQ("idle.text", key_of(popups.label_brush(true, false)));
    EXPECT_EQ("disabled.text", key_of(popups.label_brush(false, true)));
    EXPECT_EQ("disabled.text", key_of(popups.label_brush(false, false)));
    for (const bool hot : {false, true}) {
        const std::string background = hot ? "hot.background" : "idle.background";
        for (const bool second : {false, true}) {
            popups.draw_frame(on(), &shape, hot, second);
            const std::string outline = hot || second ? "hot.outline" : "idle.outline";
            EXPECT_EQ((lines{"fill shape " + background, "draw shape " + outline + " 1 null"}),
                      context->take_calls());
            popups.draw_option(on(), &shape, hot, second);
            EXPECT_EQ(lines{"fill shape " + (second ? "down.background" : background)},
                      context->take_calls());
        }
    }
}

TEST_F(default_style_drawing, of_scroll_bars_takes_no_note_of_their_state) {
    auto& bars = as<ui::IScrollBarStyle>();
    for (const bool hot : {false, true}) {
        for (const bool down : {false, true}) {
            bars.draw_track(on(), rect, hot, down);
            bars.draw_thumb(on(), rect, hot, down);
            bars.draw_thumb(on(), {1, 2, 13, 62}, hot, down);
            EXPECT_EQ((lines{"fill rectangle(10 20 110 50) scroll.track.background",
                             "fill rounded_rectangle(10 20 110 50 10 10) scroll.thumb.background",
                             "fill rounded_rectangle(1 2 13 62 4 4) scroll.thumb.background"}),
                      context->take_calls());
        }
    }
}

TEST_F(default_style_drawing, of_scroll_areas_takes_margins_and_lines_off_the_content) {
    auto& areas = as<ui::IScrollAreaStyle>();
    EXPECT_EQ("10 20 110 50", call_text(areas.content_rect(rect, {0, 0, 0, 0})));
    EXPECT_EQ("15 26 103 42", call_text(areas.content_rect(rect, {4, 5, 6, 7})));
    EXPECT_EQ("11.5 20 110 47.75", call_text(areas.content_rect(rect, {0.5f, -3, 0, 1.25f})));
    EXPECT_EQ("211 20 110 50", call_text(areas.content_rect(rect, {200, 0, 0, 0})));
}

TEST_F(default_style_drawing, of_scroll_areas_separates_each_margin_that_is_there) {
    constexpr D2D_RECT_F area{10, 20, 110, 90};
    for (unsigned sides = 0; sides < 16; ++sides) {
        SCOPED_TRACE(sides);
        D2D_RECT_F margins{};
        lines figures;
        if (sides & 1) margins.left = 4, figures.push_back("open 14.5 20 - 14.5 90");
        if (sides & 2) margins.top = 5, figures.push_back("open 10 25.5 - 110 25.5");
        if (sides & 4) margins.right = 6, figures.push_back("open 103.5 20 - 103.5 90");
        if (sides & 8) margins.bottom = 7.5f, figures.push_back("open 10 82 - 110 82");
        as<ui::IScrollAreaStyle>().draw_separators(on(), area, margins);
        std::string path;
        for (const auto& figure : figures) path += (path.empty() ? "" : "\n") + figure;
        const lines drawn{"draw (" + path + ") scroll.area.outline 1 null"};
        EXPECT_EQ(sides ? drawn : lines{}, context->take_calls());
    }
}

TEST_F(default_style_drawing, of_scroll_areas_separates_nothing_on_a_side_of_less_than_no_margin) {
    as<ui::IScrollAreaStyle>().draw_separators(on(), {10, 20, 110, 90}, {-1, 0, 6, 0});
    EXPECT_EQ(lines{"draw (open 103.5 20 - 103.5 90) scroll.area.outline 1 null"}, context->take_calls());
}

TEST_F(default_style_drawing, of_group_boxes_takes_no_note_of_the_label) {
    for (const D2D_RECT_F& label : {D2D_RECT_F{}, D2D_RECT_F{20, 15, 60, 25}}) {
        as<ui::IGroupBoxStyle>().draw(on(), rect, label);
        EXPECT_EQ(lines{"draw rounded_rectangle(10.5 20.5 109.5 49.5 5 5) idle.outline 1 null"},
                  context->take_calls());
    }
}

TEST_F(default_style_drawing, fails_without_a_color) {
    const auto label = com::create_object<fakes::fake_label>();
    const auto button = [&](bool enabled, bool hot, bool down, bool checked, bool focused) {
        return [=, this] { as<ui::IButtonStyle>().draw(on(), rect, enabled, hot, down, checked, focused); };
    };
    expect_unrecognized("idle.background", button(true, false, false, false, false));
    expect_unrecognized("hot.background", button(true, true, false, false, false));
    expect_unrecognized("down.background", button(true, true, true, true, false));
    expect_unrecognized("checked.background", button(true, true, false, true, false));
    expect_unrecognized("idle.disabled.background", button(false, false, true, true, false));
    expect_unrecognized("hot.disabled.background", button(false, true, true, true, false));
    expect_unrecognized("idle.outline", button(true, false, true, true, false));
    expect_unrecognized("hot.outline", button(true, false, true, true, true));
    expect_unrecognized("idle.disabled.outline", button(false, false, false, false, true));
    expect_unrecognized("hot.disabled.outline", button(false, true, false, false, true));
    expect_unrecognized("idle.text",
                        [&] { as<ui::ICheckBoxStyle>().draw(on(), rect, true, false, false, true, false); });
    expect_unrecognized(
        "idle.text", [&] { as<ui::IRadioButtonStyle>().draw(on(), rect, true, false, false, true, false); });
    expect_unrecognized("down.text",
                        [&] { (void)as<ui::IButtonStyle>().label_brush(true, false, true, false); });
    expect_unrecognized("disabled.text",
                        [&] { (void)as<ui::ICheckBoxStyle>().label_brush(false, false, false, false); });
    expect_unrecognized("idle.text", [&] { (void)as<ui::ILabelStyle>().text_brush(true); });
    expect_unrecognized("line-edit.idle.text", [&] { (void)as<ui::ILineEditStyle>().text_brush(true); });
    expect_unrecognized("line-edit.selected.background",
                        [&] { (void)as<ui::ILineEditStyle>().selection_background_brush(); });
    expect_unrecognized("line-edit.selected.text",
                        [&] { (void)as<ui::ILineEditStyle>().selected_text_color(); });
    expect_unrecognized("line-edit.hot.outline",
                        [&] { as<ui::ILineEditStyle>().draw_frame(on(), rect, true, false); });
    expect_unrecognized("hot.outline",
                        [&] { as<ui::ICommandStripStyle>().draw_outline(on(), &shape, true, false); });
    expect_unrecognized("down.background",
                        [&] { as<ui::ICommandStripStyle>().fill_background(on(), &shape, false, true); });
    expect_unrecognized("hot.text", [&] { (void)as<ui::IPopupOptionsStyle>().label_brush(true, true); });
    expect_unrecognized("hot.background",
                        [&] { as<ui::IPopupOptionsStyle>().draw_frame(on(), &shape, true, false); });
    expect_unrecognized("idle.background",
                        [&] { as<ui::IPopupOptionsStyle>().draw_option(on(), &shape, false, false); });
    expect_unrecognized("scroll.thumb.background",
                        [&] { as<ui::IScrollBarStyle>().draw_thumb(on(), rect, false, false); });
    expect_unrecognized("scroll.track.background",
                        [&] { as<ui::IScrollBarStyle>().draw_track(on(), rect, false, false); });
    expect_unrecognized("scroll.area.outline", [&] {
        as<ui::IScrollAreaStyle>().draw_separators(on(), rect, {1, 0, 0, 0});
    });
    expect_unrecognized("idle.outline", [&] { as<ui::IGroupBoxStyle>().draw(on(), rect, {}); });
    as<ui::IScrollAreaStyle>().draw_separators(on(), rect, {});
}

/// Lets one of the operations of Direct2D that make geometries refuse to, while this lives. `Arguments` are
/// those of the operation, and `slot` its place, fixed by the interface.
template <class... Arguments>
class refusing_factory {
public:
    explicit refusing_factory(int slot) : entry(factory::d2d1(), slot), original(entry.exchange(refuse)) {}
    refusing_factory(const refusing_factory&) = delete;
    refusing_factory& operator=(const refusing_factory&) = delete;
    ~refusing_factory() { entry.exchange(original); }

private:
    using operation = HRESULT(STDMETHODCALLTYPE*)(ID2D1Factory*, Arguments...);

    static HRESULT STDMETHODCALLTYPE refuse(ID2D1Factory*, Arguments...) { return E_OUTOFMEMORY; }

    fakes::table_entry<operation> entry;
    operation original;
};

void expect_refusal(const std::function<void()>& action) {
    try {
        action();
        ADD_FAILURE() << "nothing was thrown";
    } catch (const com::error& refused) {
        EXPECT_EQ(E_OUTOFMEMORY, refused.hresult);
    }
}

TEST_F(default_style_drawing, fails_with_the_result_of_a_platform_that_makes_no_geometry) {
    const auto button = [&] { as<ui::IButtonStyle>().draw(on(), rect, true, false, false, false, false); };
    const auto radio = [&] {
        as<ui::IRadioButtonStyle>().draw(on(), rect, true, false, false, false, false);
    };
    const auto track = [&] { as<ui::IScrollBarStyle>().draw_track(on(), rect, false, false); };
    const auto separators = [&] { as<ui::IScrollAreaStyle>().draw_separators(on(), rect, {1, 0, 0, 0}); };
    {
        const refusing_factory<const D2D1_RECT_F*, ID2D1RectangleGeometry**> refusing(5);
        expect_refusal(track);
    }
    {
        const refusing_factory<const D2D1_ROUNDED_RECT*, ID2D1RoundedRectangleGeometry**> refusing(6);
        expect_refusal(button);
    }
    {
        const refusing_factory<const D2D1_ELLIPSE*, ID2D1EllipseGeometry**> refusing(7);
        expect_refusal(radio);
    }
    {
        const refusing_factory<ID2D1PathGeometry**> refusing(10);
        expect_refusal(separators);
    }
    EXPECT_EQ(lines{}, context->take_calls());
    for (const std::function<void()>& action :
         {std::function<void()>(button), std::function<void()>(radio), std::function<void()>(track),
          std::function<void()>(separators)})
        action();
    EXPECT_EQ(6u, context->take_calls().size());
}

TEST_F(default_style_drawing, fetches_a_brush_at_each_call) {
    as<ui::IGroupBoxStyle>().draw(on(), rect, {});
    expect_unrecognized("idle.outline", [&] { as<ui::IGroupBoxStyle>().draw(on(), rect, {}); });
    as<ui::IGroupBoxStyle>().draw(on(), rect, {});
    EXPECT_EQ(2u, context->take_calls().size());
}

}  // namespace
}  // namespace d2d
