#include "bitmap_transfer.h"

#include <algorithm>
#include <cstring>
#include <utility>

namespace completion {

namespace {

/// Blue, green, red and alpha from one of the formats that bitmaps have.
class pixel_decoder {
public:
    explicit pixel_decoder(const D2D1_PIXEL_FORMAT& format) noexcept : format_(format) {}

    [[nodiscard]] bool knows() const noexcept {
        return format_.format == DXGI_FORMAT_B8G8R8A8_UNORM || format_.format == DXGI_FORMAT_B8G8R8X8_UNORM ||
               format_.format == DXGI_FORMAT_R8G8B8A8_UNORM || format_.format == DXGI_FORMAT_A8_UNORM;
    }

    [[nodiscard]] pixel decode(const BYTE* row, int x) const noexcept {
        if (format_.format == DXGI_FORMAT_A8_UNORM) {
            return {0, 0, 0, row[x]};
        }
        pixel result{};
        std::memcpy(result.data(), row + 4 * static_cast<std::size_t>(x), result.size());
        if (format_.format == DXGI_FORMAT_R8G8B8A8_UNORM) {
            std::swap(result[0], result[2]);
        }
        if (format_.format == DXGI_FORMAT_B8G8R8X8_UNORM || format_.alphaMode == D2D1_ALPHA_MODE_IGNORE) {
            result[3] = 255;
        }
        return result;
    }

private:
    D2D1_PIXEL_FORMAT format_;
};

/// A copy that the processor may read: bitmaps themselves can't be mapped.
owned<ID2D1Bitmap1> readable_copy(ID2D1DeviceContext* context, ID2D1Bitmap* bitmap, D2D1_SIZE_U size,
                                  const D2D1_PIXEL_FORMAT& format) {
    D2D1_BITMAP_PROPERTIES1 properties{};
    properties.pixelFormat = format;
    properties.dpiX = 96;
    properties.dpiY = 96;
    properties.bitmapOptions =
        static_cast<D2D1_BITMAP_OPTIONS>(D2D1_BITMAP_OPTIONS_CPU_READ | D2D1_BITMAP_OPTIONS_CANNOT_DRAW);
    auto copy = make<ID2D1Bitmap1>(
        [&](ID2D1Bitmap1** result) { return context->CreateBitmap(size, nullptr, 0, &properties, result); });
    return copy && SUCCEEDED(copy->CopyFromBitmap(nullptr, bitmap, nullptr)) ? std::move(copy) : nullptr;
}

}  // namespace

std::optional<pixel_image> read_bitmap(ID2D1DeviceContext* context, ID2D1Bitmap* bitmap) {
    D2D1_SIZE_U size{};
    D2D1_PIXEL_FORMAT format{};
    bitmap->GetPixelSize(&size);
    bitmap->GetPixelFormat(&format);
    const pixel_decoder decoder(format);
    const auto copy = decoder.knows() ? readable_copy(context, bitmap, size, format) : nullptr;
    D2D1_MAPPED_RECT mapped{};
    if (!copy || FAILED(copy->Map(D2D1_MAP_OPTIONS_READ, &mapped))) {
        return std::nullopt;
    }
    const std::unique_ptr<ID2D1Bitmap1, decltype([](ID2D1Bitmap1* opened) { opened->Unmap(); })> close(
        copy.get());
    pixel_image result;
    result.width = static_cast<int>(size.width);
    result.height = static_cast<int>(size.height);
    bitmap->GetDpi(&result.dpi_x, &result.dpi_y);
    result.pixels.reserve(static_cast<std::size_t>(size.width) * size.height);
    for (int y = 0; y < result.height; ++y) {
        const BYTE* const row = mapped.bits + static_cast<std::size_t>(y) * mapped.pitch;
        for (int x = 0; x < result.width; ++x) {
            result.pixels.push_back(decoder.decode(row, x));
        }
    }
    return result;
}

owned<ID2D1Bitmap> make_bitmap(ID2D1DeviceContext* context, const pixel_image& image) {
    const D2D1_BITMAP_PROPERTIES properties{
        {DXGI_FORMAT_B8G8R8A8_UNORM, D2D1_ALPHA_MODE_PREMULTIPLIED}, image.dpi_x, image.dpi_y};
    const D2D1_SIZE_U size{static_cast<UINT>(image.width), static_cast<UINT>(image.height)};
    ID2D1RenderTarget* const target = context;
    return make<ID2D1Bitmap>([&](ID2D1Bitmap** result) {
        return target->CreateBitmap(size, image.pixels.data(), size.width * sizeof(pixel), &properties,
                                    result);
    });
}

}  // namespace completion
