# Exceptions and standard types cross the DLL's boundary, so with MinGW the library and its clients share
# one C++ runtime, as DLLs; they are copied beside the programs.
#
# mossharbour_runtime: target every program depends on; MOSSHARBOUR_RUNTIME_DLLS: the compiler's files.

add_custom_target(mossharbour_runtime ALL)
set(MOSSHARBOUR_RUNTIME_DLLS)

if(MINGW)
    if(CMAKE_CXX_COMPILER_ID STREQUAL "GNU")
        set(runtime_driver "${CMAKE_CXX_COMPILER}")
    else()
        set(runtime_driver "${MOSSHARBOUR_MINGW_GCC}")
    endif()
    foreach(dll IN ITEMS libstdc++-6.dll libgcc_s_seh-1.dll libwinpthread-1.dll)
        execute_process(COMMAND "${runtime_driver}" "-print-file-name=${dll}"
            OUTPUT_VARIABLE file OUTPUT_STRIP_TRAILING_WHITESPACE COMMAND_ERROR_IS_FATAL ANY)
        if(NOT IS_ABSOLUTE "${file}")
            # Windows distributions of MinGW keep the DLLs beside the compiler.
            cmake_path(GET runtime_driver PARENT_PATH compiler_folder)
            set(file "${compiler_folder}/${dll}")
        endif()
        if(EXISTS "${file}")
            cmake_path(NORMAL_PATH file)
            list(APPEND MOSSHARBOUR_RUNTIME_DLLS "${file}")
        else()
            message(WARNING "${dll} was not found: programs need it on the PATH.")
        endif()
    endforeach()

    set(copies)
    foreach(file IN LISTS MOSSHARBOUR_RUNTIME_DLLS)
        cmake_path(GET file FILENAME name)
        set(copy "${CMAKE_RUNTIME_OUTPUT_DIRECTORY}/${name}")
        add_custom_command(OUTPUT "${copy}"
            COMMAND "${CMAKE_COMMAND}" -E copy_if_different "${file}" "${copy}"
            DEPENDS "${file}" VERBATIM)
        list(APPEND copies "${copy}")
    endforeach()
    add_custom_target(mossharbour_runtime_copies DEPENDS ${copies})
    add_dependencies(mossharbour_runtime mossharbour_runtime_copies)
endif()
