#include "controls/testing/fake_label.h"
#include "d2d/ui/ILabelList.h"
#include "scene/testing/input_test.h"

#include <vector>

#include <gtest/gtest.h>

namespace d2d {
namespace {

using scene::fakes::thrown_by;

/// A list of three labels, 20 apart, with the values 10, 11 and 12.
class label_list_test : public scene::fakes::input_test {
protected:
    void SetUp() override {
        input_test::SetUp();
        list = ui::create_label_list(nullptr);
        list->arrange({0, 0, 100, 100});
        root->add_child(list->get_node());
        for (int i = 0; i < 3; ++i) {
            labels.push_back(com::create_object<fakes::fake_label>());
            labels.back()->measured.max_size = labels.back()->measured.preferred_size = {20, 10};
            const float y = 20 * static_cast<float>(i);
            record(labels.back()->node, {0, y, 10, y + 10});
        }
        show();
        edge->on_focus_gained();
    }
    void TearDown() override {
        root->remove_child(list->get_node());
        list.reset();
        labels.clear();
        input_test::TearDown();
    }
    void press_at(float y, input::mouse::button button) {
        edge->on_mouse_event({input::mouse::event_type::button_down, button, 0, {5, y}, 0});
    }

    com::ptr<ui::ILabelList> list;
    std::vector<com::ptr<fakes::fake_label>> labels;
};

TEST_F(label_list_test, appends_at_places_beyond_its_ends) {
    list->insert_item(-1, labels[0].get(), 10);
    list->insert_item(1000, labels[1].get(), 11);
    list->insert_item(0, labels[2].get(), 12);
    EXPECT_LT(labels[2]->rect.top, labels[0]->rect.top);
    EXPECT_LT(labels[0]->rect.top, labels[1]->rect.top);
    EXPECT_EQ(6, labels[0]->rect.left);
}

TEST_F(label_list_test, selects_by_the_left_button_alone) {
    for (int i = 0; i < 3; ++i) list->insert_item(-1, labels[static_cast<std::size_t>(i)].get(), 10 + i);
    EXPECT_EQ(std::nullopt, list->get_selection());
    press_at(5, input::mouse::button::right);
    EXPECT_EQ(std::nullopt, list->get_selection());
    press_at(25, input::mouse::button::left);
    EXPECT_EQ(11, list->get_selection());
    EXPECT_TRUE(labels[1]->brush);
    press_at(45, input::mouse::button::left);
    EXPECT_EQ(12, list->get_selection());
    EXPECT_NE(labels[1]->brush, labels[2]->brush);
    list->clear();
    EXPECT_EQ(nullptr, labels[2]->node->get_parent());
}

TEST_F(label_list_test, has_operations_without_a_meaning) {
    EXPECT_EQ("not implemented", thrown_by([&] { list->reserved1(); }));
    EXPECT_EQ("not implemented", thrown_by([&] { list->reserved2(); }));
    EXPECT_EQ("not implemented", thrown_by([&] { list->reserved3(); }));
}

}  // namespace
}  // namespace d2d
