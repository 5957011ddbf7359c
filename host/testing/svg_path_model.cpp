#include "host/testing/svg_path_model.h"

#include <algorithm>
#include <cmath>
#include <cstring>
#include <map>
#include <optional>
#include <stdexcept>

namespace d2d::fakes {
namespace {

using std::size_t;
using std::string;

constexpr const char* separators = "\n\r\t ,";
constexpr const char* letters = "ABCDEFGHIJKLMNOPQRSTUVWXYZabcdefghijklmnopqrstuvwxyz";
constexpr const char* digits = "0123456789";

const std::map<char, size_t> numbers_of_command{{'m', 2}, {'l', 2}, {'h', 1}, {'v', 1},
                                                {'c', 6}, {'s', 4}, {'q', 4}, {'z', 0}};

bool is_one_of(const char* set, char byte) {
    return byte != '\0' && std::strchr(set, byte) != nullptr;
}

char lower(char letter) {
    return is_one_of("ABCDEFGHIJKLMNOPQRSTUVWXYZ", letter) ? static_cast<char>(letter - 'A' + 'a') : letter;
}

/// The place of the first byte at or behind `from` that is not in the set.
size_t behind(const char* set, const string& text, size_t from) {
    return std::min(text.find_first_not_of(set, from), text.size());
}

float value_of(const string& sign, const string& whole, const string& fraction) {
    double value = 0.0;
    for (const char digit : whole) value = value * 10.0 + (digit - '0');
    double weight = 0.1;
    for (const char digit : fraction) {
        value += (digit - '0') * weight;
        weight *= 0.1;
    }
    return static_cast<float>(value * (sign == "-" ? -1.0 : 1.0));
}

/// Cuts a number off the text at `at`.
std::optional<float> cut_number(const string& text, size_t& at) {
    const size_t start = behind(separators, text, at);
    const size_t unsigned_start = start < text.size() && is_one_of("+-", text[start]) ? start + 1 : start;
    const size_t whole_end = behind(digits, text, unsigned_start);
    const bool has_point = whole_end < text.size() && text[whole_end] == '.';
    const size_t fraction_start = has_point ? whole_end + 1 : whole_end;
    const size_t end = has_point ? behind(digits, text, fraction_start) : whole_end;
    if (end == start) return {};
    at = end;
    return value_of(text.substr(start, unsigned_start - start),
                    text.substr(unsigned_start, whole_end - unsigned_start),
                    text.substr(fraction_start, end - fraction_start));
}

struct step {
    char command;  // in lower case
    bool relative;
    std::vector<float> numbers;
};

struct cut_path {
    std::vector<step> steps;
    svg_path_model::outcome end = svg_path_model::outcome::drawn;
};

cut_path cut(const string& text) {
    using enum svg_path_model::outcome;
    cut_path result;
    const auto ended = [&](svg_path_model::outcome end) {
        result.end = end;
        return result;
    };
    if (text.empty()) return result;
    char command = '\0';
    size_t at = behind(separators, text, 0);
    do {
        if (at < text.size() && is_one_of(letters, text[at])) {
            command = text[at++];
        } else if (command == '\0') {
            return ended(bad);
        } else if (lower(command) == 'z') {
            return ended(endless);
        }
        const auto known = numbers_of_command.find(lower(command));
        if (known == numbers_of_command.end()) return ended(bad);
        step next{lower(command), lower(command) == command, {}};
        while (next.numbers.size() < known->second) {
            const auto number = cut_number(text, at);
            if (!number) return ended(bad);
            next.numbers.push_back(*number);
        }
        result.steps.push_back(next);
        if (command == 'm') command = 'l';
        if (command == 'M') command = 'L';
        at = behind(separators, text, at);
    } while (at < text.size());
    return result;
}

/// Draws steps one by one.
struct drawing {
    const svg_transform& t;
    std::vector<svg_call>& calls;
    svg_point current{};
    svg_point control{};
    bool open = false;

    [[nodiscard]] svg_point mapped(svg_point p) const {
        return {t.m21 * p.y + t.m11 * p.x + t.m31, t.m22 * p.y + t.m12 * p.x + t.m32};
    }

    void call(svg_call::operation operation, const std::vector<svg_point>& points = {}) {
        svg_call made{operation, {}};
        for (const svg_point point : points) made.points.push_back(mapped(point));
        calls.push_back(made);
    }

    void end(svg_call::operation how) {
        if (open) call(how);
        open = false;
    }

    [[nodiscard]] std::vector<svg_point> points_of(const step& from) const {
        std::vector<svg_point> points;
        for (size_t i = 0; i + 1 < from.numbers.size(); i += 2) {
            points.push_back({from.numbers[i], from.numbers[i + 1]});
        }
        if (from.command == 'h') points.push_back({from.numbers[0], from.relative ? 0 : current.y});
        if (from.command == 'v') points.push_back({from.relative ? 0 : current.x, from.numbers[0]});
        if (from.relative) {
            for (svg_point& point : points) point = {current.x + point.x, current.y + point.y};
        }
        return points;
    }

    /// False when the step is not allowed.
    bool draw(const step& next) {
        using enum svg_call::operation;
        if (next.command == 's' && !open) return false;
        auto points = points_of(next);
        const svg_point end_point = points.empty() ? current : points.back();
        if (next.command == 'm') end(end_open);
        if (next.command == 'z') end(end_closed);
        if (next.command != 'm' && next.command != 'z') {
            if (!open) call(begin_figure, {current});
            open = true;
            if (points.size() == 1) call(add_line, points);
            if (next.command == 'q') points = {points[0], points[0], points[1]};
            if (next.command == 's') {
                const svg_point mirrored{current.x - control.x + current.x,
                                         current.y - control.y + current.y};
                points = {mirrored, points[0], points[1]};
            }
            if (points.size() == 3) call(add_bezier, points);
            if (next.command == 'c' || next.command == 's') control = points[1];
        }
        current = end_point;
        return true;
    }
};

bool same(float a, float b) {
    return (std::isnan(a) && std::isnan(b)) || (a == b && std::signbit(a) == std::signbit(b));
}

bool same(const svg_call& a, const svg_call& b) {
    return a.called == b.called &&
           std::equal(a.points.begin(), a.points.end(), b.points.begin(), b.points.end(),
                      [](svg_point p, svg_point q) { return same(p.x, q.x) && same(p.y, q.y); });
}

}  // namespace

svg_path_model::svg_path_model(const string& text, const svg_transform& transform) {
    const cut_path path = cut(text);
    drawing into{transform, calls};
    for (const step& next : path.steps) {
        if (into.draw(next)) continue;
        result = outcome::bad;
        return;
    }
    result = path.end;
    if (result != outcome::drawn) return;
    into.end(svg_call::operation::end_open);
    into.call(svg_call::operation::close);
}

string compare_with_model(std::string_view text, const svg_transform& transform) {
    const svg_path_model model(string(text), transform);
    if (model.result == svg_path_model::outcome::endless) return {};
    svg_path_recorder actual;
    string failure;
    try {
        svg_path_parser(text, transform, actual).parse();
    } catch (const std::runtime_error& thrown) {
        failure = thrown.what();
    }
    const bool is_bad = model.result == svg_path_model::outcome::bad;
    auto calls = actual.calls;
    // The figure of a segment is begun ahead of reading its numbers, so that a bad one may have begun it.
    if (is_bad && calls.size() == model.calls.size() + 1 &&
        calls.back().called == svg_call::operation::begin_figure) {
        calls.pop_back();
    }
    const bool agree = failure == (is_bad ? "bad svg" : "") &&
                       std::equal(calls.begin(), calls.end(), model.calls.begin(), model.calls.end(),
                                  [](const svg_call& a, const svg_call& b) { return same(a, b); });
    if (agree) return {};
    return "text: \"" + string(text) + "\"\nparser: " + text_of(actual.calls) + " " + failure +
           "\nmodel: " + text_of(model.calls) + (is_bad ? " bad svg" : "");
}

}  // namespace d2d::fakes
