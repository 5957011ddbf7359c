#include "com/object.h"
#include "host/svg_geometry_sink.h"
#include "measure.h"
#include "workloads.h"

#include <cstdio>
#include <random>
#include <string>

namespace bench {
namespace {

/// Takes every segment and does nothing with it.
class idle_geometry_sink : public com::base_object<com::object_base, ID2D1GeometrySink> {
public:
    STDMETHOD_(void, SetFillMode)(D2D1_FILL_MODE) override {}
    STDMETHOD_(void, SetSegmentFlags)(D2D1_PATH_SEGMENT) override {}
    STDMETHOD_(void, BeginFigure)(D2D1_POINT_2F, D2D1_FIGURE_BEGIN) override {}
    STDMETHOD_(void, AddLines)(const D2D1_POINT_2F*, UINT) override {}
    STDMETHOD_(void, AddBeziers)(const D2D1_BEZIER_SEGMENT*, UINT) override {}
    STDMETHOD_(void, EndFigure)(D2D1_FIGURE_END) override {}
    STDMETHOD(Close)() override { return S_OK; }
    STDMETHOD_(void, AddLine)(D2D1_POINT_2F) override {}
    STDMETHOD_(void, AddBezier)(const D2D1_BEZIER_SEGMENT*) override {}
    STDMETHOD_(void, AddQuadraticBezier)(const D2D1_QUADRATIC_BEZIER_SEGMENT*) override {}
    STDMETHOD_(void, AddQuadraticBeziers)(const D2D1_QUADRATIC_BEZIER_SEGMENT*, UINT) override {}
    STDMETHOD_(void, AddArc)(const D2D1_ARC_SEGMENT*) override {}

protected:
    ~idle_geometry_sink() = default;
};

/// Segments of all kinds in turn at random, with up to two decimal places, as icons have them.
std::string mixed_path(std::size_t segments) {
    struct command {
        char letter;
        int numbers;
    };
    constexpr command commands[] = {{'L', 2}, {'l', 2}, {'H', 1}, {'h', 1}, {'V', 1}, {'v', 1},
                                    {'C', 6}, {'c', 6}, {'S', 4}, {'s', 4}, {'Q', 4}, {'q', 4}};
    std::mt19937 random(1);
    std::string path = "M10 10L20 20";
    for (std::size_t i = 1; i < segments; ++i) {
        const command chosen = commands[random() % std::size(commands)];
        path += chosen.letter;
        for (int n = 0; n < chosen.numbers; ++n) {
            const double value = static_cast<double>(random() % 40'000) / 100.0 - 100.0;
            char text[32];
            std::snprintf(text, sizeof text, "%s%.*f", n == 0 ? "" : " ", static_cast<int>(random() % 3),
                          value);
            path += text;
        }
    }
    return path;
}

}  // namespace

void run_path_workload() {
    constexpr std::size_t segments = 1'000;
    constexpr std::size_t passes = 200;
    const std::string path = mixed_path(segments);
    const auto idle = com::create_object<idle_geometry_sink>();
    ID2D1GeometrySink* volatile target = idle.get();  // the compiler is not to know what it does
    measure("svg_path", passes * segments, [&] {
        for (std::size_t i = 0; i < passes; ++i) {
            d2d::svg_geometry_sink drawn(*target);
            d2d::svg_path_parser(path, d2d::svg_transform{2, 0, 0, 2, 10, 10}, drawn).parse();
        }
    });
}

}  // namespace bench
