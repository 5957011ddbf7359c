#pragma once

#include "ui/mossHarbour/measure_context.h"

#include <array>
#include <map>
#include <string>
#include <utility>
#include <vector>

#include <windows.h>

namespace ui::mossHarbour {

/// Texts are ten wide for each unit and sixteen high, but for those that are said to be otherwise.
class told_sizes final : public measure_context {
public:
    explicit told_sizes(std::map<std::wstring, SIZE> others = {}) : exceptions(std::move(others)) {}

    SIZE measure_text(const wchar_t* text, std::size_t length) override {
        const auto found = exceptions.find(std::wstring(text, length));
        return found == exceptions.end() ? SIZE{static_cast<LONG>(10 * length), 16} : found->second;
    }

private:
    std::map<std::wstring, SIZE> exceptions;
};

/// No margins; minimum, maximum and preferred size: as `stubs::fields_of` gives them.
[[nodiscard]] inline std::vector<int> metrics_of(SIZE min, SIZE max, SIZE preferred) {
    const std::array<LONG, 10> all{0, 0, 0, 0, min.cx, min.cy, max.cx, max.cy, preferred.cx, preferred.cy};
    return std::vector<int>(all.begin(), all.end());
}

}  // namespace ui::mossHarbour
