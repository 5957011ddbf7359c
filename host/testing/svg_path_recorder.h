#pragma once

#include "host/svg_path_parser.h"

#include <cstdio>
#include <string>
#include <vector>

namespace d2d::fakes {

/// A call of a sink, with the points that the operation has.
struct svg_call {
    enum class operation { begin_figure, add_line, add_bezier, end_open, end_closed, close };

    operation called = operation::close;
    std::vector<svg_point> points;
};

/// A sink that writes down its calls.
class svg_path_recorder {
public:
    using operation = svg_call::operation;

    void begin_figure(svg_point start) { calls.push_back({operation::begin_figure, {start}}); }
    void add_line(svg_point end) { calls.push_back({operation::add_line, {end}}); }
    void add_bezier(svg_point first, svg_point second, svg_point end) {
        calls.push_back({operation::add_bezier, {first, second, end}});
    }
    void end_figure(svg_figure_end end) {
        calls.push_back({end == svg_figure_end::open ? operation::end_open : operation::end_closed, {}});
    }
    void close() { calls.push_back({operation::close, {}}); }

    std::vector<svg_call> calls;
};

/// "begin 0,0 line 1,-0 bezier 0,0 1,1 2,2 open closed close"
[[nodiscard]] inline std::string text_of(const std::vector<svg_call>& calls) {
    static constexpr const char* names[] = {"begin", "line", "bezier", "open", "closed", "close"};
    std::string text;
    for (const auto& call : calls) {
        if (!text.empty()) text += ' ';
        text += names[static_cast<int>(call.called)];
        for (const svg_point point : call.points) {
            char written[64];
            std::snprintf(written, sizeof written, " %.9g,%.9g", static_cast<double>(point.x),
                          static_cast<double>(point.y));
            text += written;
        }
    }
    return text;
}

}  // namespace d2d::fakes
