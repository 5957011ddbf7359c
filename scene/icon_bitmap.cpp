#include "scene/icon_bitmap.h"

#include "scene/bitmap_properties.h"
#include "win32/error.h"

#include <memory>
#include <type_traits>

#include <wincodec.h>

namespace d2d::scene {
namespace {

struct bitmap_deleter {
    void operator()(HBITMAP bitmap) const noexcept { DeleteObject(bitmap); }
};
using owned_bitmap = std::unique_ptr<std::remove_pointer_t<HBITMAP>, bitmap_deleter>;

D2D_SIZE_U size_of_icon(HICON icon) {
    ICONINFO information{};
    win32::check(GetIconInfo(icon, &information));
    const owned_bitmap color(information.hbmColor);
    const owned_bitmap mask(information.hbmMask);
    BITMAP bitmap{};
    win32::check(GetObjectW(color.get(), sizeof(bitmap), &bitmap));
    return {static_cast<UINT32>(bitmap.bmWidth), static_cast<UINT32>(bitmap.bmHeight)};
}

}  // namespace

icon_bitmap::icon_bitmap(HICON shown) : icon(shown), size(size_of_icon(shown)) {}

com::ptr<ID2D1Bitmap> icon_bitmap::create_device_object(ID2D1RenderTarget* target) const {
    IWICImagingFactory* const factory = imaging_hold::wic_factory();
    com::ptr<IWICBitmap> source;
    com::ptr<IWICFormatConverter> converter;
    com::ptr<IWICPalette> palette;
    com::ptr<ID2D1Bitmap> bitmap;
    com::check(factory->CreateBitmapFromHICON(icon, source.put()));
    com::check(factory->CreateFormatConverter(converter.put()));
    com::check(factory->CreatePalette(palette.put()));
    com::check(palette->InitializeFromBitmap(source.get(), 16, TRUE));
    com::check(converter->Initialize(source.get(), GUID_WICPixelFormat32bppPBGRA, WICBitmapDitherTypeNone,
                                     palette.get(), 0.0, WICBitmapPaletteTypeCustom));
    com::check(target->CreateBitmapFromWicBitmap(converter.get(), &bitmap_properties, bitmap.put()));
    return bitmap;
}

com::ptr<IBitmap> IBitmap::create(HICON icon) {
    return com::create_object<icon_bitmap>(icon);
}

}  // namespace d2d::scene
