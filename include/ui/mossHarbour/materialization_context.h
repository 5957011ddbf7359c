#pragma once

#include "com/ptr.h"
#include "ui/mossHarbour/IMaterializedElement.h"

#include <typeinfo>

namespace ui::mossHarbour {

struct IMaterializableElement;

/// Where elements are materialized: it knows how each kind of control stands on the screen. Lives for one
/// call: not to be kept.
class materialization_context {
public:
    /// Makes what stands for `element`, of a kind of control. Throws `std::runtime_error` "Unable to
    /// materialized the specified element!" for a kind that has no form here.
    virtual com::ptr<IMaterializedElement> materialize(const std::type_info& facade_type,
                                                       IMaterializableElement* element) = 0;
    /// Takes `live`, which stands for `element`, away again.
    virtual void dematerialize(IMaterializableElement* element, IMaterializedElement* live) = 0;

protected:
    ~materialization_context() = default;
};

}  // namespace ui::mossHarbour
