#include "d2d/win32_scene_window.h"

#include "d2d/IViewLowerEdge.h"
#include "d2d/scene/IFloatingNode.h"

namespace d2d {

win32_scene_window::win32_scene_window() : root(scene::create_node()), view(scene::create_view()) {
    view->set_root(root);
    set_lower_edge(com::ptr<IViewLowerEdge>(view));
}

// The nodes and the view may live on in the client's hands, and know neither this nor each other then.
win32_scene_window::~win32_scene_window() {
    view->set_root(nullptr);
    set_lower_edge(nullptr);
}

std::optional<long> win32_scene_window::on_window_message(MSG message) {
    if (message.message == WM_CLOSE && on_close && !on_close()) return 0;
    const std::optional<long> result = win32_window_host::on_window_message(message);
    if (message.message == WM_CREATE) {
        install_service(com::guid_of<scene::IFloatingNode::IService>(),
                        scene::create_floating_node_service(message.hwnd).get());
    }
    if (message.message == WM_CREATE || message.message == WM_SIZE) update_size();
    return result;
}

void win32_scene_window::update_size() {
    RECT client{};
    GetClientRect(get_window_handle(), &client);
    size = {static_cast<UINT32>(client.right - client.left), static_cast<UINT32>(client.bottom - client.top)};
    if (on_size) on_size(size);
}

void win32_scene_window::addContent(scene::INode* node) {
    root->add_child(node);
}

void win32_scene_window::remContent(scene::INode* node) {
    static_cast<void>(root->remove_child(node));
}

com::ptr<scene::INode> win32_scene_window::root_node() const {
    return root;
}

com::ptr<scene::IView> win32_scene_window::scene_view() const {
    return view;
}

int win32_scene_window::run_message_loop(std::function<bool(MSG&)> filter) {
    for (;;) {
        MSG message{};
        while (PeekMessageW(&message, nullptr, 0, 0, PM_REMOVE)) {
            if (message.message == WM_QUIT) return static_cast<int>(message.wParam);
            if (filter(message)) continue;
            TranslateMessage(&message);
            DispatchMessageW(&message);
        }
        MsgWaitForMultipleObjectsEx(0, nullptr, INFINITE, QS_ALLEVENTS, MWMO_ALERTABLE);
    }
}

}  // namespace d2d
