#pragma once

#include "com/ptr.h"
#include "d2d/scene/IVisual.h"
#include "scene/resource.h"
#include "scene/small_blocks.h"

#include <variant>
#include <vector>

#include <d2d1.h>
#include <dwrite.h>

namespace d2d::scene {

template <class T>
using binding_ptr = com::ptr<ID2DResourceBinding<T>>;

// A recorded command owns what it refers to. It keeps its resource for good; the binding comes and goes with
// the render target, and is null while the node is outside a view that has one.

struct bitmap_command {
    com::ptr<resource<ID2D1Bitmap>> bitmap;
    binding_ptr<ID2D1Bitmap> binding;
    D2D_RECT_F destination;
    float opacity;
    D2D1_BITMAP_INTERPOLATION_MODE mode;
    D2D_RECT_F source;
};

struct stroke_command {
    com::ptr<ID2D1Geometry> geometry;
    com::ptr<resource<ID2D1Brush>> brush;
    binding_ptr<ID2D1Brush> binding;
    float width;
    com::ptr<ID2D1StrokeStyle> style;
};

struct fill_command {
    com::ptr<ID2D1Geometry> geometry;
    com::ptr<resource<ID2D1Brush>> brush;
    binding_ptr<ID2D1Brush> binding;
};

struct text_command {
    D2D_POINT_2F origin;
    com::ptr<IDWriteTextLayout> layout;
    com::ptr<resource<ID2D1Brush>> brush;
    binding_ptr<ID2D1Brush> binding;
    D2D1_DRAW_TEXT_OPTIONS options;
};

struct visual_command {
    com::ptr<IVisual> visual;
};

using command = std::variant<bitmap_command, stroke_command, fill_command, text_command, visual_command>;
static_assert(sizeof(void*) != 4 || sizeof(command) == 52, "a list of commands is one compact block");

using command_list = std::vector<command, small_block_allocator<command>>;

/// Fills the binding of a command; a visual is told to bind itself.
void bind_command(command& recorded, view& shown_in);
/// Fills the binding of a command, or clears it for null; a visual is left alone.
void bind_resource(command& recorded, view* shown_in);
/// Clears it; a visual is told to let go.
void release_command(command& recorded, view& shown_in);
/// Brings what is animated in a command to the frame's time.
void update_command(command& recorded, double time);
/// Paints a command; one whose resource could not be bound is left out.
void replay_command(const command& recorded, ID2D1RenderTarget* target);
/// Whether a command covers a point of the node, within `tolerance` pixels.
[[nodiscard]] bool command_contains(const command& recorded, D2D_POINT_2F point, float tolerance);
/// The visual of a command, or null.
[[nodiscard]] IVisual* visual_of(const command& recorded) noexcept;

}  // namespace d2d::scene
