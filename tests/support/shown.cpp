#include "support/shown.h"

#include "support/message_pump.h"

#include <cstdlib>
#include <ios>

namespace test_support {

bool are_near(std::uint32_t a, std::uint32_t b, int tolerance) noexcept {
    for (int shift = 0; shift < 32; shift += 8) {
        const int difference = static_cast<int>(a >> shift & 0xFF) - static_cast<int>(b >> shift & 0xFF);
        if (std::abs(difference) > tolerance) return false;
    }
    return true;
}

picture grab_when(HWND window, const std::function<bool(const picture&)>& right) {
    picture seen;
    (void)pump_until([&] { return right(seen = grab_client_area(window)); });
    return seen;
}

picture grab_when(HWND window, std::uint32_t color, unsigned x, unsigned y) {
    return grab_when(window, [=](const picture& seen) { return seen.at(x, y) == color; });
}

testing::AssertionResult shows(HWND window, std::uint32_t color, unsigned x, unsigned y) {
    const std::uint32_t seen = grab_when(window, color, x, y).at(x, y);
    if (seen == color) return testing::AssertionSuccess();
    return testing::AssertionFailure() << "at " << x << ", " << y << " stands " << std::hex << seen;
}

}  // namespace test_support
