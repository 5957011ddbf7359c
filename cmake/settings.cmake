# What every target of the project has in common.

set(CMAKE_CXX_STANDARD 20)
set(CMAKE_CXX_STANDARD_REQUIRED ON)
set(CMAKE_CXX_EXTENSIONS OFF)
set(CMAKE_EXPORT_COMPILE_COMMANDS ON)

# Windows looks for a program's DLLs beside the program: one flat folder needs no copying of our own.
set(CMAKE_RUNTIME_OUTPUT_DIRECTORY "${CMAKE_BINARY_DIR}/bin")
set(CMAKE_LIBRARY_OUTPUT_DIRECTORY "${CMAKE_BINARY_DIR}/bin")
set(CMAKE_ARCHIVE_OUTPUT_DIRECTORY "${CMAKE_BINARY_DIR}/lib")

if(CMAKE_CROSSCOMPILING AND NOT CMAKE_CROSSCOMPILING_EMULATOR)
    set(CMAKE_CROSSCOMPILING_EMULATOR
        "${CMAKE_CURRENT_SOURCE_DIR}/tools/run-in-wine" --build "${CMAKE_BINARY_DIR}")
endif()

# The Windows headers as the project's own sources see them. Not a requirement on clients: the exported
# headers compile without any of these (see the verification of header sets).
add_library(mossharbour_windows INTERFACE)
target_compile_definitions(mossharbour_windows INTERFACE
    UNICODE _UNICODE NOMINMAX WIN32_LEAN_AND_MEAN WINVER=0x0A00 _WIN32_WINNT=0x0A00)
if(MSVC)
    target_compile_definitions(mossharbour_windows INTERFACE _CRT_SECURE_NO_WARNINGS)
    target_compile_options(mossharbour_windows INTERFACE
        $<$<COMPILE_LANGUAGE:CXX>:/utf-8 /permissive- /Zc:__cplusplus /EHsc>)
endif()
