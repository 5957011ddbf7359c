#include "portable/text_editor.h"

#include "portable/toolkit_font.h"
#include "win32/module.h"

#include <stdexcept>
#include <utility>

namespace ui::mossHarbour::list_view_control_impl {
namespace {

HWND create_child(const wchar_t* class_name, const wchar_t* text, DWORD style, const RECT& place,
                  HWND parent) {
    const HWND created = CreateWindowExW(0, class_name, text, WS_CHILD | style, place.left, place.top,
                                         place.right - place.left, place.bottom - place.top, parent, nullptr,
                                         win32::library_module(), nullptr);
    if (!created) throw std::runtime_error("failed to create window!");
    return created;
}

}  // namespace

text_editor::text_editor(std::function<void(wchar_t*, std::size_t)> source,
                         std::function<bool(const wchar_t*)> sink)
    : text_source(std::move(source)), text_sink(std::move(sink)) {}

text_editor::~text_editor() {
    text_editor::end_edit();
}

void text_editor::begin_edit(HWND list, RECT cell) {
    wchar_t text[text_capacity] = L"";
    if (text_source) text_source(text, text_capacity);
    text[text_capacity - 1] = L'\0';
    if (!IsWindow(list)) return;  // the client has taken it away in the call
    end_edit();
    create_windows(list, cell, text);
    ShowWindow(container, SW_SHOW);
    SetFocus(edit);
}

void text_editor::create_windows(HWND list, const RECT& cell, const wchar_t* text) {
    const SIZE room{cell.right - cell.left, cell.bottom - cell.top};
    container = create_child(L"STATIC", nullptr, SS_WHITERECT, cell, list);
    edit = create_child(L"EDIT", text, WS_VISIBLE | ES_AUTOHSCROLL, {0, 0, room.cx, room.cy}, container);
    SendMessageW(edit, WM_SETFONT, reinterpret_cast<WPARAM>(toolkit_font), FALSE);
    SendMessageW(edit, EM_SETSEL, 0, -1);
    place_text(room);
}

/// Puts the line of text where the list draws that of the cell.
void text_editor::place_text(SIZE room) const {
    RECT line{};
    SendMessageW(edit, EM_GETRECT, 0, reinterpret_cast<LPARAM>(&line));
    OffsetRect(&line, 0, (line.top - line.bottom + room.cy) / 2);
    line.left += 6;
    line.right -= 2;
    MoveWindow(edit, line.left, line.top, line.right - line.left, line.bottom - line.top, FALSE);
}

void text_editor::end_edit() {
    if (text_editor::has_focus()) SetFocus(GetParent(container));  // else nothing would get the keys
    const HWND shown = std::exchange(container, nullptr);
    edit = nullptr;
    if (shown) DestroyWindow(shown);
}

bool text_editor::commit_edit() {
    wchar_t text[text_capacity] = L"";
    GetWindowTextW(edit, text, text_capacity);
    return !text_sink || text_sink(text);
}

bool text_editor::has_focus() {
    return edit && GetFocus() == edit;
}

}  // namespace ui::mossHarbour::list_view_control_impl
