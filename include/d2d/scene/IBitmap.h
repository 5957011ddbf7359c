#pragma once

#include "com/api.h"
#include "com/ptr.h"
#include "d2d/scene/IResource.h"

#include <memory>

#include <dcommon.h>
#include <windows.h>

namespace d2d::scene {

/// A bitmap of the scene: independent of any render target.
struct IBitmap : IResource {
    /// Width and height in pixels.
    virtual D2D_SIZE_U get_size() = 0;

    /// A bitmap from pixels of 32 bits each (blue, green, red, alpha in memory order, premultiplied), rows
    /// without padding. Takes the pixels over and keeps them for its life.
    [[nodiscard]] MOSSHARBOUR_API static com::ptr<IBitmap> create(D2D_SIZE_U size,
                                                                  std::unique_ptr<unsigned int[]> pixels);

    /// A bitmap that shows an icon. The icon is borrowed and has to stay as long as the bitmap is drawn.
    /// Throws `win32::error` when the icon's size cannot be read.
    [[nodiscard]] MOSSHARBOUR_API static com::ptr<IBitmap> create(HICON icon);
};

}  // namespace d2d::scene

template <>
struct com::interface_traits<d2d::scene::IBitmap> : com::extends<d2d::scene::IResource> {
    static constexpr GUID id = com::guid("65FA6EF1-5D5D-40F2-B5D2-111049CBEF2A");
};
