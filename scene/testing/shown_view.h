#pragma once

#include "com/object.h"
#include "d2d/scene/INode.h"
#include "scene/testing/fake_site.h"
#include "scene/view.h"

namespace d2d::scene::fakes {

/// A view with a fake host and a render target, taken apart in order at its end.
class shown_view {
public:
    /// `render_target` is borrowed; null leaves the view without one.
    explicit shown_view(ID2D1RenderTarget* render_target) : target(render_target) {
        shown->attach_site(&site);
        if (target) shown->attach_render_target(target);
    }
    shown_view(const shown_view&) = delete;
    shown_view& operator=(const shown_view&) = delete;
    ~shown_view() {
        shown->set_root(nullptr);
        replace_target(nullptr);
        shown->detach_site(&site);
    }

    [[nodiscard]] view* get() const noexcept { return shown.get(); }
    view* operator->() const noexcept { return shown.get(); }

    void replace_target(ID2D1RenderTarget* next) {
        if (target) shown->detach_render_target(target);
        target = next;
        if (target) shown->attach_render_target(target);
    }

    fake_site site;

private:
    com::ptr<view> shown = com::create_object<view>();
    ID2D1RenderTarget* target;
};

}  // namespace d2d::scene::fakes
