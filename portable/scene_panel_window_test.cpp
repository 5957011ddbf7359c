// A panel on the scene in its window: how large that may be, when its content is arranged, what stands in it.

#include "portable/length.h"
#include "portable/testing/panel_window.h"
#include "support/picture.h"
#include "ui/mossHarbour/ICheckBoxControl.h"
#include "ui/mossHarbour/IGridLayout.h"
#include "ui/mossHarbour/ILabelControl.h"
#include "ui/mossHarbour/IOptionControl.h"

#include <algorithm>
#include <cstdint>
#include <stdexcept>
#include <string>

namespace {

using namespace ui::mossHarbour;
using namespace ui::mossHarbour::stubs;
using testing::ElementsAre;
using testing::IsEmpty;
using testing::ThrowsMessage;

class scene_panel_window : public panel_window {};

constexpr int endless = unbounded_extent;
constexpr LONG untouched = 12345;
constexpr std::uint32_t white = 0xFFFFFFFF;

std::vector<LONG> sides_of(SIZE size) {
    return {size.cx, size.cy};
}
std::vector<LONG> sides_of(POINT size) {
    return {size.x, size.y};
}

/// What the window answers when it is asked for its limits.
MINMAXINFO limits_of(HWND window) {
    MINMAXINFO info{};
    info.ptMaxSize = info.ptMaxPosition = info.ptReserved = {untouched, untouched};
    EXPECT_EQ(SendMessageW(window, WM_GETMINMAXINFO, 0, reinterpret_cast<LPARAM>(&info)), 0);
    return info;
}

struct limit_case {
    const char* name;
    DWORD style;
    DWORD ex_style;
    RECT padding;
    element_metrics content;
    RECT margins;  // as they are kept
};

class scene_panel_limits : public scene_panel_window, public testing::WithParamInterface<limit_case> {};

/// The size of a window around a content, without the panel's own arithmetic.
std::vector<LONG> outer_size(const limit_case& in, int width, int height) {
    RECT frame{0, 0, 0, 0};
    AdjustWindowRectEx(&frame, in.style, FALSE, in.ex_style);
    const LONG frame_width = frame.right - frame.left;
    const LONG frame_height = frame.bottom - frame.top;
    return {width == endless ? endless : width + in.margins.left + in.margins.right + frame_width,
            height == endless ? endless : height + in.margins.top + in.margins.bottom + frame_height};
}

TEST_P(scene_panel_limits, are_those_of_the_content_with_margins_and_frame) {
    const limit_case& in = GetParam();
    open(in.style, in.ex_style);
    panel->set_padding(in.padding.left, in.padding.top, in.padding.right, in.padding.bottom);
    panel->set_content(stacked(make_stub(in.content)));
    const element_metrics measured = panel->measure();
    element_metrics expected = in.content;
    expected.margin_left = in.margins.left;
    expected.margin_top = in.margins.top;
    expected.margin_right = in.margins.right;
    expected.margin_bottom = in.margins.bottom;
    EXPECT_EQ(fields_of(measured), fields_of(expected));

    const auto minimum = outer_size(in, in.content.min_width, in.content.min_height);
    const auto maximum = outer_size(in, in.content.max_width, in.content.max_height);
    const auto sizes = panel->get_window_sizes();
    EXPECT_EQ(sides_of(sizes.preferred),
              outer_size(in, in.content.preferred_width, in.content.preferred_height));
    EXPECT_EQ(sides_of(sizes.maximum), maximum);
    EXPECT_EQ(sides_of(sizes.minimum), minimum);
    const MINMAXINFO limits = limits_of(handle());
    EXPECT_EQ(sides_of(limits.ptMinTrackSize), minimum);
    EXPECT_EQ(sides_of(limits.ptMaxTrackSize), maximum);
    for (const POINT& other : {limits.ptMaxSize, limits.ptMaxPosition, limits.ptReserved}) {
        EXPECT_THAT(sides_of(other), ElementsAre(untouched, untouched));
    }
}

constexpr element_metrics plain{0, 0, 0, 0, 30, 20, 300, 200, 100, 50};
constexpr element_metrics wanting_room{9, 1, 2, 8, 30, 20, 300, 200, 100, 50};
constexpr element_metrics endless_width{0, 0, 0, 0, 30, 20, endless, 200, 100, 50};
constexpr element_metrics endless_height{0, 0, 0, 0, 30, 20, 300, endless, 100, 50};
constexpr DWORD framed = WS_OVERLAPPEDWINDOW;

std::vector<limit_case> limit_cases() {
    const LONG line = font_height;
    const LONG third = static_cast<LONG>(33.0f * static_cast<float>(font_height) / 100.0f);
    return {{"bare", WS_POPUP, 0, {}, plain, {}},
            {"padded", WS_POPUP, 0, {1, 2, 3, 4}, plain, {1, 2, 3, 4}},
            {"margins_beyond_padding", WS_POPUP, 0, {5, 5, 5, 5}, wanting_room, {9, 5, 5, 8}},
            {"padding_by_the_font",
             WS_POPUP,
             0,
             {font_percent(100), font_percent(33), font_percent(200), 7},
             plain,
             {line, third, 2 * line, 7}},
            {"endless_width", WS_POPUP, 0, {1, 2, 3, 4}, endless_width, {1, 2, 3, 4}},
            {"endless_height", WS_POPUP, 0, {1, 2, 3, 4}, endless_height, {1, 2, 3, 4}},
            {"framed", framed, 0, {1, 2, 3, 4}, plain, {1, 2, 3, 4}},
            {"framed_endless_width", framed, 0, {}, endless_width, {}},
            {"framed_with_an_edge", framed, WS_EX_CLIENTEDGE, {}, plain, {}},
            {"tool_window", WS_POPUP | WS_CAPTION, WS_EX_TOOLWINDOW, {}, wanting_room, {9, 1, 2, 8}}};
}

INSTANTIATE_TEST_SUITE_P(each, scene_panel_limits, testing::ValuesIn(limit_cases()),
                         [](const auto& of) { return std::string(of.param.name); });

TEST_F(scene_panel_window, has_no_size_to_offer_ahead_of_the_first_measure) {
    open();
    const MINMAXINFO limits = limits_of(handle());
    EXPECT_THAT(sides_of(limits.ptMinTrackSize), ElementsAre(0, 0));
    EXPECT_THAT(sides_of(limits.ptMaxTrackSize), ElementsAre(0, 0));
    EXPECT_THAT(sides_of(panel->get_window_sizes().preferred), ElementsAre(0, 0));
}

TEST_F(scene_panel_window, follows_its_styles_and_padding_at_the_next_measure) {
    open(WS_POPUP);
    panel->set_content(stacked(make_stub(plain)));
    panel->measure();
    SetWindowLongW(handle(), GWL_STYLE, static_cast<LONG>(WS_POPUP | WS_CAPTION));
    panel->set_padding(10, 10, 10, 10);
    EXPECT_THAT(sides_of(panel->get_window_sizes().minimum), ElementsAre(30, 20));
    panel->measure();
    const limit_case now{nullptr, WS_POPUP | WS_CAPTION, 0, {}, plain, {10, 10, 10, 10}};
    EXPECT_EQ(sides_of(panel->get_window_sizes().minimum), outer_size(now, 30, 20));
}

TEST_F(scene_panel_window, cannot_be_sized_beyond_its_limits) {
    open(WS_OVERLAPPEDWINDOW);
    panel->set_content(stacked(make_stub({0, 0, 0, 0, 150, 120, 300, 200, 160, 130})));
    fit();
    const auto size = [this] {
        RECT rect{};
        GetWindowRect(handle(), &rect);
        return SIZE{rect.right - rect.left, rect.bottom - rect.top};
    };
    const auto sizes = panel->get_window_sizes();
    EXPECT_EQ(sides_of(size()), sides_of(sizes.preferred));
    resize(1, 1);
    EXPECT_EQ(sides_of(size()), sides_of(sizes.minimum));
    resize(700, 500);
    EXPECT_EQ(sides_of(size()), sides_of(sizes.maximum));
}

TEST_F(scene_panel_window, arranges_its_content_while_it_shows_and_when_it_is_shown) {
    auto& item = make_stub({0, 0, 0, 0, 10, 10, endless, endless, 100, 50});
    panel->set_content(stacked(item));
    open();
    panel->set_padding(1, 2, 3, 4);
    fit();
    resize(200, 100);
    EXPECT_THAT(item.placed, IsEmpty());
    ShowWindow(handle(), SW_SHOW);
    ASSERT_EQ(item.placed.size(), 1u);
    EXPECT_THAT(edges_of(item.placed[0]), ElementsAre(1, 2, 197, 96));
    resize(300, 120);
    ASSERT_EQ(item.placed.size(), 2u);
    EXPECT_THAT(edges_of(item.placed[1]), ElementsAre(1, 2, 297, 116));
    SetWindowPos(handle(), nullptr, 90, 90, 0, 0, SWP_NOSIZE | SWP_NOZORDER);
    InvalidateRect(handle(), nullptr, FALSE);
    UpdateWindow(handle());
    ShowWindow(handle(), SW_HIDE);
    resize(80, 60);
    EXPECT_EQ(item.placed.size(), 2u);
    ShowWindow(handle(), SW_SHOWNA);
    ASSERT_EQ(item.placed.size(), 3u);
    EXPECT_THAT(edges_of(item.placed[2]), ElementsAre(1, 2, 77, 56));
}

TEST_F(scene_panel_window, shows_nothing_without_a_content) {
    open();
    ShowWindow(handle(), SW_SHOW);
    resize(200, 100);
    EXPECT_FALSE(panel->set_content(nullptr));
    resize(150, 100);
    EXPECT_TRUE(IsWindowVisible(handle()));
}

// Ahead of the first measure, which needs the window: nobody has a size yet.
TEST_F(scene_panel_window, can_be_created_visible_with_any_layout) {
    auto& in_stack = make_stub(plain);
    auto& in_grid = make_stub(plain);
    const auto grid = create_grid_layout();
    grid->add_item({}, com::ptr<IElement>(static_cast<IElement*>(&in_grid)));
    const auto outer = create_stack_layout(orientation::horizontal);
    outer->add_item({}, com::ptr<IElement>(static_cast<IElement*>(&in_stack)));
    outer->add_item({}, grid);
    panel->set_content(outer);
    open(WS_POPUP | WS_VISIBLE);
    resize(200, 100);
    ASSERT_FALSE(in_grid.placed.empty());
    EXPECT_THAT(edges_of(in_grid.placed.back()), ElementsAre(0, 0, 0, 0));
    panel->measure();
    resize(230, 50);
    EXPECT_THAT(edges_of(in_grid.placed.back()), ElementsAre(115, 0, 230, 50));
}

TEST_F(scene_panel_window, materializes_at_once_and_arranges_when_it_is_sized) {
    auto& first = make_stub(plain);
    auto& second = make_stub(plain);
    const auto first_layout = stacked(first);
    const auto second_layout = stacked(second);
    EXPECT_FALSE(panel->set_content(first_layout));
    EXPECT_EQ(first.materialized, 1);
    open();
    EXPECT_EQ(first.materialized, 1);
    fit();
    ShowWindow(handle(), SW_SHOW);
    EXPECT_EQ(first.placed.size(), 1u);
    EXPECT_TRUE(panel->set_content(second_layout) == first_layout);
    EXPECT_EQ(first.materialized, 0);
    EXPECT_EQ(second.materialized, 1);
    EXPECT_THAT(second.placed, IsEmpty());
    panel->measure();
    resize(120, 60);
    EXPECT_EQ(first.placed.size(), 1u);
    ASSERT_EQ(second.placed.size(), 1u);
    EXPECT_THAT(edges_of(second.placed[0]), ElementsAre(0, 0, 120, 60));
    EXPECT_TRUE(panel->set_content(nullptr) == second_layout);
    EXPECT_EQ(second.materialized, 0);
    resize(130, 70);
    EXPECT_EQ(second.placed.size(), 1u);
}

/// A layout of a client's own, which is its own form.
class own_layout
    : public com::base_object<com::object_base, ILayout, IMaterializableElement, IMaterializedElement> {
public:
    com::ptr<IMaterializedElement> materialize(materialization_context&) override {
        if (is_refusing) throw std::runtime_error("refused");
        return this;
    }
    void dematerialize(materialization_context&) override {}
    element_metrics measure(measure_context&) override { return plain; }
    void arrange(int, int, int, int) override { ++arranged; }

    bool is_refusing = false;
    int arranged = 0;

protected:
    ~own_layout() = default;
};

TEST_F(scene_panel_window, arranges_no_content_that_was_taken_out) {
    const auto own = com::create_object<own_layout>();
    const com::ptr<ILayout> layout(own.get());
    open();
    panel->set_content(layout);
    fit();
    ShowWindow(handle(), SW_SHOW);
    EXPECT_EQ(own->arranged, 1);
    EXPECT_TRUE(panel->set_content(nullptr) == layout);
    resize(120, 60);
    EXPECT_EQ(own->arranged, 1);
    panel->set_content(layout);
    own->is_refusing = true;
    EXPECT_THROW(panel->set_content(layout), std::runtime_error);
    resize(130, 70);
    EXPECT_EQ(own->arranged, 1);
}

TEST_F(scene_panel_window, shows_the_new_content_in_place_of_the_old_one) {
    const auto label = create_label_control();
    const auto layout = stacked(label);
    panel->set_content(layout);
    label->set_text(L"Harbour");
    open();
    fit();
    test_support::bring_to_front(handle());
    const auto becomes_blank = [this](bool blank) {
        return test_support::pump_until([&] {
            const auto pixels = test_support::grab_client_area(handle()).pixels;
            return std::all_of(pixels.begin(), pixels.end(), [](auto at) { return at == white; }) == blank;
        });
    };
    EXPECT_TRUE(becomes_blank(false));
    panel->set_content(nullptr);
    EXPECT_TRUE(becomes_blank(true));
    panel->set_content(layout);
    label->set_text(L"Harbour");
    fit();
    EXPECT_TRUE(becomes_blank(false));
}

TEST_F(scene_panel_window, keeps_a_layout_that_fails_without_showing_it) {
    const auto label = create_label_control();
    const auto working = stacked(label);
    const auto failing = create_stack_layout(orientation::vertical);
    const auto box = create_check_box_control();
    failing->add_item({}, box);
    failing->add_item({}, create_option_control());
    open();
    panel->set_content(working);
    fit();
    ShowWindow(handle(), SW_SHOW);
    EXPECT_THAT([&] { panel->set_content(failing); },
                ThrowsMessage<std::runtime_error>("Unable to materialized the specified element!"));
    EXPECT_THROW(label->set_text(L"text"), std::logic_error);  // the former content is gone
    EXPECT_THROW(box->set_text(L"text"), std::logic_error);    // and so is what stood already of the new one
    resize(150, 90);
    EXPECT_TRUE(panel->set_content(working) == failing);
    label->set_text(L"text");
}

TEST_F(scene_panel_window, keeps_its_content_when_the_window_goes) {
    const auto box = create_check_box_control();
    panel->set_content(stacked(box));
    EXPECT_EQ(panel->get_window_handle(), nullptr);
    box->set_checked(true);
    for (int round = 0; round < 2; ++round) {
        open();
        EXPECT_TRUE(IsWindow(handle()));
        fit();
        ShowWindow(handle(), SW_SHOW);
        panel->destroy_window();
        EXPECT_EQ(panel->get_window_handle(), nullptr);
        EXPECT_TRUE(box->is_checked());
    }
    panel->destroy_window();  // nothing is there
}

TEST_F(scene_panel_window, goes_with_the_panel) {
    open();
    const HWND window = handle();
    panel.reset();
    EXPECT_FALSE(IsWindow(window));
}

TEST_F(scene_panel_window, belongs_to_its_parent) {
    open(WS_OVERLAPPEDWINDOW);
    const auto inner = create_d2d_hwnd_panel(nullptr);
    const HWND child = inner->create_window(0, nullptr, WS_CHILD, handle());
    EXPECT_EQ(child, inner->get_window_handle());
    EXPECT_EQ(GetParent(child), handle());
    inner->destroy_window();
}

TEST_F(scene_panel_window, leaves_all_keys_to_the_scene) {
    open();
    for (const int key : {VK_TAB, VK_RETURN, VK_ESCAPE}) {
        EXPECT_FALSE(panel->translate_message({handle(), WM_KEYDOWN, static_cast<WPARAM>(key), 0, 0, {}}));
    }
}

TEST_F(scene_panel_window, asks_its_handler_to_close) {
    open();
    int asked = 0;
    panel->set_on_close([&] { ++asked; });
    EXPECT_EQ(SendMessageW(handle(), WM_CLOSE, 0, 0), 0);
    EXPECT_EQ(asked, 1);
    EXPECT_TRUE(IsWindow(handle()));
    MSG message{};
    EXPECT_FALSE(PeekMessageW(&message, nullptr, WM_QUIT, WM_QUIT, PM_REMOVE));
    panel->set_on_close([&] { panel->destroy_window(); });
    const HWND window = handle();
    SendMessageW(window, WM_CLOSE, 0, 0);
    EXPECT_FALSE(IsWindow(window));
    EXPECT_EQ(panel->get_window_handle(), nullptr);
}

// As every window that shows a view does: its owner destroys it behind the loop.
TEST_F(scene_panel_window, ends_the_message_loop_without_a_handler) {
    for (const bool had_one : {false, true}) {
        open();
        if (had_one) panel->set_on_close([] { FAIL(); });
        panel->set_on_close(nullptr);
        EXPECT_EQ(SendMessageW(handle(), WM_CLOSE, 0, 0), 0);
        EXPECT_TRUE(IsWindow(handle()));
        MSG message{};
        EXPECT_TRUE(PeekMessageW(&message, nullptr, WM_QUIT, WM_QUIT, PM_REMOVE));
        panel->destroy_window();
    }
}

TEST_F(scene_panel_window, may_be_released_by_the_handler_that_closes_it) {
    const auto box = create_check_box_control();
    panel->set_content(stacked(box));
    open();
    ShowWindow(handle(), SW_SHOW);
    const HWND window = handle();
    panel->set_on_close([this] {
        panel->set_content(nullptr);
        panel.reset();
    });
    SendMessageW(window, WM_CLOSE, 0, 0);
    EXPECT_FALSE(IsWindow(window));
    EXPECT_FALSE(panel);
}

TEST_F(scene_panel_window, passes_on_what_its_handler_throws) {
    open();
    panel->set_on_close([] { throw std::runtime_error("not now"); });
    EXPECT_THAT([this] { SendMessageW(handle(), WM_CLOSE, 0, 0); },
                ThrowsMessage<std::runtime_error>("not now"));
    EXPECT_TRUE(IsWindow(handle()));
}

}  // namespace
