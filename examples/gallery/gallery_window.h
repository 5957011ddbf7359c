#pragma once

#include "banner.h"
#include "d2d/win32_scene_window.h"
#include "navigation.h"
#include "page.h"

namespace gallery {

/// A banner, the buttons of the pages, and the page that is chosen, which scrolls where the window is too
/// small for it.
class gallery_window : public d2d::win32_scene_window {
public:
    gallery_window();
    ~gallery_window();

    std::optional<long> on_window_message(MSG message) override;
    /// To be called ahead of each message.
    void update() { shown->update(); }

private:
    void show_page(std::size_t number);
    void place_all();
    void place_page();
    [[nodiscard]] bool on_key(const d2d::input::key::event& event);

    look style;
    sketch::node paper = d2d::scene::create_node();
    banner top{style};
    navigation pages_list;
    com::ptr<d2d::ui::IScrollArea> area = d2d::ui::create_scroll_area({0, 0, 1, 1}, nullptr);
    holder area_place{paper, area};
    std::vector<std::unique_ptr<page>> pages;
    page* shown = nullptr;
};

}  // namespace gallery
