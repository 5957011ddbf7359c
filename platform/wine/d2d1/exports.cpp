#include "effect_completion.h"
#include "geometry_completion.h"
#include "guarded.h"
#include "owned.h"
#include "presentation_completion.h"
#include "system_library.h"

#include <d2d1_1.h>

using namespace completion;

namespace {

system_library& original() {
    static system_library library{L"d2d1.dll"};
    return library;
}

void complete(ID2D1Factory* factory) {
    complete_geometries(factory);
    complete_effects(factory);
    complete_presentation(factory);
}

void complete_factory_of(ID2D1Resource* resource) {
    complete(make<ID2D1Factory>([&](ID2D1Factory** factory) {
                 resource->GetFactory(factory);
                 return S_OK;
             }).get());
}

}  // namespace

// The names that MinGW's headers leave out, and those that they declare otherwise than Windows' do.
extern "C" {

HRESULT WINAPI D2D1CreateDevice(IDXGIDevice* device, const D2D1_CREATION_PROPERTIES* properties,
                                ID2D1Device** result);
HRESULT WINAPI D2D1CreateDeviceContext(IDXGISurface* surface, const D2D1_CREATION_PROPERTIES* properties,
                                       ID2D1DeviceContext** result);
D2D1_COLOR_F WINAPI D2D1ConvertColorSpace(D2D1_COLOR_SPACE from, D2D1_COLOR_SPACE to,
                                          const D2D1_COLOR_F* color);
void WINAPI D2D1SinCos(FLOAT angle, FLOAT* sine, FLOAT* cosine);
FLOAT WINAPI D2D1Tan(FLOAT angle);
FLOAT WINAPI D2D1Vec3Length(FLOAT x, FLOAT y, FLOAT z);

HRESULT WINAPI D2D1CreateFactory(D2D1_FACTORY_TYPE type, REFIID id, const D2D1_FACTORY_OPTIONS* options,
                                 void** result) {
    return guarded([&] {
        using create = HRESULT WINAPI(D2D1_FACTORY_TYPE, REFIID, const D2D1_FACTORY_OPTIONS*, void**);
        static const auto forward = original().function<create>("D2D1CreateFactory");
        const HRESULT outcome = forward(type, id, options, result);
        if (SUCCEEDED(outcome)) {
            complete(query<ID2D1Factory>(static_cast<IUnknown*>(*result)).get());
        }
        return outcome;
    });
}

HRESULT WINAPI D2D1CreateDevice(IDXGIDevice* device, const D2D1_CREATION_PROPERTIES* properties,
                                ID2D1Device** result) {
    return guarded([&] {
        static const auto forward = original().function<decltype(D2D1CreateDevice)>("D2D1CreateDevice");
        const HRESULT outcome = forward(device, properties, result);
        if (SUCCEEDED(outcome)) {
            complete_factory_of(*result);
            complete_context_of(*result);
        }
        return outcome;
    });
}

HRESULT WINAPI D2D1CreateDeviceContext(IDXGISurface* surface, const D2D1_CREATION_PROPERTIES* properties,
                                       ID2D1DeviceContext** result) {
    return guarded([&] {
        static const auto forward =
            original().function<decltype(D2D1CreateDeviceContext)>("D2D1CreateDeviceContext");
        const HRESULT outcome = forward(surface, properties, result);
        if (SUCCEEDED(outcome)) {
            complete_factory_of(*result);
            complete_context(*result);
        }
        return outcome;
    });
}

void WINAPI D2D1MakeRotateMatrix(FLOAT angle, D2D1_POINT_2F center, D2D1_MATRIX_3X2_F* matrix) {
    static const auto forward = original().function<decltype(D2D1MakeRotateMatrix)>("D2D1MakeRotateMatrix");
    forward(angle, center, matrix);
}

void WINAPI D2D1MakeSkewMatrix(FLOAT x, FLOAT y, D2D1_POINT_2F center, D2D1_MATRIX_3X2_F* matrix) {
    static const auto forward = original().function<decltype(D2D1MakeSkewMatrix)>("D2D1MakeSkewMatrix");
    forward(x, y, center, matrix);
}

WINBOOL WINAPI D2D1IsMatrixInvertible(const D2D1_MATRIX_3X2_F* matrix) {
    static const auto forward =
        original().function<decltype(D2D1IsMatrixInvertible)>("D2D1IsMatrixInvertible");
    return forward(matrix);
}

WINBOOL WINAPI D2D1InvertMatrix(D2D1_MATRIX_3X2_F* matrix) {
    static const auto forward = original().function<decltype(D2D1InvertMatrix)>("D2D1InvertMatrix");
    return forward(matrix);
}

D2D1_COLOR_F WINAPI D2D1ConvertColorSpace(D2D1_COLOR_SPACE from, D2D1_COLOR_SPACE to,
                                          const D2D1_COLOR_F* color) {
    static const auto forward = original().function<decltype(D2D1ConvertColorSpace)>("D2D1ConvertColorSpace");
    return forward(from, to, color);
}

void WINAPI D2D1SinCos(FLOAT angle, FLOAT* sine, FLOAT* cosine) {
    static const auto forward = original().function<decltype(D2D1SinCos)>("D2D1SinCos");
    forward(angle, sine, cosine);
}

FLOAT WINAPI D2D1Tan(FLOAT angle) {
    static const auto forward = original().function<decltype(D2D1Tan)>("D2D1Tan");
    return forward(angle);
}

FLOAT WINAPI D2D1Vec3Length(FLOAT x, FLOAT y, FLOAT z) {
    static const auto forward = original().function<decltype(D2D1Vec3Length)>("D2D1Vec3Length");
    return forward(x, y, z);
}

}  // extern "C"
