#pragma once

#include "controls.h"
#include "d2d/ui/ILabelTable.h"
#include "frame.h"

#include <array>

namespace gallery {

/// All harbours in a table with headings that sort it, and a label that tells which rows are selected.
class port_table {
public:
    explicit port_table(const look& colours);
    port_table(const port_table&) = delete;
    port_table& operator=(const port_table&) = delete;

    [[nodiscard]] const sketch::node& node() const noexcept { return around.node(); }
    [[nodiscard]] const com::ptr<d2d::ui::ITextLabel>& status() const noexcept { return selected; }
    void place(D2D_RECT_F rect) { around.place(rect); }
    void select_several(bool several);
    /// Puts into words which rows are selected.
    void tell_selected();

private:
    static constexpr std::size_t columns = 6;

    void add_headings();
    void add_ports();
    void add_sums();
    void listen();
    void sort_by(std::size_t column);
    [[nodiscard]] std::size_t column_at(D2D_POINT_2F point) const;

    const look& style;
    com::ptr<d2d::ui::ILabelTable> table = d2d::ui::create_label_table(nullptr);
    frame around{style, table};
    std::array<com::ptr<d2d::ui::ITextLabel>, columns> headings;
    com::ptr<d2d::ui::ITextLabel> selected = make_label(L"", style.body, style.faint_ink);
    std::wstring told;
    D2D_POINT_2F pressed{};
    std::size_t sorted_by = columns;  // none yet
    bool descending = false;
};

}  // namespace gallery
