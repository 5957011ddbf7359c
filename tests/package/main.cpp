#include <com/diagnostics.h>
#include <com/error.h>

#include <cstdio>

// Uses a function, and an exception that the DLL throws and this program catches.
int main() {
    try {
        com::throw_error(E_ACCESSDENIED);
    } catch (const com::error& e) {
        std::printf("caught %08lX, %ld objects alive\n", static_cast<unsigned long>(e.hresult),
                    com::live_object_count());
        return e.hresult == E_ACCESSDENIED && com::live_object_count() == 0 ? 0 : 1;
    }
    return 1;
}
