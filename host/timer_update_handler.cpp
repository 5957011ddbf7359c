#include "host/timer_update_handler.h"

#include "d2d/lower_edge_host.h"

#include <utility>

namespace d2d {

timer_update_handler::timer_update_handler(com::weak_ptr<lower_edge_host> clock_host, double start)
    : host(std::move(clock_host)), last_time(start) {}

HRESULT timer_update_handler::OnUpdate(double now, UI_ANIMATION_UPDATE_RESULT* result) {
    *result = UI_ANIMATION_UPDATE_VARIABLES_CHANGED;
    const double delta = now - last_time;
    if (const auto alive = host.lock()) alive->on_clock(now, delta);
    last_time = now;
    return S_OK;
}

HRESULT timer_update_handler::SetTimerClientEventHandler(IUIAnimationTimerClientEventHandler* client) {
    if (const auto alive = host.lock()) alive->timer_client = client;
    return S_OK;
}

HRESULT timer_update_handler::ClearTimerClientEventHandler() {
    if (const auto alive = host.lock()) alive->timer_client.reset();
    return S_OK;
}

}  // namespace d2d
