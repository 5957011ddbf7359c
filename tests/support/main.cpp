#include <windows.h>

#include <gmock/gmock.h>

#include <cstdio>
#include <memory>

namespace {

/// Says where a program is that prints failures alone: it may never come to its end.
class suite_printer : public testing::EmptyTestEventListener {
    void OnTestSuiteStart(const testing::TestSuite& suite) override { std::printf("%s\n", suite.name()); }
};

}  // namespace

int main(int argument_count, char** arguments) {
    // A crash ends the program at once, with all that was printed: nobody is there to close a dialog.
    SetErrorMode(SEM_FAILCRITICALERRORS | SEM_NOGPFAULTERRORBOX | SEM_NOOPENFILEERRORBOX);
    std::setvbuf(stdout, nullptr, _IONBF, 0);
    testing::InitGoogleMock(&argument_count, arguments);
    if (testing::GTEST_FLAG(brief)) {
        auto printer = std::make_unique<suite_printer>();
        testing::UnitTest::GetInstance()->listeners().Append(printer.release());  // which owns it
    }
    return RUN_ALL_TESTS();
}
