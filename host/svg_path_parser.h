#pragma once

#include "host/svg_path_text.h"

#include <concepts>
#include <string_view>

namespace d2d {

/// A point of a path.
struct svg_point {
    float x = 0;
    float y = 0;
};

/// A matrix by which points are multiplied as rows; the first index is the row.
struct svg_transform {
    float m11 = 1;
    float m12 = 0;
    float m21 = 0;
    float m22 = 1;
    float m31 = 0;
    float m32 = 0;

    [[nodiscard]] constexpr svg_point apply(svg_point p) const noexcept {
        return {m21 * p.y + m11 * p.x + m31, m22 * p.y + m12 * p.x + m32};
    }
};

enum class svg_figure_end { open, closed };

/// What a path is drawn into. Points come transformed.
template <class T>
concept svg_path_sink = requires(T& sink, svg_point p, svg_figure_end end) {
    sink.begin_figure(p);
    sink.add_line(p);
    sink.add_bezier(p, p, p);
    sink.end_figure(end);
    sink.close();
};

/// Reads path data in one pass and draws it into a sink. It allocates nothing and copies nothing of the text.
///
/// The language is that of the `d` attribute of an SVG path without arcs (`A`) and smooth quadratic curves
/// (`T`), and with rules of its own, on which clients' icons rely:
/// - a figure begins with its first segment, so that moves alone draw nothing;
/// - closing a figure leaves the current point at the end of its last segment;
/// - `S` mirrors the second control point of the latest `C` or `S`, whatever stands between, and needs an
///   open figure;
/// - `Q` is drawn as a cubic curve with both control points at the one that is given;
/// - commas and white space are the same; numbers have no exponent.
///
/// `Z` takes no arguments, so that a `Z` which is followed by something that is no letter is repeated for
/// ever: such text must not be passed.
template <svg_path_sink Sink>
class svg_path_parser {
public:
    svg_path_parser(std::string_view text, const svg_transform& transform, Sink& sink) noexcept
        : text_(text), transform_(transform), sink_(sink) {}

    /// Once. Throws `std::runtime_error` "bad svg" for malformed text: the sink is not closed then.
    void parse() {
        if (!text_.at_end()) {
            text_.skip_separators();
            do {
                choose_command();
                carry_out();
                text_.skip_separators();
            } while (!text_.at_end());
            end_figure(svg_figure_end::open);
        }
        sink_.close();
    }

private:
    /// A letter is a new command; without one the last command is repeated.
    void choose_command() {
        if (is_letter(text_.peek())) {
            command_ = text_.take();
        } else if (command_ == '\0') {
            fail_bad_svg();
        }
    }

    void carry_out() {
        const bool relative = command_ >= 'a';
        // Negative zero, which leaves every number as it is when it is added, zeros of either sign too.
        const svg_point origin = relative ? current_ : svg_point{-0.0f, -0.0f};
        switch (relative ? command_ : command_ - 'A' + 'a') {
            case 'm':
                current_ = take_point(origin);
                end_figure(svg_figure_end::open);
                command_ = relative ? 'l' : 'L';
                break;
            case 'l':
                begin_figure();
                line_to(take_point(origin));
                break;
            case 'h':
                begin_figure();
                line_to({text_.take_number() + origin.x, current_.y});
                break;
            case 'v':
                begin_figure();
                line_to({current_.x, text_.take_number() + origin.y});
                break;
            case 'c': {
                begin_figure();
                const svg_point first = take_point(origin);
                cubic_to(first, origin);
                break;
            }
            case 's':
                if (!figure_open_) fail_bad_svg();
                cubic_to(
                    {current_.x - last_control_.x + current_.x, current_.y - last_control_.y + current_.y},
                    origin);
                break;
            case 'q': {
                begin_figure();
                const svg_point control = take_point(origin);
                bezier_to(control, control, take_point(origin));
                break;
            }
            case 'z':
                end_figure(svg_figure_end::closed);
                break;
            default:
                fail_bad_svg();
        }
    }

    [[nodiscard]] svg_point take_point(svg_point origin) {
        const float x = text_.take_number();
        const float y = text_.take_number();
        return {x + origin.x, y + origin.y};
    }

    void begin_figure() {
        if (figure_open_) return;
        sink_.begin_figure(transform_.apply(current_));
        figure_open_ = true;
    }

    void end_figure(svg_figure_end end) {
        if (!figure_open_) return;
        sink_.end_figure(end);
        figure_open_ = false;
    }

    void line_to(svg_point end) {
        sink_.add_line(transform_.apply(end));
        current_ = end;
    }

    /// Takes the second control point and the end.
    void cubic_to(svg_point first, svg_point origin) {
        last_control_ = take_point(origin);
        bezier_to(first, last_control_, take_point(origin));
    }

    void bezier_to(svg_point first, svg_point second, svg_point end) {
        sink_.add_bezier(transform_.apply(first), transform_.apply(second), transform_.apply(end));
        current_ = end;
    }

    svg_path_text text_;
    svg_transform transform_;
    Sink& sink_;
    char command_ = '\0';
    bool figure_open_ = false;
    svg_point current_;       // in the path's own coordinates
    svg_point last_control_;  // the same
};

}  // namespace d2d
