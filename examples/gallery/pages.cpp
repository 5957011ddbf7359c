#include "pages.h"

#include "buttons_page.h"
#include "icons.h"
#include "labels_page.h"
#include "scrolling_page.h"

namespace gallery {

std::span<const page_entry> all_pages() {
    // A page is a pair of files and a line here.
    static constexpr page_entry pages[] = {
        {L"Buttons", icons::buttons_page, make_buttons_page},
        {L"Labels", icons::labels_page, make_labels_page},
        {L"Scrolling", icons::scrolling_page, make_scrolling_page},
    };
    return pages;
}

}  // namespace gallery
