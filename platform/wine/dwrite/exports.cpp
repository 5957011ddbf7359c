#include "failure.h"
#include "layout_completion.h"
#include "owned.h"
#include "system_library.h"

#include <dwrite.h>

#include <stdexcept>

extern "C" HRESULT WINAPI DWriteCreateFactory(DWRITE_FACTORY_TYPE type, REFIID iid, IUnknown** factory) {
    using namespace completion;
    try {
        static const system_library original{L"dwrite.dll"};
        static const auto forward = original.function<decltype(DWriteCreateFactory)>("DWriteCreateFactory");
        const HRESULT result = forward(type, iid, factory);
        if (SUCCEEDED(result)) {
            if (const auto basic = query<IDWriteFactory>(*factory)) {
                complete_text_layouts(basic.get());
            }
        }
        return result;
    } catch (const failure& failed) {
        return failed.result;
    } catch (const std::exception&) {
        return E_FAIL;
    }
}
