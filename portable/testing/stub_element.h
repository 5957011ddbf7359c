#pragma once

#include "com/object.h"
#include "ui/mossHarbour/IElement.h"
#include "ui/mossHarbour/IMaterializableElement.h"
#include "ui/mossHarbour/IMaterializedElement.h"

#include <functional>
#include <stdexcept>
#include <vector>

#include <windows.h>

namespace ui::mossHarbour::stubs {

/// An element without a screen: says what it is told to, and writes down where it is placed. It is its own
/// form.
class stub_element
    : public com::base_object<com::object_base, IElement, IMaterializableElement, IMaterializedElement> {
public:
    explicit stub_element(const element_metrics& says) noexcept : said(says) {}

    // IMaterializableElement
    com::ptr<IMaterializedElement> materialize(materialization_context&) override {
        if (is_refusing) throw std::runtime_error("refused");
        ++materialized;
        if (when_coming) when_coming();
        return this;
    }
    void dematerialize(materialization_context&) override {
        if (materialized > 0) --materialized;
        if (when_going) when_going();
    }
    // IMaterializedElement
    element_metrics measure(measure_context&) override { return said; }
    void arrange(int left, int top, int right, int bottom) override {
        placed.push_back({left, top, right, bottom});
    }

    element_metrics said;
    bool is_refusing = false;
    std::function<void()> when_coming;
    std::function<void()> when_going;
    int materialized = 0;
    std::vector<RECT> placed;

protected:
    ~stub_element() = default;
};

/// For layouts of stubs, which ask neither.
class unused_context final : public materialization_context, public measure_context {
public:
    com::ptr<IMaterializedElement> materialize(const std::type_info&, IMaterializableElement*) override {
        throw std::logic_error("no control here");
    }
    void dematerialize(IMaterializableElement*, IMaterializedElement*) override {
        throw std::logic_error("no control here");
    }
    SIZE measure_text(const wchar_t*, std::size_t) override { throw std::logic_error("no text here"); }
};

/// Metrics without margins; the other axis is 10 without limit.
[[nodiscard]] inline element_metrics tall(int min, int preferred, int max) {
    return {0, 0, 0, 0, 10, min, unbounded_extent, max, 10, preferred};
}
[[nodiscard]] inline element_metrics wide(int min, int preferred, int max) {
    return {0, 0, 0, 0, min, 10, max, unbounded_extent, preferred, 10};
}

[[nodiscard]] inline std::vector<int> fields_of(const element_metrics& m) {
    return {m.margin_left, m.margin_top, m.margin_right, m.margin_bottom,   m.min_width,
            m.min_height,  m.max_width,  m.max_height,   m.preferred_width, m.preferred_height};
}
[[nodiscard]] inline std::vector<LONG> edges_of(const RECT& rect) {
    return {rect.left, rect.top, rect.right, rect.bottom};
}

}  // namespace ui::mossHarbour::stubs
