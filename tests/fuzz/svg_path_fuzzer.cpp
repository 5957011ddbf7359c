// Any text and the parser of path data: it must agree with the plain reading of the tests, inside its text.

#include "host/testing/svg_path_model.h"

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <cstdio>
#include <cstdlib>
#include <memory>
#include <string>

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* bytes, std::size_t count) {
    // A block of just this size: a read behind its end is noticed.
    const auto text = std::make_unique<char[]>(count);
    std::copy_n(bytes, count, text.get());
    const d2d::svg_transform transform{2, 0.5f, -1, 3, 10, -20};
    const std::string difference = d2d::fakes::compare_with_model({text.get(), count}, transform);
    if (difference.empty()) return 0;
    std::fprintf(stderr, "%s\n", difference.c_str());
    std::abort();
}
