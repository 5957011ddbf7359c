#pragma once

#include <functional>
#include <memory>
#include <utility>

namespace d2d::fakes {

/// A function, and all its copies, of which only the first call runs `action`. `done` tells that it has.
[[nodiscard]] inline std::function<void()> once(std::function<void()> action, std::shared_ptr<bool> done) {
    return [action = std::move(action), done = std::move(done)] {
        if (!std::exchange(*done, true)) action();
    };
}

}  // namespace d2d::fakes
