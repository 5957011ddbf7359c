#include <windows.h>

#include <gmock/gmock.h>

#include <cstdio>

int main(int argument_count, char** arguments) {
    // A crash ends the program at once, with all that was printed: nobody is there to close a dialog.
    SetErrorMode(SEM_FAILCRITICALERRORS | SEM_NOGPFAULTERRORBOX | SEM_NOOPENFILEERRORBOX);
    std::setvbuf(stdout, nullptr, _IONBF, 0);
    testing::InitGoogleMock(&argument_count, arguments);
    return RUN_ALL_TESTS();
}
