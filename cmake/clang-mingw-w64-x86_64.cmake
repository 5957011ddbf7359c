# clang on Linux for the same target as mingw-w64-x86_64.cmake, with GCC's standard library and runtime DLLs.

include("${CMAKE_CURRENT_LIST_DIR}/mingw-w64-x86_64.cmake")

set(MOSSHARBOUR_MINGW_GCC x86_64-w64-mingw32-g++-posix)
execute_process(COMMAND ${MOSSHARBOUR_MINGW_GCC} -print-file-name=include/c++
    OUTPUT_VARIABLE standard_headers OUTPUT_STRIP_TRAILING_WHITESPACE COMMAND_ERROR_IS_FATAL ANY)
execute_process(COMMAND ${MOSSHARBOUR_MINGW_GCC} -print-libgcc-file-name
    OUTPUT_VARIABLE gcc_folder OUTPUT_STRIP_TRAILING_WHITESPACE COMMAND_ERROR_IS_FATAL ANY)
cmake_path(GET gcc_folder PARENT_PATH gcc_folder)

set(CMAKE_C_COMPILER clang)
set(CMAKE_C_COMPILER_TARGET x86_64-w64-windows-gnu)
set(CMAKE_CXX_COMPILER clang++)
set(CMAKE_CXX_COMPILER_TARGET x86_64-w64-windows-gnu)
# GCC's library has its thread-local variables emulated.
string(CONCAT CMAKE_CXX_FLAGS_INIT
    "-femulated-tls "
    "-stdlib++-isystem \"${standard_headers}\" "
    "-stdlib++-isystem \"${standard_headers}/x86_64-w64-mingw32\" "
    "-Wno-unused-command-line-argument")
set(link_flags "-fuse-ld=lld -L\"${gcc_folder}\" -pthread")
set(CMAKE_EXE_LINKER_FLAGS_INIT "${link_flags}")
set(CMAKE_SHARED_LINKER_FLAGS_INIT "${link_flags}")
