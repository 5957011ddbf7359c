#pragma once

#include "com/base_object.h"
#include "d2d/scene/IDrawingContext.h"
#include "scene/command.h"
#include "scene/extent.h"

#include <cstdint>

namespace d2d::scene {

class node;

/// An open recording: turns drawing calls into commands and unites their bounds.
class drawing_context : public com::base_object<com::object_base, IDrawingContext> {
public:
    void foreground() override;
    void background() override;
    void fill_geometry(ID2D1Geometry* geometry, IBrush* brush) override;
    void draw_geometry(ID2D1Geometry* geometry, IBrush* brush, float width, ID2D1StrokeStyle* style) override;
    void draw_text_layout(float x, float y, IDWriteTextLayout* layout, IBrush* brush,
                          D2D1_DRAW_TEXT_OPTIONS options) override;
    void draw_bitmap(float x, float y, IBitmap* bitmap) override;
    void draw_visual(IVisual* visual) override;

protected:
    drawing_context() = default;
    ~drawing_context() = default;

    /// The view that commands are bound to at once, or null.
    [[nodiscard]] virtual view* binding_view() const noexcept = 0;

    bool animated = false;
    bool use_background = true;
    D2D_RECT_F bounds{};
    command_list foreground_commands;
    command_list background_commands;

private:
    void append(command&& recorded, const D2D_RECT_F& covered, bool is_animated);
};

/// The recording that `node::draw` begins.
class node_drawing_context : public drawing_context, public in_small_blocks {
public:
    using uncounted = void;  // one that leaks is seen by its node

    node_drawing_context(node& recorded, bool on_release);

    void commit() override;
    void final_release();

protected:
    ~node_drawing_context();

    [[nodiscard]] view* binding_view() const noexcept override;

private:
    bool commit_on_release;
    com::ptr<node> target;
    // The attachment of a render target that commands are bound to; see `view::target_id`. The target may go
    // while the recording is open: it is bound anew at the commit then.
    std::uint64_t bound_to;
};

}  // namespace d2d::scene
