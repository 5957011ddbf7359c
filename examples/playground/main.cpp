// A window to play in: toys that are dragged, and moved by the keyboard; lights that blink and swell, a wheel
// that turns, an icon from an SVG path, and a kite that flies out of the window.
//
//     playground [--still]      --still: nothing moves by itself

#include "common/shapes.h"
#include "d2d/win32_scene_window.h"
#include "kite.h"
#include "pictures.h"
#include "pond.h"

#include <exception>
#include <string_view>

#include <windows.h>

namespace {

/// Tells when it has moved.
class playground_window : public d2d::win32_scene_window {
public:
    std::function<void()> on_moved;

    std::optional<long> on_window_message(MSG message) override {
        const auto result = win32_scene_window::on_window_message(message);
        if (message.message == WM_MOVE && on_moved) on_moved();
        return result;
    }
};

void record_paper(d2d::scene::INode& paper, D2D_SIZE_U size, const sketch::palette& colours) {
    const auto area =
        sketch::rectangle(0, 0, static_cast<float>(size.width), static_cast<float>(size.height));
    paper.draw(true)->fill_geometry(area.get(), colours.paper.get());
}

int run(bool still) {
    const sketch::palette colours;
    playground_window window;
    const auto paper = d2d::scene::create_node();
    const auto pond = com::create_object<playground::pond>(colours);
    window.on_size = [&](D2D_SIZE_U size) {
        record_paper(*paper, size, colours);
        pond->fit(size);
    };
    window.addContent(paper.get());
    const auto title = playground::make_title(colours);
    title->set_transform(sketch::moved(30, 20));
    window.addContent(title.get());
    window.addContent(pond->node().get());

    pond->add(playground::make_lighthouse(colours, still), {110, 96});
    pond->add(playground::make_buoy(colours, still), {440, 246});
    pond->add(playground::make_wheel(colours, still), {330, 100});
    pond->add(playground::make_anchor(colours), {210, 246});
    const auto boat = pond->add(playground::make_boat(colours), {560, 130});

    window.create_window(0, L"Playground", WS_OVERLAPPEDWINDOW, 200, 220, 720, 500, nullptr, nullptr);
    window.show_window(SW_SHOW);
    pond->node()->set_focus();

    const auto mast = d2d::scene::create_node();
    mast->set_transform(sketch::moved(0, -46));
    boat->node()->add_child(mast);
    const auto kite = com::create_object<playground::kite>(mast, playground::make_kite(colours),
                                                           window.get_window_handle());
    window.on_moved = boat->on_moved = [tied = com::weak_ptr<playground::kite>(kite)] {
        if (const auto flying = tied.lock()) flying->follow();
    };
    const int result = d2d::win32_scene_window::run_message_loop([](MSG&) { return false; });
    window.destroy_window();
    return result;
}

}  // namespace

int WINAPI WinMain(HINSTANCE, HINSTANCE, LPSTR arguments, int) {
    try {
        return run(std::string_view(arguments) == "--still");
    } catch (const std::exception& failure) {
        MessageBoxA(nullptr, failure.what(), "playground", MB_ICONERROR);
        return 1;
    }
}
