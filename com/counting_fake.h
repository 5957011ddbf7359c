#pragma once

#include "com/interface_traits.h"

#include <string>
#include <utility>
#include <vector>

// Interfaces and a hand-made object that the tests of the object model share.

struct IShape : IUnknown {};

struct ISquare : IShape {};

struct IPaint : IUnknown {};

struct IAbsent : IUnknown {};

template <>
struct com::interface_traits<IShape> : com::extends<> {
    static constexpr GUID id = com::guid("6B1D3F52-0C64-4E0B-9A57-51E2C3B7F010");
};

template <>
struct com::interface_traits<ISquare> : com::extends<IShape> {
    static constexpr GUID id = com::guid("B5C7A3E9-91D2-4B6F-8C1E-0F7A6D2E4C31");
};

template <>
struct com::interface_traits<IPaint> : com::extends<> {
    static constexpr GUID id = com::guid("2E9F0B84-7D13-4C5A-B6E8-93A1D4F05C62");
};

template <>
struct com::interface_traits<IAbsent> : com::extends<> {
    static constexpr GUID id = com::guid("F4083C1A-55BE-4D97-A2C0-7E6B1F9D8A43");
};

using call_list = std::vector<std::string>;

/// Reads what a list has and empties it, so that the next step's calls stand alone.
inline call_list taken(call_list& calls) {
    return std::exchange(calls, {});
}

/// An object of foreign make with two interfaces: never destroyed by its count, writes down every call.
class counting_fake final : public ISquare, public IPaint {
public:
    counting_fake(std::string name, call_list& calls) : name_(std::move(name)), calls_(calls) {}

    [[nodiscard]] int count() const noexcept { return count_; }
    [[nodiscard]] ISquare* square() noexcept { return this; }
    [[nodiscard]] IPaint* paint() noexcept { return this; }

    HRESULT STDMETHODCALLTYPE QueryInterface(const GUID& id, void** out) override {
        calls_.push_back(name_ + ".QueryInterface");
        if (com::same_guid(id, com::guid_of<IPaint>())) {
            *out = static_cast<IPaint*>(this);
        } else if (com::answers_to<ISquare>(id)) {
            *out = static_cast<ISquare*>(this);
        } else {
            return E_NOINTERFACE;
        }
        ++count_;
        return S_OK;
    }

    ULONG STDMETHODCALLTYPE AddRef() override {
        calls_.push_back(name_ + ".AddRef");
        return static_cast<ULONG>(++count_);
    }

    ULONG STDMETHODCALLTYPE Release() override {
        calls_.push_back(name_ + ".Release");
        return static_cast<ULONG>(--count_);
    }

private:
    std::string name_;
    call_list& calls_;
    int count_ = 0;
};
