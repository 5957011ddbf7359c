#include "com/guid.h"

#include "com/interface_traits.h"

#include <servprov.h>

#include <cstring>

#include <gtest/gtest.h>

namespace {

using bytes = std::array<std::uint8_t, 16>;

bytes bytes_of(const GUID& id) {
    bytes result;
    std::memcpy(result.data(), &id, result.size());
    return result;
}

TEST(guid, text_gives_each_field_its_digits) {
    constexpr GUID id = com::guid("39ACCC9F-E227-4AD5-8382-7E4D6437D236");
    EXPECT_EQ(id.Data1, 0x39ACCC9Fu);
    EXPECT_EQ(id.Data2, 0xE227);
    EXPECT_EQ(id.Data3, 0x4AD5);
    const bytes expected{0x9F, 0xCC, 0xAC, 0x39, 0x27, 0xE2, 0xD5, 0x4A,
                         0x83, 0x82, 0x7E, 0x4D, 0x64, 0x37, 0xD2, 0x36};
    EXPECT_EQ(bytes_of(id), expected);
}

TEST(guid, text_is_read_in_either_case) {
    EXPECT_EQ(bytes_of(com::guid("abcdefAB-0189-cdef-BA98-fedcba987654")),
              bytes_of(com::guid("ABCDEFAB-0189-CDEF-BA98-FEDCBA987654")));
}

TEST(guid, extremes_of_every_digit) {
    bytes ones;
    ones.fill(0xFF);
    EXPECT_EQ(bytes_of(com::guid("FFFFFFFF-FFFF-FFFF-FFFF-FFFFFFFFFFFF")), ones);
    EXPECT_EQ(bytes_of(com::guid("00000000-0000-0000-0000-000000000000")), bytes{});
}

TEST(guid, words_are_the_memory_in_order) {
    constexpr com::guid_words words = com::words_of(com::guid("39ACCC9F-E227-4AD5-8382-7E4D6437D236"));
    constexpr com::guid_words expected{0x39ACCC9F, 0x4AD5E227, 0x4D7E8283, 0x36D23764};
    EXPECT_EQ(words, expected);
}

TEST(guid, a_difference_in_any_single_bit_makes_two_unequal) {
    constexpr GUID original = com::guid("490F76C8-7F3A-4FA4-9773-23226914C385");
    EXPECT_TRUE(com::same_guid(original, original));
    for (std::size_t bit = 0; bit < 128; ++bit) {
        bytes changed = bytes_of(original);
        changed[bit / 8] = static_cast<std::uint8_t>(changed[bit / 8] ^ (1u << bit % 8));
        GUID other;
        std::memcpy(&other, changed.data(), changed.size());
        EXPECT_FALSE(com::same_guid(original, other)) << "bit " << bit;
        EXPECT_FALSE(com::same_guid(other, original)) << "bit " << bit;
    }
}

TEST(interface_traits, platform_interfaces_have_their_published_identifiers) {
    EXPECT_EQ(bytes_of(com::guid_of<IUnknown>()),
              bytes_of(com::guid("00000000-0000-0000-C000-000000000046")));
    EXPECT_EQ(bytes_of(com::guid_of<IUnknown>()), bytes_of(__uuidof(IUnknown)));
    EXPECT_EQ(bytes_of(com::guid_of<IServiceProvider>()),
              bytes_of(com::guid("6D5140C1-7436-11CE-8034-00AA006009FA")));
}

}  // namespace
