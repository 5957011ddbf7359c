#include "dasher.h"

#include <numeric>

namespace completion {

namespace {

/// More dashes than this can't be told from a solid line.
constexpr double most_dashes = 100000;

figure without_repetitions(const figure& whole) {
    figure result{{}, {}, whole.filled, whole.closed};
    for (std::size_t i = 0; i < whole.points.size(); ++i) {
        if (result.points.empty() || whole.points[i] != result.points.back()) {
            result.points.push_back(whole.points[i]);
            result.smooth.push_back(whole.smooth[i]);
        }
    }
    if (whole.closed && result.points.size() > 1 && result.points.front() == result.points.back()) {
        result.points.pop_back();
        result.smooth.pop_back();
    }
    return result;
}

double length_of(const figure& line) noexcept {
    double total = line.closed ? length(line.points.front() - line.points.back()) : 0;
    for (std::size_t i = 1; i < line.points.size(); ++i) {
        total += length(line.points[i] - line.points[i - 1]);
    }
    return total;
}

/// Walks along a figure and keeps the parts that the pattern draws.
class dash_walk {
public:
    dash_walk(const figure& whole, const stroke_style& style, double width) : whole_(whole), style_(style) {
        for (const double dash : style.dashes) {
            pattern_.push_back(std::max(0.0, dash) * width);
        }
        const double period = std::accumulate(pattern_.begin(), pattern_.end(), 0.0);
        double phase = std::fmod(style.dash_offset * width, period);
        if (phase < 0) {
            phase += period;
        }
        while (phase >= pattern_[index_] && phase > 0) {
            phase -= pattern_[index_];
            next();
        }
        left_ = pattern_[index_] - phase;
    }

    [[nodiscard]] std::vector<stroke_run> walk() {
        const std::size_t count = whole_.points.size();
        const std::size_t segments = whole_.closed ? count : count - 1;
        begins_drawn_ = drawing();
        if (begins_drawn_) {
            begin(whole_.points.front(), whole_.points[1] - whole_.points[0]);
        }
        for (std::size_t i = 0; i < segments; ++i) {
            walk_segment(whole_.points[i], whole_.points[(i + 1) % count]);
            if (drawing() && i + 1 < segments) {
                add(whole_.points[i + 1], whole_.smooth[i + 1]);
            }
        }
        finish();
        return std::move(runs_);
    }

private:
    [[nodiscard]] bool drawing() const noexcept { return index_ % 2 == 0; }

    void next() noexcept {
        index_ = (index_ + 1) % pattern_.size();
        left_ = pattern_[index_];
    }

    void begin(point p, point direction) {
        stroke_run run;
        run.line = {{p}, {false}, true, false};
        run.start_cap = style_.dash_cap;
        run.end_cap = style_.dash_cap;
        run.direction = direction * (1 / length(direction));
        runs_.push_back(std::move(run));
    }

    void add(point p, bool smooth) {
        figure& line = runs_.back().line;
        if (line.points.back() != p) {
            line.points.push_back(p);
            line.smooth.push_back(smooth);
        }
    }

    void walk_segment(point a, point b) {
        const double whole = length(b - a);
        double walked = 0;
        while (left_ <= whole - walked) {
            walked += left_;
            const point here = a + (b - a) * (walked / whole);
            if (drawing()) {
                add(here, false);
            }
            next();
            if (drawing()) {
                begin(here, b - a);
            }
        }
        left_ -= whole - walked;
    }

    void finish() {
        if (!whole_.closed) {
            if (begins_drawn_) {
                runs_.front().start_cap = style_.start_cap;
            }
            if (drawing()) {
                add(whole_.points.back(), false);
                runs_.back().end_cap = style_.end_cap;
            }
        } else if (drawing()) {
            add(whole_.points.front(), whole_.smooth.front());
            join_ends();
        }
    }

    /// A dash that runs through the start of a closed figure is one dash.
    void join_ends() {
        if (!begins_drawn_) {
            return;
        }
        if (runs_.size() == 1) {
            runs_.front().line = whole_;
            return;
        }
        const stroke_run first = runs_.front();
        for (std::size_t i = 1; i < first.line.points.size(); ++i) {
            add(first.line.points[i], first.line.smooth[i]);
        }
        runs_.erase(runs_.begin());
    }

    const figure& whole_;
    const stroke_style& style_;
    std::vector<double> pattern_;
    std::size_t index_ = 0;
    double left_ = 0;
    bool begins_drawn_ = false;
    std::vector<stroke_run> runs_;
};

}  // namespace

std::vector<stroke_run> runs_of(const figure& whole, const stroke_style& style, double width) {
    const figure line = without_repetitions(whole);
    const double period = std::accumulate(style.dashes.begin(), style.dashes.end(), 0.0) * width;
    const bool dashed = line.points.size() > 1 && period > 0 &&
                        length_of(line) / period * static_cast<double>(style.dashes.size()) < most_dashes;
    if (dashed) {
        return dash_walk(line, style, width).walk();
    }
    return {{line, style.start_cap, style.end_cap, {1, 0}}};
}

}  // namespace completion
