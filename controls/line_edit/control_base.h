#pragma once

#include "controls/line_edit/colored_text_effect.h"
#include "controls/line_edit/edit_model.h"
#include "controls/line_edit/text_visual.h"
#include "d2d/scene/IBrush.h"
#include "d2d/scene/INode.h"
#include "d2d/scene/ITextFormat.h"
#include "d2d/scene/layout/metrics.h"
#include "d2d/ui/ILineEditStyle.h"

#include <cstdint>
#include <string_view>
#include <vector>

namespace d2d::line_edit {

/// All that a line edit draws. Changes of what it shows only raise flags; `flush` brings layout, selection,
/// frame and caret up to date, in this order and each at most once. Where it throws, the flags of what is
/// still to be done stay.
class control_base {
protected:
    control_base(const D2D_RECT_F& edit_rect, bool with_frame, scene::ITextFormat* text_format,
                 IUnknown* style_source);
    ~control_base() = default;

    void show_cursor_and_selection(const edit_model& model) noexcept;
    void show_as_focused(bool focused) noexcept;
    void flush(std::wstring_view text);

    void move_to(const D2D_RECT_F& new_rect);
    [[nodiscard]] scene::layout::metrics measure_text(std::wstring_view text) const;
    [[nodiscard]] std::uint32_t position_at(D2D_POINT_2F point) const;

    const com::ptr<scene::INode> node;
    D2D_RECT_F rect;
    bool layout_dirty = true;

private:
    [[nodiscard]] com::ptr<scene::ITextFormat> current_format() const;
    [[nodiscard]] D2D_POINT_2F text_origin() const;
    [[nodiscard]] com::ptr<ID2D1PathGeometry> selection_shape() const;

    void rebuild_layout(std::wstring_view text);
    void update_selection_runs();
    void set_effect_of_runs(IUnknown* effect);
    void update_clip();
    void redraw();
    void draw_caret();
    void update_caret();
    void place_caret();

    const com::ptr<ui::ILineEditStyle> style;
    const bool framed;
    const com::ptr<scene::ITextFormat> format;  // null: the style's
    const com::ptr<text_visual> visual;
    const com::ptr<scene::INode> caret_node;  // a child of the node while the caret shows
    const com::ptr<scene::IBrush> caret_brush;
    const com::ptr<IColoredTextEffect> selection_effect;

    com::ptr<IDWriteTextLayout> layout;
    edit_model::range selection;  // as drawn; so are these two
    std::vector<DWRITE_HIT_TEST_METRICS> selection_runs;
    std::uint32_t caret_position = 0;
    bool caret_visible = false;
    bool show_focus = false;

    bool selection_dirty = true;
    bool caret_position_dirty = true;
    bool caret_visibility_dirty = false;
    bool frame_dirty = true;
    bool caret_shape_dirty = true;
};

}  // namespace d2d::line_edit
