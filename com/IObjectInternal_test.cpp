#include "com/IObjectInternal.h"

#include "com/counting_fake.h"
#include "com/error.h"
#include "com/object.h"

#include <array>

#include <gtest/gtest.h>

namespace {
class made_here;
class made_elsewhere;
}  // namespace

template <>
struct com::interface_traits<com::IObjectInternal<made_here>> : com::extends<> {
    static constexpr GUID id = com::guid("9A4C07E1-6F3B-4D82-A5D9-18E0B2C4F767");
};

template <>
struct com::interface_traits<com::IObjectInternal<made_elsewhere>> : com::extends<> {
    static constexpr GUID id = com::guid("E16B85D0-29CA-4F3E-9C74-B0D7A35F1878");
};

namespace {

class made_here
    : public com::base_object<com::object_base, ISquare, com::IObjectInternal<made_here>, IPaint> {
public:
    std::array<int, 3> data{7, 8, 9};
};

class made_elsewhere
    : public com::base_object<com::object_base, ISquare, com::IObjectInternal<made_elsewhere>> {};

TEST(internal_object, leads_from_any_public_interface_to_the_class_with_one_reference) {
    const com::ptr<made_here> object = com::create_object<made_here>();
    {
        const com::ptr<made_here> by_square =
            com::internal_object<made_here>(static_cast<ISquare*>(object.get()));
        const com::ptr<made_here> by_paint =
            com::internal_object<made_here>(static_cast<IPaint*>(object.get()));
        EXPECT_EQ(by_square.get(), object.get());
        EXPECT_EQ(by_paint.get(), object.get());
        EXPECT_EQ(by_paint->data[2], 9);
        EXPECT_EQ(object->reference_word(), 3u);
    }
    EXPECT_EQ(object->reference_word(), 1u);
}

TEST(internal_object, gives_null_for_null) {
    EXPECT_EQ(com::internal_object<made_here>(static_cast<ISquare*>(nullptr)), nullptr);
}

template <class I>
HRESULT refusal(I* stranger) {
    try {
        static_cast<void>(com::internal_object<made_here>(stranger));
    } catch (const com::error& e) {
        return e.hresult;
    }
    return S_OK;
}

TEST(internal_object, refuses_an_object_of_foreign_make) {
    call_list calls;
    counting_fake stranger("stranger", calls);
    EXPECT_EQ(refusal(stranger.square()), E_NOINTERFACE);
    EXPECT_EQ(calls, (call_list{"stranger.QueryInterface"}));
}

TEST(internal_object, refuses_another_class_of_the_library) {
    const com::ptr<made_elsewhere> stranger = com::create_object<made_elsewhere>();
    EXPECT_EQ(refusal(static_cast<ISquare*>(stranger.get())), E_NOINTERFACE);
    EXPECT_EQ(stranger->reference_word(), 1u);
}

}  // namespace
