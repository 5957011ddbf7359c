#pragma once

#include <filesystem>
#include <string>

namespace harbour {

enum class unit_system { metric, imperial };
enum class watch_length { four_hours, six_hours, dog_watches };

/// What is set.
struct values {
    std::wstring ship = L"M\u00fcggelsee";
    std::wstring call_sign = L"DK7\u00d8S";
    std::wstring home_port = L"\u041a\u0430\u043b\u0438\u043d\u0438\u043d\u0433\u0440\u0430\u0434";
    std::wstring next_port = L"\u6a2a\u6d5c\u6e2f";
    std::wstring pilot = L"\u05e0\u05de\u05dc \u05d7\u05d9\u05e4\u05d4";
    std::wstring greeting = L"Ahoy \U0001F6A2!";
    bool lights = true;
    bool horn = false;
    bool log = true;
    unit_system units = unit_system::metric;
    watch_length watch = watch_length::four_hours;

    bool operator==(const values&) const = default;
};

/// Writes them down, in UTF-8, a line each. Throws `std::runtime_error` when that fails.
void save(const values& written, const std::filesystem::path& file);
/// What was written down; the rest is as it is at first. Throws `std::runtime_error` when the file cannot be
/// read.
[[nodiscard]] values load(const std::filesystem::path& file);

}  // namespace harbour
