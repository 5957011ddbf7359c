#pragma once

#ifndef _MSC_VER  // where a pointer to an operation does not tell its place

#include <cstddef>
#include <cstring>
#include <numeric>
#include <vector>

#include <gtest/gtest.h>

namespace test_support {

/// The place of an operation in the table of its interface, `QueryInterface` being 0.
template <class Operation>
std::ptrdiff_t place_of(Operation operation) {
    std::ptrdiff_t offset = 0;
    static_assert(sizeof operation >= sizeof offset);
    std::memcpy(&offset, &operation, sizeof offset);
    return (offset - 1) / static_cast<std::ptrdiff_t>(sizeof(void*));
}

/// Expects the operations at the places from `first` on, one behind the other.
template <class... Operations>
void expect_in_order(std::ptrdiff_t first, Operations... operations) {
    const std::vector<std::ptrdiff_t> found{place_of(operations)...};
    std::vector<std::ptrdiff_t> expected(found.size());
    std::iota(expected.begin(), expected.end(), first);
    EXPECT_EQ(expected, found);
}

constexpr std::ptrdiff_t behind_unknown = 3;

}  // namespace test_support

#endif
