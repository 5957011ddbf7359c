#include "com/weak_ptr.h"

#include "com/scripted_object.h"

#include <array>
#include <thread>

#include <gtest/gtest.h>

#include <windows.h>

namespace {

using com::ptr;
using com::weak_ptr;

class weak_ptr_test : public testing::Test {
protected:
    weak_ptr_test() {
        scripted_object::taken = 0;
        scripted_object::given_back = 0;
        p_ = com::create_object<scripted_object>(script_);
    }
    ~weak_ptr_test() override {
        p_.reset();
        EXPECT_EQ(scripted_object::taken, scripted_object::given_back);
    }

    static int given_back() { return scripted_object::given_back; }

    life_script script_;
    ptr<scripted_object> p_;
};

using weak = weak_ptr<scripted_object>;

static_assert(sizeof(weak) == sizeof(void*));
static_assert(std::is_nothrow_move_constructible_v<weak>);

TEST_F(weak_ptr_test, null_locks_to_null) {
    EXPECT_EQ(weak().lock(), nullptr);
    EXPECT_EQ(weak(nullptr).lock(), nullptr);
    EXPECT_EQ(weak(ptr<scripted_object>()).lock(), nullptr);
}

TEST_F(weak_ptr_test, each_operation_counts_exactly) {
    {
        const weak from_raw(p_.get());
        EXPECT_EQ(p_->reference_word(), 0x100001u);
        weak from_ptr(p_);
        EXPECT_EQ(p_->reference_word(), 0x200001u);
        const weak copy(from_ptr);
        EXPECT_EQ(p_->reference_word(), 0x300001u);
        weak moved(std::move(from_ptr));
        EXPECT_EQ(p_->reference_word(), 0x300001u);
        EXPECT_EQ(from_ptr.lock(), nullptr);
        moved = copy;
        EXPECT_EQ(p_->reference_word(), 0x300001u);
        moved = nullptr;
        EXPECT_EQ(p_->reference_word(), 0x200001u);
        from_ptr = copy;
        moved = std::move(from_ptr);
        EXPECT_EQ(p_->reference_word(), 0x300001u);
        moved.swap(from_ptr);
        EXPECT_EQ(p_->reference_word(), 0x300001u);
        EXPECT_EQ(moved.lock(), nullptr);
        EXPECT_EQ(from_ptr.lock(), p_);
    }
    EXPECT_EQ(p_->reference_word(), 1u);
}

TEST_F(weak_ptr_test, assignment_takes_the_new_one_ahead_of_dropping_the_old) {
    weak w(p_);
    p_.reset();
    const weak& same = w;
    w = same;
    EXPECT_EQ(given_back(), 0);
    weak& movable = w;
    w = std::move(movable);
    EXPECT_EQ(given_back(), 0);
    w = nullptr;
    EXPECT_EQ(given_back(), 1);
}

TEST_F(weak_ptr_test, lock_gives_a_strong_reference_of_its_own) {
    const weak w(p_);
    ptr<scripted_object> locked = w.lock();
    EXPECT_EQ(locked.get(), p_.get());
    EXPECT_EQ(p_->reference_word(), 0x100002u);
    p_.reset();
    EXPECT_EQ(script_.calls.back(), "final_construct of object");
    EXPECT_EQ(w.lock().get(), locked.get());
    locked.reset();
    EXPECT_EQ(script_.calls.back(), "root destructor of root");
}

TEST_F(weak_ptr_test, lock_after_the_last_strong_reference_is_null_though_the_storage_is_there) {
    weak w(p_);
    weak copy(w);
    p_.reset();
    EXPECT_EQ(script_.calls.back(), "root destructor of root");
    EXPECT_EQ(w.lock(), nullptr);
    EXPECT_EQ(given_back(), 0);
    w = nullptr;
    EXPECT_EQ(copy.lock(), nullptr);
    EXPECT_EQ(given_back(), 0);
    copy = nullptr;
    EXPECT_EQ(given_back(), 1);
}

TEST_F(weak_ptr_test, a_weak_reference_may_be_copied_from_one_to_a_destroyed_object) {
    weak w(p_);
    p_.reset();
    weak copy(w);
    w = nullptr;
    EXPECT_EQ(given_back(), 0);
    copy = nullptr;
    EXPECT_EQ(given_back(), 1);
}

TEST_F(weak_ptr_test, lock_is_null_throughout_the_teardown) {
    const weak w(p_);
    int locked = 0;
    const auto try_lock = [&](scripted_object&) { locked += w.lock() ? 100 : 1; };
    script_.in_final_release = try_lock;
    script_.in_destructor = try_lock;
    p_.reset();
    EXPECT_EQ(locked, 2);
}

TEST_F(weak_ptr_test, the_last_one_dropped_inside_the_destructor_leaves_the_storage_until_behind_it) {
    weak w(p_);
    script_.in_destructor = [&](scripted_object& o) {
        w = nullptr;
        EXPECT_EQ(given_back(), 0);
        EXPECT_STREQ(o.dynamic_type(), "object");
    };
    p_.reset();
    EXPECT_EQ(given_back(), 1);
}

TEST_F(weak_ptr_test, one_that_the_object_holds_to_itself_does_not_free_the_storage_twice) {
    p_->held.emplace_back([self = weak(p_)] { static_cast<void>(self); });
    p_.reset();
    EXPECT_EQ(script_.calls.back(), "root destructor of root");
    EXPECT_EQ(given_back(), 1);
}

TEST_F(weak_ptr_test, taken_in_final_release_it_outlives_the_object) {
    weak late;
    script_.in_final_release = [&](scripted_object& o) { late = weak(&o); };
    p_.reset();
    EXPECT_EQ(given_back(), 0);
    EXPECT_EQ(late.lock(), nullptr);
    late = nullptr;
    EXPECT_EQ(given_back(), 1);
}

TEST_F(weak_ptr_test, two_objects_that_know_each_other_weakly_both_go) {
    ptr<scripted_object> q = com::create_object<scripted_object>(script_);
    p_->held.emplace_back([other = weak(q)] { static_cast<void>(other); });
    q->held.emplace_back([other = weak(p_)] { static_cast<void>(other); });
    p_.reset();
    EXPECT_EQ(given_back(), 0);
    q.reset();
    EXPECT_EQ(given_back(), 2);
}

/// An object that can tell, for as long as its storage is there, whether it is alive.
class mortal : public com::base_object<com::object_base, IShape> {
public:
    mortal() { ++created; }
    ~mortal() {
        alive_ = false;
        ++destroyed;
    }
    void final_release() {
        dying_ = true;
        ++released;
    }

    [[nodiscard]] bool well() const noexcept { return alive_ && !dying_; }

    static void* operator new(std::size_t size) { return std::calloc(1, size); }
    static void operator delete(void* storage) noexcept {
        ++freed;
        std::free(storage);
    }

    inline static std::atomic<int> created = 0;
    inline static std::atomic<int> released = 0;
    inline static std::atomic<int> destroyed = 0;
    inline static std::atomic<int> freed = 0;

private:
    std::atomic<bool> alive_ = true;
    std::atomic<bool> dying_ = false;
};

/// Lets its threads pass when all have come. (Under Wine libstdc++'s own barrier hangs, and its condition
/// variable takes twenty times as long.)
class gate {
public:
    explicit gate(int size) noexcept : size_(size) {}

    void pass() noexcept {
        AcquireSRWLockExclusive(&lock_);
        const int turn = turn_;
        if (++waiting_ < size_) {
            while (turn_ == turn) SleepConditionVariableSRW(&open_, &lock_, INFINITE, 0);
        } else {
            waiting_ = 0;
            ++turn_;
            WakeAllConditionVariable(&open_);
        }
        ReleaseSRWLockExclusive(&lock_);
    }

private:
    SRWLOCK lock_ = SRWLOCK_INIT;
    CONDITION_VARIABLE open_ = CONDITION_VARIABLE_INIT;
    int size_;
    int waiting_ = 0;
    int turn_ = 0;
};

/// Has several threads do the same job at the same moment, round after round.
class threads_test : public testing::Test {
protected:
    static constexpr int rounds = 1000;
    static constexpr int helpers = 3;

    threads_test() {
        mortal::created = 0;
        mortal::released = 0;
        mortal::destroyed = 0;
        mortal::freed = 0;
    }

    /// `prepare` and `finish` run alone, `here` and `there` at the same time, `there` in each helper.
    void run(const std::function<void()>& prepare, const std::function<void()>& here,
             const std::function<void(int)>& there, const std::function<void(int)>& finish) {
        gate meeting(helpers + 1);
        std::vector<std::thread> threads;
        for (int index = 0; index < helpers; ++index) {
            threads.emplace_back([&, index] {
                for (int round = 0; round < rounds; ++round) {
                    meeting.pass();
                    there(index);
                    meeting.pass();
                }
            });
        }
        for (int round = 1; round <= rounds; ++round) {
            prepare();
            meeting.pass();
            here();
            meeting.pass();
            finish(round);
        }
        for (std::thread& thread : threads) thread.join();
    }
};

TEST_F(threads_test, a_lock_that_races_the_last_release_gets_a_live_object_or_none) {
    ptr<mortal> last;
    weak_ptr<mortal> shared;
    std::atomic<int> corpses = 0;
    std::atomic<int> locked_ones = 0;
    std::atomic<int> nulls = 0;
    run(
        [&] {
            last = com::create_object<mortal>();
            shared = last;
        },
        [&] { last.reset(); },
        [&](int) {
            const weak_ptr<mortal> own(shared);
            bool gone = false;
            for (int i = 0; i < 20; ++i) {  // no more: threads that lock in turns keep it alive for ever
                const ptr<mortal> locked = own.lock();
                ++(locked ? locked_ones : nulls);
                if (locked && (gone || !locked->well())) ++corpses;
                if (!locked) gone = true;
                const ptr<mortal> another(locked);
                if (another && !another->well()) ++corpses;
            }
        },
        [&](int round) {
            ASSERT_EQ(mortal::released, round);
            ASSERT_EQ(mortal::destroyed, round);
            ASSERT_EQ(mortal::freed, round - 1);
            shared = nullptr;
            ASSERT_EQ(mortal::freed, round);
        });
    EXPECT_EQ(corpses, 0);
    EXPECT_EQ(mortal::created, rounds);
    EXPECT_GT(locked_ones, 0);
    EXPECT_GT(nulls, 0);
}

TEST_F(threads_test, strong_references_dropped_at_once_destroy_the_object_once) {
    ptr<mortal> mine;
    std::array<ptr<mortal>, helpers> theirs;
    run(
        [&] {
            mine = com::create_object<mortal>();
            theirs.fill(mine);
        },
        [&] { mine.reset(); }, [&](int index) { theirs[static_cast<std::size_t>(index)].reset(); },
        [&](int round) {
            ASSERT_EQ(mortal::released, round);
            ASSERT_EQ(mortal::destroyed, round);
            ASSERT_EQ(mortal::freed, round);
        });
}

TEST_F(threads_test, weak_copies_dropped_while_the_last_strong_reference_goes_free_the_storage_once) {
    ptr<mortal> last;
    std::array<weak_ptr<mortal>, helpers> theirs;
    run(
        [&] {
            last = com::create_object<mortal>();
            theirs.fill(weak_ptr<mortal>(last));
        },
        [&] { last.reset(); },
        [&](int index) {
            weak_ptr<mortal>& own = theirs[static_cast<std::size_t>(index)];
            for (int i = 0; i < 20; ++i) {
                const weak_ptr<mortal> copy(own);
                const weak_ptr<mortal> second(copy);
            }
            own = nullptr;
        },
        [&](int round) {
            ASSERT_EQ(mortal::destroyed, round);
            ASSERT_EQ(mortal::freed, round);
        });
}

}  // namespace
