// What a line edit paints, and what each of its steps asks for.

#include "controls/testing/line_edit_fixture.h"

#include <cmath>
#include <string>

#include <gtest/gtest.h>

namespace d2d {
namespace {

using scene::fakes::call_text;
using scene::fakes::same;

class line_edit_drawing_test : public fakes::line_edit_fixture {
protected:
    static constexpr const char* black = "0 0 0 1";

    /// What is drawn of the whole tree, without the state that it is drawn in.
    [[nodiscard]] lines drawing() {
        lines kept;
        for (auto& line : painted()) {
            if (line.starts_with("Fill") || line.starts_with("Draw")) kept.push_back(std::move(line));
        }
        return kept;
    }
    /// The glyphs alone, and their colours: "7 glyphs 0 0 0 1".
    [[nodiscard]] lines glyphs() {
        lines kept;
        for (const auto& line : drawing()) {
            if (!line.starts_with("DrawGlyphRun")) continue;
            const auto brush = line.find(" brush(");
            const auto count = line.rfind(' ', brush - 1) + 1;
            kept.push_back(line.substr(count, brush - count) + " glyphs " +
                           line.substr(brush + 7, line.find(')') - brush - 7));
        }
        return kept;
    }
    /// Where the first glyphs are drawn; text layouts put baselines on whole pixels.
    [[nodiscard]] std::string first_glyphs() {
        for (const auto& line : drawing()) {
            if (line.starts_with("DrawGlyphRun")) return line.substr(13, line.find(" 7 brush") - 13);
        }
        return "none";
    }
    [[nodiscard]] float baseline() const {
        DWRITE_LINE_METRICS line{};
        UINT32 count = 0;
        EXPECT_EQ(S_OK, plain_layout()->GetLineMetrics(&line, 1, &count));
        return line.baseline;
    }
    [[nodiscard]] float line_height() const {
        DWRITE_LINE_METRICS line{};
        UINT32 count = 0;
        EXPECT_EQ(S_OK, plain_layout()->GetLineMetrics(&line, 1, &count));
        return line.height;
    }
    [[nodiscard]] std::string caret_place() const {
        const auto& m = caret_node().transform;
        return call_text(m._31, m._32);
    }
};

// Frame and text

TEST_F(line_edit_drawing_test, frame_lies_below_the_text) {
    make(L"Harbour");
    const lines drawn = drawing();
    ASSERT_EQ(2u, drawn.size());
    EXPECT_EQ("DrawGeometry rectangle(10.5 20.5 209.5 41.5) brush(0 0 1 1) 1 null", drawn[0]);
    EXPECT_TRUE(drawn[1].starts_with("DrawGlyphRun")) << drawn[1];
    EXPECT_EQ(lines{"7 glyphs 0 0 0 1"}, glyphs()) << "black, whatever the style has for text";
    EXPECT_EQ(call_text(13, std::round(22 + baseline())), first_glyphs());
}

TEST_F(line_edit_drawing_test, without_a_frame_the_text_starts_in_the_corner) {
    make(L"Harbour", false);
    ASSERT_EQ(1u, drawing().size());
    EXPECT_EQ(call_text(10, std::round(20 + baseline())), first_glyphs());
}

TEST_F(line_edit_drawing_test, text_starts_between_pixels_when_its_place_is_there) {
    make(L"Harbour", true, {10.25f, 20.5f, 210, 42});
    EXPECT_EQ(call_text(13.25f, std::round(22.5f + baseline())), first_glyphs());
    EXPECT_TRUE(same({10.25f, 20.5f, 210, 42}, edit_node().content_bounds));
}

TEST_F(line_edit_drawing_test, empty_text_is_a_frame_alone) {
    make(L"");
    EXPECT_EQ(1u, drawing().size());
    make(L"", false);
    EXPECT_EQ((lines{}), drawing());
    EXPECT_TRUE(same(rect, edit_node().content_bounds)) << "to be hit";
}

TEST_F(line_edit_drawing_test, is_painted_inside_its_rectangle) {
    make(L"a text that is longer than what there is room for in the rectangle of the edit");
    const lines all = painted();
    EXPECT_NE(all.end(), std::find(all.begin(), all.end(), "PushAxisAlignedClip 10 20 210 42 0"))
        << testing::PrintToString(all);
    EXPECT_TRUE(same(rect, own->get_bounds(true)));
}

// Selection

TEST_F(line_edit_drawing_test, selection_lies_between_the_frame_and_the_text) {
    make_focused(L"H[arb|]our");
    edge->on_focus_lost();
    const lines drawn = drawing();
    ASSERT_EQ(5u, drawn.size()) << testing::PrintToString(drawn);
    EXPECT_TRUE(drawn[0].starts_with("DrawGeometry rectangle(10.5 20.5 209.5 41.5)")) << drawn[0];
    EXPECT_EQ("FillGeometry geometry brush(0 1 0 1)", drawn[1]);
    EXPECT_EQ((lines{"1 glyphs 0 0 0 1", "3 glyphs 1 1 0 1", "3 glyphs 0 0 0 1"}), glyphs());
}

TEST_F(line_edit_drawing_test, selection_is_a_rectangle_as_high_as_the_line) {
    for (const bool framed : {true, false}) {
        make_focused(L"H[arb|]our", framed);
        const D2D_POINT_2F at = text_origin();
        EXPECT_EQ(lines{figure(at.x + x_of(1), at.y, at.x + x_of(4), at.y + line_height())},
                  selection_figures());
    }
}

TEST_F(line_edit_drawing_test, selected_text_is_black_again_when_it_is_not_selected) {
    make_focused(L"H[arb|]our");
    press(VK_RIGHT, shift);
    EXPECT_EQ((lines{"1 glyphs 0 0 0 1", "4 glyphs 1 1 0 1", "2 glyphs 0 0 0 1"}), glyphs());
    press(VK_HOME, shift);
    EXPECT_EQ((lines{"1 glyphs 1 1 0 1", "6 glyphs 0 0 0 1"}), glyphs());
    press(VK_RIGHT, shift);
    for (const auto& each : glyphs()) EXPECT_TRUE(each.ends_with(black)) << each;
    EXPECT_EQ((lines{}), selection_figures());
}

TEST_F(line_edit_drawing_test, selection_is_drawn_on_a_new_text) {
    make_focused(L"H[arb|]our");
    edit->set_text(L"Kielboot");
    EXPECT_EQ((lines{"1 glyphs 0 0 0 1", "3 glyphs 1 1 0 1", "4 glyphs 0 0 0 1"}), glyphs());
    EXPECT_EQ(lines{figure_of(1, 4)}, selection_figures());
    edit->set_text(L"Ki");
    EXPECT_EQ((lines{"1 glyphs 0 0 0 1", "1 glyphs 1 1 0 1"}), glyphs());
    edit->set_text({});
    EXPECT_EQ((lines{}), glyphs());
    EXPECT_EQ((lines{}), selection_figures());
}

TEST_F(line_edit_drawing_test, selection_moves_with_the_edit) {
    make_focused(L"H[arb|]our");
    edit->arrange({40, 50, 240, 72});
    EXPECT_EQ(lines{figure_of(1, 4)}, selection_figures());
    EXPECT_EQ((lines{"1 glyphs 0 0 0 1", "3 glyphs 1 1 0 1", "3 glyphs 0 0 0 1"}), glyphs());
}

TEST_F(line_edit_drawing_test, selection_across_directions_has_a_figure_for_each_run) {
    make_focused(L"a|b \u05D0\u05D1\u05D2 cd");
    press(VK_END, shift);
    const auto layout = plain_layout();
    DWRITE_HIT_TEST_METRICS runs[8]{};
    UINT32 count = 0;
    const D2D_POINT_2F at = text_origin();
    ASSERT_EQ(S_OK, layout->HitTestTextRange(1, 8, at.x, at.y, runs, 8, &count));
    ASSERT_LT(1u, count) << "a text of two directions has its selection in parts";
    std::string expected;
    for (UINT32 i = 0; i < count; ++i) {
        expected += (i ? "\n" : "") + figure(runs[i].left, runs[i].top, runs[i].left + runs[i].width,
                                             runs[i].top + runs[i].height);
    }
    EXPECT_EQ(lines{expected}, selection_figures());
}

// Caret

TEST_F(line_edit_drawing_test, caret_is_one_wide_and_as_high_as_the_line) {
    make_focused(L"Har|bour");
    const auto& commands = caret_node().background;
    ASSERT_EQ(1u, commands.size());
    const auto* const fill = std::get_if<scene::fill_command>(&commands.front());
    ASSERT_TRUE(fill);
    EXPECT_EQ(call_text("rectangle(0 0 1 " + call_text(line_height()) + ")"),
              scene::fakes::geometry_text(fill->geometry.get()));
}

TEST_F(line_edit_drawing_test, caret_is_as_high_as_the_first_of_several_lines) {
    make(L"Harbour");
    const std::string shape = "rectangle(0 0 1 " + call_text(line_height()) + ")";
    make(L"Harbour\nlights");
    focus();
    ASSERT_EQ(1u, caret_node().background.size());
    const auto* const fill = std::get_if<scene::fill_command>(&caret_node().background.front());
    ASSERT_TRUE(fill);
    EXPECT_EQ(shape, scene::fakes::geometry_text(fill->geometry.get()));
}

TEST_F(line_edit_drawing_test, caret_is_black_and_blinks_twice_a_second) {
    make_focused(L"Har|bour");
    EXPECT_TRUE(caret_node().content_flags & scene::node::content_animated);
    const auto color_at = [&](double time) {
        site.time = time;
        edge->tick(static_cast<float>(time), 0.05f);
        const lines drawn = drawing();
        return drawn.back();
    };
    const std::string shape = "FillGeometry rectangle(0 0 1 " + call_text(line_height()) + ") brush";
    EXPECT_EQ(shape + "(0 0 0 1)", color_at(0.1));
    EXPECT_EQ(shape + "(0 0 0 0)", color_at(0.6));
    EXPECT_EQ(shape + "(0 0 0 1)", color_at(1.1));
    EXPECT_EQ(shape + "(0 0 0 0)", color_at(1.6));
}

TEST_F(line_edit_drawing_test, clock_runs_for_the_caret_alone) {
    make(L"Harbour");
    EXPECT_EQ(0, site.clock_interval);
    focus();
    EXPECT_LT(0, site.clock_interval);
    edge->on_focus_lost();
    edge->tick(1, 0.05f);
    EXPECT_EQ(0, site.clock_interval);
}

TEST_F(line_edit_drawing_test, caret_stands_on_whole_pixels) {
    for (const bool framed : {true, false}) {
        for (const float offset : {0.0f, 0.25f, 0.5f, 0.75f}) {
            make(L"Harbour", framed, {10 + offset, 20 + offset, 210, 42});
            focus();
            press(VK_HOME);
            const D2D_POINT_2F at = text_origin();
            for (std::uint32_t each = 0; each <= 7; ++each) {
                EXPECT_EQ(call_text(std::floor(at.x + x_of(each)), std::ceil(at.y)), caret_place());
                press(VK_RIGHT);
            }
        }
    }
}

TEST_F(line_edit_drawing_test, caret_stands_on_whole_pixels_left_of_the_origin_too) {
    make(L"Harbour", false, {-5.5f, -3.5f, 200, 42});
    focus();
    press(VK_HOME);
    EXPECT_EQ("-6 -3", caret_place());
}

// What a step costs

TEST_F(line_edit_drawing_test, moved_caret_touches_its_place_alone) {
    make_focused(L"Har|bour");
    const auto* const commands = edit_node().background.data();
    for (const std::uint32_t key : codes{VK_LEFT, VK_RIGHT, VK_HOME, VK_END, VK_LEFT, VK_UP, VK_DOWN}) {
        press(key);
        EXPECT_EQ((lines{}), asked());
    }
    click(2);
    EXPECT_EQ((lines{}), asked());
    EXPECT_EQ(commands, edit_node().background.data()) << "the recording stays";
}

TEST_F(line_edit_drawing_test, moved_caret_damages_its_old_place_and_its_new_one) {
    make_focused(L"Har|bour");
    const D2D_RECT_F before{caret_node().transform._31, 22, caret_node().transform._31 + 1,
                            22 + line_height()};
    press(VK_RIGHT);
    const float x = caret_node().transform._31;
    EXPECT_EQ((lines{call_text("invalidate_rect", before),
                     call_text("invalidate_rect", D2D_RECT_F{x, 22, x + 1, 22 + line_height()})}),
              calls());
}

TEST_F(line_edit_drawing_test, keys_without_an_effect_ask_for_nothing) {
    make_focused(L"|");
    for (const std::uint32_t key : codes{VK_LEFT, VK_RIGHT, VK_HOME, VK_END, VK_UP, VK_DOWN, VK_BACK})
        press(key);
    press(VK_DELETE);
    press(VK_LEFT, shift);
    press('A', control);
    EXPECT_EQ((lines{}), calls());
}

TEST_F(line_edit_drawing_test, changed_selection_draws_once_and_lays_nothing_out) {
    make_focused(L"Har|bour");
    const lines one_drawing{"text_brush 1", "draw_frame 10 20 210 42 hot 0 focused 1",
                            "selection_background_brush"};
    press(VK_RIGHT, shift);
    EXPECT_EQ(one_drawing, asked());
    press(VK_HOME, shift);
    EXPECT_EQ(one_drawing, asked());
    click(6, MK_LBUTTON | MK_SHIFT);
    EXPECT_EQ(one_drawing, asked());
    press(VK_LEFT);
    EXPECT_EQ((lines{"text_brush 1", "draw_frame 10 20 210 42 hot 0 focused 1"}), asked());
}

TEST_F(line_edit_drawing_test, edit_lays_out_and_draws_once) {
    const std::string frame = "draw_frame 10 20 210 42 hot 0 focused 1";
    struct edit_case {
        const wchar_t* before;
        std::function<void()> step;
        const char* units;
    };
    const edit_case cases[] = {
        {L"Har|bour", [&] { type(L"x"); }, "8"},         {L"H[arb|]our", [&] { type(L"x"); }, "5"},
        {L"H[|arb]our", [&] { type(L"x"); }, "5"},       {L"Har|bour", [&] { press(VK_BACK); }, "6"},
        {L"Har|bour", [&] { press(VK_DELETE); }, "6"},   {L"H[arb|]our", [&] { press(VK_BACK); }, "4"},
        {L"H[|arb]our", [&] { press(VK_DELETE); }, "4"}, {L"Har|bour", [&] { edit->set_text(L"Kiel"); }, "4"},
    };
    for (const auto& each : cases) {
        make_focused(each.before);
        each.step();
        EXPECT_EQ((lines{call_text("own:", each.units, "units in 207 27"), "text_brush 1", frame}), asked());
    }
}

TEST_F(line_edit_drawing_test, click_that_brings_the_focus_draws_once_for_it) {
    make(L"Harbour");
    root->set_focus();
    edge->on_focus_gained();
    forget();
    click(3);
    EXPECT_EQ((lines{"text_brush 1", "draw_frame 10 20 210 42 hot 0 focused 1"}), asked());
}

}  // namespace
}  // namespace d2d
