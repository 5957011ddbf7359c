#include "support/heard_drag.h"

#include "support/input.h"

#include <chrono>
#include <thread>

namespace test_support {

void drag_as_heard(HWND window, const std::vector<POINT>& points, const std::atomic<int>& heard) {
    meanwhile([&] {
        move_mouse(window, points.front());
        press_mouse();
        for (auto point = points.begin() + 1; point != points.end(); ++point) {
            const int before = heard;
            move_mouse(window, *point);
            for (int tries = 0; heard == before && tries < 500; ++tries)
                std::this_thread::sleep_for(std::chrono::milliseconds(10));
        }
        release_mouse();
    });
}

}  // namespace test_support
