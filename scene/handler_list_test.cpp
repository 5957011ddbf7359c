#include "scene/handler_list.h"

#include <cstdint>
#include <cstring>
#include <functional>
#include <new>
#include <stdexcept>
#include <string>
#include <vector>

#include <gtest/gtest.h>

namespace {

using namespace d2d::scene;
using names = std::vector<std::string>;

class handler_list_test : public testing::Test {
protected:
    struct functor {
        handler_list_test* test;
        std::string name;
        std::function<bool()> action;
    };

    handler_record* add(std::string name, std::int32_t priority = 0, std::uint32_t id = 1,
                        std::function<bool()> action = nullptr,
                        std::uint32_t mask = handler_record::event_bits,
                        handler_kind kind = handler_kind::mouse) {
        handler_record* const made = make(std::move(name), std::move(action));
        made->id = id;
        made->mask = mask;
        made->priority = priority;
        made->kind = kind;
        list.link(made);
        return made;
    }

    /// A record that wants nothing yet and is in no list.
    handler_record* make(std::string name, std::function<bool()> action = nullptr) {
        const handler_block block = handler_list::allocate(sizeof(functor));
        ::new (block.functor) functor{this, std::move(name), std::move(action)};
        block.record->destroy = [](void* memory) {
            auto* const own = static_cast<functor*>(memory);
            own->test->destroyed.push_back(own->name);
            own->~functor();
        };
        return block.record;
    }

    bool dispatch(std::uint32_t events = 1, handler_kind kind = handler_kind::mouse) {
        return list.dispatch(kind, events, [this](handler_record& record) {
            auto* const own = static_cast<functor*>(handler_list::functor_of(&record));
            log.push_back(own->name);
            return own->action && own->action();
        });
    }
    names called(std::uint32_t events = 1, handler_kind kind = handler_kind::mouse) {
        dispatch(events, kind);
        return std::exchange(log, {});
    }
    names taken_destroyed() { return std::exchange(destroyed, {}); }

    names log;
    names destroyed;
    handler_list list;  // the last member: its records note their destruction
};

TEST_F(handler_list_test, records_are_zeroed_and_functors_are_aligned) {
    for (const unsigned size : {0u, 1u, 7u, 8u, 32u, 1000u}) {
        const handler_block block = handler_list::allocate(size);
        EXPECT_EQ(nullptr, block.record->next);
        EXPECT_EQ(0u, block.record->id);
        EXPECT_EQ(0u, block.record->mask);
        EXPECT_EQ(0, block.record->priority);
        EXPECT_EQ(nullptr, block.record->destroy);
        EXPECT_EQ(nullptr, block.record->invoke);
        EXPECT_EQ(handler_kind::mouse, block.record->kind);
        EXPECT_EQ(0u, reinterpret_cast<std::uintptr_t>(block.functor) % 8);
        EXPECT_GE(static_cast<std::byte*>(block.functor),
                  reinterpret_cast<std::byte*>(block.record) + sizeof(handler_record));
        EXPECT_EQ(block.functor, handler_list::functor_of(block.record));
        const std::vector<unsigned char> zeros(size);
        EXPECT_EQ(0, std::memcmp(block.functor, zeros.data(), size));
        handler_list::free(block.record);
    }
}

TEST_F(handler_list_test, free_destroys_the_functor_of_a_record_in_no_list) {
    const handler_block block = handler_list::allocate(sizeof(int*));
    static int destructions = 0;
    block.record->destroy = [](void*) { ++destructions; };
    handler_list::free(block.record);
    EXPECT_EQ(1, destructions);
}

TEST_F(handler_list_test, order_is_by_priority_and_then_by_coming) {
    add("zero", 0);
    add("five", 5);
    add("minus", -3);
    add("zero again", 0);
    add("five again", 5);
    add("lowest", -0x7fffffff - 1);
    add("highest", 0x7fffffff);
    add("minus again", -3);
    EXPECT_EQ(
        (names{"lowest", "minus", "minus again", "zero", "zero again", "five", "five again", "highest"}),
        called());
}

TEST_F(handler_list_test, only_the_low_28_bits_of_a_mask_are_the_callers) {
    EXPECT_EQ(0x0FFFFFFFu, add("a", 0, 1, nullptr, 0xFFFFFFFFu)->mask);
    EXPECT_EQ((names{"a"}), called()) << "the caller's bit for removed does not count";
    EXPECT_EQ(0x00000008u, add("b", 0, 1, nullptr, 0x80000008u)->mask);
}

TEST_F(handler_list_test, kind_and_mask_choose_who_is_called) {
    add("moves", 0, 1, nullptr, 1u << 1);
    add("presses", 0, 1, nullptr, 1u << 3);
    add("both", 0, 1, nullptr, 1u << 1 | 1u << 3);
    add("cursor", 0, 1, nullptr, handler_record::event_bits, handler_kind::cursor);
    EXPECT_EQ((names{"moves", "both"}), called(1u << 1));
    EXPECT_EQ((names{"presses", "both"}), called(1u << 3));
    EXPECT_EQ(names{}, called(1u << 2));
    EXPECT_EQ((names{"cursor"}), called(handler_record::event_bits, handler_kind::cursor));
}

TEST_F(handler_list_test, first_true_ends_the_dispatch) {
    add("a", 0, 1, [] { return false; });
    add("b", 0, 1, [] { return true; });
    add("c");
    EXPECT_TRUE(dispatch());
    EXPECT_EQ((names{"a", "b"}), log);
}

TEST_F(handler_list_test, dispatch_hands_out_the_first_result_that_is_not_null) {
    add("a");
    add("b");
    int number = 0;
    int* const result = list.dispatch(handler_kind::mouse, 1, [&](handler_record& record) -> int* {
        return static_cast<functor*>(handler_list::functor_of(&record))->name == "b" ? &number : nullptr;
    });
    EXPECT_EQ(&number, result);
    EXPECT_EQ(nullptr, list.dispatch(handler_kind::cursor, 1, [&](handler_record&) { return &number; }));
}

TEST_F(handler_list_test, removal_outside_a_dispatch_takes_effect_at_once) {
    handler_record* const a = add("a");
    handler_record* const b = add("b");
    handler_record* const c = add("c");
    list.remove(b);
    EXPECT_EQ((names{"b"}), taken_destroyed());
    EXPECT_EQ((names{"a", "c"}), called());
    list.remove(c);
    list.remove(a);
    EXPECT_EQ((names{"c", "a"}), taken_destroyed());
    EXPECT_TRUE(list.empty());
}

TEST_F(handler_list_test, removal_of_the_first_of_an_id_leaves_the_others) {
    add("other", 0, 2);
    add("first", 0, 1);
    add("second", 0, 1);
    list.remove_first(1);
    EXPECT_EQ((names{"other", "second"}), called());
    list.remove_first(1);
    list.remove_first(1);
    EXPECT_EQ((names{"other"}), called());
}

TEST_F(handler_list_test, removal_by_id_takes_all_of_it) {
    add("a", 0, 1);
    add("b", 0, 2);
    add("c", 0, 1);
    add("d", 0, 1);
    list.remove_all(7);
    EXPECT_EQ(names{}, destroyed);
    list.remove_all(1);
    EXPECT_EQ((names{"a", "c", "d"}), taken_destroyed());
    EXPECT_EQ((names{"b"}), called());
}

TEST_F(handler_list_test, removal_during_a_dispatch_only_marks_and_the_record_is_not_called_any_more) {
    handler_record* second = nullptr;
    add("first", 0, 1, [&] {
        list.remove(second);
        EXPECT_EQ(names{}, destroyed);
        EXPECT_EQ(0x80000000u, second->mask & 0x80000000u);
        return false;
    });
    second = add("second");
    EXPECT_EQ((names{"first"}), called());
    EXPECT_EQ((names{"second"}), taken_destroyed());
    EXPECT_EQ((names{"first"}), called());
}

TEST_F(handler_list_test, record_may_remove_itself_during_its_call) {
    handler_record* self = nullptr;
    self = add("self", 0, 1, [&] {
        list.remove(self);
        log.push_back("goes on");
        return false;
    });
    EXPECT_EQ((names{"self", "goes on"}), called());
    EXPECT_EQ((names{"self"}), taken_destroyed());
    EXPECT_TRUE(list.empty());
}

TEST_F(handler_list_test, sweep_drops_what_stands_behind_the_first_marked_record) {
    handler_record* second = nullptr;
    add("first", 0, 1, [&] {
        list.remove(second);
        return false;
    });
    second = add("second");
    add("third");
    add("fourth", 3, 2);
    EXPECT_EQ((names{"first", "third", "fourth"}), called()) << "in this dispatch they are still called";
    EXPECT_EQ((names{"second", "third", "fourth"}), taken_destroyed());
    EXPECT_EQ((names{"first"}), called());
}

TEST_F(handler_list_test, sweep_waits_for_the_outermost_dispatch) {
    handler_record* second = nullptr;
    int depth = 0;
    add("first", 0, 1, [&] {
        if (++depth == 1) {
            dispatch();
            EXPECT_EQ(names{}, destroyed);
        } else if (depth == 2) {
            list.remove(second);
        }
        return false;
    });
    second = add("second");
    add("third");
    EXPECT_EQ((names{"first", "first", "third", "third"}), called());
    EXPECT_EQ((names{"second", "third"}), taken_destroyed());
}

TEST_F(handler_list_test, removal_of_the_first_of_an_id_passes_over_marked_ones) {
    add("first", 0, 1, [&] {
        list.remove_first(2);
        list.remove_first(2);
        list.remove_first(2);
        return false;
    });
    add("a", 0, 2);
    add("b", 0, 2);
    EXPECT_EQ((names{"first"}), called());
    EXPECT_EQ((names{"a", "b"}), taken_destroyed());
}

TEST_F(handler_list_test, records_added_during_a_dispatch_are_in_the_list_at_once) {
    int runs = 0;
    add("first", 0, 1, [&] {
        if (runs++ == 0) {
            add("behind", 1);
            add("ahead", -1);
        }
        return false;
    });
    EXPECT_EQ((names{"first", "behind"}), called());
    EXPECT_EQ((names{"ahead", "first", "behind"}), called());
}

TEST_F(handler_list_test, clear_during_a_dispatch_marks_all_and_the_sweep_empties_the_list) {
    add("first");
    add("second", 0, 1, [&] {
        list.clear();
        EXPECT_EQ(names{}, destroyed);
        return false;
    });
    add("third");
    EXPECT_EQ((names{"first", "second"}), called());
    EXPECT_EQ((names{"first", "second", "third"}), taken_destroyed());
    EXPECT_TRUE(list.empty());
    add("new");
    EXPECT_EQ((names{"new"}), called());
}

TEST_F(handler_list_test, clear_outside_a_dispatch_destroys_at_once) {
    add("first");
    add("second");
    list.clear();
    EXPECT_EQ((names{"first", "second"}), taken_destroyed());
    EXPECT_TRUE(list.empty());
}

TEST_F(handler_list_test, throw_puts_the_depth_back_and_sweeps) {
    handler_record* second = nullptr;
    bool throws = true;
    add("first", 0, 1, [&]() -> bool {
        if (!throws) return false;
        list.remove(second);
        throw std::runtime_error("handler");
    });
    second = add("second");
    EXPECT_THROW(dispatch(), std::runtime_error);
    EXPECT_EQ((names{"second"}), taken_destroyed());
    throws = false;
    log.clear();
    handler_record* const third = add("third");
    EXPECT_EQ((names{"first", "third"}), called());
    list.remove(third);
    EXPECT_EQ((names{"third"}), taken_destroyed()) << "no dispatch is taken for still running";
}

TEST_F(handler_list_test, throw_out_of_a_nested_dispatch_leaves_the_outer_one_running) {
    handler_record* last = nullptr;
    int depth = 0;
    add("first", 0, 1, [&]() -> bool {
        if (++depth == 2) throw std::runtime_error("inner");
        if (depth == 1) {
            EXPECT_THROW(dispatch(), std::runtime_error);
            list.remove(last);
            EXPECT_EQ(names{}, destroyed) << "the outer dispatch is still running";
        }
        return false;
    });
    last = add("last");
    EXPECT_EQ((names{"first", "first"}), called());
    EXPECT_EQ((names{"last"}), taken_destroyed());
}

TEST_F(handler_list_test, destructor_destroys_all_functors_in_list_order) {
    {
        handler_list short_lived;
        short_lived.link(make("a"));
        short_lived.link(make("b"));
    }
    EXPECT_EQ((names{"a", "b"}), taken_destroyed());
}

}  // namespace
