// Each kind of control on the scene: what its operations change there, and what its handlers hear.

#include "portable/testing/scene_form.h"
#include "d2d/ui/ILabelStyle.h"

#include <algorithm>
#include <cmath>
#include <functional>
#include <stdexcept>
#include <utility>

namespace {

using namespace ui::mossHarbour;
using namespace ui::mossHarbour::stubs;
using d2d::scene::fakes::same;
using testing::ElementsAre;
using testing::IsEmpty;
using testing::ThrowsMessage;

class scene_controls : public scene_form {
protected:
    /// A handler that writes down its name, and whether it got the panel.
    auto note(std::string what) {
        return [this, what](IPanel* from) {
            told.push_back(from == com::ptr<IPanel>(panel).get() ? what : "of another panel");
        };
    }
    auto note_state(std::string what) {
        return [this, what](IPanel* from, bool on) { note(what + (on ? " on" : " off"))(from); };
    }
    std::vector<std::string> take_told() { return std::exchange(told, {}); }

    std::vector<std::string> told;
};

TEST_F(scene_controls, are_as_large_as_their_text) {
    const auto label = create_label_control();
    panel->set_content(stacked({label}));
    EXPECT_THAT(fields_of(panel->measure()), ElementsAre(0, 0, 0, 0, 0, 0, 0, 0, 0, 0));
    label->set_text(L"Harbour");
    const auto first = panel->measure();
    EXPECT_GT(first.min_width, 10);
    EXPECT_GT(first.min_height, 5);
    EXPECT_EQ(first.min_width, first.max_width);
    EXPECT_EQ(first.min_width, first.preferred_width);
    label->set_text(L"Harbour master");
    EXPECT_GT(panel->measure().min_width, first.min_width);
    EXPECT_EQ(panel->measure().min_height, first.min_height);
    label->set_text(L"");
    EXPECT_EQ(panel->measure().min_width, 0);
}

TEST_F(scene_controls, have_their_texts_beside_their_marks_and_in_their_frames) {
    const auto width_of = [this](const auto& control) {
        panel->set_content(stacked({control}));
        control->set_text(L"Ahoy");
        return panel->measure();
    };
    const auto label = width_of(create_label_control());
    for (const auto& marked :
         {width_of(create_check_box_control()), width_of(create_radio_button_control(true))}) {
        EXPECT_EQ(marked.min_width, label.min_width + label.min_height + 2);
        EXPECT_EQ(marked.max_width, marked.min_width);
        EXPECT_EQ(marked.max_height, label.max_height);
    }
    const auto button = width_of(create_push_button_control());
    EXPECT_EQ(button.min_width, label.min_width + 6);
    EXPECT_EQ(button.min_height, label.min_height + 4);
    EXPECT_EQ(button.max_width, unbounded_extent);
    EXPECT_EQ(button.max_height, unbounded_extent);
}

TEST_F(scene_controls, keep_a_text_in_its_place_when_it_changes) {
    const auto stays = [this](const auto& control) {
        panel->set_content(stacked({control}));
        control->set_text(L"Light the lamps at dusk");
        panel->measure();
        panel->arrange(100, 50, 300, 66);
        control->set_text(L"Fog");
        const auto at_once = panel->get_node()->get_bounds(true);
        panel->arrange(0, 0, 10, 10);
        panel->arrange(100, 50, 300, 66);
        return same(panel->get_node()->get_bounds(true), at_once);
    };
    EXPECT_TRUE(stays(create_label_control()));
    EXPECT_TRUE(stays(create_check_box_control()));
    EXPECT_TRUE(stays(create_radio_button_control(true)));
    EXPECT_TRUE(stays(create_push_button_control()));
}

TEST_F(scene_controls, that_are_checked_say_so_without_a_word_to_their_handlers) {
    const auto box = create_check_box_control();
    const auto radio = create_radio_button_control(true);
    box->set_on_toggled(note_state("box"));
    radio->set_on_click(note("radio"));
    show_rows({box, radio});
    for (const bool on : {true, true, false}) {
        box->set_checked(on);
        radio->set_checked(on);
        EXPECT_EQ(box->is_checked(), on);
        EXPECT_EQ(radio->is_checked(), on);
    }
    EXPECT_THAT(told, IsEmpty());
}

TEST_F(scene_controls, call_their_handlers_with_the_panel) {
    const auto box = create_check_box_control();
    const auto radio = create_radio_button_control(false);
    const auto button = create_push_button_control();
    show_rows({box, radio, button});
    for (const int row : {0, 1, 2}) press_row(row);  // no handlers yet
    EXPECT_TRUE(box->is_checked());
    box->set_on_toggled(note_state("box"));
    radio->set_on_click(note("radio"));
    button->set_on_click(note("button"));
    for (const int row : {0, 1, 2}) press_row(row);
    EXPECT_THAT(take_told(), ElementsAre("box off", "radio", "button"));
    press_row(0);
    EXPECT_THAT(take_told(), ElementsAre("box on"));
    button->set_on_click(note("another"));
    radio->set_on_click(nullptr);
    for (const int row : {1, 2}) press_row(row);
    EXPECT_THAT(take_told(), ElementsAre("another"));
}

TEST_F(scene_controls, are_pressed_only_while_they_are_enabled) {
    const auto button = create_push_button_control();
    button->set_on_click(note("button"));
    show_rows({button});
    button->set_enabled(false);
    press_row(0);
    EXPECT_THAT(told, IsEmpty());
    button->set_enabled(true);
    press_row(0);
    EXPECT_THAT(take_told(), ElementsAre("button"));
    button->set_enabled(false);
    show_rows({button});  // a new form is enabled
    press_row(0);
    EXPECT_THAT(take_told(), ElementsAre("button"));
}

TEST_F(scene_controls, of_push_buttons_show_no_sign_of_an_earlier_press) {
    const auto button = create_push_button_control();
    const auto box = create_check_box_control();
    show_rows({button, box});
    const auto pressed = [this](int row) {
        press_row(row);
        return drawing();
    };
    EXPECT_EQ(pressed(0), pressed(0));
    EXPECT_NE(pressed(1), pressed(1));  // unlike what keeps a state
}

TEST_F(scene_controls, hold_a_text_of_any_length_in_an_edit) {
    const auto edit = create_edit_control();
    edit->set_on_changed(note("edit"));
    show_rows({edit});
    wchar_t buffer[4];
    for (const auto& [text, shown] : std::vector<std::pair<const wchar_t*, const wchar_t*>>{
             {L"", L""}, {L"ab", L"ab"}, {L"abc", L"abc"}, {L"abcd", L"abc"}, {L"abcdefgh", L"abc"}}) {
        edit->set_text(text);
        std::fill(std::begin(buffer), std::end(buffer), L'?');
        edit->get_text(buffer, 4);
        EXPECT_STREQ(buffer, shown);
    }
    edit->get_text(buffer, 1);
    EXPECT_STREQ(buffer, L"");
    EXPECT_THAT(told, IsEmpty());
}

/// Every operation on what shows, of all six kinds.
std::vector<std::function<void()>> live_operations(const com::ptr<ILabelControl>& label,
                                                   const com::ptr<IEditControl>& edit,
                                                   const com::ptr<ICheckBoxControl>& box,
                                                   const com::ptr<IRadioButtonControl>& radio,
                                                   const com::ptr<IPushButtonControl>& button,
                                                   const com::ptr<IGroupBoxControl>& group) {
    return {[=] { label->set_text(L"a"); },
            [=] { edit->set_text(L"a"); },
            [=] {
                wchar_t buffer[2];
                edit->get_text(buffer, 2);
            },
            [=] { box->set_text(L"a"); },
            [=] { box->set_checked(true); },
            [=] { static_cast<void>(box->is_checked()); },
            [=] { radio->set_text(L"a"); },
            [=] { radio->set_checked(true); },
            [=] { static_cast<void>(radio->is_checked()); },
            [=] { button->set_text(L"a"); },
            [=] { button->set_enabled(true); },
            [=] { group->set_text(L"a"); }};
}

TEST_F(scene_controls, start_anew_with_each_form_and_keep_their_handlers) {
    const auto label = create_label_control();
    const auto edit = create_edit_control();
    const auto box = create_check_box_control();
    const auto radio = create_radio_button_control(true);
    const auto button = create_push_button_control();
    const auto group = create_group_box_control();
    box->set_on_toggled(note_state("box"));
    radio->set_on_click(note("radio"));
    button->set_on_click(note("button"));
    const auto operations = live_operations(label, edit, box, radio, button, group);
    const auto layout = stacked({label, edit, box, radio, button, group}, fixed(100, 20));
    for (int round = 0; round < 3; ++round) {
        for (const auto& operation : operations) {
            EXPECT_THAT(operation, ThrowsMessage<std::logic_error>(not_materialized));
        }
        panel->set_content(layout);
        wchar_t text[4] = L"???";
        edit->get_text(text, 4);
        EXPECT_STREQ(text, L"");
        EXPECT_FALSE(box->is_checked());
        EXPECT_FALSE(radio->is_checked());
        arrange();
        for (const auto& operation : operations) operation();
        EXPECT_TRUE(box->is_checked());
        for (const int row : {2, 3, 4}) press_row(row);
        EXPECT_THAT(take_told(), ElementsAre("box off", "radio", "button"));
        EXPECT_TRUE(panel->set_content(nullptr) == layout);
        for (const int row : {2, 3, 4}) press_row(row);  // nobody is there
        EXPECT_THAT(told, IsEmpty());
    }
}

TEST_F(scene_controls, have_no_text_when_they_come_again) {
    const auto label = create_label_control();
    const auto layout = stacked({label});
    panel->set_content(layout);
    label->set_text(L"Harbour");
    panel->set_content(nullptr);
    panel->set_content(layout);
    EXPECT_EQ(panel->measure().min_width, 0);
}

TEST_F(scene_controls, may_be_taken_away_by_their_own_handler) {
    auto button = create_push_button_control();
    button->set_on_click([this](IPanel* from) {
        note("pressed")(from);
        from->set_content(nullptr);
    });
    show_rows({button});
    button.reset();  // the form is all that holds it
    press_row(0);
    EXPECT_THAT(told, ElementsAre("pressed"));
}

TEST_F(scene_controls, can_be_read_by_who_hears_that_they_go) {
    const auto edit = create_edit_control();
    show_rows({edit});
    edit->set_text(L"Pier");
    wchar_t text[8] = L"";
    bool bounds_left = true;
    const auto token = panel->get_node()->add_bounds_handler([&](bool valid, D2D_RECT_F) {
        bounds_left = valid;
        edit->get_text(text, 8);
    });
    panel->set_content(nullptr);
    EXPECT_FALSE(bounds_left);
    EXPECT_STREQ(text, L"Pier");
    panel->get_node()->remove_bounds_handler(token);
}

struct written_text {
    const char* name;
    const wchar_t* text;
};

class scene_texts : public scene_form, public testing::WithParamInterface<written_text> {
protected:
    /// The size of a text in the controls' font, as the platform lays it out.
    [[nodiscard]] static D2D_SIZE_F extent(const wchar_t* text) {
        const auto format =
            com::ptr<d2d::ui::ILabelStyle>(d2d::ui::get_default_style(nullptr).get())->text_format();
        DWRITE_TEXT_METRICS metrics{};
        EXPECT_EQ(format->create_layout(std::wstring_view(text), 0, 0)->GetMetrics(&metrics), S_OK);
        EXPECT_EQ(metrics.lineCount, 1u);
        return {metrics.width, metrics.height};
    }
    /// What a control with the text measures, when nothing of it sticks out of the rectangle that it prefers.
    template <class Control>
    element_metrics measured(const com::ptr<Control>& control) {
        panel->set_content(stacked({control}));
        control->set_text(GetParam().text);
        const auto said = arrange();
        const auto drawn = panel->get_node()->get_bounds(true);
        EXPECT_GE(drawn.left, 0);
        EXPECT_GE(drawn.top, 0);
        EXPECT_LE(drawn.right, static_cast<float>(said.preferred_width));
        EXPECT_LE(drawn.bottom, static_cast<float>(said.preferred_height));
        return said;
    }
};

TEST_P(scene_texts, are_measured_without_a_cut) {
    const auto [width, height] = extent(GetParam().text);
    EXPECT_GT(width, 20);
    const auto label = measured(create_label_control());
    EXPECT_EQ(label.min_width, static_cast<int>(std::ceil(width)));
    EXPECT_EQ(label.min_height, static_cast<int>(std::ceil(height)));
    EXPECT_EQ(label.preferred_width, label.min_width);
    const int mark = label.min_height + 2;
    EXPECT_EQ(measured(create_check_box_control()).min_width, label.min_width + mark);
    EXPECT_EQ(measured(create_radio_button_control(true)).min_width, label.min_width + mark);
    const auto button = measured(create_push_button_control());
    EXPECT_EQ(button.min_width, label.min_width + 6);
    EXPECT_EQ(button.preferred_width, label.min_width + 6);
    const auto edit = measured(create_edit_control());
    EXPECT_GE(edit.preferred_width, label.min_width + 4);  // 2 pixels of frame on each side
    EXPECT_GE(edit.min_height, label.min_height);
}

TEST_P(scene_texts, come_back_from_an_edit_as_they_were) {
    const auto edit = create_edit_control();
    panel->set_content(stacked({edit}));
    edit->set_text(GetParam().text);
    wchar_t buffer[128];
    edit->get_text(buffer, 128);
    EXPECT_STREQ(buffer, GetParam().text);
}

INSTANTIATE_TEST_SUITE_P(
    of, scene_texts,
    testing::Values(
        written_text{"a_long_word", L"Donaudampfschifffahrtselektrizit\u00e4tenhauptbetriebswerk"},
        written_text{"umlauts", L"M\u00f6we, \u00dcberf\u00fchrung, Gro\u00dfsegel"},
        written_text{"marks_that_combine", L"Mo\u0308we, A\u030angstro\u0308m"},
        written_text{"cyrillic", L"\u041a\u0430\u043b\u0438\u043d\u0438\u043d\u0433\u0440\u0430\u0434"},
        written_text{"japanese", L"\u6a2a\u6d5c\u6e2f \u30cf\u30fc\u30d0\u30fc"},
        written_text{"beyond_the_basic_plane", L"Ahoy \U0001F6A2\U0001F30A!"},
        written_text{"hebrew", L"\u05e0\u05de\u05dc \u05d7\u05d9\u05e4\u05d4"},
        written_text{"arabic", L"\u0645\u064a\u0646\u0627\u0621 \u0639\u062f\u0646"},
        written_text{"both_directions", L"Pier 7 \u05e0\u05de\u05dc \u05d7\u05d9\u05e4\u05d4 (North)"}),
    [](const auto& of) { return std::string(of.param.name); });

}  // namespace
