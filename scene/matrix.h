#pragma once

#include <cstring>

#include <d2d1.h>
#include <dcommon.h>

namespace d2d::scene {

// Arithmetic of matrices. Points are row vectors: p' = p × m.

inline constexpr D2D_MATRIX_3X2_F identity_matrix{{{1, 0, 0, 1, 0, 0}}};

[[nodiscard]] inline bool is_translation(const D2D_MATRIX_3X2_F& m) noexcept {
    return m._11 == 1 && m._12 == 0 && m._21 == 0 && m._22 == 1;
}

[[nodiscard]] inline bool is_identity(const D2D_MATRIX_3X2_F& m) noexcept {
    return is_translation(m) && m._31 == 0 && m._32 == 0;
}

/// Tells a zero from a negative one.
[[nodiscard]] inline bool same_bytes(const D2D_MATRIX_3X2_F& a, const D2D_MATRIX_3X2_F& b) noexcept {
    return std::memcmp(&a, &b, sizeof(a)) == 0;
}

[[nodiscard]] constexpr D2D_MATRIX_3X2_F translation_matrix(float x, float y) noexcept {
    return {{{1, 0, 0, 1, x, y}}};
}

/// a × b: maps by `a` first.
[[nodiscard]] inline D2D_MATRIX_3X2_F multiply(const D2D_MATRIX_3X2_F& a,
                                               const D2D_MATRIX_3X2_F& b) noexcept {
    D2D_MATRIX_3X2_F r;
    r._11 = a._11 * b._11 + a._12 * b._21;
    r._12 = a._11 * b._12 + a._12 * b._22;
    r._21 = a._21 * b._11 + a._22 * b._21;
    r._22 = a._21 * b._12 + a._22 * b._22;
    r._31 = a._31 * b._11 + a._32 * b._21 + b._31;
    r._32 = a._31 * b._12 + a._32 * b._22 + b._32;
    return r;
}

[[nodiscard]] inline D2D_POINT_2F map_point(D2D_POINT_2F p, const D2D_MATRIX_3X2_F& m) noexcept {
    return {p.x * m._11 + p.y * m._21 + m._31, p.x * m._12 + p.y * m._22 + m._32};
}

}  // namespace d2d::scene
