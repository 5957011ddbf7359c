#include "win32/window_class_table.h"

#include <array>

#include <gtest/gtest.h>

// Types that others can see, which some orders of types mix up with those that they cannot.
struct window_class_alpha {};
struct window_class_omega {};

namespace {

struct hidden_alpha {};
struct hidden_omega {};

TEST(window_class_table, finds_each_class_again_wherever_it_is_declared) {
    struct local_alpha {};
    struct local_omega {};
    const std::array types{&typeid(window_class_omega),
                           &typeid(local_omega),
                           &typeid(hidden_omega),
                           &typeid(window_class_alpha),
                           &typeid(local_alpha),
                           &typeid(hidden_alpha),
                           &typeid(int)};
    win32::window_class_table table;
    unsigned number = 0;
    for (const auto* type : types) table.of(*type).use_count = ++number;
    number = 0;
    for (const auto* type : types) EXPECT_EQ(++number, table.of(*type).use_count) << type->name();
    for (const auto* type : types) {
        ASSERT_NE(nullptr, table.find(*type)) << type->name();
        table.of(*type).use_count = 1;
        table.give_back(*type);
        EXPECT_EQ(nullptr, table.find(*type)) << type->name();
    }
}

TEST(window_class_table, keeps_a_class_while_it_is_used) {
    win32::window_class_table table;
    table.of(typeid(int)).use_count = 2;
    table.give_back(typeid(int));
    ASSERT_NE(nullptr, table.find(typeid(int)));
    EXPECT_EQ(1u, table.find(typeid(int))->use_count);
    table.give_back(typeid(long));
    EXPECT_EQ(nullptr, table.find(typeid(long)));
}

}  // namespace
