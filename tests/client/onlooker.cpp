#include "onlooker.h"

#include <filesystem>

namespace client_test {

using test_support::picture;

picture part(const picture& whole, RECT rect) {
    const auto left = static_cast<unsigned>(rect.left);
    const auto top = static_cast<unsigned>(rect.top);
    picture result(static_cast<unsigned>(rect.right) - left, static_cast<unsigned>(rect.bottom) - top);
    for (unsigned y = 0; y < result.height; ++y)
        for (unsigned x = 0; x < result.width; ++x) result.at(x, y) = whole.at(left + x, top + y);
    return result;
}

picture golden_picture(std::string_view name) {
    const auto file = test_support::golden_file(name);
    return exists(file) ? test_support::load_png(file) : picture();
}

testing::AssertionResult onlooker::shows_golden(std::string_view name, test_support::tolerance allowed) {
    const picture expected = golden_picture(name);
    look_until([&] { return shown_ == expected; });
    return test_support::matches_golden(shown_, name, allowed);
}

testing::AssertionResult onlooker::shows_again(const picture& earlier) {
    if (look_until([&] { return shown_ == earlier; })) return testing::AssertionSuccess();
    return testing::AssertionFailure() << test_support::compare(earlier, shown_).pixels << " pixels differ";
}

}  // namespace client_test
