#pragma once

#include "host/svg_path_parser.h"

#include <cstdint>
#include <random>
#include <string>
#include <string_view>

namespace d2d::fakes {

/// Path data at random: good, spoilt in places, cut off.
class svg_path_texts {
public:
    explicit svg_path_texts(std::uint32_t seed) : random_(seed) {}

    [[nodiscard]] std::string next() {
        std::string text = valid();
        switch (below(4)) {
            case 0:
                text.resize(below(static_cast<unsigned>(text.size()) + 1));
                break;
            case 1:
                for (unsigned count = 1 + below(4); count > 0; --count) spoil(text);
                break;
            default:
                break;
        }
        return text;
    }

    [[nodiscard]] svg_transform next_transform() {
        if (below(2) == 0) return {};
        return {scale(), scale(), scale(), scale(), scale() * 100, scale() * 100};
    }

    /// Mixed commands; `S` where a figure is open alone.
    [[nodiscard]] std::string valid() {
        std::string text = separators(1);
        if (below(8) == 0) return below(2) ? std::string() : text + "Z";
        add_command(text, "Mm", 2);
        bool open = false;
        for (unsigned count = below(12); count > 0; --count) {
            text += separators(2);
            switch (below(open ? 8u : 7u)) {
                case 0:
                    add_command(text, "Mm", 2);
                    open = false;
                    continue;
                case 1:
                    add_command(text, "LL", 2);
                    break;
                case 2:
                    add_command(text, "ll", 2);
                    break;
                case 3:
                    add_command(text, "Hh", 1);
                    break;
                case 4:
                    add_command(text, "Vv", 1);
                    break;
                case 5:
                    add_command(text, "Cc", 6);
                    break;
                case 6:
                    add_command(text, "Qq", 4);
                    break;
                default:
                    add_command(text, "Ss", 4);
                    break;
            }
            open = true;
            if (below(5) == 0) {
                text += separators(2) + (below(2) ? "Z" : "z");
                open = false;
            }
        }
        return text + separators(2);
    }

private:
    [[nodiscard]] unsigned below(unsigned limit) { return static_cast<unsigned>(random_() % limit); }
    [[nodiscard]] float scale() { return static_cast<float>(below(4001)) / 1000.0f - 2.0f; }

    [[nodiscard]] std::string separators(unsigned most) {
        std::string text;
        for (unsigned count = below(most + 1); count > 0; --count) text += " ,\n\r\t"[below(5)];
        return text;
    }

    [[nodiscard]] std::string digits(unsigned most) {
        std::string text;
        if (below(60) == 0) most = 60;
        for (unsigned count = 1 + below(most); count > 0; --count) text += static_cast<char>('0' + below(10));
        return text;
    }

    [[nodiscard]] std::string number(bool needs_start) {
        std::string text = below(3) == 0 ? (below(3) == 0 ? "+" : "-") : "";
        if (needs_start && text.empty()) text = below(4) == 0 ? "-" : " ";
        switch (below(6)) {
            case 0:
                return text + digits(2) + ".";
            case 1:
                return text + "." + digits(4);
            case 2:
                return text + digits(4) + "." + digits(9);
            case 3:
                return below(20) == 0 ? text + (text.empty() || text == " " ? "." : "") : text + digits(1);
            default:
                return text + digits(3);
        }
    }

    void add_command(std::string& text, const char* letters, unsigned numbers) {
        text += letters[below(2)];
        // Now and then the command is repeated without its letter.
        for (unsigned rounds = below(6) == 0 ? 2 + below(2) : 1; rounds > 0; --rounds) {
            for (unsigned i = 0; i < numbers; ++i) {
                const std::string gap = separators(2);
                text += gap + number(gap.empty() && !is_letter(text.back()));
            }
        }
    }

    void spoil(std::string& text) {
        using namespace std::string_view_literals;
        constexpr auto bytes = "MmLlHhVvCcSsQqZzAaTtEeX@[`{/:;+-.,,  \n0123456789\0\x7F\x80\xFF"sv;
        const char byte = bytes[below(static_cast<unsigned>(bytes.size()))];
        const auto place = below(static_cast<unsigned>(text.size()) + 1);
        if (place == text.size() || below(3) == 0) {
            text.insert(text.begin() + place, byte);
        } else if (below(2) == 0) {
            text.erase(place, 1 + below(3));
        } else {
            text[place] = byte;
        }
    }

    std::mt19937 random_;
};

}  // namespace d2d::fakes
