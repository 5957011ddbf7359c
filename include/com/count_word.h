#pragma once

#include <atomic>
#include <cstdint>

namespace com {

/// The reference counts of an object, both in one atomic 32-bit word: bits 0 to 19 count the strong
/// references, bits 20 to 31 the weak ones. The storage of an object stays while the word is not zero.
/// Neither field is checked for overflow. Every operation is safe from any thread and sequentially
/// consistent.
class count_word {
public:
    static constexpr std::uint32_t one_strong = 1;
    static constexpr std::uint32_t one_weak = 0x100000;
    static constexpr std::uint32_t strong_mask = 0xFFFFF;

    struct keep_tag {};

    /// A new object has no reference of either kind.
    count_word() noexcept : word_(0) {}
    /// Takes the word as it lies in the storage: how the table of a dead object is laid over a live count.
    explicit count_word(keep_tag) noexcept {}
    count_word(const count_word&) = delete;
    count_word& operator=(const count_word&) = delete;
    ~count_word() = default;

    [[nodiscard]] std::uint32_t load() const noexcept { return word_.load(); }

    /// Takes a strong reference. Returns the new word.
    std::uint32_t add_strong() noexcept { return word_.fetch_add(one_strong) + one_strong; }

    /// Gives back a strong reference that is not the last one. Returns the new word, or 0 when it is the
    /// last: then nothing has changed, and `strong_to_weak` is due.
    [[nodiscard]] std::uint32_t drop_strong_unless_last() noexcept {
        std::uint32_t word = word_.load();
        while ((word & strong_mask) > 1) {
            if (word_.compare_exchange_weak(word, word - one_strong)) return word - one_strong;
        }
        return 0;
    }

    /// Does what `strong_to_weak` does when the strong reference is the only one of either kind. Nobody else
    /// can reach the word then, so a plain store will do. False, and nothing changed, when it is not the only
    /// one.
    [[nodiscard]] bool only_strong_to_weak() noexcept {
        if (word_.load(std::memory_order_acquire) != one_strong) return false;
        word_.store(one_weak, std::memory_order_relaxed);
        return true;
    }

    /// True when the caller's weak reference is the only one of either kind: nobody else can reach the word.
    [[nodiscard]] bool only_weak() const noexcept {
        return word_.load(std::memory_order_acquire) == one_weak;
    }

    /// Turns a strong reference into a weak one, in one step: whoever does it pins the storage. Returns the
    /// new word.
    [[nodiscard]] std::uint32_t strong_to_weak() noexcept {
        constexpr std::uint32_t step = one_weak - one_strong;
        std::uint32_t word = word_.load();
        while (!word_.compare_exchange_weak(word, word + step)) {
        }
        return word + step;
    }

    void add_weak() noexcept { word_.fetch_add(one_weak); }

    /// Gives back a weak reference. Returns the word ahead of it: exactly `one_weak` means that the word is
    /// zero now and that the caller frees the storage.
    [[nodiscard]] std::uint32_t drop_weak() noexcept { return word_.fetch_sub(one_weak); }

    /// Makes a strong reference from a weak one. False once the last strong reference has gone: an object in
    /// teardown never comes back.
    [[nodiscard]] bool lock() noexcept {
        std::uint32_t word = word_.load();
        while ((word & strong_mask) != 0) {
            if (word_.compare_exchange_weak(word, word + one_strong)) return true;
        }
        return false;
    }

private:
    // A union member starts no life of its own in the keeping constructor.
    union {
        std::atomic<std::uint32_t> word_;
    };
};

}  // namespace com
