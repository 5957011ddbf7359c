#pragma once

#include "com/object.h"
#include "scene/resource.h"
#include "scene/view.h"

#include <cstdint>

namespace d2d::scene {

/// The generic operations of a resource. `Concrete` derives from this, lists it among its interfaces and
/// offers
///
///     com::ptr<U> create_device_object(ID2D1RenderTarget* target);  // a `U` is a `T`
///     bool has_animation() const noexcept;                          // optional: false without
///     void update_device_object(U* object, double time);            // optional: to its value at `time`
template <class Concrete, class T, class U>
class resource_impl : public resource<T> {
public:
    com::ptr<basic_resource_binding> bind(view* shown_in) final { return bind_to(shown_in); }
    com::ptr<ID2DResourceBinding<T>> bind_typed(view* shown_in) final { return bind_to(shown_in); }

    bool is_animated() noexcept final {
        if constexpr (requires(Concrete & c) { c.has_animation(); }) {
            return concrete().has_animation();
        } else {
            return false;
        }
    }

    com::ptr<T> create(ID2D1RenderTarget* target) final { return concrete().create_device_object(target); }

    /// The device object for one view, and for the target that it has at this time.
    class binding_impl : public resource<T>::binding,
                         public animated_binding_list::node,
                         public resource_binding_list::node {
    public:
        binding_impl(view* shown_in, com::ptr<U> device_object, Concrete* from)
            : view_(shown_in),
              target_id_(shown_in->target_id()),
              object(std::move(device_object)),
              resource_(from) {}

        bool is_animated() noexcept final { return resource_->is_animated(); }

        void update(double time) final {
            if constexpr (requires(Concrete & c) { c.update_device_object(object.get(), time); }) {
                resource_->update_device_object(object.get(), time);
            }
        }

        T* get() noexcept final { return object.get(); }

        /// The attachment that the device object is of. An open recording may keep a binding beyond it.
        [[nodiscard]] std::uint64_t target_id() const noexcept { return target_id_; }

        void final_release() {
            if (animated_binding_list::node::linked()) view_->remove_animated_binding(*this);
            resource_binding_list::node::unlink();
        }

    protected:
        ~binding_impl() = default;

    private:
        view* view_;
        std::uint64_t target_id_;
        com::ptr<U> object;  // released last: the lists let go of the binding first
        Concrete* resource_;
    };

protected:
    ~resource_impl() = default;

private:
    Concrete& concrete() noexcept { return static_cast<Concrete&>(*this); }

    com::ptr<binding_impl> bind_to(view* shown_in) {
        for (auto* item = this->bindings.first(); item; item = item->next_item()) {
            auto* const existing = static_cast<binding_impl*>(item);
            if (existing->target_id() == shown_in->target_id()) return existing;
        }
        auto made = com::create_object<binding_impl>(
            shown_in, concrete().create_device_object(shown_in->get_render_target()), &concrete());
        this->bindings.push_front(*made);
        if (is_animated()) shown_in->add_animated_binding(*made);
        return made;
    }
};

}  // namespace d2d::scene
