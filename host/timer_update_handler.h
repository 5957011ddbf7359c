#pragma once

#include "com/base_object.h"
#include "com/weak_ptr.h"

#include <uianimation.h>

namespace d2d {

class lower_edge_host;

/// What the clock of a host calls. The host owns the clock and the clock this, so that the way back to the
/// host is weak.
class timer_update_handler : public com::base_object<com::object_base, IUIAnimationTimerUpdateHandler> {
public:
    /// `start`: the clock's time now, in seconds.
    timer_update_handler(com::weak_ptr<lower_edge_host> clock_host, double start);

    HRESULT STDMETHODCALLTYPE OnUpdate(double now, UI_ANIMATION_UPDATE_RESULT* result) override;
    HRESULT STDMETHODCALLTYPE
    SetTimerClientEventHandler(IUIAnimationTimerClientEventHandler* client) override;
    HRESULT STDMETHODCALLTYPE ClearTimerClientEventHandler() override;

private:
    com::weak_ptr<lower_edge_host> host;
    double last_time;
};

}  // namespace d2d
