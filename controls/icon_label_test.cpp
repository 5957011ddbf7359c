// A label that fills a geometry.

#include "controls/testing/label_test.h"
#include "d2d/ui/IButton.h"
#include "d2d/ui/IIconLabel.h"
#include "d2d/ui/ITextLabel.h"

#include <string>

#include <gtest/gtest.h>

namespace d2d {
namespace {

using fakes::answers;
using fakes::failure_of;
using scene::fakes::same;
using scene::fakes::thrown_by;

class icon_label_test : public fakes::label_test {
protected:
    void TearDown() override {
        label.reset();
        label_test::TearDown();
    }
    void show_label(ID2D1Geometry* shape) {
        label = ui::create_icon_label(shape, style.get());
        show_node(label->get_node());
    }
    [[nodiscard]] static com::ptr<ID2D1Geometry> ellipse(float x, float y, float radius) {
        return factory::create_ellipse_geometry({{x, y}, radius, radius});
    }

    com::ptr<ui::IIconLabel> label;
};

TEST_F(icon_label_test, answers_for_its_interfaces) {
    const auto made = ui::create_icon_label(ellipse(0, 0, 5).get(), nullptr);
    EXPECT_TRUE(answers<IUnknown>(made));
    EXPECT_TRUE(answers<ui::IIconLabel>(made));
    EXPECT_TRUE(answers<ui::ILabel>(made));
    EXPECT_TRUE(answers<ui::IControl>(made));
    EXPECT_TRUE(answers<scene::layout::IElement>(made));
    EXPECT_FALSE(answers<ui::ITextLabel>(made));
    EXPECT_FALSE(answers<ui::IButton>(made));
}

TEST_F(icon_label_test, fills_its_geometry_where_that_lies) {
    show_label(ellipse(10, 20, 5).get());
    EXPECT_TRUE(same(D2D_RECT_F{5, 15, 15, 25}, label->get_rect()));
    EXPECT_TRUE(same(scene::identity_matrix, label->get_node()->get_transform()));
    EXPECT_EQ((lines{"FillGeometry ellipse(10 20 5 5) brush(0 0 1 1)"}), drawing());
    EXPECT_TRUE(label->get_node()->hit_test({10, 20}));
    EXPECT_FALSE(label->get_node()->hit_test({5.5f, 15.5f}));
}

TEST_F(icon_label_test, asks_for_the_bounds_as_they_are) {
    ID2D1Geometry* const shape = geometry({-3, -4, 30, 40});
    show_label(shape);
    EXPECT_TRUE(same(D2D_RECT_F{-3, -4, 30, 40}, label->get_rect()));
    EXPECT_FALSE(static_cast<scene::fakes::fake_geometry*>(shape)->got_matrix);
}

TEST_F(icon_label_test, another_geometry_is_drawn_in_its_place) {
    show_label(geometry({0, 0, 10, 10}));
    label->set_geometry(geometry({-20, -10, 20, 10}));
    EXPECT_EQ((lines{"text_brush 1", "invalidate_rect 0 0 10 10", "invalidate_rect -20 -10 20 10"}), calls());
    EXPECT_TRUE(same(D2D_RECT_F{-20, -10, 20, 10}, label->get_rect()));
    label->set_geometry(ellipse(0, 0, 7).get());
    EXPECT_EQ((lines{"FillGeometry ellipse(0 0 7 7) brush(0 0 1 1)"}), drawing());
}

TEST_F(icon_label_test, holds_its_geometry_until_there_is_another) {
    auto* const first = geometry({0, 0, 10, 10});
    auto* const second = geometry({0, 0, 20, 20});
    show_label(first);
    EXPECT_LT(0u, first->references());
    label->set_geometry(second);
    EXPECT_EQ(0u, first->references());
    label->set_geometry(second);
    root->remove_child(label->get_node());
    label.reset();
    EXPECT_EQ(0u, second->references());
}

TEST_F(icon_label_test, same_geometry_is_drawn_anew_with_its_bounds_of_now) {
    auto* const shape = geometry({0, 0, 10, 10});
    show_label(shape);
    shape->bounds = {0, 0, 30, 10};
    label->set_geometry(shape);
    EXPECT_EQ((lines{"text_brush 1", "invalidate_rect 0 0 10 10", "invalidate_rect 0 0 30 10"}), calls());
    EXPECT_TRUE(same(D2D_RECT_F{0, 0, 30, 10}, label->get_rect()));
}

TEST_F(icon_label_test, brush_draws_anew_only_when_it_is_another) {
    show_label(ellipse(10, 20, 5).get());
    const auto red_brush = make_brush(red);
    label->set_brush(nullptr);
    EXPECT_EQ((lines{}), calls());
    label->set_brush(red_brush);
    EXPECT_EQ((lines{"invalidate_rect 5 15 15 25", "invalidate_rect 5 15 15 25"}), calls());
    EXPECT_EQ((lines{"FillGeometry ellipse(10 20 5 5) brush(1 0 0 1)"}), drawing());
    label->set_brush(red_brush);
    EXPECT_EQ((lines{}), calls());
    label->set_geometry(ellipse(0, 0, 7).get());
    EXPECT_EQ((lines{}), asked());
    EXPECT_EQ((lines{"FillGeometry ellipse(0 0 7 7) brush(1 0 0 1)"}), drawing());
    label->set_brush(nullptr);
    EXPECT_EQ((lines{"text_brush 1"}), asked());
    EXPECT_EQ((lines{"FillGeometry ellipse(0 0 7 7) brush(0 0 1 1)"}), drawing());
}

TEST_F(icon_label_test, takes_part_in_no_layout) {
    show_label(geometry({0, 0, 10, 10}));
    EXPECT_EQ("not implemented", thrown_by([&] { static_cast<void>(label->measure()); }));
    EXPECT_EQ("not implemented", thrown_by([&] { label->arrange({1, 2, 3, 4}); }));
    EXPECT_TRUE(same(D2D_RECT_F{0, 0, 10, 10}, label->get_rect()));
    EXPECT_EQ((lines{}), calls());
}

TEST_F(icon_label_test, geometry_without_bounds_is_refused_and_changes_nothing) {
    auto* const good = geometry({0, 0, 10, 10});
    auto* const bad = geometry({0, 0, 20, 20});
    bad->result = E_OUTOFMEMORY;
    show_label(good);
    EXPECT_EQ(E_OUTOFMEMORY, failure_of([&] { label->set_geometry(bad); }));
    EXPECT_EQ(E_OUTOFMEMORY, failure_of([&] { static_cast<void>(ui::create_icon_label(bad, style.get())); }));
    EXPECT_EQ((lines{}), calls());
    EXPECT_TRUE(same(D2D_RECT_F{0, 0, 10, 10}, label->get_rect()));
    EXPECT_EQ(0u, bad->references());
    label->set_brush(make_brush(red));
    EXPECT_EQ((lines{"invalidate_rect 0 0 10 10", "invalidate_rect 0 0 10 10"}), calls());
}

TEST_F(icon_label_test, style_without_text_is_refused) {
    const auto other = com::create_object<fakes::recording_group_box_style>(nullptr);
    auto* const shape = geometry({0, 0, 10, 10});
    EXPECT_EQ(E_NOINTERFACE,
              failure_of([&] { static_cast<void>(ui::create_icon_label(shape, other.get())); }));
    EXPECT_EQ(0u, shape->references());
}

TEST_F(icon_label_test, node_that_is_kept_shows_the_icon_on) {
    show_label(ellipse(10, 20, 5).get());
    label.reset();
    EXPECT_EQ(1u, holders(style));
    EXPECT_EQ((lines{"FillGeometry ellipse(10 20 5 5) brush(0 0 1 1)"}), drawing());
}

}  // namespace
}  // namespace d2d
