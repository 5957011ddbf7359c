#include "com/weak_ptr.h"
#include "measure.h"
#include "scene_fixture.h"
#include "workloads.h"

#include <atomic>

namespace bench {

void run_object_workloads() {
    constexpr std::size_t count = 2'000'000;
    const auto object = com::create_object<idle_site>();

    // The yardstick: machines differ, and so does one machine from minute to minute.
    std::atomic<unsigned> word{1};
    measure("atomic_pair", count, [&] {
        for (std::size_t i = 0; i < count; ++i) {
            word.fetch_add(1);
            word.fetch_sub(1);
        }
    });
    measure("refcount", count, [&] {
        for (std::size_t i = 0; i < count; ++i) {
            const com::ptr<d2d::IViewLowerEdge::ISite> copy(object.get());
            keep(copy);
        }
    });
    const com::weak_ptr<idle_site> weak(object);
    measure("weak_lock", count, [&] {
        for (std::size_t i = 0; i < count; ++i) {
            const com::ptr<idle_site> locked = weak.lock();
            keep(locked);
        }
    });
}

}  // namespace bench
