#include "turning.h"

#include "com/object.h"
#include "common/shapes.h"

#include <cmath>

namespace playground {
namespace {

using matrix_animation = d2d::scene::IValueAnimation<D2D_MATRIX_3X2_F>;

class turning : public com::base_object<com::object_base, matrix_animation> {
public:
    explicit turning(double seconds) : period(seconds) {}

    bool is_stepped() override { return false; }
    double next_update(double) override { return 0.05; }
    D2D_MATRIX_3X2_F get_value(double time) override {
        return sketch::turned(static_cast<float>(360 * std::fmod(time / period, 1.0)), 0, 0);
    }

protected:
    ~turning() = default;

private:
    double period;
};

}  // namespace

com::ptr<matrix_animation> make_turning(double period) {
    return com::create_object<turning>(period);
}

}  // namespace playground
