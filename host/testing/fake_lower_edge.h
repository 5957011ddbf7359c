#pragma once

#include "com/interface_traits.h"
#include "d2d/IViewLowerEdge.h"
#include "scene/testing/call_text.h"

#include <functional>
#include <string>
#include <utility>
#include <vector>

namespace d2d::fakes {

/// A view that writes down what its host tells it, one line each:
///
///     attach_site
///     attach_render_target
///     render 0 0 100 50 at 10 20
///     tick 1.5 0.25
///     mouse 3 button 0 flags 1 at 10.5 20.5 delta 0
///     cursor 0.5 0.5
///     key 65 down 1 repeat 0 modifiers 2
///     char 97
///     focus_gained
///
/// Stands on the stack of a test, and is not destroyed by its count.
class fake_lower_edge final : public IViewLowerEdge {
public:
    fake_lower_edge() = default;
    fake_lower_edge(const fake_lower_edge&) = delete;
    fake_lower_edge& operator=(const fake_lower_edge&) = delete;

    std::vector<std::string> calls;
    /// The calls so far, which are forgotten.
    [[nodiscard]] std::vector<std::string> take_calls() { return std::exchange(calls, {}); }
    [[nodiscard]] ULONG references() const noexcept { return reference_count; }

    // What the view answers.
    HCURSOR cursor = nullptr;
    bool takes_keys = false;
    /// Run inside the calls of these names.
    std::function<void(const input::mouse::event&)> on_mouse;
    std::function<void()> on_render;

    // What the last calls were given.
    ISite* site = nullptr;
    ID2D1RenderTarget* target = nullptr;

    void attach_site(ISite* given) override {
        site = given;
        write("attach_site");
    }
    void detach_site(ISite* given) override {
        write(given == site ? "detach_site" : "detach_site of another");
        site = nullptr;
    }
    void attach_render_target(ID2D1RenderTarget* given) override {
        target = given;
        write("attach_render_target");
    }
    void detach_render_target(ID2D1RenderTarget* given) override {
        write(given == target ? "detach_render_target" : "detach_render_target of another");
        target = nullptr;
    }
    bool render(D2D_RECT_F invalid, D2D_MATRIX_3X2_F transform) override {
        write("render", invalid, "at", transform._31, transform._32);
        if (on_render) on_render();
        return false;
    }
    void tick(float time, float delta) override { write("tick", time, delta); }
    void on_mouse_event(input::mouse::event event) override {
        std::string line = scene::fakes::call_text("mouse", event.type);
        if (event.button) line += scene::fakes::call_text(" button", *event.button);
        calls.push_back(line + scene::fakes::call_text(" flags", event.flags, "at", event.position, "delta",
                                                       event.wheel_delta));
        if (on_mouse) on_mouse(event);
    }
    HCURSOR get_cursor(D2D_POINT_2F point) override {
        write("cursor", point);
        return cursor;
    }
    bool on_key_event(input::key::event event) override {
        write("key", event.key, "down", event.down, "repeat", event.repeat, "modifiers", event.modifiers);
        return takes_keys;
    }
    void on_char(wchar_t character) override { write("char", static_cast<unsigned>(character)); }
    void on_focus_gained() override { write("focus_gained"); }
    void on_focus_lost() override { write("focus_lost"); }

    HRESULT STDMETHODCALLTYPE QueryInterface(const GUID& id, void** out) noexcept override {
        const bool known = com::same_guid(id, com::guid_of<IViewLowerEdge>()) ||
                           com::same_guid(id, com::guid_of<IUnknown>());
        *out = known ? this : nullptr;
        if (!known) return E_NOINTERFACE;
        AddRef();
        return S_OK;
    }
    ULONG STDMETHODCALLTYPE AddRef() noexcept override { return ++reference_count; }
    ULONG STDMETHODCALLTYPE Release() noexcept override { return --reference_count; }

private:
    template <class... Words>
    void write(const Words&... words) {
        calls.push_back(scene::fakes::call_text(words...));
    }

    ULONG reference_count = 0;
};

}  // namespace d2d::fakes
