#include "host/imaging.h"

#include "com/check.h"
#include "com/interface_traits.h"

#include <utility>

#include <objbase.h>

namespace d2d {

unsigned imaging_hold::users_ = 0;
IWICImagingFactory* imaging_hold::factory_ = nullptr;

void imaging_hold::create() {
    // A thread that is in an apartment already is as good.
    static_cast<void>(CoInitialize(nullptr));
    void* made = nullptr;
    com::check(CoCreateInstance(CLSID_WICImagingFactory, nullptr, CLSCTX_INPROC_SERVER,
                                com::guid_of<IWICImagingFactory>(), &made));
    factory_ = static_cast<IWICImagingFactory*>(made);
}

void imaging_hold::release() noexcept {
    if (IWICImagingFactory* const last = std::exchange(factory_, nullptr)) last->Release();
    CoUninitialize();
}

}  // namespace d2d
