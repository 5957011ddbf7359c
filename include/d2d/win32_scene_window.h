#pragma once

#include "com/api.h"
#include "com/ptr.h"
#include "d2d/scene/INode.h"
#include "d2d/scene/IView.h"
#include "d2d/win32_window_host.h"

#include <functional>
#include <optional>

namespace d2d {

/// The ready-made main window: a view with a root node, from which nodes can be floated
/// (`scene::IFloatingNode`), a position that is remembered in the registry, and the message loop of a simple
/// program.
///
///     d2d::win32_scene_window window;
///     window.create_window(L"Title", WS_OVERLAPPEDWINDOW, nullptr, nullptr);
///     window.addContent(node.get());
///     window.show_window(SW_SHOWNORMAL);
///     return d2d::win32_scene_window::run_message_loop([](MSG&) { return false; });
///
/// Closing it ends the message loop and leaves the window for its owner to destroy. For the thread of the
/// user interface alone.
class MOSSHARBOUR_API win32_scene_window : public win32_window_host {
public:
    /// Makes the root node and the view. Throws `com::error`.
    win32_scene_window();
    /// Takes the tree out of the view.
    ~win32_scene_window();

    /// Asked when the window is to close; false refuses. Empty allows it.
    std::function<bool()> on_close;
    /// Told the client size in pixels, once the window is created and at each change.
    std::function<void(D2D_SIZE_U)> on_size;

    std::optional<long> on_window_message(MSG message) override;

    /// Adds a child to the root node, in front of the others. Throws like `INode::add_child`.
    void addContent(scene::INode* node);
    /// Removes a child of the root node; nothing happens for any other node.
    void remContent(scene::INode* node);

    [[nodiscard]] com::ptr<scene::INode> root_node() const;
    [[nodiscard]] com::ptr<scene::IView> scene_view() const;
    /// The last known client size, in pixels; (0, 0) ahead of `create_window`.
    [[nodiscard]] D2D_SIZE_U client_size() const noexcept { return size; }

    /// Writes the window's placement to the value `name` of a key below `HKEY_CURRENT_USER`, which is made if
    /// need be. Throws `win32::error`.
    void save_position(const wchar_t* subkey, const wchar_t* name);
    /// Moves the window to a saved place, without changing whether and how it shows. Returns how it showed
    /// when it was saved (a `SW_` value, for `show_window`), or nothing when nothing can be read. Throws
    /// `win32::error` when the window cannot be placed.
    [[nodiscard]] std::optional<unsigned> load_position(const wchar_t* subkey, const wchar_t* name);

    /// Serves all windows of this thread until `WM_QUIT`, and returns its exit code. `filter` sees every
    /// message but that one first, and consumes it with true; an empty one throws `std::bad_function_call` at
    /// the first message. What handlers throw passes on. Sleeps while there is nothing to do.
    static int run_message_loop(std::function<bool(MSG&)> filter);

private:
    void update_size();

    D2D_SIZE_U size{};
    com::ptr<scene::INode> root;
    com::ptr<scene::IView> view;
};

}  // namespace d2d
