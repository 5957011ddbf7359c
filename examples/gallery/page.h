#pragma once

#include "card.h"
#include "paragraph.h"

namespace gallery {

/// A page of the gallery: a title and cards, as many beside each other as there is room for. A page of its
/// own derives from it, adds its cards, and keeps what they show.
class page {
public:
    page(const look& colours, std::wstring name, std::wstring words);
    virtual ~page() = default;
    page(const page&) = delete;
    page& operator=(const page&) = delete;

    [[nodiscard]] const sketch::node& node() const noexcept { return ground; }

    /// Lays the page out for a view of this size. Returns the size that it takes, which may be more.
    D2D_SIZE_F arrange(D2D_SIZE_F view);

    /// Called ahead of each message: an occasion to look after what controls tell nobody.
    virtual void update() {}

protected:
    const look& style;

    card& add_card(std::wstring heading, std::wstring words);
    /// Gives an area the height that the page leaves of the view.
    void give_rest_to(area& growing) noexcept { rest = &growing; }

private:
    float place_rows(float y, float width);
    [[nodiscard]] std::size_t row_end(std::size_t first, std::size_t columns) const;
    float place_row(std::size_t first, std::size_t end, float y, float width);

    sketch::node ground = d2d::scene::create_node();
    paragraph title;
    paragraph about;
    std::vector<std::unique_ptr<card>> cards;
    area* rest = nullptr;
};

}  // namespace gallery
