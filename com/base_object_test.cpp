#include "com/base_object.h"

#include "com/counting_fake.h"
#include "com/object.h"

#include <gtest/gtest.h>

namespace {

using com::ptr;

struct IRoundShape : IShape {};

struct IBall : IRoundShape {};

}  // namespace

template <>
struct com::interface_traits<IRoundShape> : com::extends<IShape> {
    static constexpr GUID id = com::guid("71F0C2D9-3A48-4E65-9B0D-C5A16E8F2B74");
};

template <>
struct com::interface_traits<IBall> : com::extends<IRoundShape> {
    static constexpr GUID id = com::guid("0D5E7B36-84F2-4A19-B3C6-2F91D07A8E55");
};

namespace {

/// A private base with an identifier of its own, as code inside a library reaches it.
struct hidden_base : IUnknown {
    int secret = 42;
};

}  // namespace

template <>
struct com::interface_traits<hidden_base> : com::extends<> {
    static constexpr GUID id = com::guid("C83A1F6E-D240-4B97-8E5F-6A09B7D3C186");
};

namespace {

class many_faces : public com::base_object<com::object_base, IPaint, ISquare, IBall, hidden_base> {};

class base_object_test : public testing::Test {
protected:
    template <class I>
    void* ask(IUnknown* whom) {
        void* out = nullptr;
        EXPECT_EQ(whom->QueryInterface(com::guid_of<I>(), &out), S_OK);
        if (out) whom->Release();
        return out;
    }

    const ptr<many_faces> object_ = com::create_object<many_faces>();
    IPaint* const paint_ = object_.get();
    ISquare* const square_ = object_.get();
    IBall* const ball_ = object_.get();
    hidden_base* const hidden_ = object_.get();
};

TEST_F(base_object_test, the_first_listed_interface_is_the_identity) {
    EXPECT_EQ(object_->get_IUnknown(), static_cast<IUnknown*>(paint_));
    for (IUnknown* face : {static_cast<IUnknown*>(paint_), static_cast<IUnknown*>(square_),
                           static_cast<IUnknown*>(ball_), static_cast<IUnknown*>(hidden_)}) {
        EXPECT_EQ(ask<IUnknown>(face), static_cast<IUnknown*>(paint_));
    }
}

TEST_F(base_object_test, every_face_answers_for_every_listed_interface_and_its_bases) {
    for (IUnknown* face : {static_cast<IUnknown*>(paint_), static_cast<IUnknown*>(square_),
                           static_cast<IUnknown*>(ball_), static_cast<IUnknown*>(hidden_)}) {
        EXPECT_EQ(ask<IPaint>(face), paint_);
        EXPECT_EQ(ask<ISquare>(face), square_);
        EXPECT_EQ(ask<IBall>(face), ball_);
        EXPECT_EQ(ask<IRoundShape>(face), static_cast<IRoundShape*>(ball_));
    }
}

TEST_F(base_object_test, of_an_interface_reached_twice_the_earlier_in_the_list_answers) {
    ASSERT_NE(static_cast<void*>(square_), static_cast<void*>(ball_));
    EXPECT_EQ(ask<IShape>(object_.get()->get_IUnknown()), static_cast<IShape*>(square_));
    EXPECT_EQ(ask<IShape>(ball_), static_cast<IShape*>(square_));

    class other_order : public com::base_object<com::object_base, IBall, ISquare> {};
    const ptr<other_order> other = com::create_object<other_order>();
    EXPECT_EQ(ask<IShape>(other->get_IUnknown()), static_cast<IBall*>(other.get()));
}

TEST_F(base_object_test, a_listed_base_with_an_identifier_leads_back_to_the_implementation) {
    const ptr<hidden_base> hidden(paint_);
    EXPECT_EQ(hidden.get(), hidden_);
    EXPECT_EQ(hidden->secret, 42);
}

TEST_F(base_object_test, null_out_is_refused_before_the_identifier_is_looked_at) {
    EXPECT_EQ(paint_->QueryInterface(com::guid_of<IPaint>(), nullptr), E_POINTER);
    EXPECT_EQ(paint_->QueryInterface(com::guid_of<IAbsent>(), nullptr), E_POINTER);
    EXPECT_EQ(object_->reference_word(), 1u);
}

TEST_F(base_object_test, an_unknown_identifier_leaves_the_variable_and_the_count_as_they_were) {
    int marker = 0;
    void* out = &marker;
    EXPECT_EQ(square_->QueryInterface(com::guid_of<IAbsent>(), &out), E_NOINTERFACE);
    EXPECT_EQ(out, &marker);
    EXPECT_EQ(object_->reference_word(), 1u);
}

TEST_F(base_object_test, a_found_interface_adds_one_to_the_count) {
    void* out = nullptr;
    EXPECT_EQ(ball_->QueryInterface(com::guid_of<IShape>(), &out), S_OK);
    EXPECT_EQ(object_->reference_word(), 2u);
    static_cast<IUnknown*>(out)->Release();
    EXPECT_EQ(object_->reference_word(), 1u);
}

TEST_F(base_object_test, all_faces_share_one_count) {
    EXPECT_EQ(paint_->AddRef(), 2u);
    EXPECT_EQ(ball_->AddRef(), 3u);
    EXPECT_EQ(hidden_->Release(), 2u);
    EXPECT_EQ(square_->Release(), 1u);
}

TEST(answers_to, asks_the_interface_itself_ahead_of_its_bases_and_never_for_iunknown) {
    EXPECT_TRUE(com::answers_to<IBall>(com::guid_of<IBall>()));
    EXPECT_TRUE(com::answers_to<IBall>(com::guid_of<IRoundShape>()));
    EXPECT_TRUE(com::answers_to<IBall>(com::guid_of<IShape>()));
    EXPECT_FALSE(com::answers_to<IBall>(com::guid_of<ISquare>()));
    EXPECT_FALSE(com::answers_to<IBall>(com::guid_of<IUnknown>()));
    EXPECT_FALSE(com::answers_to<IShape>(com::guid_of<IBall>()));
}

}  // namespace
