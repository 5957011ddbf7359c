#include "values.h"

#include <fstream>
#include <stdexcept>
#include <string_view>

#include <windows.h>

namespace harbour {
namespace {

std::string utf8(std::wstring_view text) {
    const int length = static_cast<int>(text.size());
    const int size = WideCharToMultiByte(CP_UTF8, 0, text.data(), length, nullptr, 0, nullptr, nullptr);
    std::string result(static_cast<std::size_t>(size), '\0');
    WideCharToMultiByte(CP_UTF8, 0, text.data(), length, result.data(), size, nullptr, nullptr);
    return result;
}

const char* word(bool value) {
    return value ? "yes" : "no";
}

const char* word(unit_system value) {
    return value == unit_system::metric ? "metric" : "imperial";
}

const char* word(watch_length value) {
    switch (value) {
        case watch_length::four_hours:
            return "four hours";
        case watch_length::six_hours:
            return "six hours";
        default:
            return "dog watches";
    }
}

}  // namespace

void save(const values& written, const std::filesystem::path& file) {
    std::ofstream out(file, std::ios::binary);
    out << "ship=" << utf8(written.ship) << "\ncall sign=" << utf8(written.call_sign)
        << "\nhome port=" << utf8(written.home_port) << "\nnext port=" << utf8(written.next_port)
        << "\npilot=" << utf8(written.pilot) << "\ngreeting=" << utf8(written.greeting)
        << "\nlights=" << word(written.lights) << "\nhorn=" << word(written.horn)
        << "\nlog=" << word(written.log) << "\nunits=" << word(written.units)
        << "\nwatch=" << word(written.watch) << "\n";
    if (!out.flush()) throw std::runtime_error("the settings could not be saved");
}

}  // namespace harbour
