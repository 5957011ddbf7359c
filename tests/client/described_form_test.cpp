// Forms that a program describes, as docs/described-forms.md shows it, in each place where they can be shown.

#include "mossHarbour.ui.h"
#include "support/leak_checked_test.h"

#include <optional>
#include <stdexcept>
#include <string>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace {

using namespace ui::mossHarbour;

class described_form : public test_support::leak_checked_test {
protected:
    static void SetUpTestSuite() { token.emplace(); }
    static void TearDownTestSuite() { token.reset(); }

    void SetUp() override {
        leak_checked_test::SetUp();
        name = create_edit_control();
        save = create_push_button_control();
        const auto stack = create_stack_layout(orientation::vertical);
        stack->add_item(stack_item_details(), name);
        stack_item_details wide(item_alignment::far_side);
        wide.min_width = use_preferred;
        wide.max_width = font_percent(600);
        wide.margin_top = font_percent(50);
        stack->add_item(wide, save);
        layout = stack;
    }
    void TearDown() override {
        name.reset();
        save.reset();
        layout.reset();
        leak_checked_test::TearDown();
    }

    static inline std::optional<d2d::factory> token;
    com::ptr<IEditControl> name;
    com::ptr<IPushButtonControl> save;
    com::ptr<ILayout> layout;
};

struct window_kind {
    const char* name;
    com::ptr<IHwndPanel> (*make)(IServiceProvider*);
};

class described_form_in_a_window : public described_form, public testing::WithParamInterface<window_kind> {};

TEST_P(described_form_in_a_window, comes_alive_is_measured_and_gives_its_text_back) {
    const auto panel = GetParam().make(nullptr);
    const int around = font_percent(100);
    panel->set_padding(around, around, around, around);
    panel->set_content(layout);
    panel->create_window(0, L"Settings", WS_OVERLAPPEDWINDOW, nullptr);
    name->set_text(L"M\u00fcggelsee");
    save->set_text(L"Save");
    const element_metrics wanted = panel->measure();
    EXPECT_GT(wanted.margin_left, 5);
    EXPECT_GT(wanted.preferred_width, 20);
    EXPECT_EQ(wanted.max_width, unbounded_extent);
    const SIZE size = panel->get_window_sizes().preferred;
    EXPECT_GT(size.cx, wanted.preferred_width + 2 * wanted.margin_left);
    EXPECT_EQ(panel->get_window_sizes().maximum.cx, unbounded_extent);
    SetWindowPos(panel->get_window_handle(), nullptr, 0, 0, size.cx, size.cy, SWP_NOMOVE | SWP_NOZORDER);
    ShowWindow(panel->get_window_handle(), SW_SHOW);
    wchar_t text[32];
    name->get_text(text, 32);
    EXPECT_STREQ(text, L"M\u00fcggelsee");
    RECT client{};
    GetClientRect(panel->get_window_handle(), &client);
    EXPECT_EQ(client.right, wanted.preferred_width + wanted.margin_left + wanted.margin_right);
    EXPECT_EQ(client.bottom, wanted.preferred_height + wanted.margin_top + wanted.margin_bottom);
    panel->destroy_window();
    EXPECT_TRUE(panel->set_content(nullptr) == layout);
    EXPECT_THROW(name->set_text(L"text"), std::logic_error);
}

INSTANTIATE_TEST_SUITE_P(of, described_form_in_a_window,
                         testing::Values(window_kind{"the_users_choice", create_hwnd_panel},
                                         window_kind{"native_controls", create_win32_hwnd_panel},
                                         window_kind{"the_scene", create_d2d_hwnd_panel}),
                         [](const auto& of) { return std::string(of.param.name); });

TEST_F(described_form, stands_below_a_node_of_the_program) {
    const auto node = d2d::scene::create_node();
    auto live = materialize_d2d_layout(nullptr, node.get(), layout);
    save->set_text(L"Save");
    d2d_measure_context context;
    const element_metrics wanted = live->measure(context);
    EXPECT_GT(wanted.preferred_width, 20);
    live->arrange(10, 20, 10 + wanted.preferred_width, 20 + wanted.preferred_height);
    const D2D_RECT_F bounds = node->get_bounds(true);
    EXPECT_FLOAT_EQ(bounds.left, 10);
    EXPECT_FLOAT_EQ(bounds.top, 20);
    EXPECT_FLOAT_EQ(bounds.right, static_cast<float>(10 + wanted.preferred_width));
    EXPECT_FLOAT_EQ(bounds.bottom, static_cast<float>(20 + wanted.preferred_height));
    live.reset();
    dematerialize_d2d_layout(nullptr, node.get(), layout);
    EXPECT_EQ(node->get_bounds(true).right, 0);
}

TEST_F(described_form, stands_in_a_panel_for_a_scene) {
    const auto panel = create_d2d_scene_node_panel(nullptr);
    panel->set_content(layout);
    name->set_text(L"Kutter");
    const auto wanted = panel->measure();
    EXPECT_EQ(panel->get_measured().preferred_width, wanted.preferred_width);
    panel->arrange(0, 0, 300, wanted.preferred_height);
    EXPECT_FLOAT_EQ(panel->get_node()->get_bounds(true).right, 300);
    panel->set_content(nullptr);
}

TEST_F(described_form, moves_from_one_place_to_the_next_with_nothing_but_its_description) {
    int clicks = 0;
    save->set_on_click([&](IPanel*) { ++clicks; });
    const auto in_turn = {create_win32_hwnd_panel, create_d2d_hwnd_panel, create_win32_hwnd_panel};
    for (const auto make : in_turn) {
        const auto panel = make(nullptr);
        panel->set_content(layout);
        panel->create_window(0, L"Settings", WS_POPUP, nullptr);
        wchar_t text[8] = L"?";
        name->get_text(text, 8);
        EXPECT_STREQ(text, L"");
        name->set_text(L"Kutter");
        if (const HWND button = FindWindowExW(panel->get_window_handle(), nullptr, L"Button", nullptr)) {
            SendMessageW(panel->get_window_handle(), WM_COMMAND, MAKEWPARAM(0, BN_CLICKED),
                         reinterpret_cast<LPARAM>(button));
        }
        panel->destroy_window();
        panel->set_content(nullptr);
        EXPECT_THROW(name->set_text(L"text"), std::logic_error);
    }
    EXPECT_EQ(clicks, 2);
}

TEST_F(described_form, with_a_control_that_has_no_form_is_refused) {
    const auto panel = create_d2d_scene_node_panel(nullptr);
    const auto stack = create_stack_layout(orientation::horizontal);
    stack->add_item({}, layout);
    stack->add_item({}, create_option_control());
    EXPECT_THAT([&] { panel->set_content(stack); },
                testing::ThrowsMessage<std::runtime_error>("Unable to materialized the specified element!"));
    EXPECT_THROW(name->set_text(L"text"), std::logic_error);
    panel->set_content(layout);
    name->set_text(L"text");
    panel->set_content(nullptr);
}

}  // namespace
