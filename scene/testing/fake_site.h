#pragma once

#include "com/interface_traits.h"
#include "d2d/IViewLowerEdge.h"
#include "scene/testing/call_text.h"

#include <functional>
#include <string>
#include <utility>
#include <vector>

namespace d2d::scene::fakes {

/// A host beneath a view that writes down what the view asks of it, one line each:
///
///     invalidate_rect 10 20 26 28
///     set_animation_clock 0 0.05000000074505806
///     request_focus
///     bounds_changed 0 0 100 100
///     drag_detect 5 5 0
///     drag_loop 5 5 0 1 0 0 1 -10 -20
///
/// Numbers are exact (the view's clock interval is the single-precision 0.05), buttons are written as their
/// numbers. `QueryService` and `get_current_time` are not written down.
///
/// Stands on the stack of a test, and is not destroyed by its count.
class fake_site final : public IViewLowerEdge::ISite {
public:
    fake_site() = default;
    fake_site(const fake_site&) = delete;
    fake_site& operator=(const fake_site&) = delete;

    std::vector<std::string> calls;
    /// The calls so far, which are forgotten: the next step's stand alone.
    std::vector<std::string> take_calls() { return std::exchange(calls, {}); }
    /// The last interval that was asked for, in seconds; 0 when the clock is off.
    double clock_interval = 0.0;

    // What the host answers.
    double time = 0.0;
    bool focus_granted = true;
    bool drag_detected = false;
    /// Runs while `drag_detect` waits.
    std::function<void()> while_detecting;
    /// Stands in for the user's part in `drag_loop`; its result is the operation's. Without it: false.
    std::function<bool(const std::function<bool(D2D_POINT_2F)>& moved)> drag;
    /// Offers a service, which is borrowed.
    void offer(const GUID& service, IUnknown* object) { services.emplace_back(service, object); }

    bool request_focus() override {
        calls.emplace_back("request_focus");
        return focus_granted;
    }
    double get_current_time() const override { return time; }
    void set_animation_clock(double unused, double interval) override {
        calls.push_back(call_text("set_animation_clock", unused, interval));
        clock_interval = interval;
    }
    void bounds_changed(D2D_RECT_F bounds) override { calls.push_back(call_text("bounds_changed", bounds)); }
    void invalidate_rect(D2D_RECT_F rect) override { calls.push_back(call_text("invalidate_rect", rect)); }
    bool drag_detect(D2D_POINT_2F point, input::mouse::button button) override {
        calls.push_back(call_text("drag_detect", point, button));
        if (while_detecting) while_detecting();
        return drag_detected;
    }
    bool drag_loop(D2D_POINT_2F point, input::mouse::button button, D2D_MATRIX_3X2_F transform,
                   std::function<bool(D2D_POINT_2F)> moved) override {
        calls.push_back(call_text("drag_loop", point, button, transform));
        return drag && drag(moved);
    }

    HRESULT STDMETHODCALLTYPE QueryService(const GUID& service, const GUID& id, void** out) override {
        for (const auto& [offered, object] : services) {
            if (com::same_guid(offered, service)) return object->QueryInterface(id, out);
        }
        return E_NOINTERFACE;
    }

    HRESULT STDMETHODCALLTYPE QueryInterface(const GUID& id, void** out) noexcept override {
        const bool known = com::answers_to<ISite>(id) || com::same_guid(id, com::guid_of<IUnknown>());
        *out = known ? static_cast<ISite*>(this) : nullptr;
        if (!known) return E_NOINTERFACE;
        AddRef();
        return S_OK;
    }
    ULONG STDMETHODCALLTYPE AddRef() noexcept override { return ++references; }
    ULONG STDMETHODCALLTYPE Release() noexcept override { return --references; }

private:
    using ISite = IViewLowerEdge::ISite;

    std::vector<std::pair<GUID, IUnknown*>> services;
    ULONG references = 0;
};

}  // namespace d2d::scene::fakes
