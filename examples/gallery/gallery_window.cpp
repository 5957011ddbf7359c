#include "gallery_window.h"

#include "pages.h"

#include <limits>

namespace gallery {
namespace {

// A column of cards fits beside the buttons.
constexpr POINT smallest_window{560, 360};

[[nodiscard]] D2D_SIZE_F size_of(D2D_RECT_F rect) {
    return {rect.right - rect.left, rect.bottom - rect.top};
}

}  // namespace

gallery_window::gallery_window()
    : pages_list(style, paper, [this](std::size_t number) { show_page(number); }), pages(all_pages().size()) {
    addContent(paper.get());
    paper->add_child(top.node());
    on_size = [this](D2D_SIZE_U) { place_all(); };
    root_node()->set_key_handler([this](d2d::scene::INode*, int depth, d2d::input::key::event event) {
        return depth >= 0 && on_key(event);
    });
    show_page(0);
}

gallery_window::~gallery_window() {
    root_node()->set_key_handler({});
}

std::optional<long> gallery_window::on_window_message(MSG message) {
    if (message.message == WM_GETMINMAXINFO) {
        reinterpret_cast<MINMAXINFO*>(message.lParam)->ptMinTrackSize = smallest_window;
        return 0;
    }
    return win32_scene_window::on_window_message(message);
}

// A page is made when it is shown for the first time, and stays as it is left.
void gallery_window::show_page(std::size_t number) {
    auto& wanted = pages.at(number);
    if (!wanted) wanted = all_pages()[number].make(style);
    if (shown) area->remove_content(shown->node());
    shown = wanted.get();
    area->add_content(shown->node());
    area->set_scroll_position(0, 0);
    place_page();
}

void gallery_window::place_all() {
    const D2D_SIZE_U client = client_size();
    const auto right = static_cast<float>(client.width);
    const auto bottom = static_cast<float>(client.height);
    paper->draw(true)->fill_geometry(sketch::rectangle(0, 0, right, bottom).get(), style.paper.get());
    top.place(right);
    pages_list.place({0, banner::height, navigation::width, bottom});
    area_place.place({navigation::width, banner::height, right, bottom});
    place_page();
}

// Once for all the room that there is, and again for what a scroll bar leaves of it.
void gallery_window::place_page() {
    const auto place_within = [this](D2D_SIZE_F room) {
        const D2D_SIZE_F taken = shown->arrange(room);
        area->set_content_bounds({0, 0, taken.width, taken.height});
        return size_of(area->get_view_rect());
    };
    const D2D_SIZE_F whole = size_of(area->get_rect());
    const D2D_SIZE_F left = place_within(whole);
    if (left.width < whole.width) static_cast<void>(place_within(left));
}

bool gallery_window::on_key(const d2d::input::key::event& event) {
    if (!event.down) return false;
    const D2D_RECT_F seen = area->get_view_rect();
    const auto scroll_to = [&](float y) {
        area->set_scroll_position(seen.left, y);
        return true;
    };
    const float most = size_of(seen).height - space::large;
    switch (event.key) {
        case VK_PRIOR:
            return scroll_to(seen.top - most);
        case VK_NEXT:
            return scroll_to(seen.top + most);
        case VK_HOME:
            return scroll_to(0);
        case VK_END:
            return scroll_to(std::numeric_limits<float>::max());
        case VK_TAB:
            if (!(event.modifiers & d2d::input::key::modifier::control)) return false;
            pages_list.step(event.modifiers & d2d::input::key::modifier::shift ? -1 : 1);
            return true;
        default:
            return false;
    }
}

}  // namespace gallery
