#include "scene/testing/recording_render_target.h"

#include "scene/testing/call_text.h"
#include "scene/testing/geometry_text.h"

#include <memory>
#include <type_traits>

#include <wincodec.h>

namespace d2d::scene::fakes {
namespace {

/// Hands a new fake out through an argument, with the caller's reference.
template <class Fake, class Interface>
HRESULT hand_out(std::unique_ptr<Fake> made, Interface** out) {
    made->AddRef();
    *out = made.release();
    return S_OK;
}

template <class Interface>
com::ptr<Interface> as(IUnknown* object) {
    com::ptr<Interface> result;
    static_cast<void>(object->QueryInterface(com::guid_of<Interface>(), result.put_void()));
    return result;
}

std::string text_of_properties(const D2D1_BITMAP_PROPERTIES* properties) {
    if (!properties) return "null";
    return call_text(properties->pixelFormat.format, properties->pixelFormat.alphaMode, properties->dpiX,
                     properties->dpiY);
}

}  // namespace

void recording_render_target::name(IUnknown* object, std::string text) {
    names[as<IUnknown>(object).get()] = std::move(text);
}

void recording_render_target::fail_creations_after(int count, HRESULT failure) {
    creations_left = count;
    creation_failure = failure;
}

HRESULT recording_render_target::next_creation() noexcept {
    if (creation_failure == S_OK || creations_left-- > 0) return S_OK;
    creations_left = 0;
    return creation_failure;
}

const std::string* recording_render_target::name_of(IUnknown* object) const {
    const auto found = names.find(as<IUnknown>(object).get());
    return found == names.end() ? nullptr : &found->second;
}

std::string recording_render_target::text_of(IUnknown* object, const char* kind) const {
    if (!object) return "null";
    const std::string* const name = name_of(object);
    return name ? *name : kind;
}

std::string recording_render_target::text_of(ID2D1Brush* brush) const {
    std::string text = text_of(brush, "brush");
    if (text != "brush") return text;
    if (const auto solid = as<ID2D1SolidColorBrush>(brush)) text += "(" + call_text(solid->GetColor()) + ")";
    return text;
}

std::string recording_render_target::text_of(ID2D1Bitmap* bitmap) const {
    std::string text = text_of(bitmap, "bitmap");
    return text == "bitmap" ? text + "(" + call_text(bitmap->GetPixelSize()) + ")" : text;
}

std::string recording_render_target::text_of(ID2D1Geometry* geometry) const {
    const std::string text = text_of(geometry, "geometry");
    return text == "geometry" ? geometry_text(geometry) : text;
}

HRESULT recording_render_target::QueryInterface(const GUID& id, void** out) noexcept {
    *out = nullptr;
    if (com::same_guid(id, com::guid_of<IUnknown>()) || com::same_guid(id, com::guid_of<ID2D1Resource>()) ||
        com::same_guid(id, com::guid_of<ID2D1RenderTarget>())) {
        *out = static_cast<ID2D1RenderTarget*>(this);
        AddRef();
        return S_OK;
    }
    return real ? real->QueryInterface(id, out) : E_NOINTERFACE;
}

void recording_render_target::GetFactory(ID2D1Factory** factory) const {
    *factory = nullptr;
    if (real) real->GetFactory(factory);
}

HRESULT recording_render_target::CreateBitmap(D2D1_SIZE_U size, const void* source, UINT32 pitch,
                                              const D2D1_BITMAP_PROPERTIES* properties,
                                              ID2D1Bitmap** bitmap) {
    record->calls.push_back(call_text("CreateBitmap", size, pitch, text_of_properties(properties)));
    if (const HRESULT failure = next_creation(); failure < 0) return failure;
    if (!real) return hand_out(std::make_unique<fake_bitmap>(record, size, *properties), bitmap);
    const HRESULT result = real->CreateBitmap(size, source, pitch, properties, bitmap);
    if (result >= 0) ++record->bitmaps.created;
    return result;
}

HRESULT recording_render_target::CreateBitmapFromWicBitmap(IWICBitmapSource* source,
                                                           const D2D1_BITMAP_PROPERTIES* properties,
                                                           ID2D1Bitmap** bitmap) {
    D2D1_SIZE_U size{};
    static_cast<void>(source->GetSize(&size.width, &size.height));
    record->calls.push_back(call_text("CreateBitmapFromWicBitmap", size, text_of_properties(properties)));
    if (const HRESULT failure = next_creation(); failure < 0) return failure;
    if (!real) return hand_out(std::make_unique<fake_bitmap>(record, size, *properties), bitmap);
    const HRESULT result = real->CreateBitmapFromWicBitmap(source, properties, bitmap);
    if (result >= 0) ++record->bitmaps.created;
    return result;
}

HRESULT recording_render_target::CreateSharedBitmap(const IID& id, void* data,
                                                    const D2D1_BITMAP_PROPERTIES* properties,
                                                    ID2D1Bitmap** bitmap) {
    return real ? real->CreateSharedBitmap(id, data, properties, bitmap) : E_NOTIMPL;
}

HRESULT recording_render_target::CreateBitmapBrush(ID2D1Bitmap* bitmap,
                                                   const D2D1_BITMAP_BRUSH_PROPERTIES* bitmap_properties,
                                                   const D2D1_BRUSH_PROPERTIES* properties,
                                                   ID2D1BitmapBrush** brush) {
    return real ? real->CreateBitmapBrush(bitmap, bitmap_properties, properties, brush) : E_NOTIMPL;
}

HRESULT recording_render_target::CreateSolidColorBrush(const D2D1_COLOR_F* color,
                                                       const D2D1_BRUSH_PROPERTIES* properties,
                                                       ID2D1SolidColorBrush** brush) {
    record->calls.push_back(call_text("CreateSolidColorBrush", color));
    if (const HRESULT failure = next_creation(); failure < 0) return failure;
    if (!real) return hand_out(std::make_unique<fake_solid_color_brush>(record, *color), brush);
    const HRESULT result = real->CreateSolidColorBrush(color, properties, brush);
    if (result >= 0) ++record->brushes.created;
    return result;
}

HRESULT recording_render_target::CreateGradientStopCollection(const D2D1_GRADIENT_STOP* stops, UINT count,
                                                              D2D1_GAMMA gamma, D2D1_EXTEND_MODE mode,
                                                              ID2D1GradientStopCollection** collection) {
    return real ? real->CreateGradientStopCollection(stops, count, gamma, mode, collection) : E_NOTIMPL;
}

HRESULT recording_render_target::CreateLinearGradientBrush(
    const D2D1_LINEAR_GRADIENT_BRUSH_PROPERTIES* gradient, const D2D1_BRUSH_PROPERTIES* properties,
    ID2D1GradientStopCollection* stops, ID2D1LinearGradientBrush** brush) {
    return real ? real->CreateLinearGradientBrush(gradient, properties, stops, brush) : E_NOTIMPL;
}

HRESULT recording_render_target::CreateRadialGradientBrush(
    const D2D1_RADIAL_GRADIENT_BRUSH_PROPERTIES* gradient, const D2D1_BRUSH_PROPERTIES* properties,
    ID2D1GradientStopCollection* stops, ID2D1RadialGradientBrush** brush) {
    return real ? real->CreateRadialGradientBrush(gradient, properties, stops, brush) : E_NOTIMPL;
}

HRESULT recording_render_target::CreateCompatibleRenderTarget(const D2D1_SIZE_F* size,
                                                              const D2D1_SIZE_U* pixels,
                                                              const D2D1_PIXEL_FORMAT* format,
                                                              D2D1_COMPATIBLE_RENDER_TARGET_OPTIONS options,
                                                              ID2D1BitmapRenderTarget** target) {
    record->calls.push_back(call_text("CreateCompatibleRenderTarget", size));
    if (make_layer) return make_layer(*size, target);
    return real ? real->CreateCompatibleRenderTarget(size, pixels, format, options, target) : E_NOTIMPL;
}

HRESULT recording_render_target::CreateLayer(const D2D1_SIZE_F* size, ID2D1Layer** layer) {
    return real ? real->CreateLayer(size, layer) : E_NOTIMPL;
}

HRESULT recording_render_target::CreateMesh(ID2D1Mesh** mesh) {
    return real ? real->CreateMesh(mesh) : E_NOTIMPL;
}

D2D1_PIXEL_FORMAT recording_render_target::pixel_format() const {
    if (real) return real->GetPixelFormat();
    return {DXGI_FORMAT_B8G8R8A8_UNORM, D2D1_ALPHA_MODE_PREMULTIPLIED};
}

D2D1_SIZE_U recording_render_target::size_in_pixels() const {
    return real ? real->GetPixelSize() : pixel_size;
}

D2D1_SIZE_F recording_render_target::size() const {
    if (real) return real->GetSize();
    return {static_cast<float>(pixel_size.width), static_cast<float>(pixel_size.height)};
}

void recording_render_target::SetDpi(FLOAT x, FLOAT y) {
    record->calls.push_back(call_text("SetDpi", x, y));
    if (real) real->SetDpi(x, y);
}

void recording_render_target::GetDpi(FLOAT* x, FLOAT* y) const {
    *x = *y = 96.0f;
    if (real) real->GetDpi(x, y);
}

UINT32 recording_render_target::GetMaximumBitmapSize() const {
    return real ? real->GetMaximumBitmapSize() : 16384;
}

BOOL recording_render_target::IsSupported(const D2D1_RENDER_TARGET_PROPERTIES* properties) const {
    return real ? real->IsSupported(properties) : TRUE;
}

}  // namespace d2d::scene::fakes
