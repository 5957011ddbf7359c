#include "com/ptr.h"

#include "com/counting_fake.h"
#include "com/error.h"

#include <functional>

#include <gtest/gtest.h>

namespace {

using com::ptr;

static_assert(sizeof(ptr<IUnknown>) == sizeof(void*));
static_assert(std::is_nothrow_move_constructible_v<ptr<IShape>>);
static_assert(std::is_nothrow_copy_constructible_v<ptr<IShape>>);
static_assert(std::is_nothrow_constructible_v<ptr<IShape>, ISquare*>);
static_assert(!std::is_nothrow_constructible_v<ptr<IPaint>, ISquare*>);
static_assert(!std::is_convertible_v<ptr<IShape>, bool>);

class ptr_test : public testing::Test {
protected:
    ~ptr_test() override {
        EXPECT_EQ(a_.count(), 0);
        EXPECT_EQ(b_.count(), 0);
    }

    call_list calls() { return taken(calls_); }

    call_list calls_;
    counting_fake a_{"a", calls_};
    counting_fake b_{"b", calls_};
};

TEST_F(ptr_test, default_and_null_construction_are_null_and_call_nothing) {
    const ptr<ISquare> empty;
    const ptr<ISquare> null = nullptr;
    const ptr<ISquare> from_null_pointer(static_cast<ISquare*>(nullptr));
    EXPECT_EQ(empty.get(), nullptr);
    EXPECT_FALSE(null);
    EXPECT_TRUE(empty == nullptr);
    EXPECT_TRUE(empty == from_null_pointer);
}

TEST_F(ptr_test, construction_from_its_own_type_adds_one) {
    {
        const ptr<ISquare> p(a_.square());
        EXPECT_EQ(p.get(), a_.square());
        EXPECT_EQ(calls(), (call_list{"a.AddRef"}));
        EXPECT_EQ(a_.count(), 1);
    }
    EXPECT_EQ(calls(), (call_list{"a.Release"}));
}

TEST_F(ptr_test, construction_from_a_derived_interface_adds_one_without_an_identifier) {
    const ptr<IShape> p(a_.square());
    EXPECT_EQ(p.get(), static_cast<IShape*>(a_.square()));
    EXPECT_EQ(calls(), (call_list{"a.AddRef"}));
}

TEST_F(ptr_test, construction_from_another_interface_asks_for_it) {
    {
        const ptr<IPaint> p(a_.square());
        EXPECT_EQ(p.get(), a_.paint());
        EXPECT_NE(static_cast<void*>(p.get()), static_cast<void*>(a_.square()));
        EXPECT_EQ(calls(), (call_list{"a.QueryInterface"}));
        EXPECT_EQ(a_.count(), 1);
    }
    EXPECT_EQ(calls(), (call_list{"a.Release"}));
}

TEST_F(ptr_test, construction_from_a_base_asks_for_the_derived_interface) {
    const ptr<ISquare> p(static_cast<IUnknown*>(a_.square()));
    EXPECT_EQ(p.get(), a_.square());
    EXPECT_EQ(calls(), (call_list{"a.QueryInterface"}));
}

TEST_F(ptr_test, construction_from_a_null_of_another_interface_is_null_and_throws_nothing) {
    const ptr<IPaint> p(static_cast<ISquare*>(nullptr));
    EXPECT_FALSE(p);
    const ptr<IPaint> from_ptr = ptr<ISquare>();
    EXPECT_FALSE(from_ptr);
    EXPECT_EQ(calls(), call_list{});
}

TEST_F(ptr_test, construction_from_an_object_that_lacks_the_interface_throws_no_interface) {
    try {
        const ptr<IAbsent> p(a_.square());
        FAIL() << "no exception";
    } catch (const com::error& e) {
        EXPECT_EQ(e.hresult, E_NOINTERFACE);
        EXPECT_EQ(e.error_info, nullptr);
    }
    EXPECT_EQ(calls(), (call_list{"a.QueryInterface"}));
}

TEST_F(ptr_test, copy_adds_one) {
    const ptr<ISquare> p(a_.square());
    calls();
    const ptr<ISquare> copy(p);
    EXPECT_EQ(calls(), (call_list{"a.AddRef"}));
    EXPECT_TRUE(copy == p);
    const ptr<IShape> wider(p);
    EXPECT_EQ(calls(), (call_list{"a.AddRef"}));
    EXPECT_TRUE(wider == p);
    const ptr<IPaint> other(p);
    EXPECT_EQ(calls(), (call_list{"a.QueryInterface"}));
    EXPECT_EQ(a_.count(), 4);
}

TEST_F(ptr_test, move_takes_over_and_leaves_null) {
    ptr<ISquare> p(a_.square());
    calls();
    ptr<ISquare> moved(std::move(p));
    EXPECT_EQ(p.get(), nullptr);
    EXPECT_EQ(moved.get(), a_.square());
    const ptr<IShape> wider(std::move(moved));
    EXPECT_EQ(moved.get(), nullptr);
    EXPECT_EQ(wider.get(), a_.square());
    EXPECT_EQ(calls(), call_list{});
}

TEST_F(ptr_test, move_to_another_interface_asks_and_gives_the_first_one_back) {
    {
        const ptr<IPaint> other = ptr<ISquare>(a_.square());
        EXPECT_EQ(other.get(), a_.paint());
        EXPECT_EQ(calls(), (call_list{"a.AddRef", "a.QueryInterface", "a.Release"}));
    }
    EXPECT_EQ(calls(), (call_list{"a.Release"}));
}

struct assignment_case {
    const char* name;
    std::function<void(ptr<IShape>&, counting_fake&)> assign;
    call_list calls;
};

TEST_F(ptr_test, assignment_takes_the_new_one_ahead_of_releasing_the_old) {
    const assignment_case cases[] = {
        {"raw", [](auto& p, auto& b) { p = b.square(); }, {"b.AddRef", "a.Release"}},
        {"copy",
         [](auto& p, auto& b) {
             const ptr<IShape> q(b.square());
             p = q;
         },
         {"b.AddRef", "b.AddRef", "a.Release", "b.Release"}},
        {"move",
         [](auto& p, auto& b) {
             ptr<IShape> q(b.square());
             p = std::move(q);
             EXPECT_FALSE(q);
         },
         {"b.AddRef", "a.Release"}},
        {"derived",
         [](auto& p, auto& b) {
             const ptr<ISquare> q(b.square());
             p = q;
         },
         {"b.AddRef", "b.AddRef", "a.Release", "b.Release"}},
        {"moved derived", [](auto& p, auto& b) { p = ptr<ISquare>(b.square()); }, {"b.AddRef", "a.Release"}},
        {"foreign", [](auto& p, auto& b) { p = b.paint(); }, {"b.QueryInterface", "a.Release"}},
        {"null", [](auto& p, auto&) { p = nullptr; }, {"a.Release"}},
        {"empty", [](auto& p, auto&) { p = {}; }, {"a.Release"}},
        {"reset", [](auto& p, auto&) { p.reset(); }, {"a.Release"}},
    };
    for (const assignment_case& c : cases) {
        SCOPED_TRACE(c.name);
        ptr<IShape> p(a_.square());
        calls();
        c.assign(p, b_);
        EXPECT_EQ(calls(), c.calls);
        EXPECT_EQ(a_.count(), 0);
        EXPECT_EQ(b_.count(), p ? 1 : 0);
    }
}

TEST_F(ptr_test, a_failed_conversion_in_an_assignment_changes_nothing) {
    ptr<IAbsent> p;
    EXPECT_THROW(p = a_.square(), com::error);
    EXPECT_EQ(p.get(), nullptr);
    const ptr<ISquare> q(b_.square());
    EXPECT_THROW(p = q, com::error);
    EXPECT_EQ(b_.count(), 1);
}

TEST_F(ptr_test, self_assignment_keeps_the_reference) {
    ptr<ISquare> p(a_.square());
    calls();
    const ptr<ISquare>& same = p;
    p = same;
    EXPECT_EQ(p.get(), a_.square());
    EXPECT_EQ(calls(), (call_list{"a.AddRef", "a.Release"}));
    ptr<ISquare>& movable = p;
    p = std::move(movable);
    EXPECT_EQ(p.get(), a_.square());
    EXPECT_EQ(calls(), call_list{});
    EXPECT_EQ(a_.count(), 1);
}

TEST_F(ptr_test, attach_and_detach_move_a_reference_without_a_call) {
    a_.square()->AddRef();
    calls();
    ptr<ISquare> p = ptr<ISquare>::attach(a_.square());
    EXPECT_EQ(p.get(), a_.square());
    ISquare* const raw = p.detach();
    EXPECT_EQ(raw, a_.square());
    EXPECT_EQ(p.get(), nullptr);
    EXPECT_EQ(calls(), call_list{});
    raw->Release();
}

TEST_F(ptr_test, put_releases_what_is_held_and_gives_the_address_of_a_null) {
    ptr<ISquare> p(a_.square());
    calls();
    ISquare** const address = p.put();
    EXPECT_EQ(calls(), (call_list{"a.Release"}));
    EXPECT_EQ(*address, nullptr);
    EXPECT_EQ(b_.QueryInterface(com::guid_of<ISquare>(), p.put_void()), S_OK);
    EXPECT_EQ(p.get(), b_.square());
}

TEST_F(ptr_test, swap_calls_nothing) {
    ptr<ISquare> p(a_.square());
    ptr<ISquare> q(b_.square());
    calls();
    p.swap(q);
    EXPECT_EQ(p.get(), b_.square());
    EXPECT_EQ(q.get(), a_.square());
    EXPECT_EQ(calls(), call_list{});
}

TEST_F(ptr_test, try_as_gives_null_where_the_interface_is_lacking) {
    const ptr<ISquare> p(a_.square());
    calls();
    EXPECT_EQ(p.try_as<IAbsent>(), nullptr);
    EXPECT_EQ(calls(), (call_list{"a.QueryInterface"}));
    EXPECT_EQ(p.try_as<IPaint>().get(), a_.paint());
    EXPECT_EQ(calls(), (call_list{"a.QueryInterface", "a.Release"}));
    EXPECT_EQ(ptr<ISquare>().try_as<IPaint>(), nullptr);
    EXPECT_EQ(calls(), call_list{});
}

TEST_F(ptr_test, compares_by_address_and_calls_nothing) {
    const ptr<ISquare> p(a_.square());
    const ptr<IShape> same(a_.square());
    const ptr<ISquare> other(b_.square());
    calls();
    EXPECT_TRUE(p == same);
    EXPECT_TRUE(same == p);
    EXPECT_TRUE(p != other);
    EXPECT_TRUE(p == a_.square());
    EXPECT_TRUE(a_.square() == p);
    EXPECT_TRUE(p != nullptr);
    EXPECT_EQ(calls(), call_list{});
}

/// A link of a list that owns the next one and destroys itself with its last reference.
class link final : public IShape {
public:
    explicit link(int& alive) noexcept : alive_(alive) { ++alive_; }

    HRESULT STDMETHODCALLTYPE QueryInterface(const GUID&, void**) override { return E_NOINTERFACE; }
    ULONG STDMETHODCALLTYPE AddRef() override { return ++count_; }
    ULONG STDMETHODCALLTYPE Release() override {
        if (--count_ > 0) return count_;
        if (at_release) at_release();
        delete this;
        return 0;
    }

    ptr<link> next;
    std::function<void()> at_release;

private:
    ~link() { --alive_; }

    int& alive_;
    ULONG count_ = 0;
};

TEST(ptr_to_links, an_element_of_what_is_let_go_can_be_assigned) {
    int alive = 0;
    ptr<link> p(new link(alive));
    p->next = new link(alive);
    p->next->next = new link(alive);
    p = p->next;
    EXPECT_EQ(alive, 2);
    p = std::move(p->next);
    EXPECT_EQ(alive, 1);
    p = p->next;
    EXPECT_EQ(alive, 0);
    EXPECT_EQ(p, nullptr);
}

TEST(ptr_to_links, the_release_of_the_old_object_sees_the_new_value) {
    int alive = 0;
    ptr<link> p(new link(alive));
    const ptr<link> next(new link(alive));
    const link* seen = p.get();
    p->at_release = [&] { seen = p.get(); };
    p = next;
    EXPECT_EQ(seen, next.get());
    p = nullptr;
    p = new link(alive);
    p->at_release = [&] { seen = p.get(); };
    p.reset();
    EXPECT_EQ(seen, nullptr);
    EXPECT_EQ(alive, 1);
}

}  // namespace
