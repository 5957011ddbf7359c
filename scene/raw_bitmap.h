#pragma once

#include "com/base_object.h"
#include "d2d/scene/IBitmap.h"
#include "scene/resource_impl.h"

#include <memory>

namespace d2d::scene {

class raw_bitmap;
using raw_bitmap_resource = resource_impl<raw_bitmap, ID2D1Bitmap, ID2D1Bitmap>;

}  // namespace d2d::scene

template <>
struct com::interface_traits<d2d::scene::raw_bitmap_resource>
    : com::extends<d2d::scene::resource<ID2D1Bitmap>> {
    static constexpr GUID id = com::guid("B60F4C8E-1A97-4E35-8D72-F3A95C1E7B04");
};

namespace d2d::scene {

/// A bitmap from pixels in memory, which stay there: each render target gets them anew.
class raw_bitmap : public com::base_object<com::object_base, IBitmap, raw_bitmap_resource> {
public:
    raw_bitmap(D2D_SIZE_U pixel_size, std::unique_ptr<unsigned int[]> data) noexcept
        : size(pixel_size), pixels(std::move(data)) {}

    D2D_SIZE_U get_size() override { return size; }

    // For resource_impl.
    [[nodiscard]] com::ptr<ID2D1Bitmap> create_device_object(ID2D1RenderTarget* target) const;

protected:
    ~raw_bitmap() = default;

private:
    D2D_SIZE_U size;
    std::unique_ptr<unsigned int[]> pixels;
};

}  // namespace d2d::scene
