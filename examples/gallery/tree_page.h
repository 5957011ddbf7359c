#pragma once

#include "page.h"

namespace gallery {

[[nodiscard]] std::unique_ptr<page> make_tree_page(const look& style);

}  // namespace gallery
