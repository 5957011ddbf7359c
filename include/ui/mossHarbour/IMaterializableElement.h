#pragma once

#include "ui/mossHarbour/materialization_context.h"

namespace ui::mossHarbour {

/// The side of controls and layouts that panels use, and layouts for what is in them: they are made to stand
/// on the screen, and taken away again, any number of times, one at a time.
struct IMaterializableElement : IUnknown {
    /// What fails half way leaves nothing behind.
    virtual com::ptr<IMaterializedElement> materialize(materialization_context& context) = 0;
    /// With a context of the same place. Does nothing where nothing stands.
    virtual void dematerialize(materialization_context& context) = 0;
};

}  // namespace ui::mossHarbour

template <>
struct com::interface_traits<ui::mossHarbour::IMaterializableElement> : com::extends<> {
    static constexpr GUID id = com::guid("3F13907E-13D1-4F9C-B72F-EA2324999978");
};
