// What a strip leaves behind, and what becomes of one that cannot be made.

#include "controls/testing/command_strip_test.h"
#include "host/testing/table_entry.h"

#include <stdexcept>
#include <string>

#include <gtest/gtest.h>

namespace d2d {
namespace {

using fakes::fake_label;
using scene::translation_matrix;
using scene::fakes::same;
using scene::fakes::thrown_by;

class command_strip_lifetime : public fakes::command_strip_test {};

TEST_F(command_strip_lifetime, holds_the_nodes_of_its_labels_and_not_the_labels) {
    make_strip(false, {30, 20}, 2);
    const auto node = labels[0]->node;
    EXPECT_EQ(1u, holders(labels[0]));
    labels.clear();
    EXPECT_TRUE(node->get_parent());
    strip.reset();
    EXPECT_EQ(nullptr, node->get_parent());
    EXPECT_EQ(1u, holders(style));
}

TEST_F(command_strip_lifetime, label_serves_on_behind_its_strip) {
    make_strip(false, {30, 20}, 1);
    strip.reset();
    strip = ui::create_command_strip(true, {40, 50}, {{nullptr, labels[0].get()}}, style.get());
    EXPECT_TRUE(same(translation_matrix(20, 25), labels[0]->node->get_transform()));
}

TEST_F(command_strip_lifetime, label_is_placed_wherever_it_was) {
    make_strip(false, {30, 20}, 1);
    for (const D2D_POINT_2F was : {D2D_POINT_2F{15, 10}, {-15, -10}, {0, 0}, {7, 7}}) {
        strip.reset();
        labels[0]->node->set_transform(translation_matrix(was.x, was.y));
        strip = ui::create_command_strip(false, {30, 20}, {{nullptr, labels[0].get()}}, style.get());
        EXPECT_TRUE(same(translation_matrix(15, 10), labels[0]->node->get_transform())) << was.x;
    }
}

TEST_F(command_strip_lifetime, nodes_that_are_kept_show_the_picture_and_do_nothing) {
    show_strip(false, {30, 20}, 2);
    move(10, 10);
    const auto before = painted();
    strip.reset();
    EXPECT_EQ(1u, holders(style));
    EXPECT_EQ(before, painted());
    forget();
    move(40, 10);
    press_at({40, 10});
    move(90, 90);
    EXPECT_EQ((lines{}), calls());
    root->clear();
}

TEST_F(command_strip_lifetime, last_reference_may_go_while_a_cell_is_pressed) {
    show_strip(false, {30, 20}, 2);
    while_pressed([&](const auto& moved) {
        strip.reset();
        labels.clear();
        EXPECT_LT(1u, holders(style));
        forget();
        moved({90, 90});
        EXPECT_EQ("cell 1: enabled hot", drawn());
    });
    press_at({40, 10});
    EXPECT_EQ("cell 1: enabled", drawn());
    EXPECT_EQ(1u, holders(style));
    root->clear();
}

TEST_F(command_strip_lifetime, strip_and_nodes_may_go_while_a_cell_is_pressed) {
    show_strip(false, {30, 20}, 2);
    move(40, 10);
    while_pressed([&](const auto& moved) {
        root->remove_child(strip->get_node());
        strip.reset();
        labels.clear();
        moved({90, 90});
        moved({40, 10});
    });
    press_at({40, 10});
    EXPECT_EQ(1u, holders(style));
}

TEST_F(command_strip_lifetime, holds_no_reference_on_itself) {
    show_strip(false, {30, 20}, 2);
    move(10, 10);
    press_at({10, 10});
    EXPECT_EQ(1u, holders(strip));
}

TEST_F(command_strip_lifetime, exception_out_of_the_loop_passes_and_leaves_a_whole_cell) {
    show_strip(false, {30, 20}, 2);
    move(10, 10);
    site.drag = [](const auto& moved) -> bool {
        moved({90, 90});
        moved({10, 10});
        throw std::runtime_error("the loop ended");
    };
    forget();
    EXPECT_EQ("the loop ended", thrown_by<std::runtime_error>([&] { press_at({10, 10}); }));
    EXPECT_EQ("cell 0: enabled hot down, cell 0: enabled hot, cell 0: enabled hot down, cell 0: enabled hot",
              drawn());
    move(90, 90);
    EXPECT_EQ("cell 0: enabled, outline: enabled", drawn());
    while_pressed([](const auto&) {});
    press_at({10, 10});
    EXPECT_EQ("cell 0: enabled hot down, cell 0: enabled", drawn());
}

// Failures

TEST_F(command_strip_lifetime, style_of_another_kind_is_refused) {
    const auto other = com::create_object<fakes::recording_label_style>(nullptr);
    const auto label = com::create_object<fake_label>();
    const long before = com::live_object_count();
    EXPECT_EQ(E_NOINTERFACE, fakes::failure_of([&] {
                  static_cast<void>(
                      ui::create_command_strip(false, {30, 20}, {{nullptr, label.get()}}, other.get()));
              }));
    EXPECT_EQ(before, com::live_object_count());
    EXPECT_EQ(nullptr, label->node->get_parent());
}

/// Lets rectangles refuse to be combined with anything, while this lives.
class failing_combination {
public:
    failing_combination() : entry(rectangle.get(), combine_slot), original(entry.exchange(refuse)) {}
    failing_combination(const failing_combination&) = delete;
    failing_combination& operator=(const failing_combination&) = delete;
    ~failing_combination() { entry.exchange(original); }

private:
    using operation = HRESULT(STDMETHODCALLTYPE*)(ID2D1Geometry*, ID2D1Geometry*, D2D1_COMBINE_MODE,
                                                  const D2D1_MATRIX_3X2_F*, FLOAT,
                                                  ID2D1SimplifiedGeometrySink*);
    static constexpr int combine_slot = 11;  // fixed by the interface

    static HRESULT STDMETHODCALLTYPE refuse(ID2D1Geometry*, ID2D1Geometry*, D2D1_COMBINE_MODE,
                                            const D2D1_MATRIX_3X2_F*, FLOAT, ID2D1SimplifiedGeometrySink*) {
        return E_OUTOFMEMORY;
    }

    com::ptr<ID2D1RectangleGeometry> rectangle = factory::create_rectangle_geometry({0, 0, 1, 1});
    fakes::table_entry<operation> entry;
    operation original;
};

TEST_F(command_strip_lifetime, shape_that_the_platform_refuses_throws_and_leaves_nothing_behind) {
    const auto label = com::create_object<fake_label>();
    const long before = com::live_object_count();
    const auto make = [&] {
        return ui::create_command_strip(false, {30, 20}, {{nullptr, label.get()}}, style.get());
    };
    {
        const failing_combination failing;
        EXPECT_EQ(E_OUTOFMEMORY, fakes::failure_of([&] { static_cast<void>(make()); }));
    }
    EXPECT_EQ(before, com::live_object_count());
    EXPECT_EQ(nullptr, label->node->get_parent());
    EXPECT_TRUE(make());
}

TEST_F(command_strip_lifetime, label_that_stands_elsewhere_is_refused_and_the_others_are_free_again) {
    show_strip(false, {30, 20}, 1);
    const auto parent = labels[0]->node->get_parent();
    const auto first = com::create_object<fake_label>();
    const long before = com::live_object_count();
    EXPECT_NE("nothing", thrown_by([&] {
                  static_cast<void>(ui::create_command_strip(
                      false, {30, 20}, {{nullptr, first.get()}, {nullptr, labels[0].get()}}, style.get()));
              }));
    EXPECT_EQ(before, com::live_object_count());
    EXPECT_EQ(nullptr, first->node->get_parent());
    EXPECT_EQ(parent, labels[0]->node->get_parent());
}

}  // namespace
}  // namespace d2d
