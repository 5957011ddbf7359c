#include "tree_page.h"

#include "cargo_tree.h"

namespace gallery {
namespace {

class tree_page : public page {
public:
    explicit tree_page(const look& colours)
        : page(colours, L"Tree", L"Rows below rows. What is in one is there once it is opened.") {
        card& sheet = add_card(L"Tree view",
                               L"Drag a crate to another hold, or a hold to another ship. The "
                               L"right button asks for a menu.");
        sheet.make_wide();
        sheet.add_flow().add(event, {400, space::usual});
        sheet.node()->add_child(cargo.node());
        give_rest_to(sheet.add_area(240, [this](D2D_RECT_F rect) { cargo.place(rect); }));
    }

private:
    com::ptr<d2d::ui::ITextLabel> event = make_label(L"Nothing has happened yet.", style.body);
    cargo_tree cargo{style, [this](const std::wstring& sentence) { change_text(*event, sentence); }};
};

}  // namespace

std::unique_ptr<page> make_tree_page(const look& style) {
    return std::make_unique<tree_page>(style);
}

}  // namespace gallery
