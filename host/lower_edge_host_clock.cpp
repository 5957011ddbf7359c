// The clock of a host.

#include "com/check.h"
#include "com/object.h"
#include "d2d/lower_edge_host.h"
#include "host/timer_update_handler.h"

#include <algorithm>
#include <cmath>
#include <cstdint>
#include <limits>

namespace d2d {
namespace {

/// The frames a second that are due with a frame every `interval` seconds.
UINT32 frame_rate(double interval) noexcept {
    constexpr double greatest = std::numeric_limits<std::int32_t>::max();
    return static_cast<UINT32>(std::min(std::ceil(1.0 / interval), greatest));
}

}  // namespace

void lower_edge_host::final_construct() {
    com::check(CoCreateInstance(CLSID_UIAnimationTimer, nullptr, CLSCTX_INPROC_SERVER | CLSCTX_INPROC_HANDLER,
                                com::guid_of<IUIAnimationTimer>(), timer.put_void()));
    // The clock hands its client in at once, through a weak reference that has to find this host alive.
    const com::ptr<lower_edge_host> alive(this);
    const auto handler = com::create_object<timer_update_handler>(this, get_current_time());
    com::check(timer->SetTimerUpdateHandler(handler.get(), UI_ANIMATION_IDLE_BEHAVIOR_DISABLE));
}

void lower_edge_host::final_release() noexcept {
    static_cast<void>(timer->SetTimerUpdateHandler(nullptr, UI_ANIMATION_IDLE_BEHAVIOR_DISABLE));
    timer_client.reset();
    timer.reset();
}

double lower_edge_host::get_current_time() const {
    double now = 0.0;
    static_cast<void>(timer->GetTime(&now));
    return now;
}

void lower_edge_host::set_animation_clock(double, double interval) {
    if (interval == 0.0 && clock_running) report_clock(false);
    if (interval > 0.0) {
        static_cast<void>(timer->SetFrameRateThreshold(frame_rate(interval)));
        if (!clock_running) report_clock(true);
    }
}

void lower_edge_host::report_clock(bool busy) {
    constexpr auto idle_status = UI_ANIMATION_TIMER_CLIENT_IDLE;
    constexpr auto busy_status = UI_ANIMATION_TIMER_CLIENT_BUSY;
    if (!busy) clock_running = false;
    if (timer_client) {
        static_cast<void>(timer_client->OnTimerClientStatusChanged(busy ? busy_status : idle_status,
                                                                   busy ? idle_status : busy_status));
    }
    clock_running = busy;
}

/// A frame of the clock. The view may be exchanged by what moves in it.
void lower_edge_host::on_clock(double now, double delta) {
    const com::ptr<IViewLowerEdge> edge = lower_edge;
    if (edge) edge->tick(static_cast<float>(now), static_cast<float>(delta));
}

}  // namespace d2d
