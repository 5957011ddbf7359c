// Controls of a description on the scene.

#include "d2d/factory.h"
#include "portable/group_box_measure.h"
#include "portable/scene_metrics.h"
#include "support/leak_checked_test.h"
#include "ui/mossHarbour/ICheckBoxControl.h"
#include "ui/mossHarbour/ID2DScenePanel.h"
#include "ui/mossHarbour/IEditControl.h"
#include "ui/mossHarbour/IGroupBoxControl.h"
#include "ui/mossHarbour/ILabelControl.h"
#include "ui/mossHarbour/IListViewControl.h"
#include "ui/mossHarbour/IOptionControl.h"
#include "ui/mossHarbour/IPushButtonControl.h"
#include "ui/mossHarbour/IRadioButtonControl.h"
#include "ui/mossHarbour/IStackLayout.h"

#include <cfloat>
#include <cmath>
#include <limits>
#include <optional>
#include <string>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace {

using namespace ui::mossHarbour;
using testing::ThrowsMessage;

class scene_panel : public test_support::leak_checked_test {
protected:
    static void SetUpTestSuite() { graphics.emplace(); }
    static void TearDownTestSuite() { graphics.reset(); }

    void show(const com::ptr<IElement>& element) {
        const auto stack = create_stack_layout(orientation::vertical);
        stack->add_item({}, element);
        panel->set_content(stack);
    }
    void SetUp() override {
        leak_checked_test::SetUp();
        panel = create_d2d_scene_node_panel(nullptr);
    }
    void TearDown() override {
        panel->set_content(nullptr);
        panel.reset();
        leak_checked_test::TearDown();
    }

    com::ptr<ID2DScenePanel> panel;

private:
    static std::optional<d2d::factory> graphics;
};
std::optional<d2d::factory> scene_panel::graphics;

struct size_case {
    float size;
    int pixels;
};

TEST(pixels_for, rounds_up_and_keeps_what_has_no_limit) {
    const size_case cases[] = {{40.2f, 41},
                               {40, 40},
                               {0, 0},
                               {-0.5f, 0},
                               {-1.5f, -1},
                               {FLT_MAX, unbounded_extent},
                               {16777215, unbounded_extent},
                               {16777214, 16777214},
                               {std::numeric_limits<float>::infinity(), unbounded_extent},
                               {std::numeric_limits<float>::quiet_NaN(), 0}};
    for (const auto& [size, pixels] : cases) EXPECT_EQ(pixels_for(size), pixels) << size;
}

TEST(pixel_metrics, have_each_size_rounded_up_and_no_margins) {
    const auto measured =
        pixel_metrics({{1, 2, 3, 4}, {10.1f, 20}, {30.5f, d2d::scene::layout::unlimited}, {50, 60.9f}});
    EXPECT_EQ(measured.margin_left, 0);
    EXPECT_EQ(measured.margin_top, 0);
    EXPECT_EQ(measured.margin_right, 0);
    EXPECT_EQ(measured.margin_bottom, 0);
    EXPECT_EQ(measured.min_width, 11);
    EXPECT_EQ(measured.min_height, 20);
    EXPECT_EQ(measured.max_width, 31);
    EXPECT_EQ(measured.max_height, unbounded_extent);
    EXPECT_EQ(measured.preferred_width, 50);
    EXPECT_EQ(measured.preferred_height, 61);
}

TEST(group_box_measure, adds_the_larger_of_padding_and_margins) {
    const element_metrics content{1, 30, 2, 3, 100, 100, 100, 100, 100, 100};
    const auto insets = distances_around(content, {20, 20, 20, 20});
    EXPECT_EQ(insets.left, 20);
    EXPECT_EQ(insets.top, 30);
    const auto measured = measure_group_box(content, {}, insets);
    EXPECT_EQ(measured.min_width, 144);
    EXPECT_EQ(measured.min_height, 100 + 30 + 20 + 2);
    EXPECT_EQ(measured.margin_top, 0);
}

TEST(group_box_measure, is_as_wide_as_its_caption) {
    const element_metrics content{0, 0, 0, 0, 10, 5, 20, unbounded_extent, 15, 5};
    const auto measured = measure_group_box(content, {30, 16}, {16, 16, 16, 16});
    EXPECT_EQ(measured.min_width, 66);
    EXPECT_EQ(measured.preferred_width, 66);
    EXPECT_EQ(measured.max_width, 66);
    EXPECT_EQ(measured.min_height, 5 + 16 + 2 + 32);
    EXPECT_EQ(measured.max_height, unbounded_extent);
}

TEST_F(scene_panel, shows_texts_and_gives_them_back) {
    const auto edit = create_edit_control();
    show(edit);
    edit->set_text(L"harbour");
    wchar_t buffer[4] = L"???";
    edit->get_text(buffer, 4);
    EXPECT_STREQ(buffer, L"har");
    wchar_t large[20];
    std::fill(std::begin(large), std::end(large), L'?');
    edit->get_text(large, 20);
    EXPECT_THAT(std::wstring(large, 20), std::wstring(L"harbour") + std::wstring(13, L'\0'));
    wchar_t exact[7];
    edit->get_text(exact, 7);
    EXPECT_STREQ(exact, L"harbou");
    buffer[0] = L'?';
    edit->get_text(buffer, 0);
    EXPECT_EQ(buffer[0], L'?');
}

TEST_F(scene_panel, forgets_texts_and_marks_with_the_controls) {
    const auto box = create_check_box_control();
    show(box);
    box->set_checked(true);
    EXPECT_TRUE(box->is_checked());
    panel->set_content(nullptr);
    EXPECT_THROW(static_cast<void>(box->is_checked()), std::logic_error);
    show(box);
    EXPECT_FALSE(box->is_checked());
}

TEST_F(scene_panel, adds_and_removes_the_nodes_of_its_controls) {
    const auto label = create_label_control();
    const auto label_stack = create_stack_layout(orientation::vertical);
    label_stack->add_item({}, label);
    EXPECT_FALSE(panel->set_content(label_stack));
    label->set_text(L"text");
    const auto measured = panel->measure();
    panel->arrange(10, 20, 10 + measured.preferred_width, 20 + measured.preferred_height);
    const auto bounds = panel->get_node()->get_bounds(true);
    EXPECT_EQ(bounds.left, 10);
    EXPECT_EQ(bounds.top, 20);
    EXPECT_TRUE(panel->set_content(nullptr) == label_stack);
    EXPECT_EQ(panel->get_node()->get_bounds(true).right, 0);
}

TEST_F(scene_panel, keeps_a_text_in_its_place_when_it_changes) {
    const auto label = create_label_control();
    show(label);
    label->set_text(L"text");
    panel->measure();
    panel->arrange(100, 50, 300, 90);
    label->set_text(L"another");
    EXPECT_EQ(panel->get_node()->get_bounds(true).left, 100);
    EXPECT_EQ(panel->get_node()->get_bounds(true).top, 50);
}

TEST_F(scene_panel, refuses_kinds_without_a_form_and_leaves_nothing_behind) {
    for (const com::ptr<IElement>& refused :
         {com::ptr<IElement>(create_option_control()), com::ptr<IElement>(create_list_view_control())}) {
        const auto label = create_label_control();
        const auto stack = create_stack_layout(orientation::vertical);
        stack->add_item({}, label);
        stack->add_item({}, refused);
        EXPECT_THAT([&] { panel->set_content(stack); },
                    ThrowsMessage<std::runtime_error>("Unable to materialized the specified element!"));
        EXPECT_THROW(label->set_text(L"text"), std::logic_error);
        EXPECT_TRUE(panel->set_content(nullptr) == stack);
    }
}

}  // namespace
