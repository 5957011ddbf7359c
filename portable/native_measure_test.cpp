// How large native controls want to be, and where they are placed.

#include "portable/GDI_measure_context.h"
#include "portable/testing/every_kind.h"
#include "portable/testing/native_panel_fixture.h"
#include "portable/testing/stub_element.h"
#include "portable/testing/told_sizes.h"
#include "portable/toolkit_font.h"

namespace ui::mossHarbour {
namespace {

using stubs::edges_of;
using stubs::fields_of;
using testing::ElementsAre;

class native_measure : public native_panel_fixture {
protected:
    [[nodiscard]] static com::ptr<IMaterializedElement> live(HWND window) {
        return com::ptr<IMaterializedElement>(widget_of(window));
    }
    [[nodiscard]] static std::vector<int> measured(HWND window, measure_context& context) {
        return fields_of(live(window)->measure(context));
    }
    [[nodiscard]] static std::vector<LONG> place_of(HWND window) {
        RECT place{};
        GetWindowRect(window, &place);
        MapWindowPoints(nullptr, GetParent(window), reinterpret_cast<POINT*>(&place), 2);
        return edges_of(place);
    }

    told_sizes sizes;
};

std::vector<int> fixed(SIZE size) {
    return metrics_of(size, size, size);
}

TEST_F(native_measure, of_controls_with_a_caption_is_the_caption_s_with_room_around_it) {
    const auto label = create_label_control();
    const auto check_box = create_check_box_control();
    const auto radio = create_radio_button_control(false);
    const auto button = create_push_button_control();
    const auto windows = show({label, check_box, radio, button});
    EXPECT_EQ(measured(windows[0], sizes), fixed({0, 16}));
    label->set_text(L"text");
    check_box->set_text(L"text");
    radio->set_text(L"text");
    button->set_text(L"text");
    EXPECT_EQ(measured(windows[0], sizes), fixed({40, 16}));
    EXPECT_EQ(measured(windows[1], sizes), fixed({58, 18}));
    EXPECT_EQ(measured(windows[2], sizes), fixed({58, 18}));
    EXPECT_EQ(measured(windows[3], sizes), fixed({48, 24}));
}

TEST_F(native_measure, of_an_edit_is_one_line_that_takes_any_width) {
    const auto edit = create_edit_control();
    const HWND window = show({edit}).front();
    EXPECT_EQ(measured(window, sizes), metrics_of({18, 22}, {unbounded_extent, 22}, {18, 22}));
    edit->set_text(L"harbour");
    EXPECT_EQ(measured(window, sizes), metrics_of({18, 22}, {unbounded_extent, 22}, {78, 22}));
    told_sizes tall({{L"harbour", {70, 40}}});
    EXPECT_EQ(measured(window, tall), metrics_of({18, 22}, {unbounded_extent, 22}, {78, 46}));
    told_sizes wide_m({{L"M", {100, 30}}});
    EXPECT_EQ(measured(window, wide_m), metrics_of({108, 36}, {unbounded_extent, 36}, {108, 36}));
}

TEST_F(native_measure, of_an_option_is_that_of_its_widest_and_tallest_text) {
    const auto option = create_option_control();
    const HWND window = show({option}).front();
    EXPECT_EQ(measured(window, sizes), metrics_of({18, 22}, {unbounded_extent, 22}, {18, 22}));
    for (const wchar_t* const text : {L"red", L"", L"yellow", L"blue"}) option->add_option(text);
    EXPECT_EQ(measured(window, sizes), metrics_of({18, 22}, {unbounded_extent, 22}, {68, 22}));
    told_sizes uneven({{L"red", {5, 50}}});
    EXPECT_EQ(measured(window, uneven), metrics_of({18, 22}, {unbounded_extent, 22}, {68, 56}));
    option->add_option(std::wstring(5000, L'x').c_str());
    EXPECT_EQ(measured(window, sizes), metrics_of({18, 22}, {unbounded_extent, 22}, {50008, 22}));
}

struct group_case {
    element_metrics content;
    std::wstring caption;
    int padding;
    std::vector<int> expected;
};

TEST_F(native_measure, of_a_group_box_goes_around_its_content_and_caption) {
    const int line = font_height;
    const group_case cases[] = {
        // The caption is wider than the content can be: 30, the padding on both sides, and the frame.
        {{0, 0, 0, 0, 10, 5, 20, 5, 15, 5},
         L"abc",
         font_percent(100),
         metrics_of({30 + 2 * line + 4, 5 + 16 + 2 + 2 * line}, {30 + 2 * line + 4, 5 + 16 + 2 + 2 * line},
                    {30 + 2 * line + 4, 5 + 16 + 2 + 2 * line})},
        // The content can be as wide as the caption: then its own widths count.
        {{0, 0, 0, 0, 10, 5, 30, 9, 15, 7}, L"abc", 0, metrics_of({14, 23}, {34, 27}, {19, 25})},
        // The content's margins where they are larger than the padding; a size without limit stays so.
        {{1, 30, 2, 3, 100, 100, unbounded_extent, unbounded_extent, 100, 100},
         L"",
         20,
         metrics_of({144, 100 + 16 + 2 + 30 + 20}, {unbounded_extent, unbounded_extent},
                    {144, 100 + 16 + 2 + 30 + 20})}};
    for (const auto& [content, caption, padding, expected] : cases) {
        const auto group = create_group_box_control();
        const auto inner = create_stack_layout(orientation::vertical);
        inner->add_item(stack_item_details(), com::create_object<stubs::stub_element>(content));
        group->set_content(inner);
        group->set_padding(padding, padding, padding, padding);
        const HWND window = show({group}).front();
        group->set_text(caption.c_str());
        EXPECT_EQ(measured(window, sizes), expected) << padding;
        panel->set_content(nullptr);
    }
}

TEST_F(native_measure, of_a_group_box_without_content_is_its_caption_s) {
    const auto group = create_group_box_control();
    const HWND window = show({group}).front();
    group->set_text(L"abc");
    EXPECT_EQ(measured(window, sizes), fixed({34, 18}));
    live(window)->arrange(0, 0, 50, 40);
    EXPECT_THAT(place_of(window), ElementsAre(0, 0, 50, 40));
}

TEST_F(native_measure, of_a_group_box_fails_behind_its_time) {
    const auto group = create_group_box_control();
    const auto element = live(show({group}).front());
    panel->set_content(nullptr);
    EXPECT_THAT([&] { static_cast<void>(element->measure(sizes)); },
                testing::ThrowsMessage<std::logic_error>("Facade not available!"));
}

TEST_F(native_measure, is_the_place_that_controls_are_given) {
    for (const auto& [element, kind, style, ex_style] : every_kind()) {
        if (kind == L"COMBOBOX") continue;  // keeps the height of its line
        const HWND window = show({element}).front();
        live(window)->arrange(10, 20, 110, 70);
        EXPECT_THAT(place_of(window), ElementsAre(10, 20, 110, 70)) << kind;
        live(window)->arrange(-5, -6, 7, 8);
        EXPECT_THAT(place_of(window), ElementsAre(-5, -6, 7, 8)) << kind;
    }
}

TEST_F(native_measure, of_an_option_gives_it_its_width) {
    const HWND window = show({create_option_control()}).front();
    live(window)->arrange(10, 20, 110, 42);
    const auto place = place_of(window);
    EXPECT_EQ(place[0], 10);
    EXPECT_EQ(place[1], 20);
    EXPECT_EQ(place[2], 110);
}

TEST_F(native_measure, places_the_content_of_a_group_box_within_its_frame) {
    const auto stub =
        com::create_object<stubs::stub_element>(element_metrics{1, 30, 2, 3, 10, 10, 500, 500, 100, 100});
    const auto group = create_group_box_control();
    group->set_content(stack_of({stub}));
    group->set_padding(20, 10, 7, 8);
    const HWND window = show({group}).front();
    group->set_text(L"abc");
    live(window)->arrange(100, 200, 300, 400);
    ASSERT_EQ(stub->placed.size(), 1u);
    stub->placed.clear();
    static_cast<void>(live(window)->measure(sizes));
    live(window)->arrange(100, 200, 300, 400);
    EXPECT_THAT(place_of(window), ElementsAre(100, 200, 300, 400));
    ASSERT_EQ(stub->placed.size(), 1u);
    EXPECT_THAT(edges_of(stub->placed[0]), ElementsAre(2 + 20, 16 + 30, 200 - 2 - 7, 200 - 2 - 8));
}

// -- text
// -----------------------------------------------------------------------------------------------------

TEST_F(native_measure, of_text_is_what_the_system_draws_in_the_toolkit_font) {
    const HWND window = create_window();
    const HDC dc = GetDC(window);
    const HGDIOBJ former = SelectObject(dc, toolkit_font);
    for (const std::wstring& text : {std::wstring(L"M"), std::wstring(L"&File"), std::wstring(L"two\nlines"),
                                     std::wstring(L"a long text that nothing breaks"), std::wstring(L" ")}) {
        RECT expected{0, 0, 0x7fff, 0x7fff};
        DrawTextW(dc, text.c_str(), -1, &expected, DT_CALCRECT);
        GDI_measure_context context(window);
        const SIZE size = context.measure_text(text.data(), text.size());
        EXPECT_EQ(size.cx, expected.right);
        EXPECT_EQ(size.cy, expected.bottom);
        EXPECT_GE(size.cy, font_height);
    }
    SelectObject(dc, former);
    ReleaseDC(window, dc);
}

TEST_F(native_measure, of_text_is_exact_for_a_part_of_it) {
    GDI_measure_context context(create_window());
    EXPECT_EQ(context.measure_text(L"MMM", 1).cx, context.measure_text(L"M", 1).cx);
    EXPECT_EQ(context.measure_text(L"MMM", 3).cx, 3 * context.measure_text(L"M", 1).cx);
    EXPECT_EQ(context.measure_text(L"a\nb", 3).cy, 2 * font_height);
    const SIZE none = context.measure_text(L"", 0);
    EXPECT_EQ(none.cx, 0);
    EXPECT_EQ(none.cy, 0);
}

}  // namespace
}  // namespace ui::mossHarbour
