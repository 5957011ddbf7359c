#include "controls/command_strip.h"

#include "com/object.h"
#include "com/weak_ptr.h"
#include "controls/node_placement.h"
#include "d2d/factory.h"
#include "scene/rectangle.h"

#include <stdexcept>

namespace d2d {
namespace {

/// Cuts a strip into cells. Worked out for a strip that runs across; one that runs down is turned over.
class cell_layout {
public:
    cell_layout(bool is_vertical, D2D_SIZE_F cell, std::size_t count) noexcept
        : is_vertical_(is_vertical), cell_(turned(cell)), count_(count) {}

    [[nodiscard]] D2D_RECT_F strip() const noexcept {
        return turned(D2D_RECT_F{0, 0, cell_.width * static_cast<float>(count_), cell_.height});
    }
    [[nodiscard]] D2D_POINT_2F centre(std::size_t index) const noexcept {
        return turned(D2D_POINT_2F{across(index).left + cell_.width * 0.5f, cell_.height * 0.5f});
    }
    /// The cell, and some more on the sides that face the outside of the strip.
    [[nodiscard]] D2D_RECT_F reaching_out(std::size_t index) const noexcept {
        constexpr float more = 10;
        D2D_RECT_F area = across(index);
        area.top -= more;
        area.bottom += more;
        if (index == 0) area.left -= more;
        if (index + 1 == count_) area.right += more;
        return turned(area);
    }

private:
    template <class T>
    [[nodiscard]] T turned(T value) const noexcept {
        return is_vertical_ ? scene::flipped(value) : value;
    }
    [[nodiscard]] D2D_RECT_F across(std::size_t index) const noexcept {
        const float start = static_cast<float>(index) * cell_.width;
        return {start, 0, start + cell_.width, cell_.height};
    }

    bool is_vertical_;
    D2D_SIZE_F cell_;
    std::size_t count_;
};

com::ptr<ID2D1RoundedRectangleGeometry> outline_of(const D2D_RECT_F& strip) {
    constexpr float half_stroke = 0.5f;
    constexpr float radius = 5;
    return factory::create_rounded_rect_geometry({{strip.left + half_stroke, strip.top + half_stroke,
                                                   strip.right - half_stroke, strip.bottom - half_stroke},
                                                  radius,
                                                  radius});
}

}  // namespace

struct command_strip::button {
    com::ptr<scene::INode> node;
    com::ptr<ID2D1PathGeometry> shape;
    mouse_state mouse;
};

command_strip::command_strip(bool is_vertical, D2D_SIZE_F cell,
                             std::span<const ui::ICommandStrip::button> shown, IUnknown* style_source)
    : control_impl(style_source) {
    const cell_layout layout(is_vertical, cell, shown.size());
    rect = layout.strip();
    outline_shape = outline_of(rect);
    buttons.reserve(shown.size());
    for (std::size_t i = 0; i < shown.size(); ++i) {
        add_button(layout.centre(i), cell_shape(layout.reaching_out(i)), *shown[i].label);
    }
}

void command_strip::final_construct() {
    const com::weak_ptr<command_strip> self(this);
    node->add_mouse_handler([self](scene::INode*, int, input::mouse::event event) {
        if (const auto alive = self.lock()) alive->mouse.count_hover(event, [&] { alive->draw_outline(); });
        return false;
    });
    for (const auto& each : buttons) {
        each->node->add_mouse_handler(
            [self, of = std::weak_ptr(each)](scene::INode*, int, input::mouse::event event) {
                const auto alive = self.lock();
                const auto at = of.lock();
                if (alive && at) alive->handle_mouse(*at, event);
                return true;
            });
    }
    draw_outline();
}

com::ptr<ID2D1PathGeometry> command_strip::cell_shape(const D2D_RECT_F& area) const {
    const auto shape = factory::create_path_geometry();
    com::ptr<ID2D1GeometrySink> sink;
    com::check(shape->Open(sink.put()));
    com::check(factory::create_rectangle_geometry(area)->CombineWithGeometry(
        outline_shape.get(), D2D1_COMBINE_MODE_INTERSECT, nullptr, D2D1_DEFAULT_FLATTENING_TOLERANCE,
        sink.get()));
    com::check(sink->Close());
    return shape;
}

void command_strip::add_button(D2D_POINT_2F centre, const com::ptr<ID2D1PathGeometry>& shape,
                               ui::ILabel& label) {
    const auto& added =
        buttons.emplace_back(std::make_shared<button>(button{scene::create_node(), shape, {}}));
    redraw(*added);
    const auto label_node = label.get_node();
    move_node(*label_node, centre);
    added->node->add_child(label_node);
    node->add_child(added->node);
}

scene::layout::metrics command_strip::measure() {
    throw std::logic_error("not implemented");
}

void command_strip::arrange(D2D_RECT_F) {
    throw std::logic_error("not implemented");
}

void command_strip::draw_outline() {
    const auto context = node->draw(false);
    style->draw_outline(context.get(), outline_shape.get(), mouse.is_hot(), node->has_focus(false));
    context->commit();
}

void command_strip::redraw(const button& drawn) {
    const auto context = drawn.node->draw(false);
    style->fill_background(context.get(), drawn.shape.get(), drawn.mouse.is_hot(), drawn.mouse.is_down());
    context->commit();
}

void command_strip::handle_mouse(button& at, const input::mouse::event& event) {
    const auto redraw_it = [&] { redraw(at); };
    at.mouse.count_hover(event, redraw_it);
    if (event.type != input::mouse::event_type::button_down || event.button != input::mouse::button::left)
        return;
    static_cast<void>(at.mouse.press(*at.node, *event.button, redraw_it));  // nobody is told yet
    redraw_it();
}

}  // namespace d2d

namespace d2d::ui {

com::ptr<ICommandStrip> create_command_strip(bool vertical, D2D_SIZE_F cell_size,
                                             std::initializer_list<ICommandStrip::button> buttons,
                                             IUnknown* style) {
    return com::create_object<command_strip>(vertical, cell_size, std::span(buttons), style);
}

}  // namespace d2d::ui
