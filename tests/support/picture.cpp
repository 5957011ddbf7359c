#include "support/picture.h"

#include <wincodec.h>
#include <wrl/client.h>

#include <stdexcept>
#include <string>
#include <utility>

namespace test_support {
namespace {

template <class T>
using com_pointer = Microsoft::WRL::ComPtr<T>;

void check(HRESULT result, const std::string& what) {
    if (FAILED(result))
        throw std::runtime_error(what + " failed with " + std::to_string(static_cast<unsigned long>(result)));
}

class com_apartment {
public:
    com_apartment() : initialized_(SUCCEEDED(CoInitialize(nullptr))) {}
    com_apartment(const com_apartment&) = delete;
    com_apartment& operator=(const com_apartment&) = delete;
    ~com_apartment() {
        if (initialized_) CoUninitialize();
    }

private:
    bool initialized_;  // an apartment of the other kind serves as well, and is not ours to leave
};

com_pointer<IWICImagingFactory> imaging_factory() {
    com_pointer<IWICImagingFactory> factory;
    check(CoCreateInstance(CLSID_WICImagingFactory, nullptr, CLSCTX_INPROC_SERVER,
                           __uuidof(IWICImagingFactory), reinterpret_cast<void**>(factory.GetAddressOf())),
          "the imaging factory");
    return factory;
}

picture copy_pixels(IWICBitmapSource* source) {
    UINT width = 0;
    UINT height = 0;
    check(source->GetSize(&width, &height), "the size of a bitmap");
    picture result(width, height);
    check(source->CopyPixels(nullptr, width * 4, width * height * 4,
                             reinterpret_cast<BYTE*>(result.pixels.data())),
          "the copying of pixels");
    return result;
}

bool has_four_byte_pixels(const WICPixelFormatGUID& format) {
    return format == GUID_WICPixelFormat32bppPBGRA || format == GUID_WICPixelFormat32bppBGRA ||
           format == GUID_WICPixelFormat32bppBGR;
}

void write_frame(IWICBitmapEncoder* encoder, const picture& image) {
    com_pointer<IWICBitmapFrameEncode> frame;
    check(encoder->CreateNewFrame(&frame, nullptr), "the frame of a picture");
    check(frame->Initialize(nullptr), "the start of a frame");
    check(frame->SetSize(image.width, image.height), "the size of a frame");
    WICPixelFormatGUID format = GUID_WICPixelFormat32bppBGRA;
    check(frame->SetPixelFormat(&format), "the format of a frame");
    if (format != GUID_WICPixelFormat32bppBGRA) throw std::runtime_error("PNG takes no pixels of four bytes");
    auto bytes = image.pixels;
    check(frame->WritePixels(image.height, image.width * 4, image.width * image.height * 4,
                             reinterpret_cast<BYTE*>(bytes.data())),
          "the writing of pixels");
    check(frame->Commit(), "the end of a frame");
}

// A screen's or window's device context, given back at the end.
class window_context {
public:
    explicit window_context(HWND window) : window_(window), context_(GetDC(window)) {}
    window_context(const window_context&) = delete;
    window_context& operator=(const window_context&) = delete;
    ~window_context() { ReleaseDC(window_, context_); }
    [[nodiscard]] HDC get() const noexcept { return context_; }

private:
    HWND window_;
    HDC context_;
};

// A memory context with a bitmap of its own, top row first.
class memory_context {
public:
    memory_context(HDC like, LONG width, LONG height) : context_(CreateCompatibleDC(like)) {
        BITMAPINFO info{};
        info.bmiHeader.biSize = sizeof info.bmiHeader;
        info.bmiHeader.biWidth = width;
        info.bmiHeader.biHeight = -height;
        info.bmiHeader.biPlanes = 1;
        info.bmiHeader.biBitCount = 32;
        bitmap_ = CreateDIBSection(context_, &info, DIB_RGB_COLORS, &bits_, nullptr, 0);
        previous_ = SelectObject(context_, bitmap_);
    }
    memory_context(const memory_context&) = delete;
    memory_context& operator=(const memory_context&) = delete;
    ~memory_context() {
        SelectObject(context_, previous_);
        DeleteObject(bitmap_);
        DeleteDC(context_);
    }
    [[nodiscard]] HDC get() const noexcept { return context_; }
    [[nodiscard]] const std::uint32_t* pixels() const noexcept {
        return static_cast<const std::uint32_t*>(bits_);
    }

private:
    HDC context_;
    void* bits_ = nullptr;
    HBITMAP bitmap_ = nullptr;
    HGDIOBJ previous_ = nullptr;
};

}  // namespace

picture::picture(unsigned picture_width, unsigned picture_height, std::uint32_t colour)
    : width(picture_width),
      height(picture_height),
      pixels(std::size_t{picture_width} * picture_height, colour) {}

picture picture_of(IWICBitmap* bitmap) {
    WICPixelFormatGUID format{};
    check(bitmap->GetPixelFormat(&format), "the format of a bitmap");
    if (!has_four_byte_pixels(format)) throw std::runtime_error("the bitmap has no pixels of four bytes");
    return copy_pixels(bitmap);
}

picture grab_client_area(HWND window) {
    RECT area{};
    GetClientRect(window, &area);
    POINT origin{};
    ClientToScreen(window, &origin);
    const window_context screen(nullptr);
    const memory_context memory(screen.get(), area.right, area.bottom);
    if (!BitBlt(memory.get(), 0, 0, area.right, area.bottom, screen.get(), origin.x, origin.y, SRCCOPY))
        throw std::runtime_error("the screen cannot be read");
    GdiFlush();
    picture result(static_cast<unsigned>(area.right), static_cast<unsigned>(area.bottom));
    for (std::size_t i = 0; i < result.pixels.size(); ++i) result.pixels[i] = memory.pixels()[i] | 0xFF000000;
    return result;
}

picture load_png(const std::filesystem::path& file) {
    const com_apartment apartment;
    const auto factory = imaging_factory();
    com_pointer<IWICBitmapDecoder> decoder;
    check(factory->CreateDecoderFromFilename(file.c_str(), nullptr, GENERIC_READ,
                                             WICDecodeMetadataCacheOnDemand, &decoder),
          "the reading of " + file.string());
    com_pointer<IWICBitmapFrameDecode> frame;
    check(decoder->GetFrame(0, &frame), "the first frame of " + file.string());
    com_pointer<IWICFormatConverter> converter;
    check(factory->CreateFormatConverter(&converter), "the format converter");
    check(converter->Initialize(frame.Get(), GUID_WICPixelFormat32bppBGRA, WICBitmapDitherTypeNone, nullptr,
                                0, WICBitmapPaletteTypeCustom),
          "the conversion of " + file.string());
    return copy_pixels(converter.Get());
}

void save_png(const picture& image, const std::filesystem::path& file) {
    std::filesystem::create_directories(file.parent_path());
    const com_apartment apartment;
    const auto factory = imaging_factory();
    com_pointer<IWICStream> stream;
    check(factory->CreateStream(&stream), "the stream");
    check(stream->InitializeFromFilename(file.c_str(), GENERIC_WRITE), "the opening of " + file.string());
    com_pointer<IWICBitmapEncoder> encoder;
    check(factory->CreateEncoder(GUID_ContainerFormatPng, nullptr, &encoder), "the PNG encoder");
    check(encoder->Initialize(stream.Get(), WICBitmapEncoderNoCache), "the start of " + file.string());
    write_frame(encoder.Get(), image);
    check(encoder->Commit(), "the end of " + file.string());
}

}  // namespace test_support
