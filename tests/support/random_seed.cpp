#include "support/random_seed.h"

#include <charconv>
#include <cstdlib>
#include <random>
#include <stdexcept>
#include <string>
#include <string_view>

namespace test_support {

unsigned random_seed() {
    constexpr unsigned usual = 20'260'402;
    const char* const variable = std::getenv("MOSSHARBOUR_SEED");
    const std::string_view wanted = variable ? variable : "";
    if (wanted.empty()) return usual;
    if (wanted == "any") return std::random_device{}();
    unsigned seed = 0;
    const char* const end = wanted.data() + wanted.size();
    const auto read = std::from_chars(wanted.data(), end, seed);
    if (read.ec != std::errc{} || read.ptr != end)
        throw std::runtime_error("MOSSHARBOUR_SEED is neither a number nor \"any\": " + std::string(wanted));
    return seed;
}

}  // namespace test_support
