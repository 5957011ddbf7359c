// A line edit as a control: its interfaces, sizes and text, clicks and the focus.

#include "com/error.h"
#include "controls/testing/answers.h"
#include "controls/testing/line_edit_fixture.h"
#include "d2d/ui/IButton.h"
#include "d2d/ui/ILabel.h"
#include "scene/testing/metrics_text.h"

#include <cfloat>
#include <string>

#include <gtest/gtest.h>

namespace d2d {
namespace {

using fakes::answers;
using input::mouse::button;
using scene::fakes::call_text;
using scene::fakes::same;
using scene::fakes::text_of;
using scene::fakes::thrown_by;
namespace event_type = input::mouse::event_type;

class line_edit_test : public fakes::line_edit_fixture {
protected:
    /// What a layout of `text` measures, rounded up.
    [[nodiscard]] D2D_SIZE_F extent(std::wstring_view text) const {
        DWRITE_TEXT_METRICS metrics{};
        EXPECT_EQ(S_OK, plain_format->create_layout(text, 0, 0)->GetMetrics(&metrics));
        return {std::ceil(metrics.width), std::ceil(metrics.height)};
    }
};

TEST_F(line_edit_test, answers_for_its_interfaces) {
    make(L"Harbour");
    EXPECT_TRUE(answers<IUnknown>(edit));
    EXPECT_TRUE(answers<ui::ILineEdit>(edit));
    EXPECT_TRUE(answers<ui::IControl>(edit));
    EXPECT_TRUE(answers<scene::layout::IElement>(edit));
    EXPECT_FALSE(answers<ui::IButton>(edit));
    EXPECT_FALSE(answers<ui::ILabel>(edit));
}

TEST_F(line_edit_test, is_made_with_the_default_style) {
    const auto made = ui::create_line_edit(L"Harbour", rect, true, nullptr, nullptr);
    EXPECT_EQ(L"Harbour", made->get_text());
    EXPECT_TRUE(same(rect, made->get_rect()));
    const auto label_format =
        com::ptr<ui::ILineEditStyle>(ui::get_default_style(nullptr).get())->text_format();
    DWRITE_TEXT_METRICS metrics{};
    ASSERT_EQ(S_OK, label_format->create_layout(std::wstring_view(L"Harbour"), 0, 0)->GetMetrics(&metrics));
    EXPECT_EQ(std::ceil(metrics.width) + 4, made->measure().preferred_size.width);
    EXPECT_EQ(std::ceil(metrics.height) + 4, made->measure().preferred_size.height);
}

TEST_F(line_edit_test, of_another_style_than_its_own_is_not_made) {
    const auto other = com::create_object<fakes::recording_label_style>(host_log());
    EXPECT_THROW(static_cast<void>(ui::create_line_edit(L"", rect, true, nullptr, other->get_IUnknown())),
                 com::error);
}

TEST_F(line_edit_test, gives_up_what_it_held) {
    make(L"Harbour");
    EXPECT_LT(1u, scene::fakes::references(style->get_IUnknown()));
    EXPECT_LT(1u, scene::fakes::references(format.get()));
    drop_edit();
    EXPECT_EQ(1u, scene::fakes::references(style->get_IUnknown()));
    EXPECT_EQ(1u, scene::fakes::references(format.get()));
}

// Sizes

TEST_F(line_edit_test, measures_its_text_in_whole_pixels) {
    bool broken = false;
    for (const wchar_t* const text : {L"Harbour", L"i", L"mossy stones", L" "}) {
        DWRITE_TEXT_METRICS metrics{};
        EXPECT_EQ(S_OK, plain_format->create_layout(std::wstring_view(text), 0, 0)->GetMetrics(&metrics));
        broken = broken || metrics.width != std::ceil(metrics.width);
        const D2D_SIZE_F size = extent(text);
        for (const bool framed : {false, true}) {
            make(text, framed);
            const float width = size.width + (framed ? 7.0f : 0.0f);
            const float height = size.height + (framed ? 5.0f : 0.0f);
            EXPECT_EQ(call_text("margin 0,0,0,0 min", text_of(D2D_SIZE_F{6, height}), "max",
                                text_of(D2D_SIZE_F{FLT_MAX, height}), "preferred",
                                text_of(D2D_SIZE_F{width, height})),
                      text_of(edit->measure()));
        }
    }
    EXPECT_TRUE(broken) << "no text that has to be rounded";
}

TEST_F(line_edit_test, measures_the_text_of_the_moment_in_a_layout_of_its_own) {
    make(L"Harbour");
    const float before = edit->measure().preferred_size.width;
    edit->set_text(L"Harbour lights");
    forget();
    EXPECT_LT(before, edit->measure().preferred_size.width);
    EXPECT_EQ((lines{"own: 14 units in 0 0"}), asked());
}

TEST_F(line_edit_test, empty_text_is_as_high_as_a_line) {
    make(L"", false);
    EXPECT_EQ(extent(L"x").height, edit->measure().preferred_size.height);
    EXPECT_EQ(0, edit->measure().preferred_size.width);
}

TEST_F(line_edit_test, asks_its_style_for_a_format_each_time_when_it_has_none) {
    style->format = com::create_object<fakes::recording_format>("style", 12.0f, host_log());
    edit = ui::create_line_edit(L"Harbour", rect, false, nullptr, style->get_IUnknown());
    EXPECT_EQ((lines{"selected_text_color", "text_format", "style: 7 units in 200 22", "text_brush 1"}),
              asked());
    static_cast<void>(edit->measure());
    EXPECT_EQ((lines{"text_format", "style: 7 units in 0 0"}), asked());
    style->format = format;
    edit->set_text(L"Kiel");
    EXPECT_EQ((lines{"text_format", "own: 4 units in 200 22", "text_brush 1"}), asked());
}

TEST_F(line_edit_test, layout_is_made_with_the_padding_added) {
    edit = ui::create_line_edit(L"Harbour", rect, true, format.get(), style->get_IUnknown());
    EXPECT_EQ((lines{"selected_text_color", "own: 7 units in 207 27", "text_brush 1",
                     "draw_frame 10 20 210 42 hot 0 focused 0"}),
              asked());
    edit = ui::create_line_edit(L"Harbour", rect, false, format.get(), style->get_IUnknown());
    EXPECT_EQ((lines{"selected_text_color", "own: 7 units in 200 22", "text_brush 1"}), asked());
}

TEST_F(line_edit_test, arrangement_sets_the_plain_size_of_the_layout) {
    for (const bool framed : {true, false}) {
        const auto given = plain_format->create_layout(std::wstring_view(L"Harbour"), 500, 50);
        format->ready = given;
        make(L"Harbour", framed);
        edit->arrange({30, 40, 130, 57});
        EXPECT_EQ(100, given->GetMaxWidth());
        EXPECT_EQ(17, given->GetMaxHeight());
        EXPECT_TRUE(same({30, 40, 130, 57}, edit->get_rect()));
        format->ready.reset();
    }
}

TEST_F(line_edit_test, arrangement_lays_nothing_out_anew_and_draws_once) {
    make(L"Harbour");
    edit->arrange({30, 40, 130, 62});
    EXPECT_EQ((lines{"text_brush 1", "draw_frame 30 40 130 62 hot 0 focused 0"}), asked());
    edit->set_text(L"Kiel");
    EXPECT_EQ((lines{"own: 4 units in 107 27", "text_brush 1", "draw_frame 30 40 130 62 hot 0 focused 0"}),
              asked());
}

TEST_F(line_edit_test, arrangement_takes_everything_along) {
    make_focused(L"H[arb|]our");
    edit->arrange({33, 44, 180, 66});
    EXPECT_EQ(L"H[arb|]our", look());
    EXPECT_EQ("rectangle(33 44 180 66)", scene::fakes::geometry_text(own->get_clip_geometry().get()));
    EXPECT_TRUE(same({33, 44, 180, 66}, edit_node().content_bounds));
    click(2);
    EXPECT_EQ(L"Ha|rbour", look());
    click_at({12, 25});  // where it was
    EXPECT_EQ(L"Ha|rbour", look());
}

TEST_F(line_edit_test, clip_is_its_rectangle) {
    make(L"Harbour");
    EXPECT_EQ("rectangle(10 20 210 42)", scene::fakes::geometry_text(own->get_clip_geometry().get()));
    EXPECT_TRUE(same(rect, edit_node().clip_rect));
    EXPECT_TRUE(edit_node().clip_flags & scene::node::has_clip);
}

// Text

TEST_F(line_edit_test, tells_its_text) {
    make(L"Harbour");
    EXPECT_EQ(L"Harbour", edit->get_text());
    edit->set_text(L"M\u00F6we \u65E5\u672C");
    EXPECT_EQ(L"M\u00F6we \u65E5\u672C", edit->get_text());
    edit->set_text(std::wstring(L"a\0b", 3));
    EXPECT_EQ(std::wstring(L"a\0b", 3), edit->get_text());
}

TEST_F(line_edit_test, text_that_it_is_made_with_leaves_the_cursor_alone) {
    make_focused(L"Harbour");
    EXPECT_EQ(L"|Harbour", look());
    press(VK_RIGHT);
    EXPECT_EQ(L"|Harbour", look());
}

TEST_F(line_edit_test, first_text_that_is_set_has_the_cursor_at_its_end) {
    make_focused(L"");
    edit->set_text(L"Kiel");
    EXPECT_EQ(L"Kiel|", look());
    edit->set_text(L"Kiel Bay");
    EXPECT_EQ(L"Kiel| Bay", look());
}

TEST_F(line_edit_test, text_that_is_set_keeps_the_cursor_where_it_can) {
    make_focused(L"Har|bour");
    edit->set_text(L"Kiel");
    EXPECT_EQ(L"Kie|l", look());
    edit->set_text(L"ab");
    EXPECT_EQ(L"ab|", look());
    edit->set_text(L"Kiel");
    EXPECT_EQ(L"Ki|el", look());
    EXPECT_EQ(0, changes);
}

TEST_F(line_edit_test, empty_text_that_is_set_has_the_cursor_at_0_and_is_no_change) {
    make_focused(L"Harb|our");
    edit->set_text({});
    EXPECT_EQ(L"|", look());
    EXPECT_EQ(0, changes);
    type(L"x");
    EXPECT_EQ(L"x|", look());
    EXPECT_EQ(1, changes);
}

TEST_F(line_edit_test, text_that_is_set_leaves_the_selection) {
    make_focused(L"Ha[rb|]our");
    edit->set_text(L"Kielboot");
    EXPECT_EQ(L"Ki[el|]boot", look());
    press(VK_RIGHT, shift);
    EXPECT_EQ(L"Ki[elb|]oot", look());
    press(VK_DELETE);
    EXPECT_EQ(L"Ki|oot", look());
}

TEST_F(line_edit_test, selection_that_reaches_behind_a_new_text_ends_with_it) {
    make_focused(L"Ha[rbour|]");
    edit->set_text(L"Kiel");
    EXPECT_EQ(L"Ki[el|]", look());
    press(VK_BACK);
    EXPECT_EQ(L"Ki|", look());
    EXPECT_EQ(1, changes);
}

TEST_F(line_edit_test, selection_behind_a_new_text_throws_when_it_is_edited) {
    for (int way = 0; way < 3; ++way) {
        make_focused(L"Ha[rb|]our");
        edit->set_text(L"K");
        EXPECT_EQ(L"K|", look());
        EXPECT_THROW(way == 0   ? edge->on_char(L'x')
                     : way == 1 ? static_cast<void>(press(VK_BACK))
                                : static_cast<void>(press(VK_DELETE)),
                     std::out_of_range);
        EXPECT_EQ(L"K", edit->get_text());
        EXPECT_EQ(0, changes);
        // Moves end it, and edits are safe then.
        press(VK_HOME);
        type(L"x");
        EXPECT_EQ(L"x|K", look());
    }
}

TEST_F(line_edit_test, selection_that_starts_at_the_end_of_a_new_text_erases_nothing) {
    make_focused(L"Ha[rb|]our");
    edit->set_text(L"Ki");
    EXPECT_EQ(L"Ki|", look());
    EXPECT_TRUE(press(VK_BACK));
    EXPECT_EQ(L"Ki|", look());
    EXPECT_EQ(1, changes);
    press(VK_BACK);
    EXPECT_EQ(L"K|", look());
}

// Focus

TEST_F(line_edit_test, caret_comes_and_goes_with_the_focus) {
    make(L"Harbour");
    EXPECT_FALSE(has_caret()) << "not before it has the focus";
    focus();
    ASSERT_TRUE(has_caret());
    EXPECT_EQ((lines{"text_brush 1", "draw_frame 10 20 210 42 hot 0 focused 1"}), asked());
    edge->on_focus_lost();
    EXPECT_FALSE(has_caret());
    EXPECT_EQ((lines{"text_brush 1", "draw_frame 10 20 210 42 hot 0 focused 0"}), asked());
    edge->on_focus_gained();
    ASSERT_TRUE(has_caret());
    root->set_focus();
    EXPECT_FALSE(has_caret());
    own->set_focus();
    EXPECT_TRUE(has_caret());
    own->release_focus();
    EXPECT_FALSE(has_caret());
    EXPECT_EQ(0, changes);
}

TEST_F(line_edit_test, lost_focus_leaves_the_selection) {
    make_focused(L"H[arb|]our");
    edge->on_focus_lost();
    EXPECT_EQ(L"H[arb]our", look());
    edge->on_focus_gained();
    EXPECT_EQ(L"H[arb|]our", look());
}

TEST_F(line_edit_test, focus_that_comes_again_draws_nothing) {
    make_focused(L"Har|bour");
    edge->on_focus_gained();
    EXPECT_EQ((lines{}), calls());
    EXPECT_EQ(1u, edit_node().children.size());
}

TEST_F(line_edit_test, focus_of_a_node_below_is_not_the_edits) {
    make_focused(L"Har|bour");
    const auto below = filled({0, 0, 5, 5}, own);
    below->set_focus();
    EXPECT_EQ(1u, edit_node().children.size()) << "the caret is gone";
    own->remove_child(below);
}

TEST_F(line_edit_test, caret_is_placed_anew_after_what_happened_without_the_focus) {
    make_focused(L"Harbour|");
    edge->on_focus_lost();
    edit->set_text(L"Kiel");
    edge->on_focus_gained();
    EXPECT_EQ(L"Kiel|", look());
    edge->on_focus_lost();
    edit->arrange({40, 50, 200, 72});
    edge->on_focus_gained();
    EXPECT_EQ(L"Kiel|", look());
}

}  // namespace
}  // namespace d2d
