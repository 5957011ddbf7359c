#pragma once

#include "com/ptr.h"

#include <functional>
#include <map>
#include <stdexcept>
#include <typeinfo>

namespace ui::mossHarbour {

/// The forms that a back end has for kinds of control: from the type of a control's `facade` interface to
/// what makes one. `Widget` is `ID2dWidget` or `IHwndWidget`.
template <class Widget>
class widget_factories {
public:
    using factory = std::function<com::ptr<Widget>()>;

    void add(const std::type_info& facade_type, factory make) {
        table.insert_or_assign(&facade_type, std::move(make));
    }

    /// Throws `std::runtime_error` for a kind that has no form here.
    [[nodiscard]] com::ptr<Widget> make(const std::type_info& facade_type) const {
        const auto found = table.find(&facade_type);
        if (found == table.end()) {
            throw std::runtime_error("Unable to materialized the specified element!");
        }
        return found->second();
    }

private:
    struct before {
        bool operator()(const std::type_info* a, const std::type_info* b) const noexcept {
            return a->before(*b);
        }
    };

    std::map<const std::type_info*, factory, before> table;
};

}  // namespace ui::mossHarbour
