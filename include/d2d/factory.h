#pragma once

#include "com/api.h"
#include "com/ptr.h"

#include <string_view>

#include <d2d1.h>
#include <dwrite.h>

namespace d2d {

/// A token without fields. Holding one keeps the process-wide graphics objects alive: the Direct3D device,
/// the Direct2D and DirectWrite factories, the shared device context. The first token makes them, the last
/// one releases them. The statics make device-independent objects and require that a token is alive: windows,
/// views, nodes and the default style each hold one.
///
/// For the thread of the user interface alone.
class MOSSHARBOUR_API factory {
public:
    /// Throws `com::error` when the graphics objects cannot be made: there has to be a hardware device for
    /// Direct3D 11. That is fatal: a later token does not retry.
    factory();
    factory(const factory&);
    factory& operator=(const factory&) noexcept { return *this; }
    ~factory();

    /// The Direct2D factory; no reference is added. Null while no token is alive.
    [[nodiscard]] static ID2D1Factory* d2d1() noexcept;
    /// The DirectWrite factory; no reference is added. Null while no token is alive.
    [[nodiscard]] static IDWriteFactory* dwrite() noexcept;

    /// A text format of the system's fonts, of normal weight and style unless given; `size` in pixels. Throws
    /// `com::error`.
    [[nodiscard]] static com::ptr<IDWriteTextFormat> create_text_format(const wchar_t* family, float size);
    [[nodiscard]] static com::ptr<IDWriteTextFormat> create_text_format(const wchar_t* family,
                                                                        DWRITE_FONT_WEIGHT weight,
                                                                        float size);
    [[nodiscard]] static com::ptr<IDWriteTextFormat> create_text_format(const wchar_t* family,
                                                                        DWRITE_FONT_STYLE style, float size);
    [[nodiscard]] static com::ptr<IDWriteTextFormat> create_text_format(const wchar_t* family,
                                                                        DWRITE_FONT_WEIGHT weight,
                                                                        DWRITE_FONT_STYLE style, float size);

    /// A layout of text in a box, in pixels. A dimension of 0 asks for as much room as the text needs: the
    /// layout comes back with its measured extent there. Text of `char` is UTF-8; malformed text throws
    /// `com::error`.
    [[nodiscard]] static com::ptr<IDWriteTextLayout> create_text_layout(const wchar_t* text, unsigned length,
                                                                        IDWriteTextFormat* format,
                                                                        float width, float height);
    [[nodiscard]] static com::ptr<IDWriteTextLayout> create_text_layout(const char* text, unsigned length,
                                                                        IDWriteTextFormat* format,
                                                                        float width, float height);
    [[nodiscard]] static com::ptr<IDWriteTextLayout> create_text_layout(const wchar_t* text,
                                                                        IDWriteTextFormat* format,
                                                                        float width, float height);
    [[nodiscard]] static com::ptr<IDWriteTextLayout> create_text_layout(const char* text,
                                                                        IDWriteTextFormat* format,
                                                                        float width, float height);
    [[nodiscard]] static com::ptr<IDWriteTextLayout> create_text_layout(std::string_view text,
                                                                        IDWriteTextFormat* format,
                                                                        float width, float height);
    [[nodiscard]] static com::ptr<IDWriteTextLayout> create_text_layout(std::wstring_view text,
                                                                        IDWriteTextFormat* format,
                                                                        float width, float height);

    /// Geometries and stroke styles, each one call of the Direct2D factory. Throw `com::error`.
    [[nodiscard]] static com::ptr<ID2D1PathGeometry> create_path_geometry();
    [[nodiscard]] static com::ptr<ID2D1EllipseGeometry> create_ellipse_geometry(const D2D1_ELLIPSE& ellipse);
    [[nodiscard]] static com::ptr<ID2D1RectangleGeometry> create_rectangle_geometry(const D2D_RECT_F& rect);
    [[nodiscard]] static com::ptr<ID2D1RoundedRectangleGeometry> create_rounded_rect_geometry(
        const D2D1_ROUNDED_RECT& rect);
    [[nodiscard]] static com::ptr<ID2D1StrokeStyle> create_stroke_style(
        const D2D1_STROKE_STYLE_PROPERTIES& properties, const float* dashes, unsigned dash_count);
    /// One cap for both ends and the dashes; no custom dashes.
    [[nodiscard]] static com::ptr<ID2D1StrokeStyle> create_stroke_style(D2D1_DASH_STYLE dash,
                                                                        D2D1_CAP_STYLE cap,
                                                                        D2D1_LINE_JOIN join,
                                                                        float miter_limit, float dash_offset);

    /// A geometry from the text of an SVG path's `d` attribute, its points multiplied by `transform`. All
    /// arithmetic is in single precision, ahead of the transform. The text is ASCII and need not be
    /// terminated; an empty text gives an empty geometry.
    ///
    ///     const auto arrow = d2d::factory::parse_svg_path("M0 0h8l-4 5z", transform);
    ///
    /// Commands: `M L H V C S Q Z`, and in lower case with relative coordinates. Unlike in SVG, `Z` leaves
    /// the current point where the last segment ended, `S` mirrors the second control point of the latest
    /// `C` or `S` in the text and needs an open figure, `Q` is drawn as a cubic curve with both control
    /// points the same, a comma counts as white space, and numbers have no exponent.
    ///
    /// Throws `std::runtime_error` "bad svg" for anything else, arcs (`A`) and smooth quadratic curves (`T`)
    /// included, and `com::error` when the geometry cannot be made. Never returns when a `Z` is followed by
    /// something other than a letter, as in "M0 0L1 1z 5": do not pass such text.
    [[nodiscard]] static com::ptr<ID2D1PathGeometry> parse_svg_path(std::string_view path,
                                                                    D2D_MATRIX_3X2_F transform);
};

}  // namespace d2d
