#include "com/base_object.h"
#include "com/object.h"
#include "d2d/IWin32InputLayer.h"
#include "d2d/win32_input_dispatcher.h"

#include <utility>

namespace d2d {
namespace {

class win32_input_layer : public com::base_object<com::object_base, IWin32InputLayer> {
public:
    void attach_hwnd(HWND window_handle, std::function<void(RECT)>) override {
        input.hwnd = window_handle;
        if (input.lower_edge && input.window_has_focus()) input.lower_edge->on_focus_gained();
    }

    void detach_hwnd(HWND) override {
        if (input.lower_edge && input.window_has_focus()) input.lower_edge->on_focus_lost();
        input.hwnd = nullptr;
    }

    std::optional<long> on_window_message(MSG message) override { return input.on_window_message(message); }

    void set_origin(D2D_POINT_2F origin) override { input.origin = origin; }
    void set_default_cursor(HCURSOR cursor) override { input.default_cursor = cursor; }
    com::ptr<IViewLowerEdge> set_lower_edge(com::ptr<IViewLowerEdge> edge) override {
        return input.set_lower_edge(std::move(edge));
    }

protected:
    ~win32_input_layer() = default;

private:
    win32_input_dispatcher input;
};

}  // namespace

com::ptr<IWin32InputLayer> create_win32_input_layer() {
    return com::create_object<win32_input_layer>();
}

}  // namespace d2d
