#include "controls/line_edit/control_base.h"

#include "com/check.h"
#include "com/object.h"
#include "controls/control_impl.h"
#include "controls/node_placement.h"
#include "controls/text_extent.h"
#include "d2d/factory.h"
#include "scene/rectangle.h"

#include <algorithm>
#include <array>
#include <cmath>

namespace d2d::line_edit {
namespace {

constexpr _D3DCOLORVALUE black{0, 0, 0, 1};
constexpr _D3DCOLORVALUE clear{0, 0, 0, 0};
constexpr float blink_seconds = 0.5f;

/// Stores a value, and notes where it is another one.
template <class T>
void show(T& shown, const T& value, bool& dirty) noexcept {
    if (shown == value) return;
    shown = value;
    dirty = true;
}

/// The part of a selection that lies in a text.
edit_model::range cut_off(const edit_model::range& selection, std::uint32_t length) noexcept {
    if (selection.start >= length) return {};
    return {selection.start, std::min(selection.end, length)};
}

float first_line_height(IDWriteTextLayout& layout) {
    std::vector<DWRITE_LINE_METRICS> lines(1);
    UINT32 count = 0;
    HRESULT result = layout.GetLineMetrics(lines.data(), 1, &count);
    if (result == E_NOT_SUFFICIENT_BUFFER) {  // there are more, and the platform gives all or none
        lines.resize(count);
        result = layout.GetLineMetrics(lines.data(), count, &count);
    }
    com::check(result);
    return lines.front().height;
}

void add_figure(ID2D1GeometrySink& sink, const DWRITE_HIT_TEST_METRICS& run) {
    const float right = run.left + run.width;
    const float bottom = run.top + run.height;
    const std::array<D2D1_POINT_2F, 3> others{{{right, run.top}, {right, bottom}, {run.left, bottom}}};
    sink.BeginFigure({run.left, run.top}, D2D1_FIGURE_BEGIN_FILLED);
    sink.AddLines(others.data(), static_cast<UINT32>(others.size()));
    sink.EndFigure(D2D1_FIGURE_END_CLOSED);
}

}  // namespace

control_base::control_base(const D2D_RECT_F& edit_rect, bool with_frame, scene::ITextFormat* text_format,
                           IUnknown* style_source)
    : node(scene::create_node()),
      rect(edit_rect),
      style(resolve_style<ui::ILineEditStyle>(style_source)),
      framed(with_frame),
      format(text_format),
      visual(com::create_object<text_visual>(rect)),
      caret_node(scene::create_node()),
      caret_brush(scene::create_blinking_solid_color_brush(black, clear, blink_seconds)),
      selection_effect(com::create_object<colored_text_effect>(style->selected_text_color())) {
    caret_node->set_hit_transparent(true);  // clicks on it are the edit's
    update_clip();
}

void control_base::show_cursor_and_selection(const edit_model& model) noexcept {
    const auto length = static_cast<std::uint32_t>(model.text().size());
    show(selection, cut_off(model.selection(), length), selection_dirty);
    if (model.cursor() == edit_model::no_position) return;
    show(caret_position, std::min(model.cursor(), length), caret_position_dirty);
}

void control_base::show_as_focused(bool focused) noexcept {
    show(caret_visible, focused, caret_visibility_dirty);
    show(show_focus, focused, frame_dirty);
}

void control_base::flush(std::wstring_view text) {
    if (layout_dirty) rebuild_layout(text);
    if (layout_dirty || selection_dirty) {
        update_selection_runs();
        selection_dirty = layout_dirty = false;
        frame_dirty = true;
    }
    if (frame_dirty) {
        redraw();
        frame_dirty = false;
        caret_position_dirty = true;
    }
    if (caret_shape_dirty) {
        draw_caret();
        caret_shape_dirty = false;
    }
    update_caret();
}

/// Has to be followed by a `flush`.
void control_base::move_to(const D2D_RECT_F& new_rect) {
    rect = new_rect;
    const D2D_SIZE_F size = scene::size_of(rect);
    com::check(layout->SetMaxWidth(size.width));
    com::check(layout->SetMaxHeight(size.height));
    update_clip();
    selection_dirty = frame_dirty = true;
}

scene::layout::metrics control_base::measure_text(std::wstring_view text) const {
    constexpr float min_width = 6;
    auto [width, height] = pixel_extent(*current_format()->create_layout(text, 0, 0));
    if (framed) {
        const D2D_SIZE_F padding = style->padding();
        width += padding.width;
        height += padding.height;
    }
    return {{}, {min_width, height}, {scene::layout::unlimited, height}, {width, height}};
}

std::uint32_t control_base::position_at(D2D_POINT_2F point) const {
    const D2D_POINT_2F origin = text_origin();
    BOOL trailing = FALSE;
    BOOL inside = FALSE;
    DWRITE_HIT_TEST_METRICS metrics{};
    com::check(layout->HitTestPoint(point.x - origin.x, point.y - origin.y, &trailing, &inside, &metrics));
    return metrics.textPosition + (trailing ? 1 : 0);
}

com::ptr<scene::ITextFormat> control_base::current_format() const {
    return format ? format : style->text_format();
}

D2D_POINT_2F control_base::text_origin() const {
    if (!framed) return {rect.left, rect.top};
    const D2D_SIZE_F inset = style->text_inset();
    return {rect.left + inset.width, rect.top + inset.height};
}

/// Null when nothing is selected.
com::ptr<ID2D1PathGeometry> control_base::selection_shape() const {
    if (selection_runs.empty()) return {};
    auto shape = factory::create_path_geometry();
    com::ptr<ID2D1GeometrySink> sink;
    com::check(shape->Open(sink.put()));
    for (const DWRITE_HIT_TEST_METRICS& run : selection_runs) add_figure(*sink, run);
    com::check(sink->Close());
    return shape;
}

/// Kept: the padding is added, not taken off: the frame does not narrow the layout.
void control_base::rebuild_layout(std::wstring_view text) {
    D2D_SIZE_F size = scene::size_of(rect);
    if (framed) {
        const D2D_SIZE_F padding = style->padding();
        size.width += padding.width;
        size.height += padding.height;
    }
    layout = current_format()->create_layout(text, size.width, size.height);
    visual->layout = layout;
    selection_runs.clear();  // the new layout has no effects to take off
}

void control_base::update_selection_runs() {
    std::vector<DWRITE_HIT_TEST_METRICS> runs;
    if (selection.start < selection.end) {
        constexpr UINT32 capacity = 64;
        runs.resize(capacity);
        const D2D_POINT_2F origin = text_origin();
        UINT32 count = 0;
        com::check(layout->HitTestTextRange(selection.start, selection.end - selection.start, origin.x,
                                            origin.y, runs.data(), capacity, &count));
        runs.resize(count);
    }
    set_effect_of_runs(nullptr);
    selection_runs.swap(runs);
    set_effect_of_runs(selection_effect.get());
}

void control_base::set_effect_of_runs(IUnknown* effect) {
    for (const DWRITE_HIT_TEST_METRICS& run : selection_runs) {
        com::check(layout->SetDrawingEffect(effect, {run.textPosition, run.length}));
    }
}

/// The shape is where the mouse hits the edit, and clips nothing.
void control_base::update_clip() {
    node->set_clip_geometry(factory::create_rectangle_geometry(rect).get());
    node->set_clip_rect(rect);
    visual->bounds = rect;
}

void control_base::redraw() {
    static_cast<void>(style->text_brush(true));  // its failure belongs here; colours are the renderer's
    const auto shape = selection_shape();
    const auto context = node->draw(false);
    if (framed) style->draw_frame(context.get(), rect, false, show_focus);
    if (shape) context->fill_geometry(shape.get(), style->selection_background_brush().get());
    visual->origin = text_origin();
    context->draw_visual(visual.get());
    context->commit();
}

void control_base::draw_caret() {
    constexpr float width = 1;
    const auto shape = factory::create_rectangle_geometry({0, 0, width, first_line_height(*layout)});
    const auto context = caret_node->draw(false);
    context->fill_geometry(shape.get(), caret_brush.get());
    context->commit();
}

void control_base::update_caret() {
    if (caret_visible && (caret_visibility_dirty || caret_position_dirty)) place_caret();
    if (caret_visibility_dirty) {
        if (!caret_visible) detach_node(*caret_node);
        if (caret_visible && !caret_node->get_parent()) node->add_child(caret_node);
    }
    caret_visibility_dirty = caret_position_dirty = false;
}

void control_base::place_caret() {
    float x = 0;
    float y = 0;
    DWRITE_HIT_TEST_METRICS metrics{};
    com::check(layout->HitTestTextPosition(caret_position, FALSE, &x, &y, &metrics));
    const D2D_POINT_2F origin = text_origin();
    move_node(*caret_node, {std::floor(origin.x + x), std::ceil(origin.y + y)});
}

}  // namespace d2d::line_edit
