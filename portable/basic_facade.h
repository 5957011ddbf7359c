#pragma once

#include "com/base_object.h"
#include "ui/mossHarbour/IMaterializableElement.h"

#include <stdexcept>
#include <typeinfo>

namespace ui::mossHarbour {

/// Base of the facades: what a client holds of a control. `Client` is what the client sees, `Facade` what the
/// control's form on the screen may call, `Materialization` what that form offers.
///
/// While it is materialized, the facade keeps its form, and the form keeps the facade. Dematerializing cuts
/// that.
template <class Derived, class Client, class Facade, class Materialization>
class basic_facade : public com::base_object<com::object_base, Client, Facade, IMaterializableElement> {
public:
    // IMaterializableElement
    com::ptr<IMaterializedElement> materialize(materialization_context& context) override {
        auto live = context.materialize(typeid(Facade), this);
        materialization = com::ptr<Materialization>(live.get());
        return live;
    }
    void dematerialize(materialization_context& context) override {
        if (!materialization) return;
        const com::ptr<IMaterializableElement> keep = this;  // the form may hold the last reference
        const auto former = materialization;
        context.dematerialize(this, former.get());  // whoever hears of it may still ask the form
        if (materialization == former) materialization.reset();
    }

protected:
    ~basic_facade() = default;

    /// The form on the screen, for what belongs to it. Throws when there is none.
    [[nodiscard]] Materialization& live() const {
        if (!materialization) {
            throw std::logic_error("An operation was attempted on a control that has not been materialized");
        }
        return *materialization;
    }
    /// For what belongs to the description.
    void require_not_materialized() const {
        if (materialization) {
            throw std::logic_error(
                "An operation was attempted on a control that has already been materialized");
        }
    }

private:
    com::ptr<Materialization> materialization;
};

}  // namespace ui::mossHarbour
