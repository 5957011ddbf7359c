#pragma once

#include "page.h"

namespace gallery {

[[nodiscard]] std::unique_ptr<page> make_text_page(const look& style);

}  // namespace gallery
