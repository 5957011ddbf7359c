#pragma once

#include "com/interface_traits.h"
#include "com/ptr.h"
#include "scene/testing/aggregate_result.h"

#include <memory>
#include <string>
#include <utility>
#include <vector>

#include <d2d1.h>

namespace d2d::scene::fakes {

/// What a recording target and the objects that it made have seen.
struct device_record {
    /// How many objects of a kind a target has made, and how many of these are still alive (fakes only).
    struct counts {
        int created = 0;
        int alive = 0;
    };

    std::vector<std::string> calls;
    counts brushes;
    counts bitmaps;
};

/// A device object without a device: counts itself in its target's record while it lives.
template <class Interface, class... Bases>
class fake_device_object : public Interface {
public:
    fake_device_object(const fake_device_object&) = delete;
    fake_device_object& operator=(const fake_device_object&) = delete;

    HRESULT STDMETHODCALLTYPE QueryInterface(const GUID& id, void** out) noexcept override {
        const bool known = (com::same_guid(id, com::guid_of<Interface>()) || ... ||
                            com::same_guid(id, com::guid_of<Bases>()));
        *out = known ? this : nullptr;
        if (!known) return E_NOINTERFACE;
        ++references;
        return S_OK;
    }
    ULONG STDMETHODCALLTYPE AddRef() noexcept override { return ++references; }
    ULONG STDMETHODCALLTYPE Release() noexcept override {
        const ULONG left = --references;
        if (left == 0) delete this;
        return left;
    }
    void STDMETHODCALLTYPE GetFactory(ID2D1Factory** factory) const override { *factory = nullptr; }

protected:
    fake_device_object(std::shared_ptr<device_record> shared, device_record::counts device_record::*kind)
        : record(std::move(shared)), counted(kind) {
        ++(record.get()->*counted).created;
        ++(record.get()->*counted).alive;
    }
    virtual ~fake_device_object() { --(record.get()->*counted).alive; }

    std::shared_ptr<device_record> record;

private:
    device_record::counts device_record::*counted;
    ULONG references = 0;
};

/// A brush that writes down "SetColor r g b a".
class fake_solid_color_brush final
    : public fake_device_object<ID2D1SolidColorBrush, ID2D1Brush, ID2D1Resource, IUnknown> {
public:
    fake_solid_color_brush(std::shared_ptr<device_record> shared, const D2D1_COLOR_F& initial);

    void STDMETHODCALLTYPE SetOpacity(FLOAT) override {}
    void STDMETHODCALLTYPE SetTransform(const D2D1_MATRIX_3X2_F*) override {}
    FLOAT STDMETHODCALLTYPE GetOpacity() const override { return 1.0f; }
    void STDMETHODCALLTYPE GetTransform(D2D1_MATRIX_3X2_F* transform) const override;
    void STDMETHODCALLTYPE SetColor(const D2D1_COLOR_F* changed) override;
    MOSSHARBOUR_AGGREGATE_RESULT(D2D1_COLOR_F, GetColor, color)

private:
    D2D1_COLOR_F color;
};

/// A bitmap that has a size and no pixels.
class fake_bitmap final : public fake_device_object<ID2D1Bitmap, ID2D1Image, ID2D1Resource, IUnknown> {
public:
    fake_bitmap(std::shared_ptr<device_record> shared, D2D1_SIZE_U pixels,
                const D2D1_BITMAP_PROPERTIES& wanted);

    MOSSHARBOUR_AGGREGATE_RESULT(D2D1_SIZE_U, GetPixelSize, size)
    MOSSHARBOUR_AGGREGATE_RESULT(D2D1_SIZE_F, GetSize,
                                 (D2D1_SIZE_F{static_cast<float>(size.width),
                                              static_cast<float>(size.height)}))
    MOSSHARBOUR_AGGREGATE_RESULT(D2D1_PIXEL_FORMAT, GetPixelFormat, properties.pixelFormat)
    void STDMETHODCALLTYPE GetDpi(FLOAT* x, FLOAT* y) const override;
    HRESULT STDMETHODCALLTYPE CopyFromBitmap(const D2D1_POINT_2U*, ID2D1Bitmap*,
                                             const D2D1_RECT_U*) override {
        return E_NOTIMPL;
    }
    HRESULT STDMETHODCALLTYPE CopyFromRenderTarget(const D2D1_POINT_2U*, ID2D1RenderTarget*,
                                                   const D2D1_RECT_U*) override {
        return E_NOTIMPL;
    }
    HRESULT STDMETHODCALLTYPE CopyFromMemory(const D2D1_RECT_U*, const void*, UINT32) override {
        return E_NOTIMPL;
    }

private:
    D2D1_SIZE_U size;
    D2D1_BITMAP_PROPERTIES properties;
};

}  // namespace d2d::scene::fakes
