#include "scene/drawing_context.h"

#include "com/object.h"
#include "scene/node.h"
#include "scene/view.h"

#include <stdexcept>
#include <utility>

namespace d2d::scene {
namespace {

constexpr float flattening_tolerance = 0.25f;

D2D_RECT_F widened_bounds(ID2D1Geometry* geometry, float width, ID2D1StrokeStyle* style) {
    D2D_RECT_F covered{};
    com::check(geometry->GetWidenedBounds(width, style, nullptr, flattening_tolerance, &covered));
    if (covered.right < covered.left || covered.bottom < covered.top) {
        throw std::logic_error("cannot calculate bounds for geometry");
    }
    return covered;
}

/// Null is refused ahead of any change.
template <class T>
T* given(T* object) {
    if (!object) com::throw_error(E_POINTER);
    return object;
}

/// The resource behind a brush or bitmap, and its binding where there is a view to bind it to.
template <class T>
struct bound_resource {
    template <class I>
    bound_resource(I* used, view* bound_in) : resource(given(used)) {
        if (bound_in) binding = resource->bind_typed(bound_in);
        animated = resource->is_animated();
    }

    com::ptr<scene::resource<T>> resource;
    binding_ptr<T> binding;
    bool animated = false;
};

}  // namespace

void drawing_context::append(command&& recorded, const D2D_RECT_F& covered, bool is_animated) {
    const bool is_first = foreground_commands.empty() && background_commands.empty();
    (use_background ? background_commands : foreground_commands).push_back(std::move(recorded));
    bounds = is_first ? covered : unite(bounds, covered);
    animated = animated || is_animated;
}

void drawing_context::foreground() {
    use_background = false;
}

void drawing_context::background() {
    use_background = true;
}

void drawing_context::fill_geometry(ID2D1Geometry* geometry, IBrush* brush) {
    bound_resource<ID2D1Brush> used(brush, binding_view());
    D2D_RECT_F covered{};
    com::check(given(geometry)->GetBounds(nullptr, &covered));
    append(fill_command{geometry, std::move(used.resource), std::move(used.binding)}, covered, used.animated);
}

void drawing_context::draw_geometry(ID2D1Geometry* geometry, IBrush* brush, float width,
                                    ID2D1StrokeStyle* style) {
    bound_resource<ID2D1Brush> used(brush, binding_view());
    const D2D_RECT_F covered = widened_bounds(given(geometry), width, style);
    append(stroke_command{geometry, std::move(used.resource), std::move(used.binding), width, style}, covered,
           used.animated);
}

void drawing_context::draw_text_layout(float x, float y, IDWriteTextLayout* layout, IBrush* brush,
                                       D2D1_DRAW_TEXT_OPTIONS options) {
    bound_resource<ID2D1Brush> used(brush, binding_view());
    DWRITE_TEXT_METRICS metrics{};
    com::check(given(layout)->GetMetrics(&metrics));  // only for its failure: the box counts, not the ink
    const D2D_RECT_F box{x, y, x + layout->GetMaxWidth(), y + layout->GetMaxHeight()};
    append(text_command{{x, y}, layout, std::move(used.resource), std::move(used.binding), options}, box,
           used.animated);
}

void drawing_context::draw_bitmap(float x, float y, IBitmap* bitmap) {
    bound_resource<ID2D1Bitmap> used(bitmap, binding_view());
    const D2D_SIZE_U size = bitmap->get_size();
    const float width = static_cast<float>(size.width);
    const float height = static_cast<float>(size.height);
    const D2D_RECT_F destination{x, y, x + width, y + height};
    append(bitmap_command{std::move(used.resource),
                          std::move(used.binding),
                          destination,
                          1.0f,
                          D2D1_BITMAP_INTERPOLATION_MODE_LINEAR,
                          {0, 0, width, height}},
           destination, used.animated);
}

void drawing_context::draw_visual(IVisual* visual) {
    const D2D_RECT_F covered = given(visual)->get_bounds();
    append(visual_command{visual}, covered, visual->get_animation().has_value());
}

node_drawing_context::node_drawing_context(node& recorded, bool on_release)
    : commit_on_release(on_release), target(&recorded), bound_to(recorded.target_id()) {}

node_drawing_context::~node_drawing_context() = default;

view* node_drawing_context::binding_view() const noexcept {
    return bound_to != 0 && target->target_id() == bound_to ? target->view : nullptr;
}

void node_drawing_context::commit() {
    command_list background = std::exchange(background_commands, {});
    command_list foreground = std::exchange(foreground_commands, {});
    target->install_recording(std::move(background), std::move(foreground), bounds,
                              std::exchange(animated, false), bound_to);
    bound_to = target->target_id();
}

void node_drawing_context::final_release() {
    if (commit_on_release) commit();
}

com::ptr<IDrawingContext> node::draw(bool commit_on_release) {
    return com::create_object<node_drawing_context>(*this, commit_on_release);
}

}  // namespace d2d::scene
