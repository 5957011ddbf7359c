#pragma once

namespace ui::mossHarbour {

/// A length for each side, as a client gave it or in pixels.
struct box_lengths {
    int left;
    int top;
    int right;
    int bottom;
};

}  // namespace ui::mossHarbour
