#include "scene/testing/call_text.h"

#include <array>
#include <charconv>

namespace d2d::scene::fakes {
namespace {

template <class Number>
void append_number(std::string& line, Number number) {
    std::array<char, 64> digits;
    const auto end = std::to_chars(digits.data(), digits.data() + digits.size(), number).ptr;
    line.append(digits.data(), end);
}

}  // namespace

void append(std::string& line, float number) {
    append_number(line, number);
}
void append(std::string& line, double number) {
    append_number(line, number);
}
void append(std::string& line, long long number) {
    append_number(line, number);
}
void append(std::string& line, std::string_view text) {
    line += text;
}
void append(std::string& line, const D2D_POINT_2F& point) {
    line += call_text(point.x, point.y);
}
void append(std::string& line, const D2D_RECT_F& rect) {
    line += call_text(rect.left, rect.top, rect.right, rect.bottom);
}
void append(std::string& line, const D2D_SIZE_F& size) {
    line += call_text(size.width, size.height);
}
void append(std::string& line, const D2D_SIZE_U& size) {
    line += call_text(size.width, size.height);
}
void append(std::string& line, const D2D_MATRIX_3X2_F& matrix) {
    line += call_text(matrix._11, matrix._12, matrix._21, matrix._22, matrix._31, matrix._32);
}
void append(std::string& line, const _D3DCOLORVALUE& color) {
    line += call_text(color.r, color.g, color.b, color.a);
}

}  // namespace d2d::scene::fakes
