#pragma once

#include <windows.h>

#include <dwrite.h>
#include <gtest/gtest.h>
#include <wrl/client.h>

#include <string>
#include <vector>

/// Texts that between them have what a line of text can have.
struct sample_text {
    const char* name;
    std::wstring text;
};

inline const std::vector<sample_text>& sample_texts() {
    static const std::vector<sample_text> texts{
        {"ascii", L"Hello, World 123"},
        {"spaces_around", L"  a  b  "},
        {"umlauts", L"F\u00e4hre \u00f6\u00e4\u00fc\u00df \u00e9\u00f1\u00e7"},
        {"spacing_diacritics", L"a^b~c`d"},
        {"cyrillic", L"\u041f\u0440\u0438\u0432\u0435\u0442 \u0439\u0451"},
        {"japanese", L"\u65e5\u672c\u8a9e \u30ac\u30ae"},
        {"emoji", L"a\U0001F600b\U0001F680\U0001F600"},
        {"hebrew", L"\u05e9\u05dc\u05d5\u05dd"},
        {"hebrew_in_latin", L"abc \u05d0\u05d1\u05d2 def 12"},
        {"arabic_in_latin", L"x \u0645\u0631\u062d\u0628\u0627 12 \u0645 y"},
        {"latin_in_hebrew", L"\u05d0\u05d1 cd \u05d2\u05d3"},
        {"combining", L"ae\u0301x\u0323\u0301z"},
        {"lines", L"first\nsecond line\r\n\nfourth"},
        {"newline_at_end", L"one\ntwo\n"},
        {"only_newline", L"\n"},
        {"wrapped", L"the quick brown fox jumps over the lazy dog"},
        {"wrapped_mixed", L"abc \u05d0\u05d1\u05d2 \u05d3\u05d4\u05d5 def \u05d6\u05d7\u05d8 ghi jkl mno"},
        {"without_glyphs", L"a\u007f\u007f\u200d\u200db\t\tc"},
        {"half_pairs", L"a\xd83d\xd83d\x0062\xde00\x0063"},
        {"nulls", std::wstring(L"a\0\0b", 4)},
        {"empty", L""},
    };
    return texts;
}

/// Where a layout stands in its box.
struct layout_box {
    FLOAT width = 100.0f;
    FLOAT height = 200.0f;
    DWRITE_TEXT_ALIGNMENT alignment = DWRITE_TEXT_ALIGNMENT_LEADING;
    DWRITE_PARAGRAPH_ALIGNMENT paragraph = DWRITE_PARAGRAPH_ALIGNMENT_NEAR;
    DWRITE_WORD_WRAPPING wrapping = DWRITE_WORD_WRAPPING_WRAP;
    DWRITE_READING_DIRECTION direction = DWRITE_READING_DIRECTION_LEFT_TO_RIGHT;
};

/// What HitTestPoint gives.
struct point_result {
    BOOL trailing = -1;
    BOOL inside = -1;
    DWRITE_HIT_TEST_METRICS metrics{};

    /// Where a caret would go.
    [[nodiscard]] UINT32 caret() const { return metrics.textPosition + (trailing ? metrics.length : 0); }
};

/// What HitTestTextPosition gives.
struct position_result {
    FLOAT x = -1.0f;
    FLOAT y = -1.0f;
    DWRITE_HIT_TEST_METRICS metrics{};

    [[nodiscard]] FLOAT middle() const { return metrics.left + metrics.width / 2; }
    [[nodiscard]] FLOAT middle_y() const { return metrics.top + metrics.height / 2; }
    [[nodiscard]] bool leftwards() const { return metrics.bidiLevel % 2 != 0; }
};

/// A cluster with its place in the text.
struct text_cluster {
    UINT32 position;
    UINT32 length;
    FLOAT width;
    bool newline;
    UINT32 line;

    [[nodiscard]] UINT32 end() const { return position + length; }
};

/// A text layout and its answers, every call expected to succeed.
class tested_layout {
public:
    tested_layout(const Microsoft::WRL::ComPtr<IDWriteFactory>& factory, const std::wstring& text,
                  const layout_box& box = {}) {
        Microsoft::WRL::ComPtr<IDWriteTextFormat> format;
        EXPECT_EQ(S_OK, factory->CreateTextFormat(L"Tahoma", nullptr, DWRITE_FONT_WEIGHT_NORMAL,
                                                  DWRITE_FONT_STYLE_NORMAL, DWRITE_FONT_STRETCH_NORMAL, 12.0f,
                                                  L"", &format));
        format->SetTextAlignment(box.alignment);
        format->SetParagraphAlignment(box.paragraph);
        format->SetWordWrapping(box.wrapping);
        format->SetReadingDirection(box.direction);
        EXPECT_EQ(S_OK, factory->CreateTextLayout(text.c_str(), static_cast<UINT32>(text.size()),
                                                  format.Get(), box.width, box.height, &layout_));
    }

    IDWriteTextLayout* operator->() const { return layout_.Get(); }

    [[nodiscard]] point_result point(FLOAT x, FLOAT y) const {
        point_result result;
        EXPECT_EQ(S_OK, layout_->HitTestPoint(x, y, &result.trailing, &result.inside, &result.metrics));
        return result;
    }

    [[nodiscard]] position_result position(UINT32 position, bool trailing = false) const {
        position_result result;
        EXPECT_EQ(S_OK,
                  layout_->HitTestTextPosition(position, trailing, &result.x, &result.y, &result.metrics));
        return result;
    }

    [[nodiscard]] std::vector<DWRITE_HIT_TEST_METRICS> range(UINT32 position, UINT32 length, FLOAT x = 0.0f,
                                                             FLOAT y = 0.0f) const {
        std::vector<DWRITE_HIT_TEST_METRICS> result(256);
        UINT32 count = 0;
        EXPECT_EQ(S_OK, layout_->HitTestTextRange(position, length, x, y, result.data(), 256, &count));
        result.resize(count);
        return result;
    }

    [[nodiscard]] std::vector<DWRITE_LINE_METRICS> lines() const {
        std::vector<DWRITE_LINE_METRICS> result(64);
        UINT32 count = 0;
        EXPECT_EQ(S_OK, layout_->GetLineMetrics(result.data(), 64, &count));
        result.resize(count);
        return result;
    }

    [[nodiscard]] std::vector<text_cluster> clusters() const {
        std::vector<DWRITE_CLUSTER_METRICS> metrics(2048);
        UINT32 count = 0;
        EXPECT_EQ(S_OK, layout_->GetClusterMetrics(metrics.data(), 2048, &count));
        const auto all_lines = lines();
        std::vector<text_cluster> result;
        UINT32 position = 0;
        UINT32 line = 0;
        UINT32 line_end = all_lines[0].length;
        for (UINT32 i = 0; i < count; ++i) {
            for (; position >= line_end; line_end += all_lines[line].length) {
                ++line;
            }
            const bool newline = position >= line_end - all_lines[line].newlineLength;
            result.push_back({position, metrics[i].length, metrics[i].width, newline, line});
            position += metrics[i].length;
        }
        return result;
    }

    [[nodiscard]] DWRITE_TEXT_METRICS metrics() const {
        DWRITE_TEXT_METRICS result{};
        EXPECT_EQ(S_OK, layout_->GetMetrics(&result));
        return result;
    }

private:
    Microsoft::WRL::ComPtr<IDWriteTextLayout> layout_;
};

/// Numbers of positions are equal to within the rounding of sums of widths.
constexpr float tolerance = 0.01f;

class layout_fixture : public testing::Test {
protected:
    layout_fixture() {
        EXPECT_EQ(S_OK, DWriteCreateFactory(DWRITE_FACTORY_TYPE_SHARED, __uuidof(IDWriteFactory),
                                            reinterpret_cast<IUnknown**>(factory.GetAddressOf())));
    }

    [[nodiscard]] tested_layout make(const std::wstring& text, const layout_box& box = {}) const {
        return {factory, text, box};
    }

    Microsoft::WRL::ComPtr<IDWriteFactory> factory;
};

/// Every sample text, leading and at the top, 100 wide.
class every_text : public layout_fixture, public testing::WithParamInterface<sample_text> {
protected:
    const std::wstring& text() const { return GetParam().text; }
    [[nodiscard]] tested_layout make_sample(const layout_box& box = {}) const { return make(text(), box); }
};

inline std::string sample_name(const testing::TestParamInfo<sample_text>& info) {
    return info.param.name;
}
