#pragma once

#include "com/base_object.h"
#include "d2d/scene/IBitmap.h"
#include "host/imaging.h"
#include "scene/resource_impl.h"

namespace d2d::scene {

class icon_bitmap;
using icon_bitmap_resource = resource_impl<icon_bitmap, ID2D1Bitmap, ID2D1Bitmap>;

}  // namespace d2d::scene

template <>
struct com::interface_traits<d2d::scene::icon_bitmap_resource>
    : com::extends<d2d::scene::resource<ID2D1Bitmap>> {
    static constexpr GUID id = com::guid("2C95D7A3-E04B-4618-B7D9-5A8F3C6E1D20");
};

namespace d2d::scene {

/// A bitmap that shows an icon, which is borrowed and read for each render target anew.
class icon_bitmap : public com::base_object<com::object_base, IBitmap, icon_bitmap_resource> {
public:
    /// Throws `win32::error` when the icon's size cannot be read.
    explicit icon_bitmap(HICON shown);

    D2D_SIZE_U get_size() override { return size; }

    // For resource_impl.
    [[nodiscard]] com::ptr<ID2D1Bitmap> create_device_object(ID2D1RenderTarget* target) const;

protected:
    ~icon_bitmap() = default;

private:
    [[no_unique_address]] imaging_hold imaging;
    HICON icon;
    D2D_SIZE_U size;
};

}  // namespace d2d::scene
