#include "layout_completion.h"

#include "cluster_repair.h"
#include "failure.h"
#include "hit_test.h"
#include "owned.h"
#include "table_slot.h"
#include "text_snapshot.h"

#include <algorithm>

namespace completion {

namespace {

constexpr HRESULT buffer_too_small = HRESULT_FROM_WIN32(ERROR_INSUFFICIENT_BUFFER);

template <auto Method>
table_slot<decltype(Method)> slot{Method};

constexpr auto point_method = &IDWriteTextLayout::HitTestPoint;
constexpr auto position_method = &IDWriteTextLayout::HitTestTextPosition;
constexpr auto range_method = &IDWriteTextLayout::HitTestTextRange;
constexpr auto clusters_method = &IDWriteTextLayout::GetClusterMetrics;

/// Copies a list into a caller's array, or says how long that must be.
template <typename Item>
HRESULT hand_out(const std::vector<Item>& items, Item* array, UINT32 capacity, UINT32* count) {
    *count = static_cast<UINT32>(items.size());
    if (items.size() > capacity) {
        return buffer_too_small;
    }
    std::ranges::copy(items, array);
    return S_OK;
}

HRESULT STDMETHODCALLTYPE replaced_point(IDWriteTextLayout* self, FLOAT x, FLOAT y, BOOL* trailing,
                                         BOOL* inside, DWRITE_HIT_TEST_METRICS* metrics) {
    const HRESULT result = slot<point_method>.original()(self, x, y, trailing, inside, metrics);
    if (result != E_NOTIMPL) {
        return result;
    }
    return guarded([&] {
        const point_hit hit = hit_test_point(text_snapshot(self), x, y);
        *trailing = hit.trailing;
        *inside = hit.inside;
        *metrics = hit.metrics;
        return S_OK;
    });
}

HRESULT STDMETHODCALLTYPE replaced_position(IDWriteTextLayout* self, UINT32 position, BOOL trailing, FLOAT* x,
                                            FLOAT* y, DWRITE_HIT_TEST_METRICS* metrics) {
    const HRESULT result = slot<position_method>.original()(self, position, trailing, x, y, metrics);
    if (result != E_NOTIMPL) {
        return result;
    }
    return guarded([&] {
        const position_hit hit = hit_test_position(text_snapshot(self), position, trailing != FALSE);
        *x = hit.x;
        *y = hit.y;
        *metrics = hit.metrics;
        return S_OK;
    });
}

HRESULT STDMETHODCALLTYPE replaced_range(IDWriteTextLayout* self, UINT32 position, UINT32 length,
                                         FLOAT origin_x, FLOAT origin_y, DWRITE_HIT_TEST_METRICS* metrics,
                                         UINT32 capacity, UINT32* count) {
    const HRESULT result =
        slot<range_method>.original()(self, position, length, origin_x, origin_y, metrics, capacity, count);
    if (result != E_NOTIMPL) {
        return result;
    }
    return guarded([&] {
        return hand_out(hit_test_range(text_snapshot(self), position, length, origin_x, origin_y), metrics,
                        capacity, count);
    });
}

/// Not missing in Wine 8, but at odds with the characters (see repaired_clusters).
HRESULT STDMETHODCALLTYPE replaced_clusters(IDWriteTextLayout* self, DWRITE_CLUSTER_METRICS* metrics,
                                            UINT32 capacity, UINT32* count) {
    const auto original = slot<clusters_method>.original();
    const HRESULT result = original(self, metrics, capacity, count);
    if (result != S_OK && result != buffer_too_small) {
        return result;
    }
    return guarded([&] {
        std::vector<DWRITE_CLUSTER_METRICS> clusters(*count);
        check(original(self, clusters.data(), *count, count));
        return hand_out(repaired_clusters(self, clusters), metrics, capacity, count);
    });
}

}  // namespace

void complete_text_layouts(IDWriteFactory* factory) {
    const auto format = make<IDWriteTextFormat>([&](IDWriteTextFormat** result) {
        return factory->CreateTextFormat(L"Tahoma", nullptr, DWRITE_FONT_WEIGHT_NORMAL,
                                         DWRITE_FONT_STYLE_NORMAL, DWRITE_FONT_STRETCH_NORMAL, 12.0f, L"",
                                         result);
    });
    const auto sample = make<IDWriteTextLayout>([&](IDWriteTextLayout** result) {
        return factory->CreateTextLayout(L"", 0, format.get(), 0.0f, 0.0f, result);
    });
    if (!sample) {
        throw failure{E_FAIL};
    }
    slot<point_method>.replace(sample.get(), &replaced_point);
    slot<position_method>.replace(sample.get(), &replaced_position);
    slot<range_method>.replace(sample.get(), &replaced_range);
    slot<clusters_method>.replace(sample.get(), &replaced_clusters);
}

}  // namespace completion
