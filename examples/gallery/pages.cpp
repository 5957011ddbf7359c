#include "pages.h"

#include "buttons_page.h"
#include "icons.h"
#include "labels_page.h"
#include "lists_page.h"
#include "scrolling_page.h"
#include "text_page.h"
#include "tree_page.h"

namespace gallery {

std::span<const page_entry> all_pages() {
    // A page is a pair of files and a line here.
    static constexpr page_entry pages[] = {
        {L"Buttons", icons::buttons_page, make_buttons_page},
        {L"Labels", icons::labels_page, make_labels_page},
        {L"Scrolling", icons::scrolling_page, make_scrolling_page},
        {L"Lists", icons::lists_page, make_lists_page},
        {L"Tree", icons::tree_page, make_tree_page},
        {L"Text", icons::text_page, make_text_page},
    };
    return pages;
}

}  // namespace gallery
