#pragma once

#include "support/picture.h"

namespace client_test {

/// What the window of another program shows once two looks in a row are the same, with something on it.
[[nodiscard]] test_support::picture settled_picture(HWND window);

}  // namespace client_test
