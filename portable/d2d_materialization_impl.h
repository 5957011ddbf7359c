#pragma once

#include "com/base_object.h"
#include "com/weak_ptr.h"
#include "d2d/scene/layout/metrics.h"
#include "portable/ID2dWidget.h"
#include "portable/scene_metrics.h"
#include "ui/mossHarbour/IMaterializedElement.h"

#include <optional>
#include <utility>

namespace ui::mossHarbour {

/// Base of the forms on the scene: one control of the scene. `Derived` may hide `connect` and `disconnect`,
/// which join it to what the user does, and `show_content` and `hide_content`.
template <class Derived, class Control, class Facade, class Materialization>
class d2d_materialization_impl : public com::base_object<com::object_base, ID2dWidget, Materialization> {
public:
    // ID2dWidget
    void materialize(d2d_materialization_context& context, IUnknown* element) override {
        description = com::ptr<Facade>(element);
        panel = context.get_panel();
        try {
            show(context);
        } catch (...) {
            forget();
            throw;
        }
    }
    void dematerialize(d2d_materialization_context& context, IUnknown*) override {
        derived()->hide_content();
        derived()->disconnect();
        context.get_scene_node()->remove_child(control->get_node());
        forget();
    }

    // IMaterializedElement
    element_metrics measure(measure_context&) override { return pixel_metrics(control->measure()); }
    void arrange(int left, int top, int right, int bottom) override {
        given = D2D_RECT_F{static_cast<float>(left), static_cast<float>(top), static_cast<float>(right),
                           static_cast<float>(bottom)};
        control->arrange(*given);
    }

protected:
    explicit d2d_materialization_impl(com::ptr<Control> shown) : control(std::move(shown)) {}
    ~d2d_materialization_impl() = default;

    // Nothing to do for many.
    void connect() {}
    void disconnect() {}
    void show_content() {}
    void hide_content() {}

    /// A function for the control's handler, which calls `tell(facade, panel, arguments...)` while this is
    /// materialized. The client may take anything away in it.
    template <class Tell>
    [[nodiscard]] auto teller(Tell tell) {
        return [weak = com::weak_ptr<d2d_materialization_impl>(this), tell](auto... arguments) {
            const auto self = weak.lock();
            const auto told = self ? self->description : nullptr;
            if (told) tell(*told, self->panel, arguments...);
        };
    }

    /// Behind a change of a text, which starts from its own origin again.
    void place_again() {
        if (given) control->arrange(*given);
    }

    IPanel* panel = nullptr;
    com::ptr<Facade> description;
    const com::ptr<Control> control;

private:
    [[nodiscard]] Derived* derived() noexcept { return static_cast<Derived*>(this); }

    void show(d2d_materialization_context& context) {
        derived()->connect();
        try {
            context.get_scene_node()->add_child(control->get_node());
            try {
                derived()->show_content();
            } catch (...) {
                context.get_scene_node()->remove_child(control->get_node());
                throw;
            }
        } catch (...) {
            derived()->disconnect();
            throw;
        }
    }

    void forget() noexcept {
        panel = nullptr;
        description.reset();
    }

    std::optional<D2D_RECT_F> given;  // by the latest `arrange`
};

}  // namespace ui::mossHarbour
