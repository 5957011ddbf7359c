#pragma once

#include "owned.h"
#include "pixel_image.h"

#include <atomic>
#include <cstddef>
#include <optional>
#include <span>
#include <vector>

namespace completion {

/// A setting of an effect: where it lies, and how clients name it.
struct effect_property {
    const wchar_t* name;
    D2D1_PROPERTY_TYPE type;
    std::size_t size;
    void* place;
};

/// An effect that computes its picture in memory. The effect and its output are one object with one count.
/// Inputs that can be seen: bitmaps, and outputs of other such effects.
class effect : public ID2D1Effect {
public:
    effect(const effect&) = delete;
    effect& operator=(const effect&) = delete;

    /// The effect behind an image that is an output of one, borrowed; else null.
    [[nodiscard]] static effect* behind(ID2D1Image* image) noexcept;

    /// The picture of the inputs as they are now; nothing when an input is missing.
    [[nodiscard]] virtual std::optional<pixel_image> picture(ID2D1DeviceContext* context) const = 0;

    HRESULT STDMETHODCALLTYPE QueryInterface(REFIID id, void** object) noexcept override;
    ULONG STDMETHODCALLTYPE AddRef() noexcept override;
    ULONG STDMETHODCALLTYPE Release() noexcept override;

    UINT32 STDMETHODCALLTYPE GetPropertyCount() const noexcept override;
    HRESULT STDMETHODCALLTYPE GetPropertyName(UINT32 index, PWSTR name, UINT32 count) const noexcept override;
    UINT32 STDMETHODCALLTYPE GetPropertyNameLength(UINT32 index) const noexcept override;
    D2D1_PROPERTY_TYPE STDMETHODCALLTYPE GetType(UINT32 index) const noexcept override;
    UINT32 STDMETHODCALLTYPE GetPropertyIndex(PCWSTR name) const noexcept override;
    HRESULT STDMETHODCALLTYPE SetValueByName(PCWSTR name, D2D1_PROPERTY_TYPE type, const BYTE* data,
                                             UINT32 size) noexcept override;
    HRESULT STDMETHODCALLTYPE SetValue(UINT32 index, D2D1_PROPERTY_TYPE type, const BYTE* data,
                                       UINT32 size) noexcept override;
    HRESULT STDMETHODCALLTYPE GetValueByName(PCWSTR name, D2D1_PROPERTY_TYPE type, BYTE* data,
                                             UINT32 size) const noexcept override;
    HRESULT STDMETHODCALLTYPE GetValue(UINT32 index, D2D1_PROPERTY_TYPE type, BYTE* data,
                                       UINT32 size) const noexcept override;
    UINT32 STDMETHODCALLTYPE GetValueSize(UINT32 index) const noexcept override;
    HRESULT STDMETHODCALLTYPE GetSubProperties(UINT32 index,
                                               ID2D1Properties** result) const noexcept override;

    void STDMETHODCALLTYPE SetInput(UINT32 index, ID2D1Image* input, BOOL invalidate) noexcept override;
    HRESULT STDMETHODCALLTYPE SetInputCount(UINT32 count) noexcept override;
    void STDMETHODCALLTYPE GetInput(UINT32 index, ID2D1Image** input) const noexcept override;
    UINT32 STDMETHODCALLTYPE GetInputCount() const noexcept override;
    void STDMETHODCALLTYPE GetOutput(ID2D1Image** output) const noexcept override;

protected:
    effect(owned<ID2D1Factory> factory, std::size_t inputs, std::size_t most_inputs);
    virtual ~effect() = default;

    [[nodiscard]] virtual std::span<const effect_property> properties() const noexcept = 0;
    [[nodiscard]] std::optional<pixel_image> input_picture(std::size_t index,
                                                           ID2D1DeviceContext* context) const;

private:
    class output_image final : public ID2D1Image {
    public:
        explicit output_image(effect& whole) noexcept : whole_(whole) {}
        ~output_image() = default;

        HRESULT STDMETHODCALLTYPE QueryInterface(REFIID id, void** object) noexcept override;
        ULONG STDMETHODCALLTYPE AddRef() noexcept override { return whole_.AddRef(); }
        ULONG STDMETHODCALLTYPE Release() noexcept override { return whole_.Release(); }
        void STDMETHODCALLTYPE GetFactory(ID2D1Factory** factory) const noexcept override;

        [[nodiscard]] effect& whole() const noexcept { return whole_; }

    private:
        effect& whole_;
    };

    [[nodiscard]] const effect_property* property(UINT32 index) const noexcept;

    owned<ID2D1Factory> factory_;
    std::vector<owned<ID2D1Image>> inputs_;
    std::size_t most_inputs_;
    mutable output_image output_;
    std::atomic<ULONG> references_{1};
};

/// A blurred silhouette of its input in one colour.
[[nodiscard]] owned<ID2D1Effect> make_shadow_effect(owned<ID2D1Factory> factory);

/// Its inputs upon each other, the first one lowest.
[[nodiscard]] owned<ID2D1Effect> make_composite_effect(owned<ID2D1Factory> factory);

}  // namespace completion
