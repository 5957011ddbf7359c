#pragma once

#include <utility>

namespace ui::mossHarbour {

/// Raises a flag for a scope: a window tells its parent of changes that the program makes, too, within the
/// call that makes them.
class notification_silence {
public:
    explicit notification_silence(bool& suppressed) noexcept
        : flag(suppressed), former(std::exchange(suppressed, true)) {}
    notification_silence(const notification_silence&) = delete;
    notification_silence& operator=(const notification_silence&) = delete;
    ~notification_silence() { flag = former; }

private:
    bool& flag;
    const bool former;
};

}  // namespace ui::mossHarbour
