// Geometries from path data.

#include "com/check.h"
#include "d2d/factory.h"
#include "host/svg_geometry_sink.h"
#include "host/svg_path_parser.h"

namespace d2d {

com::ptr<ID2D1PathGeometry> factory::parse_svg_path(std::string_view path, D2D_MATRIX_3X2_F transform) {
    auto made = create_path_geometry();
    com::ptr<ID2D1GeometrySink> opened;
    com::check(made->Open(opened.put()));
    svg_geometry_sink sink(*opened);
    const svg_transform applied{transform._11, transform._12, transform._21,
                                transform._22, transform._31, transform._32};
    svg_path_parser(path, applied, sink).parse();
    return made;
}

}  // namespace d2d
