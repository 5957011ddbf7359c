// Each operation of each control, with and without a form on the screen.

#include "com/error.h"
#include "com/object.h"
#include "portable/check_box_control_impl.h"
#include "portable/edit_control_impl.h"
#include "portable/group_box_control_impl.h"
#include "portable/label_control_impl.h"
#include "portable/list_view_control_impl.h"
#include "portable/option_control_impl.h"
#include "portable/push_button_control_impl.h"
#include "portable/radio_button_control_impl.h"
#include "support/leak_checked_test.h"
#include "ui/mossHarbour/IStackLayout.h"

#include <functional>
#include <string>
#include <vector>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace {

using namespace ui::mossHarbour;
using testing::ElementsAre;
using testing::ThrowsMessage;

constexpr const char* not_materialized =
    "An operation was attempted on a control that has not been materialized";
constexpr const char* already_materialized =
    "An operation was attempted on a control that has already been materialized";

std::vector<std::wstring> calls;

void note(std::wstring call) {
    calls.push_back(std::move(call));
}

/// A form that writes down what it is asked. `Facade` is kept, as a real form keeps it.
template <class Materialization>
class stub_form : public com::base_object<com::object_base, Materialization> {
public:
    element_metrics measure(measure_context&) override { return {}; }
    void arrange(int, int, int, int) override {}

    com::ptr<IUnknown> facade;

protected:
    ~stub_form() = default;
};

class label_form : public stub_form<label_control_impl::materialization> {
public:
    void set_text(const wchar_t* text) override { note(std::wstring(L"text ") + text); }
};
class edit_form : public stub_form<edit_control_impl::materialization> {
public:
    void set_text(const wchar_t* text) override { note(std::wstring(L"text ") + text); }
    void get_text(wchar_t* buffer, int capacity) override {
        note(L"read " + std::to_wstring(capacity));
        buffer[0] = 0;
    }
};
class option_form : public stub_form<option_control_impl::materialization> {
public:
    void add_option(const wchar_t* text) override { note(std::wstring(L"add ") + text); }
    void select_option(int index) override { note(L"select " + std::to_wstring(index)); }
    int get_selection() override { return 7; }
};
template <class Materialization>
class checked_form : public stub_form<Materialization> {
public:
    void set_text(const wchar_t* text) override { note(std::wstring(L"text ") + text); }
    bool is_checked() override { return true; }
    void set_checked(bool checked) override { note(checked ? L"check" : L"uncheck"); }
};
class check_box_form : public checked_form<check_box_control_impl::materialization> {};
class radio_button_form : public checked_form<radio_button_control_impl::materialization> {};
class push_button_form : public stub_form<push_button_control_impl::materialization> {
public:
    void set_text(const wchar_t* text) override { note(std::wstring(L"text ") + text); }
    void set_enabled(bool enabled) override { note(enabled ? L"enable" : L"disable"); }
};
class group_box_form : public stub_form<group_box_control_impl::materialization> {
public:
    void set_text(const wchar_t* text) override { note(std::wstring(L"text ") + text); }
};

class list_view_form : public stub_form<list_view_control_impl::materialization> {
public:
    void add_column(const wchar_t* text, int index, int width) override {
        note(std::wstring(L"add column ") + text + L" " + std::to_wstring(index) + L" " +
             std::to_wstring(width));
    }
    void remove_column(int index) override { note(L"remove column " + std::to_wstring(index)); }
    void set_column_text(int index, const wchar_t* text) override {
        note(L"column " + std::to_wstring(index) + L" " + text);
    }
    std::vector<int> get_column_order() override { return {1, 0}; }
    void set_column_order(std::vector<int> places) override {
        note(L"order of " + std::to_wstring(places.size()));
    }
    std::vector<int> get_column_widths() override { return {30, 40}; }
    int add_row(const wchar_t** texts, std::size_t count, int index) override {
        note(std::wstring(L"add row ") + texts[0] + L" " + std::to_wstring(count) + L" " +
             std::to_wstring(index));
        return 5;
    }
    void remove_row(int row) override { note(L"remove row " + std::to_wstring(row)); }
    void set_cell_text(int row, int column, const wchar_t* text) override {
        note(L"cell " + std::to_wstring(row) + L" " + std::to_wstring(column) + L" " + text);
    }
    void set_row_data(int row, LPARAM data) override {
        note(L"data " + std::to_wstring(row) + L" " + std::to_wstring(data));
    }
    LPARAM get_row_data(int row) override { return row + 100; }
    bool any_selected_row(std::function<bool(const int&)> asked) override { return asked(3); }
    void sort_rows(std::function<int(LPARAM, LPARAM)> compare) override {
        note(L"sort " + std::to_wstring(compare(1, 2)));
    }
    void sort_by_column(int column) override { note(L"sort by column " + std::to_wstring(column)); }
};

/// A back end of one kind of form.
template <class Form>
class stub_context final : public materialization_context {
public:
    com::ptr<IMaterializedElement> materialize(const std::type_info& type,
                                               IMaterializableElement* element) override {
        asked_for = &type;
        const auto made = com::create_object<Form>();
        made->facade = com::ptr<IUnknown>(element);
        return made;
    }
    void dematerialize(IMaterializableElement*, IMaterializedElement* live) override {
        if (when_taken_away) when_taken_away();
        static_cast<Form&>(*live).facade.reset();
        ++taken_away;
    }

    const std::type_info* asked_for = nullptr;
    int taken_away = 0;
    std::function<void()> when_taken_away;
};

class facades : public test_support::leak_checked_test {
protected:
    void SetUp() override {
        leak_checked_test::SetUp();
        calls.clear();
    }
};

/// Runs `operations`, all of which need a form, without one, with one, and behind it.
template <class Form, class Facade, class Control>
void expect_live(const com::ptr<Control>& control, const std::vector<std::function<void()>>& operations,
                 const std::vector<std::wstring>& expected) {
    const auto refused = [&] {
        for (const auto& operation : operations) {
            EXPECT_THAT(operation, ThrowsMessage<std::logic_error>(not_materialized));
        }
        EXPECT_THAT(calls, ElementsAre());
    };
    stub_context<Form> context;
    const com::ptr<IMaterializableElement> element(control.get());
    element->dematerialize(context);  // nothing is there to be taken away
    EXPECT_EQ(context.taken_away, 0);
    for (int round = 0; round < 2; ++round) {
        calls.clear();
        refused();
        EXPECT_TRUE(element->materialize(context));
        EXPECT_TRUE(*context.asked_for == typeid(Facade));
        for (const auto& operation : operations) operation();
        EXPECT_EQ(calls, expected);
        element->dematerialize(context);
        calls.clear();
        refused();
        EXPECT_EQ(context.taken_away, round + 1);
    }
}

TEST_F(facades, of_labels_forward_what_shows) {
    const auto label = create_label_control();
    expect_live<label_form, label_control_impl::facade>(label, {[&] { label->set_text(L"a"); }}, {L"text a"});
}

TEST_F(facades, of_edits_forward_what_shows) {
    const auto edit = create_edit_control();
    wchar_t buffer[4];
    expect_live<edit_form, edit_control_impl::facade>(
        edit, {[&] { edit->set_text(L"a"); }, [&] { edit->get_text(buffer, 4); }}, {L"text a", L"read 4"});
}

TEST_F(facades, of_options_forward_what_shows) {
    const auto option = create_option_control();
    expect_live<option_form, option_control_impl::facade>(
        option,
        {[&] { option->add_option(L"a"); }, [&] { option->select_option(2); },
         [&] { EXPECT_EQ(option->get_selection(), 7); }},
        {L"add a", L"select 2"});
}

TEST_F(facades, of_check_boxes_forward_what_shows) {
    const auto box = create_check_box_control();
    expect_live<check_box_form, check_box_control_impl::facade>(
        box,
        {[&] { box->set_text(L"a"); }, [&] { EXPECT_TRUE(box->is_checked()); },
         [&] { box->set_checked(true); }},
        {L"text a", L"check"});
}

TEST_F(facades, of_radio_buttons_forward_what_shows) {
    const auto button = create_radio_button_control(true);
    expect_live<radio_button_form, radio_button_control_impl::facade>(
        button,
        {[&] { button->set_text(L"a"); }, [&] { button->set_checked(false); },
         [&] { EXPECT_TRUE(button->is_checked()); }},
        {L"text a", L"uncheck"});
}

TEST_F(facades, of_push_buttons_forward_what_shows) {
    const auto button = create_push_button_control();
    expect_live<push_button_form, push_button_control_impl::facade>(
        button, {[&] { button->set_text(L"a"); }, [&] { button->set_enabled(false); }},
        {L"text a", L"disable"});
}

TEST_F(facades, of_group_boxes_forward_what_shows) {
    const auto box = create_group_box_control();
    expect_live<group_box_form, group_box_control_impl::facade>(box, {[&] { box->set_text(L"a"); }},
                                                                {L"text a"});
}

TEST_F(facades, of_lists_forward_what_shows) {
    const auto list = create_list_view_control();
    const wchar_t* texts[] = {L"x", L"y"};
    expect_live<list_view_form, list_view_control_impl::facade>(
        list,
        {[&] { list->add_column(L"a", 1, 20); }, [&] { list->remove_column(2); },
         [&] { list->set_column_text(3, L"b"); },
         [&] { EXPECT_THAT(list->get_column_order(), ElementsAre(1, 0)); },
         [&] {
             list->set_column_order({0, 1, 2});
         },
         [&] { EXPECT_THAT(list->get_column_widths(), ElementsAre(30, 40)); },
         [&] { EXPECT_EQ(list->add_row(texts, 2, 4), 5); }, [&] { list->remove_row(6); },
         [&] { list->set_cell_text(7, 8, L"c"); }, [&] { list->set_row_data(9, -1); },
         [&] { EXPECT_EQ(list->get_row_data(2), 102); },
         [&] { EXPECT_TRUE(list->any_selected_row([](const int& row) { return row == 3; })); },
         [&] { list->sort_rows([](LPARAM a, LPARAM b) { return static_cast<int>(10 * a + b); }); },
         [&] { com::ptr<list_view_control_impl::facade>(list.get())->fire_column_click(nullptr, 4); }},
        {L"add column a 1 20", L"remove column 2", L"column 3 b", L"order of 3", L"add row x 2 4",
         L"remove row 6", L"cell 7 8 c", L"data 9 -1", L"sort 12", L"sort by column 4"});
}

TEST_F(facades, of_lists_fire_their_handlers_in_every_state) {
    const auto list = create_list_view_control();
    const com::ptr<list_view_control_impl::facade> facade(list.get());
    auto* const panel = reinterpret_cast<IPanel*>(&calls);  // never looked into
    const auto fire_all = [&] {
        facade->fire_row_click(panel, 1, 0);
        facade->fire_edit_finished(panel, 2, 3, true);
        facade->fire_row_right_click(panel, 4);
        facade->fire_row_double_click(panel, 5);
    };
    fire_all();
    EXPECT_FALSE(facade->get_cell_editor(6, 7));
    const auto tell = [&](IPanel* in, std::wstring call) {
        EXPECT_EQ(in, panel);
        note(std::move(call));
    };
    list->set_on_row_click([&](IPanel* in, int row, int zero) {
        tell(in, L"click " + std::to_wstring(row) + L" " + std::to_wstring(zero));
    });
    list->set_on_edit_finished([&](IPanel* in, int row, int column, bool committed) {
        tell(in, L"finished " + std::to_wstring(row) + L" " + std::to_wstring(column) +
                     (committed ? L" yes" : L" no"));
    });
    list->set_on_row_right_click(
        [&](IPanel* in, int row) { tell(in, L"right click " + std::to_wstring(row)); });
    list->set_on_column_click(
        [&](IPanel* in, int column) { tell(in, L"header " + std::to_wstring(column)); });
    list->set_on_row_double_click(
        [&](IPanel* in, int row) { tell(in, L"double click " + std::to_wstring(row)); });
    const auto editor = list->create_text_editor(nullptr, nullptr);
    list->set_cell_editor_source([&](int row, int column) {
        note(L"editor " + std::to_wstring(row) + L" " + std::to_wstring(column));
        return editor;
    });
    fire_all();
    facade->fire_column_click(panel, 8);
    EXPECT_TRUE(facade->get_cell_editor(6, 7) == editor);
    EXPECT_THAT(calls, ElementsAre(L"click 1 0", L"finished 2 3 yes", L"right click 4", L"double click 5",
                                   L"header 8", L"editor 6 7"));
}

TEST_F(facades, of_group_boxes_keep_their_description_while_nothing_is_shown) {
    const auto box = create_group_box_control();
    const com::ptr<group_box_control_impl::facade> facade(box.get());
    const com::ptr<IMaterializableElement> element(box.get());
    const auto content = create_stack_layout(orientation::vertical);
    EXPECT_FALSE(facade->get_content());
    EXPECT_FALSE(box->set_content(content));
    box->set_padding(1, 2, 3, 4);
    stub_context<group_box_form> context;
    element->materialize(context);
    EXPECT_THAT([&] { box->set_padding(5, 6, 7, 8); }, ThrowsMessage<std::logic_error>(already_materialized));
    EXPECT_THAT([&] { box->set_content(nullptr); }, ThrowsMessage<std::logic_error>(already_materialized));
    const auto padding = facade->get_padding();
    EXPECT_EQ(padding.left, 1);
    EXPECT_EQ(padding.top, 2);
    EXPECT_EQ(padding.right, 3);
    EXPECT_EQ(padding.bottom, 4);
    EXPECT_TRUE(facade->get_content() == content);
    element->dematerialize(context);
    box->set_padding(5, 6, 7, 8);
    EXPECT_EQ(facade->get_padding().bottom, 8);
    EXPECT_TRUE(box->set_content(nullptr) == content);
}

TEST_F(facades, fire_their_handlers_with_the_panel_in_every_state) {
    auto* const panel = reinterpret_cast<IPanel*>(&calls);  // never looked into
    std::vector<std::wstring> told;
    const auto tell = [&](const wchar_t* name) {
        return [&told, name, panel](IPanel* from) { told.push_back(from == panel ? name : L"another"); };
    };
    const auto edit = create_edit_control();
    const auto option = create_option_control();
    const auto box = create_check_box_control();
    const auto push = create_push_button_control();
    const auto radio = create_radio_button_control(false);
    const auto fire_all = [&] {
        com::ptr<edit_control_impl::facade>(edit.get())->fire_changed(panel);
        com::ptr<option_control_impl::facade>(option.get())->fire_changed(panel);
        com::ptr<check_box_control_impl::facade>(box.get())->fire_toggled(panel, true);
        com::ptr<push_button_control_impl::facade>(push.get())->fire_click(panel);
        com::ptr<radio_button_control_impl::facade>(radio.get())->fire_click(panel);
    };
    fire_all();
    EXPECT_THAT(told, ElementsAre());
    edit->set_on_changed(tell(L"edit"));
    option->set_on_selection_changed(tell(L"option"));
    box->set_on_toggled([&](IPanel* from, bool checked) { tell(checked ? L"box on" : L"box off")(from); });
    push->set_on_click(tell(L"push"));
    radio->set_on_click(tell(L"radio"));
    fire_all();
    EXPECT_THAT(told, ElementsAre(L"edit", L"option", L"box on", L"push", L"radio"));
    stub_context<push_button_form> context;
    const com::ptr<IMaterializableElement> element(push.get());
    element->materialize(context);
    element->dematerialize(context);
    told.clear();
    com::ptr<push_button_control_impl::facade>(push.get())->fire_click(panel);
    EXPECT_THAT(told, ElementsAre(L"push"));
}

TEST_F(facades, of_radio_buttons_know_whether_they_begin_a_group) {
    for (const bool first : {true, false}) {
        const auto button = create_radio_button_control(first);
        EXPECT_EQ(com::ptr<radio_button_control_impl::facade>(button.get())->is_group_start(), first);
    }
}

TEST_F(facades, have_their_form_until_it_is_taken_away) {
    const auto box = create_group_box_control();
    const com::ptr<IMaterializableElement> element(box.get());
    stub_context<group_box_form> context;
    element->materialize(context);
    context.when_taken_away = [&] {
        box->set_text(L"last");
        EXPECT_THAT([&] { box->set_padding(1, 2, 3, 4); },
                    ThrowsMessage<std::logic_error>(already_materialized));
    };
    element->dematerialize(context);
    EXPECT_THAT(calls, ElementsAre(L"text last"));
    EXPECT_THAT([&] { box->set_text(L"a"); }, ThrowsMessage<std::logic_error>(not_materialized));
}

TEST_F(facades, keep_a_form_that_could_not_be_taken_away) {
    const auto label = create_label_control();
    const com::ptr<IMaterializableElement> element(label.get());
    stub_context<label_form> context;
    element->materialize(context);
    context.when_taken_away = [] { throw std::runtime_error("not now"); };
    EXPECT_THAT([&] { element->dematerialize(context); }, ThrowsMessage<std::runtime_error>("not now"));
    label->set_text(L"a");
    context.when_taken_away = nullptr;
    element->dematerialize(context);
    EXPECT_EQ(context.taken_away, 1);
    EXPECT_THAT([&] { label->set_text(L"b"); }, ThrowsMessage<std::logic_error>(not_materialized));
}

TEST_F(facades, may_come_again_while_their_form_is_taken_away) {
    const auto label = create_label_control();
    const com::ptr<IMaterializableElement> element(label.get());
    stub_context<label_form> context;
    element->materialize(context);
    context.when_taken_away = [&] {
        context.when_taken_away = nullptr;
        element->materialize(context);
    };
    element->dematerialize(context);
    label->set_text(L"second");
    EXPECT_THAT(calls, ElementsAre(L"text second"));
    element->dematerialize(context);
    EXPECT_EQ(context.taken_away, 2);
}

TEST_F(facades, refuse_a_form_of_another_kind_and_stay_as_they_were) {
    const auto label = create_label_control();
    const com::ptr<IMaterializableElement> element(label.get());
    stub_context<edit_form> wrong;
    try {
        element->materialize(wrong);
        ADD_FAILURE() << "nothing thrown";
    } catch (const com::error& failure) {
        EXPECT_EQ(failure.hresult, E_NOINTERFACE);
    }
    EXPECT_THAT([&] { label->set_text(L"a"); }, ThrowsMessage<std::logic_error>(not_materialized));
    stub_context<label_form> right;
    const auto live = element->materialize(right);
    EXPECT_TRUE(live.try_as<label_control_impl::materialization>());
    label->set_text(L"a");
    EXPECT_THAT(calls, ElementsAre(L"text a"));
    element->dematerialize(right);
}

/// A handler that counts how often it is copied.
struct copied_handler {
    explicit copied_handler(int& counter) noexcept : copies(&counter) {}
    copied_handler(const copied_handler& other) noexcept : copies(other.copies) { ++*copies; }
    copied_handler(copied_handler&& other) noexcept = default;
    copied_handler& operator=(const copied_handler&) = delete;
    copied_handler& operator=(copied_handler&&) = delete;
    ~copied_handler() = default;
    template <class... Arguments>
    void operator()(Arguments...) const {}

    int* copies;
};

TEST_F(facades, keep_and_call_their_handlers_without_a_copy) {
    int copies = 0;
    const auto edit = create_edit_control();
    const auto option = create_option_control();
    const auto box = create_check_box_control();
    const auto push = create_push_button_control();
    const auto radio = create_radio_button_control(false);
    edit->set_on_changed(copied_handler(copies));
    option->set_on_selection_changed(copied_handler(copies));
    box->set_on_toggled(copied_handler(copies));
    push->set_on_click(copied_handler(copies));
    radio->set_on_click(copied_handler(copies));
    com::ptr<check_box_control_impl::facade>(box.get())->fire_toggled(nullptr, true);
    com::ptr<push_button_control_impl::facade>(push.get())->fire_click(nullptr);
    EXPECT_EQ(copies, 0);
}

TEST_F(facades, let_a_handler_replace_itself) {
    const auto button = create_push_button_control();
    const com::ptr<push_button_control_impl::facade> facade(button.get());
    int first = 0;
    int second = 0;
    button->set_on_click([&](IPanel*) {
        button->set_on_click([&](IPanel*) { ++second; });
        ++first;
    });
    facade->fire_click(nullptr);
    facade->fire_click(nullptr);
    EXPECT_EQ(first, 1);
    EXPECT_EQ(second, 1);
}

}  // namespace
