#pragma once

#include "com/base_object.h"
#include "d2d/scene/ITextFormat.h"

#include <cstddef>

namespace d2d::scene {

/// A shared text format: the process has one for each set of properties, in a table that it leaves when its
/// last reference goes.
class text_format : public com::base_object<com::object_base, ITextFormat> {
public:
    /// How many formats are alive.
    [[nodiscard]] static std::size_t shared_count() noexcept;

    explicit text_format(com::ptr<IDWriteTextFormat> platform_format) noexcept
        : format(std::move(platform_format)) {}

    void final_release();

    com::ptr<IDWriteTextFormat> get_format() override { return format; }
    com::ptr<IDWriteTextLayout> create_layout(std::string_view text, float width, float height) override;
    com::ptr<IDWriteTextLayout> create_layout(std::wstring_view text, float width, float height) override;

protected:
    ~text_format() = default;

private:
    com::ptr<IDWriteTextFormat> format;
};

}  // namespace d2d::scene
