#include "scratch_context.h"

namespace completion {

scratch_context::scratch_context(ID2D1DeviceContext* other) {
    if (!other) {
        return;
    }
    const auto device = make<ID2D1Device>([&](ID2D1Device** result) {
        other->GetDevice(result);
        return S_OK;
    });
    if (!device) {
        return;
    }
    context_ = make<ID2D1DeviceContext>([&](ID2D1DeviceContext** result) {
        return device->CreateDeviceContext(D2D1_DEVICE_CONTEXT_OPTIONS_NONE, result);
    });
    if (!context_) {
        return;
    }
    D2D1_BITMAP_PROPERTIES1 properties{};
    properties.pixelFormat = {DXGI_FORMAT_B8G8R8A8_UNORM, D2D1_ALPHA_MODE_PREMULTIPLIED};
    properties.bitmapOptions = D2D1_BITMAP_OPTIONS_TARGET;
    target_ = make<ID2D1Bitmap1>([&](ID2D1Bitmap1** result) {
        return context_->CreateBitmap(D2D1_SIZE_U{size, size}, nullptr, 0, &properties, result);
    });
    context_->SetTarget(target_.get());
}

}  // namespace completion
