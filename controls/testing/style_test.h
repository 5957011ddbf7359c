#pragma once

#include "d2d/factory.h"
#include "support/leak_checked_test.h"

#include <optional>

namespace d2d::fakes {

/// A fixture: the graphics objects are there for all tests of a suite, since making them takes a third of a
/// second each time.
class style_test : public test_support::leak_checked_test {
protected:
    static void SetUpTestSuite() { graphics.emplace(); }
    static void TearDownTestSuite() { graphics.reset(); }

private:
    static inline std::optional<factory> graphics;
};

}  // namespace d2d::fakes
