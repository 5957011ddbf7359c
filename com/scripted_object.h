#pragma once

#include "com/counting_fake.h"
#include "com/object.h"

#include <atomic>
#include <cstdlib>
#include <cstring>
#include <functional>
#include <new>

class scripted_object;

/// What a test has an object do at the moments of its life, and what happened.
struct life_script {
    using step = std::function<void(scripted_object&)>;

    step in_constructor;
    step in_final_construct;
    step in_final_release;
    step in_destructor;
    call_list calls;
};

/// Base of the object below: shows what is intact when.
class scripted_root : public com::base_object<com::object_base, ISquare, IPaint> {
public:
    explicit scripted_root(life_script& script) : script_(script) { note("root constructor"); }

    [[nodiscard]] virtual const char* dynamic_type() const noexcept { return "root"; }

protected:
    ~scripted_root() { note("root destructor"); }

    void note(const char* moment) { script_.calls.push_back(std::string(moment) + " of " + dynamic_type()); }

    life_script& script_;
};

/// An object that follows a script, and whose class counts the storage that it takes and gives back.
class scripted_object : public scripted_root {
public:
    struct part {
        life_script* script = nullptr;
        ~part() { script->calls.emplace_back("part destructor"); }
    };

    explicit scripted_object(life_script& script) : scripted_root(script), part_{&script} {
        note("constructor");
        if (script_.in_constructor) script_.in_constructor(*this);
    }
    ~scripted_object() {
        note("destructor");
        if (script_.in_destructor) script_.in_destructor(*this);
    }

    void final_construct() {
        note("final_construct");
        if (script_.in_final_construct) script_.in_final_construct(*this);
    }
    void final_release() {
        note("final_release");
        if (script_.in_final_release) script_.in_final_release(*this);
    }

    [[nodiscard]] const char* dynamic_type() const noexcept override { return "object"; }

    static void* operator new(std::size_t size) {
        ++taken;
        size_taken = size;
        return ::operator new(size);
    }
    static void operator delete(void* storage) noexcept {
        ++given_back;
        std::memset(storage, 0xDD, size_taken);  // what is read after this is seen to be wrong
        ::operator delete(storage);
    }

    inline static std::atomic<int> taken = 0;
    inline static std::atomic<int> given_back = 0;
    inline static std::size_t size_taken = 0;

    /// What the script wants the object to hold: destroyed with it.
    std::vector<std::function<void()>> held;

private:
    part part_;
};
