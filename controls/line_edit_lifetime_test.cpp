// What the function that a line edit calls may do to it, and what is left when something fails.

#include "controls/testing/failure_of.h"
#include "controls/testing/line_edit_fixture.h"
#include "controls/testing/refused_layout_operation.h"

#include <functional>
#include <memory>
#include <stdexcept>
#include <string>
#include <vector>

#include <gtest/gtest.h>

namespace d2d {
namespace {

using fakes::refused_layout_operation;
using scene::fakes::thrown_by;

using fakes::failure_of;

class line_edit_lifetime_test : public fakes::line_edit_fixture {
protected:
    /// The ways in which the user changes "Ha[rb|]our", each to "Ha|our".
    [[nodiscard]] std::vector<std::function<void()>> edits() {
        return {[this] { press(VK_DELETE); }, [this] { press(VK_BACK); }};
    }
    /// Any layout: what is refused is refused by all of its kind.
    [[nodiscard]] IDWriteTextLayout* a_layout() {
        if (!kept_layout) kept_layout = plain_format->create_layout(std::wstring_view(L"any"), 10, 10);
        return kept_layout.get();
    }
    void TearDown() override {
        kept_layout.reset();
        line_edit_fixture::TearDown();
    }

    com::ptr<IDWriteTextLayout> kept_layout;
};

// The function that is told of changes

TEST_F(line_edit_lifetime_test, function_may_drop_the_last_reference) {
    for (const auto& way : edits()) {
        make_focused(L"Ha[rb|]our");
        const auto kept = std::make_shared<std::wstring>(L"the function's own");
        std::wstring told;
        edit->set_on_change([&, kept] {
            edit.reset();
            told = *kept;
        });
        way();
        EXPECT_EQ(L"the function's own", told);
        EXPECT_EQ(1, kept.use_count()) << "the function goes with the edit";
        EXPECT_EQ(1u, scene::fakes::references(style->get_IUnknown())) << "and so does what it held";
        // The node is still there, with nobody behind it.
        EXPECT_FALSE(press(VK_LEFT));
        EXPECT_FALSE(press(VK_BACK));
        edge->on_char(L'x');
        edge->on_focus_lost();
        edge->on_focus_gained();
        click_at({30, 30});
        static_cast<void>(painted());
    }
}

TEST_F(line_edit_lifetime_test, typed_character_may_drop_the_last_reference) {
    make_focused(L"Ha|our");
    edit->set_on_change([&] { edit.reset(); });
    edge->on_char(L'x');
    EXPECT_FALSE(edit);
    EXPECT_EQ(1u, scene::fakes::references(style->get_IUnknown()));
}

TEST_F(line_edit_lifetime_test, function_may_take_the_edit_out_of_its_view) {
    make_focused(L"Ha|our");
    edit->set_on_change([&] { root->remove_child(own); });
    type(L"x");
    EXPECT_EQ(L"Haxour", edit->get_text());
    EXPECT_FALSE(has_caret()) << "the focus went with it";
}

TEST_F(line_edit_lifetime_test, function_may_replace_itself) {
    make_focused(L"Ha|our");
    const auto kept = std::make_shared<std::string>("the first function's own");
    std::vector<std::string> told;
    edit->set_on_change([&, kept] {
        edit->set_on_change([&] { told.emplace_back("the second"); });
        told.push_back(*kept);
    });
    type(L"x");
    EXPECT_EQ(1, kept.use_count());
    type(L"y");
    EXPECT_EQ((std::vector<std::string>{"the first function's own", "the second"}), told);
    edit->set_on_change({});
    type(L"z");
    EXPECT_EQ(2u, told.size());
    EXPECT_EQ(L"Haxyz|our", look());
}

TEST_F(line_edit_lifetime_test, function_may_take_itself_off) {
    make_focused(L"Ha|our");
    int told = 0;
    edit->set_on_change([&] {
        edit->set_on_change(nullptr);
        ++told;
    });
    type(L"xy");
    EXPECT_EQ(1, told);
}

TEST_F(line_edit_lifetime_test, function_may_set_the_text) {
    make_focused(L"Ha|our");
    edit->set_on_change([&] {
        ++changes;
        if (edit->get_text().size() > 6) edit->set_text(L"Kiel");
    });
    type(L"x");
    EXPECT_EQ(L"Hax|our", look());
    type(L"y");
    EXPECT_EQ(L"Kiel|", look());
    EXPECT_EQ(2, changes) << "that is no change";
}

TEST_F(line_edit_lifetime_test, function_may_have_more_keys_come) {
    make_focused(L"Har|bour");
    edit->set_on_change([&] {
        if (++changes < 3) press(VK_BACK);
    });
    press(VK_BACK);
    EXPECT_EQ(L"|bour", look());
    EXPECT_EQ(3, changes);
}

TEST_F(line_edit_lifetime_test, function_may_arrange_the_edit_and_take_its_focus) {
    make_focused(L"Ha|our");
    edit->set_on_change([&] {
        edit->arrange({30, 40, 150, 62});
        root->set_focus();
    });
    type(L"x");
    EXPECT_EQ(L"Haxour", look());
    own->set_focus();
    EXPECT_EQ(L"Hax|our", look());
}

TEST_F(line_edit_lifetime_test, what_the_function_throws_passes_when_the_edit_is_done) {
    make_focused(L"Ha|our");
    edit->set_on_change([] { throw std::runtime_error("enough"); });
    EXPECT_EQ("enough", thrown_by<std::runtime_error>([&] { type(L"x"); }));
    EXPECT_EQ(L"Hax|our", look());
    EXPECT_EQ("enough", thrown_by<std::runtime_error>([&] { press(VK_BACK); }));
    EXPECT_EQ(L"Ha|our", look());
    EXPECT_EQ("enough", thrown_by<std::runtime_error>([&] { press(VK_DELETE); }));
    EXPECT_EQ(L"Ha|ur", look());
    edit->set_on_change({});
    type(L"y");
    EXPECT_EQ(L"Hay|ur", look());
}

TEST_F(line_edit_lifetime_test, edit_that_is_dropped_leaves_a_still_node) {
    make_focused(L"H[arb|]our");
    edit.reset();
    EXPECT_EQ(1u, scene::fakes::references(style->get_IUnknown()));
    press(VK_LEFT);
    edge->on_char(L'x');
    click_at({30, 30});
    edge->on_focus_lost();
    static_cast<void>(painted());
    EXPECT_EQ((lines{}), asked());
}

TEST_F(line_edit_lifetime_test, other_focus_handlers_may_drop_the_edit_that_is_clicked) {
    make(L"Harbour");
    edge->on_focus_gained();
    root->set_focus_handler(false, [&](scene::INode*, scene::INode*) { edit.reset(); });
    root->set_focus();
    ASSERT_FALSE(edit) << "told when it got the focus";
    make(L"Harbour");
    click(3);
    EXPECT_FALSE(edit);
    EXPECT_EQ(1u, scene::fakes::references(style->get_IUnknown()));
    root->set_focus_handler(false, {});
}

// Failures

TEST_F(line_edit_lifetime_test, style_without_a_key_fails_the_making) {
    for (const char* const missing : {"selected_text_color", "text_brush", "draw_frame"}) {
        style->missing = missing;
        EXPECT_EQ("unrecognized style identifier", thrown_by([&] { make(L"Harbour"); })) << missing;
        EXPECT_EQ(1u, scene::fakes::references(style->get_IUnknown()));
    }
    style->missing = "selection_background_brush";
    make(L"Harbour");
    EXPECT_EQ(L"Harbour", look()) << "not asked for yet";
}

TEST_F(line_edit_lifetime_test, style_without_a_key_fails_the_drawing_which_is_made_up_for) {
    for (const char* const missing : {"text_brush", "draw_frame", "selection_background_brush"}) {
        make_focused(L"H|arbour");
        style->missing = missing;
        EXPECT_EQ("unrecognized style identifier", thrown_by([&] { press(VK_RIGHT, shift); })) << missing;
        style->missing.clear();
        forget();
        press(VK_UP, shift);
        EXPECT_EQ(L"H[a|]rbour", look()) << missing;
    }
}

TEST_F(line_edit_lifetime_test, failed_metrics_fail_the_measure_alone) {
    make_focused(L"Ha|our");
    {
        const refused_layout_operation<fakes::get_metrics> refused(a_layout());
        EXPECT_EQ(refused.failure, failure_of([&] { static_cast<void>(edit->measure()); }));
    }
    EXPECT_EQ(L"Ha|our", look());
    EXPECT_LT(6, edit->measure().preferred_size.width);
}

TEST_F(line_edit_lifetime_test, failed_selection_is_made_up_for) {
    make_focused(L"H|arbour");
    {
        const refused_layout_operation<fakes::hit_test_text_range> refused(a_layout());
        EXPECT_EQ(refused.failure, failure_of([&] { press(VK_RIGHT, shift); }));
        EXPECT_EQ((lines{}), selection_figures());
        EXPECT_EQ(refused.failure, failure_of([&] { press(VK_RIGHT, shift); })) << "still to be done";
    }
    press(VK_RIGHT, shift);
    EXPECT_EQ(L"H[arb|]our", look());
}

TEST_F(line_edit_lifetime_test, selection_of_more_than_64_runs_fails_and_can_be_ended) {
    std::wstring text;
    for (int i = 0; i < 33; ++i) text += L"a \u05D0 ";  // left to right and back: two runs each
    make(text.c_str());
    focus();
    press(VK_HOME);
    EXPECT_EQ(E_NOT_SUFFICIENT_BUFFER, failure_of([&] { press(VK_END, shift); }));
    EXPECT_EQ((lines{}), selection_figures());
    press(VK_END);
    type(L"b");
    EXPECT_EQ(text + L"b", edit->get_text()) << "nothing was selected any more";
}

TEST_F(line_edit_lifetime_test, failed_effect_is_made_up_for) {
    make_focused(L"H|arbour");
    {
        const refused_layout_operation<fakes::set_drawing_effect> refused(a_layout());
        EXPECT_EQ(refused.failure, failure_of([&] { press(VK_RIGHT, shift); }));
    }
    press(VK_RIGHT, shift);
    EXPECT_EQ(L"H[ar|]bour", look());
}

TEST_F(line_edit_lifetime_test, failed_caret_is_made_up_for) {
    make_focused(L"H|arbour");
    {
        const refused_layout_operation<fakes::hit_test_text_position> refused(a_layout());
        EXPECT_EQ(refused.failure, failure_of([&] { press(VK_RIGHT); }));
    }
    press(VK_UP);
    EXPECT_EQ(L"Ha|rbour", look());
}

TEST_F(line_edit_lifetime_test, failed_line_metrics_fail_the_making) {
    const refused_layout_operation<fakes::get_line_metrics> refused(a_layout());
    EXPECT_EQ(refused.failure, failure_of([&] { make(L"Harbour"); }));
    EXPECT_EQ(1u, scene::fakes::references(style->get_IUnknown()));
}

TEST_F(line_edit_lifetime_test, failed_click_moves_nothing) {
    make_focused(L"Ha|rbour");
    {
        const refused_layout_operation<fakes::hit_test_point> refused(a_layout());
        root->set_focus();
        EXPECT_EQ(refused.failure, failure_of([&] { click_at({40, 30}); }));
        EXPECT_TRUE(own->has_focus(false)) << "that comes first";
    }
    EXPECT_EQ(L"Ha|rbour", look());
}

TEST_F(line_edit_lifetime_test, failed_text_is_kept_and_laid_out_later) {
    make_focused(L"Ha|rbour");
    {
        const refused_layout_operation<fakes::hit_test_text_position> refused(a_layout());
        EXPECT_EQ(refused.failure, failure_of([&] { edit->set_text(L"Kiel"); }));
    }
    EXPECT_EQ(L"Kiel", edit->get_text());
    edit->arrange(rect);
    EXPECT_EQ(L"Ki|el", look());
}

TEST_F(line_edit_lifetime_test, failed_brush_leaves_the_text_out) {
    make(L"Harbour");
    edge->detach_render_target(&target);
    target.fail_creations_after(0, E_OUTOFMEMORY);
    EXPECT_EQ(E_OUTOFMEMORY, failure_of([&] { edge->attach_render_target(&target); }));
    target.fail_creations_after(0, S_OK);
    for (const auto& line : painted()) EXPECT_FALSE(line.starts_with("DrawGlyphRun")) << line;
}

}  // namespace
}  // namespace d2d
