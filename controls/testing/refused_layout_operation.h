#pragma once

#include "host/testing/table_entry.h"

#include <dwrite.h>
#include <windows.h>

namespace d2d::fakes {

/// An operation of text layouts: its place in the interface, which is fixed, and its parameters.
template <int Slot, class... Parameters>
struct layout_operation {
    using pointer = HRESULT(STDMETHODCALLTYPE*)(IDWriteTextLayout*, Parameters...);
    static constexpr int slot = Slot;
    static constexpr HRESULT failure = DWRITE_E_FILEFORMAT;

    static HRESULT STDMETHODCALLTYPE refuse(IDWriteTextLayout*, Parameters...) { return failure; }
};

using set_drawing_effect = layout_operation<38, IUnknown*, DWRITE_TEXT_RANGE>;
using get_line_metrics = layout_operation<59, DWRITE_LINE_METRICS*, UINT32, UINT32*>;
using get_metrics = layout_operation<60, DWRITE_TEXT_METRICS*>;
using hit_test_point = layout_operation<64, FLOAT, FLOAT, BOOL*, BOOL*, DWRITE_HIT_TEST_METRICS*>;
using hit_test_text_position = layout_operation<65, UINT32, BOOL, FLOAT*, FLOAT*, DWRITE_HIT_TEST_METRICS*>;
using hit_test_text_range =
    layout_operation<66, UINT32, UINT32, FLOAT, FLOAT, DWRITE_HIT_TEST_METRICS*, UINT32, UINT32*>;

/// Lets layouts of the kind of `layout` refuse an operation, while this lives.
template <class Operation>
class refused_layout_operation {
public:
    explicit refused_layout_operation(IDWriteTextLayout* layout)
        : entry(layout, Operation::slot), original(entry.exchange(Operation::refuse)) {}
    refused_layout_operation(const refused_layout_operation&) = delete;
    refused_layout_operation& operator=(const refused_layout_operation&) = delete;
    ~refused_layout_operation() { entry.exchange(original); }

    static constexpr HRESULT failure = Operation::failure;

private:
    table_entry<typename Operation::pointer> entry;
    typename Operation::pointer original;
};

}  // namespace d2d::fakes
