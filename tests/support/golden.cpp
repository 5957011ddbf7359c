#include "support/golden.h"

#include "support/wine.h"

#include <algorithm>
#include <cstdlib>
#include <string>

namespace test_support {
namespace {

unsigned greatest_difference(std::uint32_t left, std::uint32_t right) {
    unsigned greatest = 0;
    for (unsigned shift = 0; shift < 32; shift += 8) {
        const unsigned a = left >> shift & 0xFF;
        const unsigned b = right >> shift & 0xFF;
        greatest = std::max(greatest, a > b ? a - b : b - a);
    }
    return greatest;
}

std::uint32_t dimmed(std::uint32_t colour) {
    return 0xFF000000 | (colour >> 2 & 0x3F3F3F);
}

bool goldens_are_to_be_updated() {
    const char* const value = std::getenv("MOSSHARBOUR_UPDATE_GOLDENS");
    return value && std::string_view(value) == "1";
}

testing::AssertionResult failure_with(const picture& actual, std::string_view name) {
    const auto file = failure_file(name, "actual");
    save_png(actual, file);
    return testing::AssertionFailure()
           << "\n  golden  " << golden_file(name).string() << "\n  actual  " << file.string() << "\n  ";
}

}  // namespace

picture_difference compare(const picture& expected, const picture& actual, tolerance allowed) {
    picture_difference result;
    result.same_size = expected.width == actual.width && expected.height == actual.height;
    if (!result.same_size) return result;
    result.image = actual;
    for (std::size_t i = 0; i < actual.pixels.size(); ++i) {
        const unsigned difference = greatest_difference(expected.pixels[i], actual.pixels[i]);
        const bool differs = difference > allowed.channel;
        result.greatest_channel = std::max(result.greatest_channel, difference);
        result.pixels += differs ? 1 : 0;
        result.image.pixels[i] = differs ? 0xFFFF0000 : dimmed(actual.pixels[i]);
    }
    return result;
}

testing::AssertionResult matches_golden(const picture& actual, std::string_view name, tolerance allowed) {
    const auto file = golden_file(name);
    if (goldens_are_to_be_updated()) {
        save_png(actual, file);
        return testing::AssertionSuccess() << "written: " << file.string();
    }
    if (!std::filesystem::exists(file))
        return failure_with(actual, name)
               << "there is no such golden; MOSSHARBOUR_UPDATE_GOLDENS=1 writes it";

    const auto golden = load_png(file);
    const auto difference = compare(golden, actual, allowed);
    if (!difference.same_size)
        return failure_with(actual, name)
               << "the golden is " << golden.width << " by " << golden.height << ", the actual picture "
               << actual.width << " by " << actual.height;
    if (difference.pixels <= allowed.pixels) return testing::AssertionSuccess();

    const auto difference_file = failure_file(name, "difference");
    save_png(difference.image, difference_file);
    return failure_with(actual, name) << "differs in " << difference.pixels << " pixels, by up to "
                                      << difference.greatest_channel << ": " << difference_file.string();
}

std::filesystem::path golden_file(std::string_view name) {
    const std::filesystem::path folder(MOSSHARBOUR_GOLDENS);
    return folder / (running_under_wine() ? "wine" : "windows") / (std::string(name) + ".png");
}

std::filesystem::path failure_file(std::string_view name, std::string_view kind) {
    return std::filesystem::path(MOSSHARBOUR_FAILURES) /
           (std::string(name) + "." + std::string(kind) + ".png");
}

}  // namespace test_support
