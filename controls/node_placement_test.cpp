#include "controls/node_placement.h"

#include "scene/matrix.h"
#include "scene/testing/tree_test.h"

#include <gtest/gtest.h>

namespace d2d {
namespace {

using scene::identity_matrix;
using scene::same_bytes;
using scene::translation_matrix;

class node_placement_test : public scene::fakes::tree_test {};

TEST_F(node_placement_test, sets_any_transform_whatever_the_node_has_had) {
    const D2D_MATRIX_3X2_F transforms[] = {
        identity_matrix,           translation_matrix(8, -4),     translation_matrix(-8, 4),
        {{{0, 1, -1, 0, 0, 0}}},                                                           // a quarter turn
        {{{0, -1, 1, 0, 0, 0}}},                                                           // and back
        {{{-1, 0, 0, -1, 10, 6}}},                                                         // its own inverse
        {{{2, 0, 0, 4, 0, 0}}},    {{{0.5f, 0, 0, 0.25f, 0, 0}}}, {{{1, 1, 0, 1, 0, 0}}},  // a shear
        {{{1, -1, 0, 1, 0, 0}}},
    };
    for (const auto& from : transforms) {
        for (const auto& to : transforms) {
            SCOPED_TRACE(testing::Message() << &from - transforms << " to " << &to - transforms);
            const auto node = scene::create_node();
            transform_node(*node, from);
            EXPECT_TRUE(same_bytes(from, node->get_transform()));
            transform_node(*node, to);
            EXPECT_TRUE(same_bytes(to, node->get_transform()));
        }
    }
}

TEST_F(node_placement_test, moves_an_origin_to_the_opposite_point) {
    const auto node = scene::create_node();
    move_node(*node, {12, 5});
    move_node(*node, {-12, -5});
    EXPECT_TRUE(same_bytes(translation_matrix(-12, -5), node->get_transform()));
    place_node(*node, {12, 5});
    EXPECT_TRUE(same_bytes(translation_matrix(12, 5), node->get_transform()));
}

TEST_F(node_placement_test, takes_a_node_out_of_its_parent_and_leaves_a_free_one) {
    const auto parent = scene::create_node();
    const auto node = scene::create_node();
    parent->add_child(node);
    detach_node(*node);
    EXPECT_FALSE(node->get_parent());
    detach_node(*node);
    parent->add_child(node);
    EXPECT_EQ(parent, node->get_parent());
}

}  // namespace
}  // namespace d2d
