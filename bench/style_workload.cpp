#include "d2d/ui/IStyle.h"
#include "measure.h"
#include "workloads.h"

#include <stdexcept>
#include <string_view>

namespace bench {
namespace {

/// All colours that the controls draw with, under the names by which they ask for them.
constexpr std::string_view keys_of_controls[] = {
    "idle.text",
    "hot.text",
    "down.text",
    "selected.text",
    "disabled.text",
    "line-edit.idle.text",
    "line-edit.selected.text",
    "idle.background",
    "hot.background",
    "down.background",
    "checked.background",
    "selected.background",
    "hot.selected.background",
    "idle.disabled.background",
    "hot.disabled.background",
    "line-edit.selected.background",
    "scroll.thumb.background",
    "scroll.track.background",
    "idle.outline",
    "hot.outline",
    "selected.outline",
    "hot.selected.outline",
    "idle.disabled.outline",
    "hot.disabled.outline",
    "line-edit.idle.outline",
    "line-edit.hot.outline",
    "scroll.area.outline",
};

}  // namespace

void run_style_workload() {
    const auto settings = d2d::ui::get_default_style(nullptr)->get_settings();
    for (const std::string_view key : keys_of_controls) {
        if (!settings->get_color(key)) throw std::logic_error("a colour of the controls is missing");
    }
    constexpr std::size_t passes = 40'000;
    measure("style_lookup", passes * std::size(keys_of_controls), [&] {
        for (std::size_t i = 0; i < passes; ++i) {
            for (const std::string_view key : keys_of_controls) keep(settings->get_color(key));
        }
    });
}

}  // namespace bench
