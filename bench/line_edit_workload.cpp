#include "com/check.h"
#include "d2d/ui/ILineEdit.h"
#include "d2d/ui/ILineEditStyle.h"
#include "measure.h"
#include "scene_fixture.h"
#include "workloads.h"

#include <string>

namespace bench {
namespace {

constexpr std::size_t typed = 1'000;
constexpr D2D_RECT_F rect{0, 0, 20'000, 20};

/// One character after another into an edit that has the focus, from an empty text on.
void run_typing(scene_fixture& fixture) {
    if (!selected("line_edit_type")) return;
    const auto edit = d2d::ui::create_line_edit(nullptr, rect, true, nullptr, nullptr);
    fixture.show(edit->get_node());
    fixture.lower_edge().on_focus_gained();
    edit->get_node()->set_focus();
    stopwatch watch;
    for (int i = 0; i < stopwatch::repetitions; ++i) {
        edit->set_text({});
        watch.run_once([&] {
            for (std::size_t k = 0; k < typed; ++k) {
                fixture.lower_edge().on_char(static_cast<wchar_t>(L'a' + k % 26));
            }
        });
    }
    report("line_edit_type", watch.nanoseconds(), typed);
    fixture.show(nullptr);
}

/// What that takes of the platform alone: a layout and a place for the caret for each text.
void run_layouts() {
    const d2d::factory graphics;
    const auto style = com::ptr<d2d::ui::ILineEditStyle>(d2d::ui::get_default_style(nullptr).get());
    const auto format = style->text_format();
    measure("line_edit_layouts", typed, [&] {
        std::wstring text;
        for (std::size_t k = 0; k < typed; ++k) {
            text += static_cast<wchar_t>(L'a' + k % 26);
            const auto layout = format->create_layout(text, rect.right, rect.bottom);
            DWRITE_HIT_TEST_METRICS metrics;
            float x = 0;
            float y = 0;
            com::check(layout->HitTestTextPosition(static_cast<UINT32>(k + 1), FALSE, &x, &y, &metrics));
            keep(x);
        }
    });
}

}  // namespace

void run_line_edit_workload() {
    scene_fixture fixture;
    run_typing(fixture);
    run_layouts();
}

}  // namespace bench
