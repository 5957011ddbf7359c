#include "pond.h"

#include "common/shapes.h"

#include <algorithm>

namespace playground {

using d2d::scene::INode;
namespace mouse = d2d::input::mouse;
namespace key = d2d::input::key;

namespace {

constexpr float margin = 24;
constexpr float title_height = 108;

}  // namespace

void pond::final_construct() {
    water->add_mouse_handler([](INode* source, int depth, mouse::event event) {
        if (depth != 0 || event.type != mouse::event_type::button_down) return false;
        source->set_focus();
        return true;
    });
    water->set_key_handler([self = com::weak_ptr<pond>(this)](INode*, int depth, key::event event) {
        const auto alive = self.lock();
        return depth >= 0 && alive && alive->on_key(event);
    });
}

com::ptr<toy> pond::add(const sketch::node& picture, D2D_POINT_2F centre) {
    auto added = com::create_object<toy>(picture, centre, colours);
    water->add_child(added->node());
    toys.push_back(added);
    return added;
}

void pond::fit(D2D_SIZE_U window) {
    shore = {0, 0, std::max(1.0f, static_cast<float>(window.width) - 2 * margin),
             std::max(1.0f, static_cast<float>(window.height) - title_height - margin)};
    water->set_transform(sketch::moved(margin, title_height));
    water->set_clip_rect(shore);
    const auto context = water->draw(true);
    context->fill_geometry(sketch::rounded(0, 0, shore.right, shore.bottom, 18).get(), colours.water.get());
    const int waves = static_cast<int>(shore.right / 40) - 1;
    const auto round = sketch::round_strokes();
    int row = 0;
    for (float y = 30; waves > 1 && y < shore.bottom - 16; y += 44, ++row) {
        const int shift = row % 3;
        context->draw_geometry(sketch::waves(20 + 20 * static_cast<float>(shift), y, 40, waves - shift).get(),
                               colours.ripple.get(), 2, round.get());
    }
    for (const auto& each : toys) each->keep_within(shore);
}

bool pond::on_key(const key::event& event) {
    if (!event.down || event.key != VK_TAB) return false;
    pass_focus((event.modifiers & key::modifier::shift) != 0);
    return true;
}

void pond::pass_focus(bool back) {
    if (toys.empty()) return;
    const auto focused = std::find_if(toys.begin(), toys.end(),
                                      [](const auto& each) { return each->node()->has_focus(false); });
    const std::size_t count = toys.size();
    const std::size_t next = focused == toys.end()
                                 ? (back ? count - 1 : 0)
                                 : static_cast<std::size_t>(focused - toys.begin()) + (back ? count - 1 : 1);
    toys[next % count]->node()->set_focus();
}

}  // namespace playground
