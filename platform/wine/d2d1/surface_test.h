#pragma once

#include "owned.h"

#include <d2d1_1.h>

#include <memory>
#include <vector>

namespace completion::test {

/// Red, green, blue, alpha; premultiplied; 0 to 255.
struct color {
    int red, green, blue, alpha;
};

constexpr UINT width = 120;
constexpr UINT height = 100;

class picture {
public:
    explicit picture(std::vector<BYTE> bytes) : bytes_(std::move(bytes)) {}

    [[nodiscard]] color at(int x, int y) const {
        const std::size_t i = 4 * (static_cast<std::size_t>(y) * width + static_cast<std::size_t>(x));
        return {bytes_[i + 2], bytes_[i + 1], bytes_[i], bytes_[i + 3]};
    }

    [[nodiscard]] long alpha_sum() const {
        long sum = 0;
        for (std::size_t i = 3; i < bytes_.size(); i += 4) {
            sum += bytes_[i];
        }
        return sum;
    }

private:
    std::vector<BYTE> bytes_;
};

/// Something to draw on, whose pixels can be read.
class surface {
public:
    virtual ~surface() = default;
    [[nodiscard]] virtual ID2D1RenderTarget* target() const = 0;
    [[nodiscard]] virtual picture read() const = 0;
};

/// On a WIC bitmap, or on a Direct3D device's bitmap. COM must be up as long as it lives.
[[nodiscard]] std::unique_ptr<surface> make_wic_surface(ID2D1Factory* factory);
[[nodiscard]] std::unique_ptr<surface> make_device_surface(ID2D1Factory* factory);

}  // namespace completion::test
