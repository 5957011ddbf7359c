#include "surface_test.h"

#include <d3d11.h>
#include <gtest/gtest.h>
#include <wincodec.h>

namespace completion::test {

namespace {

constexpr D2D1_PIXEL_FORMAT format{DXGI_FORMAT_B8G8R8A8_UNORM, D2D1_ALPHA_MODE_PREMULTIPLIED};

class wic_surface final : public surface {
public:
    explicit wic_surface(ID2D1Factory* factory) {
        const auto imaging = make<IWICImagingFactory>([](IWICImagingFactory** result) {
            return CoCreateInstance(CLSID_WICImagingFactory, nullptr, CLSCTX_INPROC_SERVER,
                                    __uuidof(IWICImagingFactory), reinterpret_cast<void**>(result));
        });
        bitmap_ = make<IWICBitmap>([&](IWICBitmap** result) {
            return imaging->CreateBitmap(width, height, GUID_WICPixelFormat32bppPBGRA, WICBitmapCacheOnLoad,
                                         result);
        });
        D2D1_RENDER_TARGET_PROPERTIES properties{};
        properties.pixelFormat = format;
        target_ = make<ID2D1RenderTarget>([&](ID2D1RenderTarget** result) {
            return factory->CreateWicBitmapRenderTarget(bitmap_.get(), &properties, result);
        });
    }

    [[nodiscard]] ID2D1RenderTarget* target() const override { return target_.get(); }

    [[nodiscard]] picture read() const override {
        std::vector<BYTE> bytes(width * height * 4);
        EXPECT_EQ(bitmap_->CopyPixels(nullptr, width * 4, static_cast<UINT>(bytes.size()), bytes.data()),
                  S_OK);
        return picture(std::move(bytes));
    }

private:
    owned<IWICBitmap> bitmap_;
    owned<ID2D1RenderTarget> target_;
};

class device_surface final : public surface {
public:
    explicit device_surface(ID2D1Factory* factory) {
        const auto d3d = make<ID3D11Device>([](ID3D11Device** result) {
            return D3D11CreateDevice(nullptr, D3D_DRIVER_TYPE_HARDWARE, nullptr,
                                     D3D11_CREATE_DEVICE_BGRA_SUPPORT, nullptr, 0, D3D11_SDK_VERSION, result,
                                     nullptr, nullptr);
        });
        const auto maker = query<ID2D1Factory1>(factory);
        const auto device = make<ID2D1Device>([&](ID2D1Device** result) {
            return maker ? maker->CreateDevice(query<IDXGIDevice>(d3d.get()).get(), result) : E_NOINTERFACE;
        });
        context_ = make<ID2D1DeviceContext>([&](ID2D1DeviceContext** result) {
            return device->CreateDeviceContext(D2D1_DEVICE_CONTEXT_OPTIONS_NONE, result);
        });
        bitmap_ = bitmap(D2D1_BITMAP_OPTIONS_TARGET);
        context_->SetTarget(bitmap_.get());
    }

    [[nodiscard]] ID2D1RenderTarget* target() const override { return context_.get(); }

    [[nodiscard]] picture read() const override {
        const auto copy = bitmap(
            static_cast<D2D1_BITMAP_OPTIONS>(D2D1_BITMAP_OPTIONS_CPU_READ | D2D1_BITMAP_OPTIONS_CANNOT_DRAW));
        EXPECT_EQ(copy->CopyFromBitmap(nullptr, bitmap_.get(), nullptr), S_OK);
        D2D1_MAPPED_RECT mapped{};
        EXPECT_EQ(copy->Map(D2D1_MAP_OPTIONS_READ, &mapped), S_OK);
        std::vector<BYTE> bytes;
        for (UINT y = 0; y < height; ++y) {
            const BYTE* const row = mapped.bits + y * mapped.pitch;
            bytes.insert(bytes.end(), row, row + width * 4);
        }
        copy->Unmap();
        return picture(std::move(bytes));
    }

private:
    [[nodiscard]] owned<ID2D1Bitmap1> bitmap(D2D1_BITMAP_OPTIONS options) const {
        D2D1_BITMAP_PROPERTIES1 properties{};
        properties.pixelFormat = format;
        properties.dpiX = properties.dpiY = 96;
        properties.bitmapOptions = options;
        return make<ID2D1Bitmap1>([&](ID2D1Bitmap1** result) {
            return context_->CreateBitmap(D2D1_SIZE_U{width, height}, nullptr, 0, &properties, result);
        });
    }

    owned<ID2D1DeviceContext> context_;
    owned<ID2D1Bitmap1> bitmap_;
};

}  // namespace

std::unique_ptr<surface> make_wic_surface(ID2D1Factory* factory) {
    return std::make_unique<wic_surface>(factory);
}

std::unique_ptr<surface> make_device_surface(ID2D1Factory* factory) {
    return std::make_unique<device_surface>(factory);
}

}  // namespace completion::test
