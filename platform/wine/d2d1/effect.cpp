#include "effect.h"

#include "bitmap_transfer.h"
#include "guarded.h"

#include <algorithm>
#include <cstring>
#include <cwchar>

namespace completion {

namespace {

/// Known to nobody else: only outputs of these effects answer to it.
constexpr GUID output_id{0x8d5b0f4c, 0x60a7, 0x4c1f, {0x9e, 0x2b, 0x31, 0x7d, 0x52, 0xc8, 0x0a, 0x66}};

const auto invalid_property = static_cast<HRESULT>(D2DERR_INVALID_PROPERTY);

}  // namespace

effect::effect(owned<ID2D1Factory> factory, std::size_t inputs, std::size_t most_inputs)
    : factory_(std::move(factory)), inputs_(inputs), most_inputs_(most_inputs), output_(*this) {}

effect* effect::behind(ID2D1Image* image) noexcept {
    void* found = nullptr;
    if (!image || FAILED(image->QueryInterface(output_id, &found))) {
        return nullptr;
    }
    // The image itself keeps the effect alive: the reference asked for isn't needed.
    effect& whole = static_cast<output_image*>(found)->whole();
    whole.Release();
    return &whole;
}

std::optional<pixel_image> effect::input_picture(std::size_t index, ID2D1DeviceContext* context) const {
    ID2D1Image* const image = index < inputs_.size() ? inputs_[index].get() : nullptr;
    if (const effect* const other = behind(image)) {
        return other->picture(context);
    }
    const auto bitmap = query<ID2D1Bitmap>(image);
    return bitmap ? read_bitmap(context, bitmap.get()) : std::nullopt;
}

HRESULT effect::QueryInterface(REFIID id, void** object) noexcept {
    if (id == __uuidof(ID2D1Image) || id == __uuidof(ID2D1Resource)) {
        *object = static_cast<ID2D1Image*>(&output_);
    } else if (id == __uuidof(IUnknown) || id == __uuidof(ID2D1Properties) || id == __uuidof(ID2D1Effect)) {
        *object = static_cast<ID2D1Effect*>(this);
    } else {
        *object = nullptr;
        return E_NOINTERFACE;
    }
    AddRef();
    return S_OK;
}

ULONG effect::AddRef() noexcept {
    return ++references_;
}

ULONG effect::Release() noexcept {
    const ULONG left = --references_;
    if (left == 0) {
        delete this;
    }
    return left;
}

const effect_property* effect::property(UINT32 index) const noexcept {
    const auto all = properties();
    return index < all.size() ? &all[index] : nullptr;
}

UINT32 effect::GetPropertyCount() const noexcept {
    return static_cast<UINT32>(properties().size());
}

HRESULT effect::GetPropertyName(UINT32 index, PWSTR name, UINT32 count) const noexcept {
    const effect_property* const asked = property(index);
    if (!asked) {
        return invalid_property;
    }
    if (count <= std::wcslen(asked->name)) {
        return HRESULT_FROM_WIN32(ERROR_INSUFFICIENT_BUFFER);
    }
    std::wcscpy(name, asked->name);
    return S_OK;
}

UINT32 effect::GetPropertyNameLength(UINT32 index) const noexcept {
    const effect_property* const asked = property(index);
    return asked ? static_cast<UINT32>(std::wcslen(asked->name)) : 0;
}

D2D1_PROPERTY_TYPE effect::GetType(UINT32 index) const noexcept {
    const effect_property* const asked = property(index);
    return asked ? asked->type : D2D1_PROPERTY_TYPE_UNKNOWN;
}

UINT32 effect::GetPropertyIndex(PCWSTR name) const noexcept {
    const auto all = properties();
    const auto found = std::find_if(all.begin(), all.end(),
                                    [&](const auto& each) { return std::wcscmp(each.name, name) == 0; });
    return found == all.end() ? UINT32_MAX : static_cast<UINT32>(found - all.begin());
}

HRESULT effect::SetValueByName(PCWSTR name, D2D1_PROPERTY_TYPE type, const BYTE* data, UINT32 size) noexcept {
    return SetValue(GetPropertyIndex(name), type, data, size);
}

HRESULT effect::SetValue(UINT32 index, D2D1_PROPERTY_TYPE type, const BYTE* data, UINT32 size) noexcept {
    const effect_property* const asked = property(index);
    if (!asked) {
        return invalid_property;
    }
    if (!data || size != asked->size || (type != D2D1_PROPERTY_TYPE_UNKNOWN && type != asked->type)) {
        return E_INVALIDARG;
    }
    std::memcpy(asked->place, data, size);
    return S_OK;
}

HRESULT effect::GetValueByName(PCWSTR name, D2D1_PROPERTY_TYPE type, BYTE* data, UINT32 size) const noexcept {
    return GetValue(GetPropertyIndex(name), type, data, size);
}

HRESULT effect::GetValue(UINT32 index, D2D1_PROPERTY_TYPE type, BYTE* data, UINT32 size) const noexcept {
    const effect_property* const asked = property(index);
    if (!asked) {
        return invalid_property;
    }
    if (!data || size != asked->size || (type != D2D1_PROPERTY_TYPE_UNKNOWN && type != asked->type)) {
        return E_INVALIDARG;
    }
    std::memcpy(data, asked->place, size);
    return S_OK;
}

UINT32 effect::GetValueSize(UINT32 index) const noexcept {
    const effect_property* const asked = property(index);
    return asked ? static_cast<UINT32>(asked->size) : 0;
}

HRESULT effect::GetSubProperties(UINT32 index, ID2D1Properties** result) const noexcept {
    if (result) {
        *result = nullptr;
    }
    return property(index) ? static_cast<HRESULT>(D2DERR_NO_SUBPROPERTIES) : invalid_property;
}

void effect::SetInput(UINT32 index, ID2D1Image* input, BOOL) noexcept {
    if (index >= inputs_.size()) {
        return;
    }
    if (input) {
        input->AddRef();
    }
    inputs_[index].reset(input);
}

HRESULT effect::SetInputCount(UINT32 count) noexcept {
    if (count < 1 || count > most_inputs_) {
        return E_INVALIDARG;
    }
    return guarded([&] {
        inputs_.resize(count);
        return S_OK;
    });
}

void effect::GetInput(UINT32 index, ID2D1Image** input) const noexcept {
    *input = index < inputs_.size() ? inputs_[index].get() : nullptr;
    if (*input) {
        (*input)->AddRef();
    }
}

UINT32 effect::GetInputCount() const noexcept {
    return static_cast<UINT32>(inputs_.size());
}

void effect::GetOutput(ID2D1Image** output) const noexcept {
    *output = &output_;
    output_.AddRef();
}

HRESULT effect::output_image::QueryInterface(REFIID id, void** object) noexcept {
    if (id == output_id) {
        *object = this;
    } else if (id == __uuidof(IUnknown) || id == __uuidof(ID2D1Resource) || id == __uuidof(ID2D1Image)) {
        *object = static_cast<ID2D1Image*>(this);
    } else {
        *object = nullptr;
        return E_NOINTERFACE;
    }
    AddRef();
    return S_OK;
}

void effect::output_image::GetFactory(ID2D1Factory** factory) const noexcept {
    *factory = whole_.factory_.get();
    if (*factory) {
        (*factory)->AddRef();
    }
}

}  // namespace completion
