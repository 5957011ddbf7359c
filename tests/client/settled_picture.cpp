#include "settled_picture.h"

#include "support/message_pump.h"

namespace client_test {

using test_support::picture;

picture settled_picture(HWND window) {
    picture last = test_support::grab_client_area(window);
    for (int i = 0; i < 50; ++i) {
        test_support::pump_for(std::chrono::milliseconds(200));
        picture next = test_support::grab_client_area(window);
        if (next == last && next.width > 4 && next.at(2, 2) != next.at(next.width / 2, next.height / 2))
            return next;
        last = std::move(next);
    }
    return last;
}

}  // namespace client_test
