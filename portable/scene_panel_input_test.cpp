// Real input into the controls of a described dialog on the scene.

#include "portable/testing/panel_window.h"
#include "ui/mossHarbour/ICheckBoxControl.h"
#include "ui/mossHarbour/IEditControl.h"
#include "ui/mossHarbour/IGroupBoxControl.h"
#include "ui/mossHarbour/IPushButtonControl.h"
#include "ui/mossHarbour/IRadioButtonControl.h"

#include <functional>
#include <stdexcept>
#include <string>
#include <vector>

namespace {

using namespace ui::mossHarbour;
using namespace ui::mossHarbour::stubs;
using test_support::click;
using testing::ElementsAre;
using testing::IsEmpty;

/// A form of rows, each 100 by 20 pixels. The last one is a group box of 110 by 30 around a check box.
class scene_panel_input : public panel_window {
protected:
    void SetUp() override {
        panel_window::SetUp();
        test_support::move_mouse(GetDesktopWindow(), {700, 600});
        edit = create_edit_control();
        box = create_check_box_control();
        first = create_radio_button_control(true);
        second = create_radio_button_control(false);
        button = create_push_button_control();
        inner = create_check_box_control();
        group = create_group_box_control();
        box->set_on_toggled([this](IPanel* from, bool on) { note(from, on ? L"box on" : L"box off"); });
        first->set_on_click([this](IPanel* from) { note(from, L"first"); });
        second->set_on_click([this](IPanel* from) { note(from, L"second"); });
        button->set_on_click([this](IPanel* from) { note(from, L"button"); });
        inner->set_on_toggled([this](IPanel* from, bool on) { note(from, on ? L"inner on" : L"inner off"); });
        edit->set_on_changed([this](IPanel* from) { note(from, L"edit"); });
        group->set_content(rows({inner}, 100, 20));
        const auto all = rows({edit, box, first, second, button}, 100, 20);
        const auto outer = create_stack_layout(orientation::vertical);
        outer->add_item({}, all);
        outer->add_item(fixed(110, 30), group);
        panel->set_content(outer);
        open();
        fit();
        test_support::bring_to_front(handle());
    }
    void TearDown() override {
        edit.reset();
        box.reset();
        first.reset();
        second.reset();
        button.reset();
        inner.reset();
        group.reset();
        panel_window::TearDown();
    }

    static stack_item_details fixed(int width, int height) {
        stack_item_details details;
        details.min_width = details.max_width = details.preferred_width = width;
        details.min_height = details.max_height = details.preferred_height = height;
        return details;
    }
    static com::ptr<ILayout> rows(const std::vector<com::ptr<IElement>>& elements, int width, int height) {
        const auto stack = create_stack_layout(orientation::vertical);
        for (const auto& element : elements) stack->add_item(fixed(width, height), element);
        return stack;
    }

    void note(IPanel* from, const wchar_t* what) {
        told.push_back(from == com::ptr<IPanel>(panel.get()).get() ? what : L"from another panel");
    }
    /// Waits until a handler has been called for the last click.
    [[nodiscard]] bool hears(const wchar_t* what) const {
        return test_support::pump_until([&] { return !told.empty() && told.back() == what; });
    }
    [[nodiscard]] std::wstring text() const {
        wchar_t buffer[64];
        edit->get_text(buffer, 64);
        return buffer;
    }
    [[nodiscard]] bool text_becomes(const std::wstring& wanted) const {
        return test_support::pump_until([&] { return text() == wanted; });
    }

    static constexpr POINT in_edit{50, 10}, in_first{8, 50}, in_second{8, 70}, in_button{50, 90},
        in_inner{5 + 8, 100 + 5 + 10};
    // Far enough from each other for two clicks to be no double click.
    static constexpr POINT in_box{5, 27}, beside_in_box{12, 33}, beside_in_button{70, 85};

    com::ptr<IEditControl> edit;
    com::ptr<ICheckBoxControl> box, inner;
    com::ptr<IRadioButtonControl> first, second;
    com::ptr<IPushButtonControl> button;
    com::ptr<IGroupBoxControl> group;
    std::vector<std::wstring> told;
};

TEST_F(scene_panel_input, goes_to_an_edit_without_a_word_to_its_handler) {
    click(handle(), in_edit);
    test_support::type_text(L"M\u00F6we \u0416");
    EXPECT_TRUE(text_becomes(L"M\u00F6we \u0416"));
    test_support::strike_key(VK_BACK);
    EXPECT_TRUE(text_becomes(L"M\u00F6we "));
    edit->set_text(L"Kutter");
    EXPECT_EQ(text(), L"Kutter");
    EXPECT_THAT(told, IsEmpty());
}

TEST_F(scene_panel_input, toggles_a_check_box) {
    click(handle(), in_box);
    ASSERT_TRUE(hears(L"box on"));
    EXPECT_TRUE(box->is_checked());
    click(handle(), beside_in_box);
    ASSERT_TRUE(hears(L"box off"));
    EXPECT_FALSE(box->is_checked());
    box->set_checked(true);
    EXPECT_THAT(told, ElementsAre(L"box on", L"box off"));  // not by the program
}

TEST_F(scene_panel_input, checks_one_radio_button_and_leaves_the_others_to_the_client) {
    click(handle(), in_first);
    ASSERT_TRUE(hears(L"first"));
    EXPECT_TRUE(first->is_checked());
    click(handle(), in_second);
    ASSERT_TRUE(hears(L"second"));
    EXPECT_TRUE(second->is_checked());
    EXPECT_TRUE(first->is_checked());
    first->set_checked(false);
    EXPECT_FALSE(first->is_checked());
    EXPECT_THAT(told, ElementsAre(L"first", L"second"));
}

TEST_F(scene_panel_input, presses_a_button_that_is_enabled) {
    click(handle(), in_button);
    ASSERT_TRUE(hears(L"button"));
    button->set_enabled(false);
    click(handle(), in_button);
    click(handle(), in_box);  // what was sent ahead has been served when this is
    ASSERT_TRUE(hears(L"box on"));
    EXPECT_THAT(told, ElementsAre(L"button", L"box on"));
    button->set_enabled(true);
    click(handle(), beside_in_button);
    EXPECT_TRUE(hears(L"button"));
}

TEST_F(scene_panel_input, reaches_what_stands_in_a_group_box) {
    click(handle(), in_inner);
    ASSERT_TRUE(hears(L"inner on"));
    EXPECT_TRUE(inner->is_checked());
}

TEST_F(scene_panel_input, keeps_its_handlers_for_the_next_form) {
    click(handle(), in_edit);
    test_support::type_text(L"Boot");
    ASSERT_TRUE(text_becomes(L"Boot"));
    click(handle(), in_box);
    ASSERT_TRUE(hears(L"box on"));
    const auto layout = panel->set_content(nullptr);
    click(handle(), in_box);
    panel->set_content(layout);
    fit();
    EXPECT_EQ(text(), L"");
    EXPECT_FALSE(box->is_checked());
    resize(120, 131);  // arranged anew
    click(handle(), in_button);
    ASSERT_TRUE(hears(L"button"));
    EXPECT_THAT(told, ElementsAre(L"box on", L"button"));
}

TEST_F(scene_panel_input, may_take_away_the_content_that_it_goes_to) {
    button->set_on_click([this](IPanel* from) {
        from->set_content(nullptr);
        note(from, L"gone");
    });
    click(handle(), in_button);
    ASSERT_TRUE(hears(L"gone"));
    EXPECT_THROW(button->set_text(L"text"), std::logic_error);
}

TEST_F(scene_panel_input, may_end_the_window_and_the_panel_that_it_goes_to) {
    const HWND window = handle();
    button->set_on_click([this](IPanel* from) {
        note(from, L"over");
        panel->set_content(nullptr);
        panel->destroy_window();
        panel.reset();
    });
    click(window, in_button);
    ASSERT_TRUE(hears(L"over"));
    EXPECT_FALSE(IsWindow(window));
}

TEST_F(scene_panel_input, passes_on_what_a_handler_throws) {
    button->set_on_click([this](IPanel*) {
        told.push_back(L"thrown");
        throw std::runtime_error("not now");
    });
    EXPECT_THAT(
        [&] {
            click(handle(), in_button);
            static_cast<void>(hears(L"thrown"));
        },
        testing::ThrowsMessage<std::runtime_error>("not now"));
    EXPECT_TRUE(IsWindow(handle()));
    told.clear();
    click(handle(), in_box);
    EXPECT_TRUE(hears(L"box on"));
}

}  // namespace
