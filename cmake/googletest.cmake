# GTest::gtest, GTest::gtest_main and GTest::gmock, from an installed package built for this target or from
# GoogleTest's source (Debian's package googletest puts it under /usr/src/googletest).

set(MOSSHARBOUR_GOOGLETEST_SOURCE "/usr/src/googletest" CACHE PATH "Source folder of GoogleTest")

if(EXISTS "${MOSSHARBOUR_GOOGLETEST_SOURCE}/CMakeLists.txt")
    set(INSTALL_GTEST OFF)
    set(gtest_force_shared_crt ON)
    set(CMAKE_POLICY_DEFAULT_CMP0077 NEW)
    add_subdirectory("${MOSSHARBOUR_GOOGLETEST_SOURCE}" "${CMAKE_BINARY_DIR}/googletest" EXCLUDE_FROM_ALL SYSTEM)
else()
    find_package(GTest CONFIG)
    if(NOT GTest_FOUND)
        message(FATAL_ERROR "The tests need GoogleTest: set MOSSHARBOUR_GOOGLETEST_SOURCE to its source folder, "
            "or build without tests (MOSSHARBOUR_BUILD_TESTS=OFF).")
    endif()
endif()
