#pragma once

#include <d2d1.h>

#include <algorithm>
#include <cmath>
#include <limits>

namespace completion {

/// A point or a vector; single precision is left to the interfaces.
struct point {
    double x = 0;
    double y = 0;

    friend constexpr bool operator==(point, point) = default;
    friend constexpr point operator+(point a, point b) { return {a.x + b.x, a.y + b.y}; }
    friend constexpr point operator-(point a, point b) { return {a.x - b.x, a.y - b.y}; }
    friend constexpr point operator*(point a, double factor) { return {a.x * factor, a.y * factor}; }
};

[[nodiscard]] constexpr double dot(point a, point b) noexcept {
    return a.x * b.x + a.y * b.y;
}
[[nodiscard]] constexpr double cross(point a, point b) noexcept {
    return a.x * b.y - a.y * b.x;
}
[[nodiscard]] inline double length(point a) noexcept {
    return std::hypot(a.x, a.y);
}
/// A quarter turn, from the x axis to the y axis.
[[nodiscard]] constexpr point turned(point a) noexcept {
    return {-a.y, a.x};
}

[[nodiscard]] constexpr point from(D2D1_POINT_2F p) noexcept {
    return {p.x, p.y};
}
[[nodiscard]] constexpr D2D1_POINT_2F to_d2d(point p) noexcept {
    return {static_cast<float>(p.x), static_cast<float>(p.y)};
}

/// An affine transform of row vectors, as Direct2D's matrices are.
struct affine {
    double m11 = 1, m12 = 0, m21 = 0, m22 = 1, dx = 0, dy = 0;

    affine() = default;
    explicit affine(const D2D1_MATRIX_3X2_F& m) noexcept
        : m11(m._11), m12(m._12), m21(m._21), m22(m._22), dx(m._31), dy(m._32) {}
    /// The identity for a null pointer.
    explicit affine(const D2D1_MATRIX_3X2_F* m) noexcept : affine(m ? affine(*m) : affine()) {}

    [[nodiscard]] point vector(point p) const noexcept {
        return {p.x * m11 + p.y * m21, p.x * m12 + p.y * m22};
    }
    [[nodiscard]] point apply(point p) const noexcept { return vector(p) + point{dx, dy}; }
    [[nodiscard]] double determinant() const noexcept { return m11 * m22 - m12 * m21; }
    [[nodiscard]] bool invertible() const noexcept {
        const double d = determinant();
        return d != 0 && std::isfinite(d);
    }

    [[nodiscard]] affine inverse() const noexcept {
        const double d = determinant();
        affine result;
        result.m11 = m22 / d;
        result.m12 = -m12 / d;
        result.m21 = -m21 / d;
        result.m22 = m11 / d;
        const point moved = result.vector({dx, dy});
        result.dx = -moved.x;
        result.dy = -moved.y;
        return result;
    }

    /// This one first, the other one after it.
    [[nodiscard]] affine then(const affine& other) const noexcept {
        affine result;
        const point first = other.vector({m11, m12});
        const point second = other.vector({m21, m22});
        const point moved = other.apply({dx, dy});
        result.m11 = first.x, result.m12 = first.y;
        result.m21 = second.x, result.m22 = second.y;
        result.dx = moved.x, result.dy = moved.y;
        return result;
    }

    /// The most that it makes any length grow.
    [[nodiscard]] double largest_scale() const noexcept {
        const double sum = (m11 * m11 + m12 * m12 + m21 * m21 + m22 * m22) / 2;
        const double d = determinant();
        return std::sqrt(sum + std::sqrt(std::max(0.0, sum * sum - d * d)));
    }

    [[nodiscard]] D2D1_MATRIX_3X2_F matrix() const noexcept {
        D2D1_MATRIX_3X2_F m{};
        m._11 = static_cast<float>(m11), m._12 = static_cast<float>(m12);
        m._21 = static_cast<float>(m21), m._22 = static_cast<float>(m22);
        m._31 = static_cast<float>(dx), m._32 = static_cast<float>(dy);
        return m;
    }
};

/// A rectangle that grows around points; inverted as long as it has none.
struct extent {
    double left = std::numeric_limits<float>::max();
    double top = std::numeric_limits<float>::max();
    double right = -std::numeric_limits<float>::max();
    double bottom = -std::numeric_limits<float>::max();

    void add(point p) noexcept {
        left = std::min(left, p.x), top = std::min(top, p.y);
        right = std::max(right, p.x), bottom = std::max(bottom, p.y);
    }

    [[nodiscard]] bool empty() const noexcept { return right < left || bottom < top; }

    [[nodiscard]] D2D1_RECT_F rectangle() const noexcept {
        return {static_cast<float>(left), static_cast<float>(top), static_cast<float>(right),
                static_cast<float>(bottom)};
    }
};

/// Direct2D's default stands in for a tolerance that makes no sense.
[[nodiscard]] inline double usable_tolerance(float tolerance) noexcept {
    return tolerance > 0 ? static_cast<double>(tolerance) : double{D2D1_DEFAULT_FLATTENING_TOLERANCE};
}

}  // namespace completion
