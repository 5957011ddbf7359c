#include "scene/testing/test_icon.h"

#include "win32/error.h"

namespace d2d::scene::fakes {
namespace {

struct bitmap_deleter {
    void operator()(HBITMAP bitmap) const noexcept { DeleteObject(bitmap); }
};
using owned_bitmap = std::unique_ptr<std::remove_pointer_t<HBITMAP>, bitmap_deleter>;

owned_icon icon_of(HBITMAP color, HBITMAP mask) {
    ICONINFO information{};
    information.fIcon = TRUE;
    information.hbmColor = color;
    information.hbmMask = mask;
    return owned_icon(win32::check(CreateIconIndirect(&information)));
}

}  // namespace

owned_icon make_icon(int width, int height, const std::vector<std::uint32_t>& pixels) {
    const owned_bitmap color(win32::check(CreateBitmap(width, height, 1, 32, pixels.data())));
    const std::vector<std::uint8_t> no_mask(static_cast<std::size_t>(((width + 15) / 16 * 2) * height));
    const owned_bitmap mask(win32::check(CreateBitmap(width, height, 1, 1, no_mask.data())));
    return icon_of(color.get(), mask.get());
}

owned_icon make_monochrome_icon() {
    const std::vector<std::uint8_t> masks(2 * 16 * 2, std::uint8_t{0x55});
    const owned_bitmap both(win32::check(CreateBitmap(16, 32, 1, 1, masks.data())));
    return icon_of(nullptr, both.get());
}

}  // namespace d2d::scene::fakes
