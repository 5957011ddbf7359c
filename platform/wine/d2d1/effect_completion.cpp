#include "effect_completion.h"

#include "bitmap_transfer.h"
#include "clipping.h"
#include "effect.h"
#include "guarded.h"
#include "owned.h"
#include "scratch_context.h"
#include "stroke_drawing.h"
#include "table_slot.h"
#include "text_drawing.h"

#include <d2d1effects.h>

#include <mutex>

namespace completion {

namespace {

using create_effect_method = HRESULT (STDMETHODCALLTYPE ID2D1DeviceContext::*)(REFCLSID, ID2D1Effect**);
using draw_image_method = void (STDMETHODCALLTYPE ID2D1DeviceContext::*)(ID2D1Image*, const D2D1_POINT_2F*,
                                                                         const D2D1_RECT_F*,
                                                                         D2D1_INTERPOLATION_MODE,
                                                                         D2D1_COMPOSITE_MODE);

table_slot<create_effect_method> create_effect_slot{&ID2D1DeviceContext::CreateEffect};
table_slot<draw_image_method> draw_image_slot{&ID2D1DeviceContext::DrawImage};

/// Draws a red shadow on a context of its own and looks at it.
bool original_draws_shadows(ID2D1DeviceContext* any) {
    const scratch_context scratch(any);
    ID2D1DeviceContext* const context = scratch.get();
    const auto shadow = context ? make<ID2D1Effect>([&](ID2D1Effect** result) {
        return create_effect_slot.original()(context, CLSID_D2D1Shadow, result);
    })
                                : nullptr;
    pixel_image input;
    input.width = 8;
    input.height = 8;
    input.pixels.assign(64, {255, 255, 255, 255});
    const auto bitmap = context ? make_bitmap(context, input) : nullptr;
    const D2D1_VECTOR_4F red{1, 0, 0, 1};
    if (!shadow || !bitmap ||
        FAILED(shadow->SetValue(static_cast<UINT32>(D2D1_SHADOW_PROP_COLOR), D2D1_PROPERTY_TYPE_UNKNOWN,
                                reinterpret_cast<const BYTE*>(&red), UINT32{sizeof red}))) {
        return false;
    }
    shadow->SetInput(0, bitmap.get());
    const auto output = make<ID2D1Image>([&](ID2D1Image** result) {
        shadow->GetOutput(result);
        return S_OK;
    });
    const D2D1_POINT_2F offset{4, 4};
    const auto drawn = scratch.draw([&] {
        draw_image_slot.original()(context, output.get(), &offset, nullptr, D2D1_INTERPOLATION_MODE_LINEAR,
                                   D2D1_COMPOSITE_MODE_SOURCE_OVER);
    });
    return drawn && drawn->at(8, 8)[2] > 64 && drawn->at(8, 8)[0] == 0;
}

HRESULT STDMETHODCALLTYPE create_effect(ID2D1DeviceContext* self, REFCLSID id,
                                        ID2D1Effect** result) noexcept {
    const bool shadow = id == CLSID_D2D1Shadow;
    if (!result || (!shadow && id != CLSID_D2D1Composite)) {
        return create_effect_slot.original()(self, id, result);
    }
    return guarded([&] {
        static const bool trusted = original_draws_shadows(self);
        if (trusted) {
            return create_effect_slot.original()(self, id, result);
        }
        auto factory = make<ID2D1Factory>([&](ID2D1Factory** found) {
            self->GetFactory(found);
            return S_OK;
        });
        *result =
            (shadow ? make_shadow_effect(std::move(factory)) : make_composite_effect(std::move(factory)))
                .release();
        return S_OK;
    });
}

/// A picture at the offset of the image's origin, cut to the image rectangle, whose corner then takes the
/// offset.
void draw_picture(ID2D1DeviceContext* context, const pixel_image& picture, D2D1_POINT_2F offset,
                  const D2D1_RECT_F* image_rectangle, D2D1_INTERPOLATION_MODE interpolation,
                  D2D1_COMPOSITE_MODE mode) {
    const auto bitmap = make_bitmap(context, picture);
    if (!bitmap) {
        return;
    }
    const float unit_x = 96 / picture.dpi_x;
    const float unit_y = 96 / picture.dpi_y;
    const D2D1_POINT_2F corner{static_cast<float>(picture.left) * unit_x,
                               static_cast<float>(picture.top) * unit_y};
    D2D1_RECT_F part{0, 0, static_cast<float>(picture.width) * unit_x,
                     static_cast<float>(picture.height) * unit_y};
    D2D1_POINT_2F origin{0, 0};
    if (image_rectangle) {
        origin = {image_rectangle->left, image_rectangle->top};
        part.left = std::max(part.left, image_rectangle->left - corner.x);
        part.top = std::max(part.top, image_rectangle->top - corner.y);
        part.right = std::min(part.right, image_rectangle->right - corner.x);
        part.bottom = std::min(part.bottom, image_rectangle->bottom - corner.y);
    }
    if (part.left >= part.right || part.top >= part.bottom) {
        return;
    }
    const D2D1_POINT_2F place{offset.x + corner.x + part.left - origin.x,
                              offset.y + corner.y + part.top - origin.y};
    draw_image_slot.original()(context, bitmap.get(), &place, &part, interpolation, mode);
}

void STDMETHODCALLTYPE draw_image(ID2D1DeviceContext* self, ID2D1Image* image, const D2D1_POINT_2F* offset,
                                  const D2D1_RECT_F* image_rectangle, D2D1_INTERPOLATION_MODE interpolation,
                                  D2D1_COMPOSITE_MODE mode) noexcept {
    const effect* const drawn = effect::behind(image);
    if (!drawn) {
        draw_image_slot.original()(self, image, offset, image_rectangle, interpolation, mode);
        return;
    }
    // The operation reports nothing: a picture that can't be had isn't drawn.
    static_cast<void>(guarded([&] {
        if (const auto picture = drawn->picture(self)) {
            draw_picture(self, *picture, offset ? *offset : D2D1_POINT_2F{0, 0}, image_rectangle,
                         interpolation, mode);
        }
        return S_OK;
    }));
}

/// One way in which a factory makes contexts, or targets that are contexts too.
template <auto method, typename Method = decltype(method)>
class watched_creation;

template <auto method, typename Interface, typename... Arguments>
class watched_creation<method, HRESULT (STDMETHODCALLTYPE Interface::*)(Arguments...)> {
public:
    static void watch(Interface* factory) {
        if (factory) {
            slot_.replace(factory, &create);
        }
    }

private:
    static HRESULT STDMETHODCALLTYPE create(Interface* self, Arguments... arguments) noexcept {
        const HRESULT result = slot_.original()(self, arguments...);
        // What is made comes last, through a pointer.
        return FAILED(result) ? result : guarded([&] {
            complete_made(*std::get<sizeof...(Arguments) - 1>(std::tie(arguments...)));
            return result;
        });
    }

    static void complete_made(ID2D1Device* device) { complete_context_of(device); }
    static void complete_made(IUnknown* target) { complete_context(query<ID2D1DeviceContext>(target).get()); }

    static inline table_slot<decltype(method)> slot_{method};
};

template <typename Target, typename... Arguments>
using creation = HRESULT (STDMETHODCALLTYPE ID2D1Factory::*)(Arguments..., Target**);

using properties = const D2D1_RENDER_TARGET_PROPERTIES*;

}  // namespace

void complete_context(ID2D1DeviceContext* context) {
    if (context) {
        create_effect_slot.replace(context, &create_effect);
        draw_image_slot.replace(context, &draw_image);
        complete_clipping(context);
        complete_stroke_drawing(context);
        complete_text_drawing(context);
    }
}

void complete_context_of(ID2D1Device* device) {
    complete_context(make<ID2D1DeviceContext>([&](ID2D1DeviceContext** result) {
                         return device->CreateDeviceContext(D2D1_DEVICE_CONTEXT_OPTIONS_NONE, result);
                     }).get());
}

void complete_effects(ID2D1Factory* factory) {
    static std::once_flag once;
    std::call_once(once, [factory] {
        watched_creation<static_cast<creation<ID2D1RenderTarget, IWICBitmap*, properties>>(
            &ID2D1Factory::CreateWicBitmapRenderTarget)>::watch(factory);
        watched_creation<static_cast<creation<ID2D1RenderTarget, IDXGISurface*, properties>>(
            &ID2D1Factory::CreateDxgiSurfaceRenderTarget)>::watch(factory);
        watched_creation<static_cast<creation<ID2D1DCRenderTarget, properties>>(
            &ID2D1Factory::CreateDCRenderTarget)>::watch(factory);
        watched_creation<static_cast<
            creation<ID2D1HwndRenderTarget, properties, const D2D1_HWND_RENDER_TARGET_PROPERTIES*>>(
            &ID2D1Factory::CreateHwndRenderTarget)>::watch(factory);
        using create_device = HRESULT (STDMETHODCALLTYPE ID2D1Factory1::*)(IDXGIDevice*, ID2D1Device**);
        watched_creation<static_cast<create_device>(&ID2D1Factory1::CreateDevice)>::watch(
            query<ID2D1Factory1>(factory).get());
    });
}

}  // namespace completion
