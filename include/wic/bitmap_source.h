#pragma once

#include "com/api.h"
#include "com/ptr.h"

#include <wincodec.h>
#include <windows.h>

namespace wic {

// The imaging factory is there for the length of each call. A result that is kept longer needs somebody to
// keep the imaging alive (a `d2d::factory`, a view, a node): otherwise COM may go with the factory.

/// The pixels of `bitmap`, which is kept by the result, in another pixel format (a `GUID_WICPixelFormat*`).
/// Nothing is dithered. Throws `com::error`, also for a format that pixels cannot be converted to.
[[nodiscard]] MOSSHARBOUR_API com::ptr<IWICBitmapSource> convert_bitmap(IWICBitmap* bitmap,
                                                                        const GUID& format);

/// The pixels of an icon as 32 bits each: blue, green, red, alpha, premultiplied. They are copied: the icon
/// is not needed any more. Throws `com::error`.
[[nodiscard]] MOSSHARBOUR_API com::ptr<IWICBitmapSource> create_bitmap_source_from_icon(HICON icon);

}  // namespace wic
