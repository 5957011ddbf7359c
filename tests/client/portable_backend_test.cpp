// One description, shown in both forms of its controls: the same events, values and limits. Where the forms
// differ on purpose, a test says so.

#include "d2d/factory.h"
#include "described_form.h"
#include "portable_forms.h"
#include "support/input.h"
#include "support/leak_checked_test.h"
#include "support/message_pump.h"
#include "ui/mossHarbour/IGridLayout.h"
#include "ui/mossHarbour/IHwndPanel.h"
#include "ui/mossHarbour/IModalService.h"
#include "ui/mossHarbour/IOptionControl.h"

#include <algorithm>
#include <optional>
#include <stdexcept>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace {

using namespace ui::mossHarbour;
using client_test::described_form;
using client_test::form;
using test_support::click;
using testing::ElementsAre;
using testing::IsEmpty;
using testing::ThrowsMessage;

class backend : public test_support::leak_checked_test, public testing::WithParamInterface<form> {
protected:
    static void SetUpTestSuite() { graphics.emplace(); }
    static void TearDownTestSuite() { graphics.reset(); }
    void SetUp() override {
        leak_checked_test::SetUp();
        panel = panel_of(GetParam());
        described.emplace([this](IPanel* in) { EXPECT_TRUE(com::ptr<IPanel>(panel.get()) == in); });
    }
    void TearDown() override {
        if (panel) close(*panel);
        panel.reset();
        described.reset();
        leak_checked_test::TearDown();
    }

    [[nodiscard]] static com::ptr<IHwndPanel> panel_of(form which) {
        return which == form::scene ? create_d2d_hwnd_panel(nullptr) : create_win32_hwnd_panel(nullptr);
    }
    [[nodiscard]] static form other(form which) { return which == form::scene ? form::native : form::scene; }
    static void close(IHwndPanel& closed) {
        closed.set_content(nullptr);
        closed.destroy_window();
    }
    [[nodiscard]] HWND window() const { return panel->get_window_handle(); }

    /// Everything a program does to have a form on the screen.
    void show(const com::ptr<ILayout>& content, const std::function<void()>& on_created = {}) const {
        panel->set_content(content);
        panel->create_window(0, L"form", WS_POPUP, nullptr);
        if (on_created) on_created();
        const int around = described_form::padding;
        panel->set_padding(around, around, around, around);
        panel->measure();
        const SIZE size = panel->get_window_sizes().preferred;
        SetWindowPos(window(), nullptr, 60, 60, size.cx, size.cy, SWP_NOZORDER | SWP_NOACTIVATE);
        test_support::move_mouse(GetDesktopWindow(), {700, 600});
        test_support::bring_to_front(window());
    }
    void show_form() {
        show(described->layout(), [this] { described->set_texts(); });
    }
    /// Clicks, and waits for what that is to bring about.
    void click_for(POINT point, const std::string& event) const {
        const std::size_t before = described->events.size();
        click(window(), point);
        ASSERT_TRUE(test_support::pump_until([&] { return described->events.size() > before; })) << event;
        EXPECT_EQ(described->events.back(), event);
    }
    [[nodiscard]] bool becomes(const std::wstring& text) const {
        return test_support::pump_until([&] { return described->edited() == text; });
    }

    static inline std::optional<d2d::factory> graphics;
    com::ptr<IHwndPanel> panel;
    std::optional<described_form> described;
};

INSTANTIATE_TEST_SUITE_P(forms, backend, testing::ValuesIn(client_test::all_forms),
                         client_test::name_of<testing::TestParamInfo<form>>);

// -- events and values
// ----------------------------------------------------------------------------------------

TEST_P(backend, tells_of_each_click_and_keeps_its_mark) {
    show_form();
    click_for(described_form::in_button, "button");
    click_for(described_form::in_box, "box on");
    click_for(described_form::in_first, "first");
    EXPECT_EQ(described->marks(), "x-x-");
    click_for(described_form::beside_in_box, "box off");
    click_for(described_form::in_inner, "inner on");
    click_for(described_form::in_second, "second");
    EXPECT_EQ(described->marks(), "-x-x");
    click(window(), described_form::on_label);
    EXPECT_THAT(described->events, ElementsAre("button", "box on", "first", "box off", "inner on", "second"));
}

TEST_P(backend, tells_nothing_of_what_the_program_sets) {
    show_form();
    described->box->set_checked(true);
    described->first->set_checked(true);
    described->edit->set_text(L"harbour");
    EXPECT_EQ(described->marks(), "x-x-");
    EXPECT_EQ(described->edited(), L"harbour");
    wchar_t part[] = L"????";
    described->edit->get_text(part, 4);
    EXPECT_STREQ(part, L"har");
    described->box->set_checked(false);
    EXPECT_EQ(described->marks(), "--x-");
    EXPECT_THAT(described->events, IsEmpty());
}

TEST_P(backend, takes_what_is_typed_and_tells_of_it_in_the_native_form_alone) {
    show_form();
    click(window(), described_form::in_edit);
    test_support::type_text(L"sea");
    EXPECT_TRUE(becomes(L"sea"));
    test_support::strike_key(VK_BACK);
    EXPECT_TRUE(becomes(L"se"));
    const std::vector<std::string> changes(GetParam() == form::native ? 4 : 0, "changed");
    EXPECT_EQ(described->events, changes);
}

TEST_P(backend, takes_no_click_on_a_disabled_button) {
    show_form();
    described->button->set_enabled(false);
    click(window(), described_form::in_button);
    described->button->set_enabled(true);
    click_for(described_form::beside_in_button, "button");
    EXPECT_THAT(described->events, ElementsAre("button"));
}

TEST_P(backend, takes_no_press_that_is_released_elsewhere) {
    show_form();
    test_support::drag(window(), described_form::in_button, described_form::on_label);
    EXPECT_THAT(described->events, IsEmpty());
    click_for(described_form::beside_in_button, "button");
}

TEST_P(backend, lets_a_handler_take_everything_away) {
    show_form();
    bool done = false;
    described->button->set_on_click([&](IPanel* in) {
        in->set_content(nullptr);
        described.reset();
        done = true;
    });
    click(window(), described_form::in_button);
    EXPECT_TRUE(test_support::pump_until([&] { return done; }));
}

// -- lives
// ----------------------------------------------------------------------------------------------------

TEST_P(backend, starts_blank_each_time_and_with_the_same_handlers) {
    show_form();
    described->box->set_checked(true);
    described->edit->set_text(L"harbour");
    close(*panel);
    EXPECT_THAT([&] { described->set_texts(); },
                ThrowsMessage<std::logic_error>(
                    "An operation was attempted on a control that has not been materialized"));
    described->group->set_padding(3, 5, 3, 3);
    show_form();
    EXPECT_EQ(described->marks(), "----");
    EXPECT_EQ(described->edited(), L"");
    EXPECT_THAT([&] { described->group->set_padding(0, 0, 0, 0); },
                ThrowsMessage<std::logic_error>(
                    "An operation was attempted on a control that has already been materialized"));
    click_for(described_form::in_box, "box on");
}

TEST_P(backend, hands_a_form_over_to_the_other_one) {
    show_form();
    click_for(described_form::in_box, "box on");
    close(*panel);
    panel = panel_of(other(GetParam()));
    show_form();
    EXPECT_EQ(described->marks(), "----");
    click_for(described_form::beside_in_box, "box on");
    click_for(described_form::in_button, "button");
    EXPECT_THAT(described->events, ElementsAre("box on", "box on", "button"));
}

TEST_P(backend, has_options_in_the_native_form_alone) {
    const auto option = create_option_control();
    const auto content = client_test::fixed(option, 100, 24);
    if (GetParam() == form::scene) {
        EXPECT_THAT([&] { panel->set_content(content); },
                    ThrowsMessage<std::runtime_error>("Unable to materialized the specified element!"));
        return;
    }
    show(content, [&] { option->add_option(L"red"); });
    option->select_option(0);
    EXPECT_EQ(option->get_selection(), 0);
}

// -- sizes
// ----------------------------------------------------------------------------------------------------

std::vector<LONG> sides(SIZE size) {
    return {size.cx, size.cy};
}

TEST_P(backend, gives_a_form_the_same_size) {
    show_form();
    const auto sizes = panel->get_window_sizes();
    EXPECT_EQ(sides(sizes.minimum), sides(described_form::size));
    EXPECT_EQ(sides(sizes.preferred), sides(described_form::size));
    EXPECT_EQ(sides(sizes.maximum), sides(described_form::size));
    RECT client{};
    GetClientRect(window(), &client);
    EXPECT_EQ(sides({client.right, client.bottom}), sides(described_form::size));
}

struct limit_case {
    const char* name;
    int min_width;
    int preferred_width;
    int max_width;
    int padding;
    int margin;
};

TEST_P(backend, gives_a_window_the_same_limits) {
    const limit_case cases[] = {{"fixed", 80, 80, 80, 0, 0},
                                {"padded", 10, 20, 30, 7, 0},
                                {"margin", 10, 20, 30, 7, 9},
                                {"by the font", 10, 20, 30, font_percent(150), font_percent(50)},
                                {"without limit", 10, 20, unbounded_extent, 5, 0}};
    constexpr DWORD style = WS_OVERLAPPEDWINDOW;
    panel->create_window(0, L"limits", style, nullptr);
    const int em = client_test::font_height();
    const auto pixels = [em](int length) {
        return length < font_percent(0) ? length : (length - font_percent(0)) * em / 100;
    };
    for (const limit_case& in : cases) {
        stack_item_details details;
        details.min_width = in.min_width;
        details.preferred_width = in.preferred_width;
        details.max_width = in.max_width;
        details.min_height = details.preferred_height = details.max_height = 40;
        details.margin_left = in.margin;
        const auto stack = create_stack_layout(orientation::vertical);
        stack->add_item(details, create_push_button_control());
        panel->set_padding(in.padding, 0, 0, 0);
        panel->set_content(stack);
        const auto measured = panel->measure();
        const int left = std::max(pixels(in.padding), pixels(in.margin));
        EXPECT_EQ(measured.margin_left, left) << in.name;
        EXPECT_EQ(measured.min_width, in.min_width) << in.name;
        EXPECT_EQ(measured.preferred_width, in.preferred_width) << in.name;
        EXPECT_EQ(measured.max_width, in.max_width) << in.name;
        const auto outside = [&](int width) {
            RECT frame{0, 0, left + width, 40};
            AdjustWindowRectEx(&frame, style, FALSE, 0);
            return width == unbounded_extent ? LONG{unbounded_extent} : frame.right - frame.left;
        };
        const auto sizes = panel->get_window_sizes();
        EXPECT_EQ(sizes.minimum.cx, outside(in.min_width)) << in.name;
        EXPECT_EQ(sizes.preferred.cx, outside(in.preferred_width)) << in.name;
        EXPECT_EQ(sizes.maximum.cx, outside(in.max_width)) << in.name;
        MINMAXINFO limits{};
        SendMessageW(window(), WM_GETMINMAXINFO, 0, reinterpret_cast<LPARAM>(&limits));
        EXPECT_EQ(limits.ptMinTrackSize.x, sizes.minimum.cx) << in.name;
        EXPECT_EQ(limits.ptMaxTrackSize.x, sizes.maximum.cx) << in.name;
    }
}

TEST_P(backend, measures_a_group_box_without_a_caption_alike) {
    const auto group = create_group_box_control();
    group->set_padding(20, 20, 20, 20);
    group->set_content(client_test::blank(100, 100));
    const auto stack = create_stack_layout(orientation::vertical);
    stack->add_item(stack_item_details(), group);
    show(stack);
    const auto measured = panel->measure();
    EXPECT_EQ(measured.preferred_width, 144);
    EXPECT_EQ(measured.preferred_height, 142);
}

TEST_P(backend, gives_more_room_to_what_can_grow) {
    const auto narrow = create_push_button_control();
    const auto wide = create_push_button_control();
    std::vector<std::string> clicked;
    narrow->set_on_click([&](IPanel*) { clicked.emplace_back("narrow"); });
    wide->set_on_click([&](IPanel*) { clicked.emplace_back("wide"); });
    stack_item_details details;
    details.min_width = details.preferred_width = details.max_width = 60;
    details.min_height = details.preferred_height = details.max_height = 30;
    const auto row = create_stack_layout(orientation::horizontal);
    row->add_item(details, narrow);
    details.max_width = unbounded_extent;
    row->add_item(details, wide);
    show(row);
    SetWindowPos(window(), nullptr, 0, 0, 300, 50, SWP_NOMOVE | SWP_NOZORDER | SWP_NOACTIVATE);
    const auto click_for_one_more = [&](POINT point) {
        const std::size_t before = clicked.size();
        click(window(), point);
        EXPECT_TRUE(test_support::pump_until([&] { return clicked.size() > before; })) << point.x;
    };
    click_for_one_more({10 + 58, 25});
    click_for_one_more({10 + 62, 25});
    click_for_one_more({288, 25});
    EXPECT_THAT(clicked, ElementsAre("narrow", "wide", "wide"));
}

TEST_P(backend, places_a_grid_alike) {
    const auto grid = create_grid_layout();
    std::vector<int> clicked;
    for (int i = 0; i < 4; ++i) {
        const auto button = create_push_button_control();
        button->set_on_click([&clicked, i](IPanel*) { clicked.push_back(i); });
        grid_item_details details;
        details.min_width = details.preferred_width = details.max_width = 40 + 20 * (i % 2);
        details.min_height = details.preferred_height = details.max_height = 20 + 20 * (i / 2);
        details.row = i / 2;
        details.column = i % 2;
        details.margin_right = 6;
        grid->add_item(details, button);
    }
    show(grid);
    EXPECT_EQ(panel->get_window_sizes().preferred.cx, 10 + 40 + 6 + 60 + 10);
    EXPECT_EQ(panel->get_window_sizes().preferred.cy, 10 + 20 + 40 + 10);
    const POINT places[] = {{48, 28}, {58, 28}, {48, 68}, {114, 68}};
    for (const POINT place : places) {
        const std::size_t before = clicked.size();
        click(window(), place);
        EXPECT_TRUE(test_support::pump_until([&] { return clicked.size() > before; })) << place.x;
    }
    EXPECT_THAT(clicked, ElementsAre(0, 1, 2, 3));
}

// -- the window
// -----------------------------------------------------------------------------------------------

TEST_P(backend, asks_the_handler_when_the_user_closes_the_window) {
    int asked = 0;
    panel->set_on_close([&] { ++asked; });
    show(client_test::blank(50, 50));
    SendMessageW(window(), WM_CLOSE, 0, 0);
    EXPECT_EQ(asked, 1);
    EXPECT_TRUE(IsWindowVisible(window()));
}

TEST_P(backend, has_one_window_at_a_time) {
    show_form();
    const HWND first = window();
    panel->create_window(0, L"another", WS_POPUP, nullptr);
    EXPECT_NE(window(), first);
    EXPECT_FALSE(IsWindow(first));
    described->set_texts();
    panel->destroy_window();
    EXPECT_EQ(window(), nullptr);
    panel->destroy_window();
}

TEST_P(backend, gives_back_the_content_it_had) {
    const auto first = client_test::blank(10, 10);
    const auto second = client_test::blank(20, 20);
    EXPECT_FALSE(panel->set_content(first));
    EXPECT_TRUE(panel->set_content(second) == first);
    show(first);
    EXPECT_TRUE(panel->set_content(nullptr) == first);
    EXPECT_FALSE(panel->set_content(nullptr));
}

TEST_P(backend, offers_the_same_services) {
    com::ptr<IModalService> found;
    EXPECT_EQ(
        panel->QueryService(com::guid_of<IModalService>(), com::guid_of<IModalService>(), found.put_void()),
        S_OK);
    EXPECT_TRUE(found);
    void* none = nullptr;
    EXPECT_EQ(panel->QueryService(com::guid_of<IPanel>(), com::guid_of<IPanel>(), &none), E_FAIL);
}

TEST_P(backend, cannot_measure_an_empty_stack) {
    panel->set_content(create_stack_layout(orientation::horizontal));
    panel->create_window(0, L"empty", WS_POPUP, nullptr);
    EXPECT_THAT([&] { panel->measure(); }, ThrowsMessage<std::logic_error>("empty layouts not supported!"));
}

}  // namespace
