#include "scene/raw_bitmap.h"

#include "scene/bitmap_properties.h"

namespace d2d::scene {

com::ptr<ID2D1Bitmap> raw_bitmap::create_device_object(ID2D1RenderTarget* target) const {
    constexpr UINT32 pixel_bytes = 4;
    com::ptr<ID2D1Bitmap> bitmap;
    com::check(
        target->CreateBitmap(size, pixels.get(), size.width * pixel_bytes, &bitmap_properties, bitmap.put()));
    return bitmap;
}

com::ptr<IBitmap> IBitmap::create(D2D_SIZE_U size, std::unique_ptr<unsigned int[]> pixels) {
    return com::create_object<raw_bitmap>(size, std::move(pixels));
}

}  // namespace d2d::scene
