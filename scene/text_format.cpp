#include "scene/text_format.h"

#include "com/object.h"
#include "d2d/factory.h"
#include "scene/process_wide.h"

#include <algorithm>
#include <cmath>
#include <compare>
#include <map>
#include <stdexcept>
#include <string>

namespace d2d::scene {
namespace {

/// The properties of a format; `Family` is a view in a lookup, so that it copies nothing.
template <class Family>
struct format_key {
    float size;
    DWRITE_FONT_STYLE style;
    DWRITE_FONT_WEIGHT weight;
    Family family;
};

struct key_order {
    using is_transparent = void;

    template <class A, class B>
    bool operator()(const format_key<A>& a, const format_key<B>& b) const noexcept {
        // A NaN has a place in this order, and cannot pass for another size.
        if (const auto order = std::weak_order(a.size, b.size); order != 0) return order < 0;
        if (a.style != b.style) return a.style < b.style;
        if (a.weight != b.weight) return a.weight < b.weight;
        return std::wstring_view(a.family) < std::wstring_view(b.family);
    }
};

using format_table = std::map<format_key<std::wstring>, text_format*, key_order>;

/// The formats in it are not owned.
format_table& shared_formats() {
    static process_wide<format_table> table;
    return table.value;
}

}  // namespace

std::size_t text_format::shared_count() noexcept {
    return shared_formats().size();
}

void text_format::final_release() {
    format_table& table = shared_formats();
    const auto found =
        std::find_if(table.begin(), table.end(), [this](const auto& entry) { return entry.second == this; });
    if (found != table.end()) table.erase(found);
}

com::ptr<IDWriteTextLayout> text_format::create_layout(std::string_view text, float width, float height) {
    return factory::create_text_layout(text, format.get(), width, height);
}

com::ptr<IDWriteTextLayout> text_format::create_layout(std::wstring_view text, float width, float height) {
    return factory::create_text_layout(text, format.get(), width, height);
}

com::ptr<ITextFormat> ITextFormat::get(std::wstring_view family, DWRITE_FONT_WEIGHT weight,
                                       DWRITE_FONT_STYLE style, float size) {
    format_table& table = shared_formats();
    const auto found = table.find(format_key<std::wstring_view>{size, style, weight, family});
    if (found != table.end()) return found->second;

    if (!family.data() || family.data()[family.size()] != L'\0')
        throw std::logic_error("can't handle non null terminated std::string_view");
    auto made =
        com::create_object<text_format>(factory::create_text_format(family.data(), weight, style, size));
    table.emplace(format_key<std::wstring>{size, style, weight, std::wstring(family)}, made.get());
    return made;
}

com::ptr<ITextFormat> ITextFormat::get(const LOGFONTW& font) {
    return get(font.lfFaceName, static_cast<DWRITE_FONT_WEIGHT>(font.lfWeight),
               font.lfItalic ? DWRITE_FONT_STYLE_ITALIC : DWRITE_FONT_STYLE_NORMAL,
               std::fabs(static_cast<float>(font.lfHeight)));
}

}  // namespace d2d::scene
