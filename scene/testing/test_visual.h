#pragma once

#include "com/base_object.h"
#include "com/object.h"
#include "d2d/scene/IVisual.h"
#include "scene/testing/test_resources.h"

#include <string>
#include <utility>
#include <vector>

namespace d2d::scene::fakes {

/// A visual that writes down what is asked of it: "attach a", "detach a", "bind a", "unbind a", "animate
/// a 1.5", "render a".
class test_visual : public com::base_object<com::object_base, IVisual> {
public:
    test_visual(std::string called, D2D_RECT_F has_bounds, log_function writes_to = {})
        : bounds(has_bounds), name(std::move(called)), log(std::move(writes_to)) {}

    D2D_RECT_F bounds;
    bool animated = false;
    /// Runs inside `render`.
    std::function<void(ID2D1RenderTarget*)> on_render;
    /// What `hit_test` answers; without it no point is hit.
    std::function<bool(float x, float y, float tolerance)> on_hit_test;
    /// What `attach` and `detach` were given, in order.
    std::vector<ISite*> sites;
    /// The context that `bind` was given last.
    IResourceBindingContext* context = nullptr;

    void attach(ISite* site) override {
        sites.push_back(site);
        write("attach");
    }
    void detach(ISite* site) override {
        sites.push_back(site);
        write("detach");
    }
    std::optional<animation> get_animation() override {
        return animated ? std::optional<animation>(animation{}) : std::nullopt;
    }
    void render(ID2D1RenderTarget* target) override {
        write("render");
        if (on_render) on_render(target);
    }
    bool hit_test(float x, float y, float tolerance) override {
        return on_hit_test && on_hit_test(x, y, tolerance);
    }
    void animate(double time) override { write("animate", time); }
    void bind(IResourceBindingContext* given) override {
        context = given;
        write("bind");
    }
    void unbind(IResourceBindingContext* given) override {
        context = given;
        write("unbind");
    }
    D2D_RECT_F get_bounds() override { return bounds; }

protected:
    ~test_visual() = default;

private:
    template <class... Words>
    void write(const char* what, Words... words) const {
        if (log) log(call_text(what, name, words...));
    }

    std::string name;
    log_function log;
};

}  // namespace d2d::scene::fakes
