// A window with a scene: nested nodes under transforms and clips, shapes, text, bitmaps, a foreground over
// children, and a recording that is made anew for each size of the window.

#include "common/palette.h"
#include "common/shapes.h"
#include "d2d/win32_scene_window.h"
#include "pictures.h"

#include <exception>
#include <string>

#include <windows.h>

namespace {

/// The paper behind everything, with a border and the size of the window in its corner.
void record_paper(d2d::scene::INode& paper, D2D_SIZE_U size, const sketch::palette& colours) {
    const float width = static_cast<float>(size.width);
    const float height = static_cast<float>(size.height);
    const auto context = paper.draw(true);
    context->fill_geometry(sketch::rectangle(0, 0, width, height).get(), colours.paper.get());
    if (width < 40 || height < 40) return;
    context->draw_geometry(sketch::rounded(8.5f, 8.5f, width - 8.5f, height - 8.5f, 10).get(),
                           colours.edge.get(), 1, nullptr);
    const auto caption =
        sketch::text(std::to_wstring(size.width) + L" × " + std::to_wstring(size.height), 13);
    context->draw_text_layout(width - 22 - caption->GetMaxWidth(), height - 18 - caption->GetMaxHeight(),
                              caption.get(), colours.faint_ink.get(), D2D1_DRAW_TEXT_OPTIONS_NONE);
}

int run() {
    d2d::win32_scene_window window;
    const sketch::palette colours;
    const auto paper = d2d::scene::create_node();
    window.on_size = [&](D2D_SIZE_U size) { record_paper(*paper, size, colours); };
    window.addContent(paper.get());

    const auto add = [&](const sketch::node& picture, float x, float y) {
        picture->set_transform(sketch::moved(x, y));
        window.addContent(picture.get());
    };
    add(hello::make_title(colours), 32, 24);
    add(hello::make_harbour(colours), 32, 112);
    add(hello::make_bitmaps(colours), 372, 112);
    add(hello::make_strokes(colours), 372, 232);

    window.create_window(0, L"Hello, scene", WS_OVERLAPPEDWINDOW, 100, 80, 656, 440, nullptr, nullptr);
    window.show_window(SW_SHOW);
    const int result = d2d::win32_scene_window::run_message_loop([](MSG&) { return false; });
    window.destroy_window();
    return result;
}

}  // namespace

int WINAPI WinMain(HINSTANCE, HINSTANCE, LPSTR, int) {
    try {
        return run();
    } catch (const std::exception& failure) {
        MessageBoxA(nullptr, failure.what(), "hello_scene", MB_ICONERROR);
        return 1;
    }
}
