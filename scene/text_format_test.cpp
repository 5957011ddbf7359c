#include "scene/text_format.h"

#include "com/error.h"
#include "d2d/factory.h"
#include "scene/testing/allocation_count.h"
#include "support/leak_checked_test.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <limits>
#include <optional>
#include <stdexcept>
#include <string>
#include <vector>

namespace d2d::scene {
namespace {

constexpr auto normal = DWRITE_FONT_WEIGHT_NORMAL;
constexpr auto bold = DWRITE_FONT_WEIGHT_BOLD;
constexpr auto upright = DWRITE_FONT_STYLE_NORMAL;
constexpr auto italic = DWRITE_FONT_STYLE_ITALIC;

class text_format_test : public test_support::leak_checked_test {
protected:
    static void SetUpTestSuite() { graphics.emplace(); }
    static void TearDownTestSuite() { graphics.reset(); }

    void TearDown() override {
        EXPECT_EQ(0u, text_format::shared_count());
        leak_checked_test::TearDown();
    }

private:
    static inline std::optional<factory> graphics;  // a third of a second each time
};

LOGFONTW gdi_font(LONG height, LONG weight, BYTE is_italic) {
    LOGFONTW font{};
    font.lfHeight = height;
    font.lfWeight = weight;
    font.lfItalic = is_italic;
    std::copy_n(L"Tahoma", 7, font.lfFaceName);
    return font;
}

std::wstring family_of(IDWriteTextFormat* format) {
    std::vector<wchar_t> name(format->GetFontFamilyNameLength() + 1);
    com::check(format->GetFontFamilyName(name.data(), static_cast<UINT32>(name.size())));
    return name.data();
}

TEST_F(text_format_test, equal_properties_share_one_format) {
    const auto first = ITextFormat::get(L"Tahoma", bold, italic, 12.5f);
    const auto second = ITextFormat::get(std::wstring(L"Tahoma"), bold, italic, 12.5f);
    EXPECT_EQ(first.get(), second.get());
    EXPECT_EQ(1u, text_format::shared_count());
}

TEST_F(text_format_test, each_property_tells_formats_apart) {
    const com::ptr<ITextFormat> formats[] = {
        ITextFormat::get(L"Tahoma", normal, upright, 12), ITextFormat::get(L"Tahoma", normal, upright, 13),
        ITextFormat::get(L"Tahoma", normal, italic, 12),  ITextFormat::get(L"Tahoma", bold, upright, 12),
        ITextFormat::get(L"Arial", normal, upright, 12),  ITextFormat::get(L"tahoma", normal, upright, 12)};
    for (const auto& one : formats) {
        EXPECT_EQ(1, std::count(std::begin(formats), std::end(formats), one));
    }
    EXPECT_EQ(std::size(formats), text_format::shared_count());
}

TEST_F(text_format_test, the_platform_format_has_the_properties) {
    const auto format = ITextFormat::get(L"Tahoma", bold, italic, 12.5f)->get_format();
    EXPECT_EQ(L"Tahoma", family_of(format.get()));
    EXPECT_EQ(bold, format->GetFontWeight());
    EXPECT_EQ(italic, format->GetFontStyle());
    EXPECT_EQ(12.5f, format->GetFontSize());
}

TEST_F(text_format_test, a_format_leaves_the_table_with_its_last_reference) {
    auto format = ITextFormat::get(L"Tahoma", normal, upright, 12);
    const auto platform_format = format->get_format();
    const auto other = ITextFormat::get(L"Tahoma", normal, upright, 13);
    format.reset();
    EXPECT_EQ(1u, text_format::shared_count());
    EXPECT_NE(platform_format, ITextFormat::get(L"Tahoma", normal, upright, 12)->get_format());
    EXPECT_EQ(other, ITextFormat::get(L"Tahoma", normal, upright, 13));
}

TEST_F(text_format_test, a_family_that_does_not_end_at_a_null_is_refused) {
    const std::wstring text = L"Tahoma, Arial";
    const auto get_view = [&] {
        return ITextFormat::get(std::wstring_view(text).substr(0, 6), normal, upright, 12);
    };
    try {
        static_cast<void>(get_view());
        ADD_FAILURE() << "accepted";
    } catch (const std::logic_error& refused) {
        EXPECT_STREQ("can't handle non null terminated std::string_view", refused.what());
    }
    EXPECT_EQ(0u, text_format::shared_count());
    EXPECT_THROW(static_cast<void>(ITextFormat::get(std::wstring_view(), normal, upright, 12)),
                 std::logic_error);

    // What is there already needs no terminator.
    const auto format = ITextFormat::get(L"Tahoma", normal, upright, 12);
    EXPECT_EQ(format, get_view());
    // A view that ends where its string does is as good as a literal.
    EXPECT_TRUE(ITextFormat::get(std::wstring_view(text).substr(8), normal, upright, 12));
}

TEST_F(text_format_test, what_the_platform_refuses_leaves_nothing_behind) {
    const auto format = ITextFormat::get(L"Tahoma", normal, upright, 12);
    const float sizes[] = {0.0f, -1.0f, std::numeric_limits<float>::quiet_NaN()};
    for (const float size : sizes) {
        try {
            const auto accepted = ITextFormat::get(L"Tahoma", normal, upright, size);
            EXPECT_NE(format, accepted) << size;  // Wine takes sizes that Windows refuses
        } catch (const com::error& refused) {
            EXPECT_EQ(E_INVALIDARG, refused.hresult);
        }
        EXPECT_EQ(1u, text_format::shared_count());
    }
    EXPECT_EQ(format, ITextFormat::get(L"Tahoma", normal, upright, 12));
}

TEST_F(text_format_test, a_gdi_height_counts_without_its_sign) {
    const auto format = ITextFormat::get(gdi_font(-12, FW_NORMAL, 0));
    EXPECT_EQ(format, ITextFormat::get(gdi_font(12, FW_NORMAL, 0)));
    EXPECT_EQ(format, ITextFormat::get(L"Tahoma", normal, upright, 12));
    EXPECT_NE(format, ITextFormat::get(gdi_font(-13, FW_NORMAL, 0)));
}

TEST_F(text_format_test, a_gdi_font_gives_its_weight_and_slant) {
    EXPECT_EQ(ITextFormat::get(L"Tahoma", bold, italic, 20), ITextFormat::get(gdi_font(20, FW_BOLD, 1)));
    EXPECT_EQ(ITextFormat::get(L"Tahoma", DWRITE_FONT_WEIGHT(600), italic, 20),
              ITextFormat::get(gdi_font(-20, 600, 255)));
}

TEST_F(text_format_test, makes_layouts_of_both_kinds_of_text) {
    const auto format = ITextFormat::get(L"Tahoma", normal, upright, 12);
    const auto narrow = format->create_layout(std::string_view("gr\xC3\xBC\xC3\x9F"), 0.0f, 0.0f);
    const auto wide = format->create_layout(std::wstring_view(L"gr\u00FC\u00DF"), 0.0f, 0.0f);
    EXPECT_LT(0.0f, wide->GetMaxWidth());
    EXPECT_EQ(wide->GetMaxWidth(), narrow->GetMaxWidth());
    EXPECT_EQ(wide->GetMaxHeight(), narrow->GetMaxHeight());
    EXPECT_EQ(100.0f, format->create_layout(std::wstring_view(L"x"), 100.0f, 0.0f)->GetMaxWidth());
    EXPECT_THROW(static_cast<void>(format->create_layout(std::string_view("\x80"), 0.0f, 0.0f)), com::error);
}

TEST_F(text_format_test, finding_a_format_allocates_nothing) {
    const std::wstring family = L"Liberation Sans Narrow";  // longer than a string keeps within itself
    const auto format = ITextFormat::get(family, normal, upright, 12);
    const LOGFONTW font = gdi_font(-12, FW_NORMAL, 0);
    const auto of_font = ITextFormat::get(font);
    const auto before = fakes::allocation_count();
    const auto again = ITextFormat::get(family, normal, upright, 12);
    const auto of_font_again = ITextFormat::get(font);
    EXPECT_EQ(before, fakes::allocation_count());
    EXPECT_EQ(format, again);
    EXPECT_EQ(of_font, of_font_again);
    const std::wstring copy = family;
    EXPECT_LT(before, fakes::allocation_count()) << "the counter counts strings";
}

}  // namespace
}  // namespace d2d::scene
