#pragma once

#include <memory>
#include <type_traits>
#include <utility>

namespace d2d::scene {

/// The one handler of a kind that a node has, or none: a `std::function`, where an empty one means none.
///
/// A handler may replace itself, or be taken away, while it runs: each call keeps the function that it runs
/// until it ends. Calls allocate nothing.
template <class Function>
class handler_slot {
public:
    void set(Function handler) {
        held = handler ? std::make_shared<const Function>(std::move(handler)) : nullptr;
    }
    void reset() noexcept { held.reset(); }

    [[nodiscard]] explicit operator bool() const noexcept { return static_cast<bool>(held); }

    /// Calls the handler; without one returns the default value.
    template <class... Arguments>
    auto call(Arguments&&... arguments) const {
        using result = std::invoke_result_t<const Function&, Arguments...>;
        const auto running = held;
        return running ? (*running)(std::forward<Arguments>(arguments)...) : result();
    }

private:
    std::shared_ptr<const Function> held;
};

}  // namespace d2d::scene
