#include "com/object.h"

#include "com/scripted_object.h"
#include "com/weak_ptr.h"

#include <stdexcept>

#include <gtest/gtest.h>

namespace {

using com::ptr;
using com::weak_ptr;

constexpr std::uint32_t strong_mask = com::count_word::strong_mask;

class object_test : public testing::Test {
protected:
    object_test() {
        scripted_object::taken = 0;
        scripted_object::given_back = 0;
    }
    ~object_test() override {
        EXPECT_EQ(com::live_object_count(), alive_before_);
        EXPECT_EQ(scripted_object::taken, scripted_object::given_back);
    }

    ptr<scripted_object> create() { return com::create_object<scripted_object>(script_); }

    static int given_back() { return scripted_object::given_back; }

    life_script script_;

private:
    long alive_before_ = com::live_object_count();
};

TEST_F(object_test, is_created_in_the_order_storage_constructors_final_construct_reference) {
    std::vector<std::uint32_t> words;
    int taken = 0;
    script_.in_constructor = [&](scripted_object& o) {
        taken = scripted_object::taken;
        words.push_back(o.reference_word());
    };
    script_.in_final_construct = [&](scripted_object& o) {
        words.push_back(o.reference_word() & strong_mask);
    };
    const ptr<scripted_object> p = create();
    EXPECT_EQ(taken, 1);
    EXPECT_EQ(words, (std::vector<std::uint32_t>{0, 0}));
    EXPECT_EQ(p->reference_word(), 1u);
    EXPECT_EQ(script_.calls,
              (call_list{"root constructor of root", "constructor of object", "final_construct of object"}));
}

TEST_F(object_test, is_torn_down_in_the_order_final_release_destructors_storage) {
    ptr<scripted_object> p = create();
    taken(script_.calls);
    p.reset();
    EXPECT_EQ(script_.calls, (call_list{"final_release of object", "destructor of object", "part destructor",
                                        "root destructor of root"}));
    EXPECT_EQ(given_back(), 1);
}

TEST_F(object_test, counts_itself_among_the_live_ones) {
    const long before = com::live_object_count();
    ptr<scripted_object> p = create();
    const ptr<scripted_object> q = create();
    const weak_ptr<scripted_object> weak(p);
    EXPECT_EQ(com::live_object_count(), before + 2);
    p.reset();
    EXPECT_EQ(com::live_object_count(), before + 1);
}

TEST_F(object_test, add_ref_and_release_give_the_new_word) {
    const ptr<scripted_object> p = create();
    EXPECT_EQ(p->AddRef(), 2u);
    const weak_ptr<scripted_object> weak(p);
    EXPECT_EQ(p->AddRef(), 0x100003u);
    EXPECT_EQ(p->Release(), 0x100002u);
    EXPECT_EQ(p->Release(), 0x100001u);
}

TEST_F(object_test, the_last_release_gives_what_is_left_of_the_word) {
    EXPECT_EQ(create().detach()->Release(), 0u);
    ptr<scripted_object> p = create();
    const weak_ptr<scripted_object> first(p);
    const weak_ptr<scripted_object> second(p);
    EXPECT_EQ(p.detach()->Release(), 0x200000u);
}

TEST_F(object_test, a_throwing_constructor_leaves_nothing_behind) {
    script_.in_constructor = [](scripted_object& o) {
        { const weak_ptr<scripted_object> passing(&o); }
        o.held.emplace_back([self = weak_ptr<scripted_object>(&o)] { static_cast<void>(self); });
        throw std::runtime_error("constructor");
    };
    EXPECT_THROW(create(), std::runtime_error);
    EXPECT_EQ(script_.calls, (call_list{"root constructor of root", "constructor of object",
                                        "part destructor", "root destructor of root"}));
    EXPECT_EQ(given_back(), 1);
}

TEST_F(object_test, a_weak_reference_that_comes_and_goes_during_construction_frees_nothing) {
    const auto come_and_go = [](scripted_object& o) { const weak_ptr<scripted_object> passing(&o); };
    script_.in_constructor = come_and_go;
    script_.in_final_construct = come_and_go;
    const ptr<scripted_object> p = create();
    EXPECT_EQ(given_back(), 0);
    EXPECT_EQ(p->reference_word(), 1u);
}

TEST_F(object_test, a_strong_reference_that_comes_and_goes_during_construction_destroys_nothing) {
    const auto come_and_go = [](scripted_object& o) { const ptr<scripted_object> passing(&o); };
    script_.in_constructor = come_and_go;
    script_.in_final_construct = come_and_go;
    const ptr<scripted_object> p = create();
    EXPECT_EQ(script_.calls,
              (call_list{"root constructor of root", "constructor of object", "final_construct of object"}));
    EXPECT_EQ(p->reference_word(), 1u);
}

TEST_F(object_test, a_strong_reference_that_final_construct_hands_out_keeps_the_object) {
    ptr<scripted_object> kept;
    script_.in_final_construct = [&](scripted_object& o) { kept = &o; };
    ptr<scripted_object> p = create();
    EXPECT_EQ(p->reference_word(), 2u);
    p.reset();
    EXPECT_EQ(given_back(), 0);
    kept.reset();
    EXPECT_EQ(given_back(), 1);
}

TEST_F(object_test, a_throwing_final_construct_destroys_the_object_without_final_release) {
    script_.in_final_construct = [](scripted_object&) { throw std::runtime_error("final_construct"); };
    EXPECT_THROW(create(), std::runtime_error);
    EXPECT_EQ(script_.calls,
              (call_list{"root constructor of root", "constructor of object", "final_construct of object",
                         "destructor of object", "part destructor", "root destructor of root"}));
    EXPECT_EQ(given_back(), 1);
}

TEST_F(object_test, weak_references_that_a_throwing_final_construct_took_and_dropped_free_it_once) {
    script_.in_final_construct = [](scripted_object& o) {
        { const weak_ptr<scripted_object> passing(&o); }
        throw std::runtime_error("final_construct");
    };
    EXPECT_THROW(create(), std::runtime_error);
    EXPECT_EQ(given_back(), 1);
}

TEST_F(object_test, weak_references_that_a_throwing_final_construct_stored_in_a_member_free_it_once) {
    script_.in_final_construct = [](scripted_object& o) {
        o.held.emplace_back([self = weak_ptr<scripted_object>(&o)] { static_cast<void>(self); });
        throw std::runtime_error("final_construct");
    };
    EXPECT_THROW(create(), std::runtime_error);
    EXPECT_EQ(given_back(), 1);
}

TEST_F(object_test, weak_references_that_a_throwing_final_construct_handed_out_keep_the_storage_alone) {
    weak_ptr<scripted_object> outside;
    script_.in_final_construct = [&](scripted_object& o) {
        o.held.emplace_back([self = weak_ptr<scripted_object>(&o)] { static_cast<void>(self); });
        outside = weak_ptr<scripted_object>(&o);
        throw std::runtime_error("final_construct");
    };
    EXPECT_THROW(create(), std::runtime_error);
    EXPECT_EQ(script_.calls.back(), "root destructor of root");
    EXPECT_EQ(given_back(), 0);
    EXPECT_EQ(outside.lock(), nullptr);
    outside = nullptr;
    EXPECT_EQ(given_back(), 1);
}

TEST_F(object_test, strong_references_that_a_throwing_final_construct_stored_in_a_member_are_harmless) {
    script_.in_final_construct = [](scripted_object& o) {
        o.held.emplace_back([self = ptr<scripted_object>(&o)] { static_cast<void>(self); });
        throw std::runtime_error("final_construct");
    };
    EXPECT_THROW(create(), std::runtime_error);
    EXPECT_EQ(given_back(), 1);
}

TEST_F(object_test, final_release_finds_a_whole_object) {
    std::string type;
    HRESULT result = E_FAIL;
    script_.in_final_release = [&](scripted_object& o) {
        type = o.dynamic_type();
        ptr<IPaint> paint;
        result = o.QueryInterface(com::guid_of<IPaint>(), paint.put_void());
    };
    create().reset();
    EXPECT_EQ(type, "object");
    EXPECT_EQ(result, S_OK);
}

TEST_F(object_test, strong_references_taken_and_dropped_in_final_release_start_no_second_teardown) {
    script_.in_final_release = [](scripted_object& o) {
        for (int i = 0; i < 3; ++i) {
            const ptr<scripted_object> first(&o);
            const ptr<IPaint> second(static_cast<ISquare*>(&o));
        }
    };
    ptr<scripted_object> p = create();
    taken(script_.calls);
    p.reset();
    EXPECT_EQ(script_.calls, (call_list{"final_release of object", "destructor of object", "part destructor",
                                        "root destructor of root"}));
    EXPECT_EQ(given_back(), 1);
}

TEST_F(object_test, a_strong_reference_taken_in_final_release_may_be_dropped_by_a_member) {
    script_.in_final_release = [](scripted_object& o) {
        o.held.emplace_back([self = ptr<scripted_object>(&o)] { static_cast<void>(self); });
    };
    create().reset();
    EXPECT_EQ(script_.calls.back(), "root destructor of root");
    EXPECT_EQ(given_back(), 1);
}

TEST_F(object_test, strong_references_taken_and_dropped_in_the_destructor_start_no_second_teardown) {
    script_.in_destructor = [](scripted_object& o) {
        const ptr<scripted_object> first(&o);
        const ptr<IPaint> second(static_cast<IPaint*>(&o));
    };
    ptr<scripted_object> p = create();
    taken(script_.calls);
    p.reset();
    EXPECT_EQ(script_.calls, (call_list{"final_release of object", "destructor of object", "part destructor",
                                        "root destructor of root"}));
    EXPECT_EQ(given_back(), 1);
}

TEST_F(object_test, objects_that_it_owns_go_in_its_destructors) {
    life_script inner_script;
    ptr<scripted_object> inner = com::create_object<scripted_object>(inner_script);
    ptr<scripted_object> outer = create();
    outer->held.emplace_back([owned = std::move(inner)] { static_cast<void>(owned); });
    taken(inner_script.calls);
    outer.reset();
    EXPECT_EQ(inner_script.calls.front(), "final_release of object");
    EXPECT_EQ(given_back(), 2);
}

TEST_F(object_test, an_object_without_weak_references_is_freed_behind_its_destructors) {
    script_.in_destructor = [](scripted_object&) { EXPECT_EQ(given_back(), 0); };
    create().reset();
    EXPECT_EQ(given_back(), 1);
}

TEST_F(object_test, a_destroyed_object_still_gives_its_identity_and_frees_its_storage) {
    ptr<scripted_object> p = create();
    com::object_base* const base = p.get();
    IUnknown* const identity = base->get_IUnknown();
    EXPECT_EQ(identity, static_cast<ISquare*>(p.get()));
    base->add_weak_reference();
    base->add_weak_reference();
    p.reset();
    EXPECT_EQ(base->reference_word(), 0x200000u);
    EXPECT_EQ(base->get_IUnknown(), identity);
    EXPECT_FALSE(base->lock_reference());
    EXPECT_EQ(base->release_weak_reference(), 0x100000u);
    EXPECT_EQ(base->get_IUnknown(), identity);
    EXPECT_EQ(given_back(), 0);
    EXPECT_EQ(base->release_weak_reference(), 0u);
    EXPECT_EQ(given_back(), 1);
}

struct other_base {
    virtual ~other_base() = default;
    std::array<int, 5> data{1, 2, 3, 4, 5};
};

/// The object model's base is not the first one here.
class second_in_line : public other_base, public com::base_object<com::object_base, IPaint> {
public:
    static void operator delete(void* storage) noexcept {
        last_freed = storage;
        ::operator delete(storage);
    }
    inline static void* last_freed = nullptr;
};

TEST_F(object_test, the_base_of_the_model_may_stand_anywhere_among_the_bases) {
    auto p = com::create_object<second_in_line>();
    const void* const storage = static_cast<void*>(p.get());
    com::object_base* const base = p.get();
    ASSERT_NE(static_cast<void*>(base), storage);
    IUnknown* const identity = base->get_IUnknown();
    base->add_weak_reference();
    p.reset();
    EXPECT_EQ(base->get_IUnknown(), identity);
    EXPECT_EQ(second_in_line::last_freed, nullptr);
    base->release_weak_reference();
    EXPECT_EQ(second_in_line::last_freed, storage);
}

struct alignas(64) wide_object : com::base_object<com::object_base, IShape> {
    std::array<float, 16> lanes{};
};

TEST_F(object_test, an_over_aligned_class_gets_and_gives_back_aligned_storage) {
    for (int i = 0; i < 100; ++i) {
        const auto p = com::create_object<wide_object>();
        const weak_ptr<wide_object> weak(p);
        EXPECT_EQ(reinterpret_cast<std::uintptr_t>(p.get()) % 64, 0u);
    }
}

struct plain_object : com::base_object<com::object_base, IShape> {
    plain_object(int a, std::unique_ptr<int> b) : sum(a + *b) {}
    int sum;
};

TEST_F(object_test, lifecycle_members_are_optional_and_arguments_are_forwarded) {
    EXPECT_EQ(com::create_object<plain_object>(40, std::make_unique<int>(2))->sum, 42);
}

}  // namespace
