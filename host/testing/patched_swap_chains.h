#pragma once

#include "host/testing/table_entry.h"
#include "scene/testing/call_text.h"

#include <optional>
#include <string>
#include <utility>
#include <vector>

#include <dxgi1_2.h>

namespace d2d::fakes {

/// Writes down what is asked of `factory` for a window, and of the swap chains that it makes meanwhile:
///
///     make 0 0 format 87 stereo 0 samples 1 0 usage 32 buffers 2 scaling 1 effect 3 alpha 0 flags 0
///     present 0 0 dirty 10 20 30 40
///
/// The slots in the tables of their kinds are exchanged while this lives.
class patched_swap_chains {
public:
    explicit patched_swap_chains(IDXGIFactory2* factory) : maker(factory, make_slot) {
        calls.clear();
        original_make = maker.exchange(make);
    }
    patched_swap_chains(const patched_swap_chains&) = delete;
    patched_swap_chains& operator=(const patched_swap_chains&) = delete;
    ~patched_swap_chains() {
        maker.exchange(original_make);
        if (presenter) presenter->exchange(original_present);
        presenter.reset();
        next_result = S_OK;
    }

    /// What the next making of a chain answers, when it is no success, in the place of the platform.
    static inline HRESULT next_result = S_OK;

    [[nodiscard]] static std::vector<std::string> take_calls() { return std::exchange(calls, {}); }

private:
    using make_operation = HRESULT(STDMETHODCALLTYPE*)(IDXGIFactory2*, IUnknown*, HWND,
                                                       const DXGI_SWAP_CHAIN_DESC1*,
                                                       const DXGI_SWAP_CHAIN_FULLSCREEN_DESC*, IDXGIOutput*,
                                                       IDXGISwapChain1**);
    using present_operation = HRESULT(STDMETHODCALLTYPE*)(IDXGISwapChain1*, UINT, UINT,
                                                          const DXGI_PRESENT_PARAMETERS*);
    static constexpr int make_slot = 15;     // fixed by the interface
    static constexpr int present_slot = 22;  // the same

    static HRESULT STDMETHODCALLTYPE make(IDXGIFactory2* factory, IUnknown* device, HWND window,
                                          const DXGI_SWAP_CHAIN_DESC1* of,
                                          const DXGI_SWAP_CHAIN_FULLSCREEN_DESC* fullscreen,
                                          IDXGIOutput* output, IDXGISwapChain1** made) {
        calls.push_back(scene::fakes::call_text(
            "make", of->Width, of->Height, "format", static_cast<int>(of->Format), "stereo", of->Stereo,
            "samples", of->SampleDesc.Count, of->SampleDesc.Quality, "usage", of->BufferUsage, "buffers",
            of->BufferCount, "scaling", static_cast<int>(of->Scaling), "effect",
            static_cast<int>(of->SwapEffect), "alpha", static_cast<int>(of->AlphaMode), "flags", of->Flags));
        if (fullscreen || output) calls.emplace_back("for the whole screen or one output");
        if (const HRESULT refusal = std::exchange(next_result, S_OK); FAILED(refusal)) return refusal;
        const HRESULT result = original_make(factory, device, window, of, fullscreen, output, made);
        if (SUCCEEDED(result) && !presenter) {
            presenter.emplace(*made, present_slot);
            original_present = presenter->exchange(present);
        }
        return result;
    }

    static HRESULT STDMETHODCALLTYPE present(IDXGISwapChain1* chain, UINT interval, UINT flags,
                                             const DXGI_PRESENT_PARAMETERS* how) {
        std::string line = scene::fakes::call_text("present", interval, flags);
        for (UINT i = 0; i < how->DirtyRectsCount; ++i) {
            const RECT& dirty = how->pDirtyRects[i];
            line += scene::fakes::call_text(" dirty", dirty.left, dirty.top, dirty.right, dirty.bottom);
        }
        if (how->pScrollRect || how->pScrollOffset) line += " scrolled";
        calls.push_back(line);
        return original_present(chain, interval, flags, how);
    }

    static inline std::vector<std::string> calls;
    static inline make_operation original_make = nullptr;
    static inline present_operation original_present = nullptr;
    static inline std::optional<table_entry<present_operation>> presenter;
    table_entry<make_operation> maker;
};

}  // namespace d2d::fakes
