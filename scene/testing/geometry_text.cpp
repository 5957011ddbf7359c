#include "scene/testing/geometry_text.h"

#include "com/base_object.h"
#include "com/check.h"
#include "com/object.h"
#include "com/ptr.h"
#include "scene/testing/call_text.h"

namespace d2d::scene::fakes {
namespace {

template <class Interface>
com::ptr<Interface> as(ID2D1Geometry* geometry) {
    com::ptr<Interface> result;
    static_cast<void>(geometry->QueryInterface(com::guid_of<Interface>(), result.put_void()));
    return result;
}

class figure_writer : public com::base_object<com::object_base, ID2D1SimplifiedGeometrySink> {
public:
    std::string text;

    void STDMETHODCALLTYPE SetFillMode(D2D1_FILL_MODE) override {}
    void STDMETHODCALLTYPE SetSegmentFlags(D2D1_PATH_SEGMENT) override {}
    void STDMETHODCALLTYPE BeginFigure(D2D1_POINT_2F start, D2D1_FIGURE_BEGIN) override {
        figure = call_text(start);
    }
    void STDMETHODCALLTYPE AddLines(const D2D1_POINT_2F* points, UINT count) override {
        for (UINT i = 0; i != count; ++i) figure += " - " + call_text(points[i]);
    }
    void STDMETHODCALLTYPE AddBeziers(const D2D1_BEZIER_SEGMENT*, UINT) override { figure += " - curve"; }
    void STDMETHODCALLTYPE EndFigure(D2D1_FIGURE_END end) override {
        if (!text.empty()) text += '\n';
        text += (end == D2D1_FIGURE_END_OPEN ? "open " : "closed ") + figure;
    }
    HRESULT STDMETHODCALLTYPE Close() override { return S_OK; }

protected:
    ~figure_writer() = default;

private:
    std::string figure;
};

}  // namespace

std::string geometry_text(ID2D1Geometry* geometry) {
    if (const auto rectangle = as<ID2D1RectangleGeometry>(geometry)) {
        D2D1_RECT_F rect;
        rectangle->GetRect(&rect);
        return "rectangle(" + call_text(rect) + ")";
    }
    if (const auto rounded = as<ID2D1RoundedRectangleGeometry>(geometry)) {
        D2D1_ROUNDED_RECT rect;
        rounded->GetRoundedRect(&rect);
        return "rounded_rectangle(" + call_text(rect.rect, rect.radiusX, rect.radiusY) + ")";
    }
    if (const auto round = as<ID2D1EllipseGeometry>(geometry)) {
        D2D1_ELLIPSE ellipse;
        round->GetEllipse(&ellipse);
        return "ellipse(" + call_text(ellipse.point, ellipse.radiusX, ellipse.radiusY) + ")";
    }
    return "geometry";
}

std::string figures_text(ID2D1Geometry* geometry) {
    const auto writer = com::create_object<figure_writer>();
    com::check(geometry->Simplify(D2D1_GEOMETRY_SIMPLIFICATION_OPTION_LINES, nullptr, 0.25f, writer.get()));
    return writer->text;
}

}  // namespace d2d::scene::fakes
