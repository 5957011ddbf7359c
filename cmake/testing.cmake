# Tests: one console program, one process and one ctest entry for each call.
#
# mossharbour_add_test(<name> SOURCES <file>... [LIBRARIES <target>...] [SCREEN])
#     Client tests give LIBRARIES mossHarbour::ui. SCREEN: the test opens real windows or sends real input;
#     nothing else runs at the same time then.
# mossharbour_add_unit_test(<name> SOURCES <file>... [LIBRARIES <target>...] [SCREEN])
#     The same, linked with the library's objects: internals can be seen. With scene_testing among the LIBRARIES
#     there is a second entry, <name>_on_debug_heap, which runs the program where the first mistake with memory
#     ends it (tests/support/debug_heap.h); not with SCREEN, where a window would wait for it.
# Both do nothing where tests are not built.

set(MOSSHARBOUR_TEST_TIMEOUT 600 CACHE STRING "Seconds after which a test program counts as hung")

# mossharbour_test_code(<target>): the settings of code that only tests use. In release builds of GCC it is
# optimised less than what it tests, and compiled in a third less time; empty optionals and short strings look
# misused to GCC then.
function(mossharbour_test_code target)
    mossharbour_own_target(${target})
    if(CMAKE_CXX_COMPILER_ID STREQUAL "GNU")
        target_compile_options(${target} PRIVATE $<$<CONFIG:Release>:-O1;-Wno-maybe-uninitialized;-Wno-array-bounds>)
    endif()
    if(MOSSHARBOUR_PRECOMPILED_HEADERS AND NOT target STREQUAL "test_support")
        target_precompile_headers(${target} REUSE_FROM test_support)
    endif()
endfunction()

function(mossharbour_add_test name)
    if(NOT MOSSHARBOUR_BUILD_TESTS)
        return()
    endif()
    cmake_parse_arguments(PARSE_ARGV 1 arg "SCREEN" "" "SOURCES;LIBRARIES")
    if(arg_UNPARSED_ARGUMENTS OR NOT arg_SOURCES)
        message(FATAL_ERROR "mossharbour_add_test(${name}): SOURCES <file>... [LIBRARIES <target>...] [SCREEN]")
    endif()
    add_executable(${name} ${arg_SOURCES})
    mossharbour_test_code(${name})
    target_link_libraries(${name} PRIVATE ${arg_LIBRARIES} test_support GTest::gmock GTest::gtest)
    add_dependencies(${name} mossharbour_runtime)
    if(TARGET mossharbour_wine)
        add_dependencies(${name} mossharbour_wine)
    endif()
    add_test(NAME ${name} COMMAND ${name})
    # Failures alone: they would be lost among thousands of lines. A program that came to its end says so.
    set_tests_properties(${name} PROPERTIES
        TIMEOUT ${MOSSHARBOUR_TEST_TIMEOUT} ENVIRONMENT "GTEST_BRIEF=1;MOSSHARBOUR_EXPECT_OUTPUT= ran. (")
    if(arg_SCREEN)
        set_tests_properties(${name} PROPERTIES RUN_SERIAL ON)
    endif()
endfunction()

function(mossharbour_add_unit_test name)
    cmake_parse_arguments(PARSE_ARGV 1 arg "SCREEN" "" "SOURCES;LIBRARIES")
    set(screen)
    if(arg_SCREEN)
        set(screen SCREEN)
    endif()
    mossharbour_add_test(${name} ${screen}
        SOURCES ${arg_SOURCES} LIBRARIES mossHarbour.ui.objects ${arg_LIBRARIES})
    if(TARGET ${name} AND "scene_testing" IN_LIST arg_LIBRARIES AND NOT arg_SCREEN)
        add_test(NAME ${name}_on_debug_heap COMMAND ${name})
        set_tests_properties(${name}_on_debug_heap PROPERTIES
            ENVIRONMENT "GTEST_BRIEF=1;MOSSHARBOUR_EXPECT_OUTPUT= ran. (;MOSSHARBOUR_DEBUG_HEAP=1"
            TIMEOUT 900 COST 100)  # a block there costs some hundred times as much: these start first
    endif()
endfunction()
