#include "wic/bitmap_source.h"

#include "host/imaging.h"

namespace wic {

com::ptr<IWICBitmapSource> convert_bitmap(IWICBitmap* bitmap, const GUID& format) {
    const d2d::imaging_hold imaging;
    com::ptr<IWICFormatConverter> converter;
    com::check(imaging.wic_factory()->CreateFormatConverter(converter.put()));
    com::check(converter->Initialize(bitmap, format, WICBitmapDitherTypeNone, nullptr, 0.0,
                                     WICBitmapPaletteTypeMedianCut));
    return converter;
}

com::ptr<IWICBitmapSource> create_bitmap_source_from_icon(HICON icon) {
    const d2d::imaging_hold imaging;
    com::ptr<IWICBitmap> bitmap;
    com::check(imaging.wic_factory()->CreateBitmapFromHICON(icon, bitmap.put()));
    return convert_bitmap(bitmap.get(), GUID_WICPixelFormat32bppPBGRA);
}

}  // namespace wic
