#pragma once

#include "host/testing/table_entry.h"

#include <utility>

#include <d2d1.h>

namespace d2d::fakes {

/// Counts the calls of `EndDraw` on render targets of the kind of `target`, and answers them in the place of
/// the device: how a test loses a render target. The slot in the table of the kind is exchanged while this
/// lives.
class patched_end_draw {
public:
    explicit patched_end_draw(ID2D1RenderTarget* target) : entry(target, end_draw_slot) {
        calls = 0;
        original = entry.exchange(replacement);
    }
    patched_end_draw(const patched_end_draw&) = delete;
    patched_end_draw& operator=(const patched_end_draw&) = delete;
    ~patched_end_draw() {
        entry.exchange(original);
        next_result = S_OK;
    }

    static inline int calls = 0;
    /// What the next call answers where the device would answer `S_OK`.
    static inline HRESULT next_result = S_OK;

private:
    using operation = HRESULT(STDMETHODCALLTYPE*)(ID2D1RenderTarget*, D2D1_TAG*, D2D1_TAG*);
    static constexpr int end_draw_slot = 49;  // fixed by the interface

    static HRESULT STDMETHODCALLTYPE replacement(ID2D1RenderTarget* target, D2D1_TAG* first,
                                                 D2D1_TAG* second) {
        ++calls;
        const HRESULT drawn = original(target, first, second);
        const HRESULT wanted = std::exchange(next_result, S_OK);
        return drawn == S_OK ? wanted : drawn;
    }

    static inline operation original = nullptr;
    table_entry<operation> entry;
};

}  // namespace d2d::fakes
