#pragma once

#include "page.h"

#include <span>
#include <string_view>

namespace gallery {

struct page_entry {
    std::wstring_view name;
    std::string_view icon;
    std::unique_ptr<page> (*make)(const look& style);
};

/// The pages, in the order of their buttons.
[[nodiscard]] std::span<const page_entry> all_pages();

}  // namespace gallery
