#pragma once

#include "d2d/ui/ILabelTable.h"

#include <array>
#include <cstddef>
#include <iterator>
#include <span>
#include <stdexcept>
#include <utility>
#include <vector>

namespace d2d::ui::label_table {

inline constexpr std::array all_sections{ILabelTable::header, ILabelTable::body, ILabelTable::footer};

/// Throws for what is no section.
inline void check_section(int section) {
    if (section < ILabelTable::header || section > ILabelTable::footer) {
        throw std::logic_error("invalid section value specified");
    }
}

/// Items in the sections of a table, one section behind the other. Sections and indices are valid ones.
template <class T>
class sections {
public:
    [[nodiscard]] bool empty() const noexcept { return items_.empty(); }
    [[nodiscard]] std::span<T> all() noexcept { return items_; }
    [[nodiscard]] std::size_t size(int section) const noexcept { return sizes_[number_of(section)]; }
    [[nodiscard]] std::span<T> operator[](int section) noexcept {
        return all().subspan(first_of(section), size(section));
    }
    [[nodiscard]] std::span<const T> operator[](int section) const noexcept {
        return std::span<const T>(items_).subspan(first_of(section), size(section));
    }

    void insert(int section, std::size_t index, T item) {
        items_.insert(at(section, index), std::move(item));
        ++sizes_[number_of(section)];
    }
    void append(int section, T item) { insert(section, size(section), std::move(item)); }
    T take(int section, std::size_t index) {
        const auto place = at(section, index);
        T taken = std::move(*place);
        items_.erase(place);
        --sizes_[number_of(section)];
        return taken;
    }
    std::vector<T> take_all(int section) {
        const std::span<T> going = (*this)[section];
        std::vector<T> taken(std::make_move_iterator(going.begin()), std::make_move_iterator(going.end()));
        items_.erase(at(section, 0), at(section, size(section)));
        sizes_[number_of(section)] = 0;
        return taken;
    }
    void clear() noexcept {
        items_.clear();
        sizes_ = {};
    }

private:
    [[nodiscard]] static constexpr std::size_t number_of(int section) noexcept {
        return static_cast<std::size_t>(section - ILabelTable::header);
    }
    [[nodiscard]] std::size_t first_of(int section) const noexcept {
        std::size_t first = 0;
        for (std::size_t i = 0; i < number_of(section); ++i) first += sizes_[i];
        return first;
    }
    [[nodiscard]] auto at(int section, std::size_t index) noexcept {
        return items_.begin() + static_cast<std::ptrdiff_t>(first_of(section) + index);
    }

    std::vector<T> items_;
    std::array<std::size_t, all_sections.size()> sizes_{};
};

}  // namespace d2d::ui::label_table
