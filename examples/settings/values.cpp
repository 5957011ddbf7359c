#include "values.h"

#include <fstream>
#include <stdexcept>
#include <string>
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

std::wstring utf16(std::string_view text) {
    const int length = static_cast<int>(text.size());
    const int size = MultiByteToWideChar(CP_UTF8, 0, text.data(), length, nullptr, 0);
    std::wstring result(static_cast<std::size_t>(size), L'\0');
    MultiByteToWideChar(CP_UTF8, 0, text.data(), length, result.data(), size);
    return result;
}

struct text_entry {
    const char* name;
    std::wstring values::*value;
};
struct flag_entry {
    const char* name;
    bool values::*value;
};

constexpr text_entry texts[] = {{"ship", &values::ship},           {"call sign", &values::call_sign},
                                {"home port", &values::home_port}, {"next port", &values::next_port},
                                {"pilot", &values::pilot},         {"greeting", &values::greeting}};
constexpr flag_entry flags[] = {{"lights", &values::lights}, {"horn", &values::horn}, {"log", &values::log}};

// In the order of the enumerators.
constexpr const char* unit_systems[] = {"metric", "imperial"};
constexpr const char* watch_lengths[] = {"four hours", "six hours", "dog watches"};

template <class Value, std::size_t Count>
const char* word(const char* const (&words)[Count], Value value) {
    return words[static_cast<std::size_t>(value)];
}

template <class Value, std::size_t Count>
void read_word(const char* const (&words)[Count], std::string_view word, Value& value) {
    for (std::size_t i = 0; i < Count; ++i) {
        if (word == words[i]) value = static_cast<Value>(i);
    }
}

void read_entry(std::string_view name, std::string_view content, values& result) {
    for (const auto& [known, value] : texts) {
        if (name == known) result.*value = utf16(content);
    }
    for (const auto& [known, value] : flags) {
        if (name == known) result.*value = content == "yes";
    }
    if (name == "units") read_word(unit_systems, content, result.units);
    if (name == "watch") read_word(watch_lengths, content, result.watch);
}

}  // namespace

void save(const values& written, const std::filesystem::path& file) {
    std::ofstream out(file, std::ios::binary);
    for (const auto& [name, value] : texts) out << name << '=' << utf8(written.*value) << '\n';
    for (const auto& [name, value] : flags) out << name << '=' << (written.*value ? "yes" : "no") << '\n';
    out << "units=" << word(unit_systems, written.units) << '\n'
        << "watch=" << word(watch_lengths, written.watch) << '\n';
    if (!out.flush()) throw std::runtime_error("the settings could not be saved");
}

values load(const std::filesystem::path& file) {
    std::ifstream in(file, std::ios::binary);
    if (!in) throw std::runtime_error("the settings could not be read");
    values result;
    for (std::string line; std::getline(in, line);) {
        const auto sign = line.find('=');
        if (sign == std::string::npos) continue;
        read_entry(std::string_view(line).substr(0, sign), std::string_view(line).substr(sign + 1), result);
    }
    return result;
}

}  // namespace harbour
