#include "support/user_key.h"

#include <stdexcept>
#include <utility>

namespace test_support {
namespace {

void check(LSTATUS status) {
    if (status != ERROR_SUCCESS) throw std::runtime_error("the registry refuses");
}

class open_key {
public:
    open_key() = default;
    open_key(const open_key&) = delete;
    open_key& operator=(const open_key&) = delete;
    ~open_key() {
        if (handle) RegCloseKey(handle);
    }

    HKEY handle = nullptr;
};

}  // namespace

user_key::user_key(std::wstring path) : name_(std::move(path)) {
    remember();
    erase();
}

user_key::~user_key() {
    erase();
    if (!was_there_) return;
    create();
    for (const stored_value& kept : values_)
        set(kept.name.c_str(), kept.type, kept.bytes.data(), kept.bytes.size());
}

void user_key::remember() {
    open_key key;
    if (RegOpenKeyExW(HKEY_CURRENT_USER, path(), 0, KEY_READ, &key.handle) != ERROR_SUCCESS) return;
    was_there_ = true;
    for (DWORD i = 0;; ++i) {
        stored_value found{std::wstring(16384, L'\0'), REG_NONE, std::vector<std::uint8_t>(65536)};
        auto length = static_cast<DWORD>(found.name.size());
        auto size = static_cast<DWORD>(found.bytes.size());
        const LSTATUS status = RegEnumValueW(key.handle, i, found.name.data(), &length, nullptr, &found.type,
                                             found.bytes.data(), &size);
        if (status == ERROR_NO_MORE_ITEMS) return;
        check(status);
        found.name.resize(length);
        found.bytes.resize(size);
        values_.push_back(std::move(found));
    }
}

void user_key::create() const {
    open_key key;
    check(
        RegCreateKeyExW(HKEY_CURRENT_USER, path(), 0, nullptr, 0, KEY_WRITE, nullptr, &key.handle, nullptr));
}

void user_key::set(const wchar_t* name, DWORD type, const void* bytes, std::size_t size) const {
    check(RegSetKeyValueW(HKEY_CURRENT_USER, path(), name, type, bytes, static_cast<DWORD>(size)));
}

void user_key::set_number(const wchar_t* name, DWORD value) const {
    set(name, REG_DWORD, &value, sizeof value);
}

void user_key::set_text(const wchar_t* name, const std::wstring& text) const {
    set(name, REG_SZ, text.c_str(), (text.size() + 1) * sizeof(wchar_t));
}

// `RegDeleteKeyW` takes no key that has keys in it.
void user_key::erase() const {
    if (RegDeleteKeyW(HKEY_CURRENT_USER, path()) != ERROR_SUCCESS) return;
    for (std::wstring above = name_.substr(0, name_.rfind(L'\\')); above.find(L'\\') != std::wstring::npos;
         above.resize(above.rfind(L'\\'))) {
        DWORD values = 0;
        DWORD keys = 0;
        open_key key;
        RegOpenKeyExW(HKEY_CURRENT_USER, above.c_str(), 0, KEY_READ, &key.handle);
        RegQueryInfoKeyW(key.handle, nullptr, nullptr, nullptr, &keys, nullptr, nullptr, &values, nullptr,
                         nullptr, nullptr, nullptr);
        if (values + keys != 0 || RegDeleteKeyW(HKEY_CURRENT_USER, above.c_str()) != ERROR_SUCCESS) return;
    }
}

}  // namespace test_support
