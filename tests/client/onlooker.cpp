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

awaited_golden::awaited_golden(std::string_view name, test_support::tolerance allowed)
    : name_(name), allowed_(allowed) {
    const auto file = test_support::golden_file(name);
    if (exists(file)) expected_ = test_support::load_png(file);
}

likeness awaited_golden::likeness_of(const picture& seen) const {
    if (!expected_) return likeness::none;
    if (seen == *expected_) return likeness::exact;
    const auto difference = test_support::compare(*expected_, seen, allowed_);
    return difference.same_size && difference.pixels <= allowed_.pixels ? likeness::close : likeness::none;
}

testing::AssertionResult awaited_golden::matches(const picture& seen) const {
    return test_support::matches_golden(seen, name_, allowed_);
}

testing::AssertionResult onlooker::shows_golden(std::string_view name, test_support::tolerance allowed) {
    const awaited_golden golden(name, allowed);
    look_until_like([&] { return golden.likeness_of(shown_); });
    return golden.matches(shown_);
}

testing::AssertionResult onlooker::shows_again(const picture& earlier) {
    if (look_until([&] { return shown_ == earlier; })) return testing::AssertionSuccess();
    return testing::AssertionFailure() << test_support::compare(earlier, shown_).pixels << " pixels differ";
}

bool onlooker::look() {
    picture next = test_support::grab_client_area(window_);
    const bool changes = next != shown_;
    shown_ = std::move(next);
    return changes;
}

}  // namespace client_test
