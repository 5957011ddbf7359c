# Warnings of the project's own code; the headers of others come in as system headers.

add_library(mossharbour_warnings INTERFACE)

if(MSVC)
    # 4251, 4275: exported classes have members and bases of the standard library, whose DLL is shared.
    target_compile_options(mossharbour_warnings INTERFACE $<$<COMPILE_LANGUAGE:CXX>:/W4 /wd4251 /wd4275>)
    if(MOSSHARBOUR_WARNINGS_AS_ERRORS)
        target_compile_options(mossharbour_warnings INTERFACE $<$<COMPILE_LANGUAGE:CXX>:/WX>)
    endif()
else()
    # -Wnon-virtual-dtor stays off: COM interfaces have no virtual destructor, by their binary layout.
    target_compile_options(mossharbour_warnings INTERFACE $<$<COMPILE_LANGUAGE:CXX>:
        -Wall -Wextra -Wpedantic -Wconversion -Wsign-conversion -Wshadow -Wold-style-cast -Wcast-qual
        -Wundef -Wformat=2 -Wimplicit-fallthrough -Woverloaded-virtual -Wextra-semi -Wnull-dereference>)
    if(CMAKE_CXX_COMPILER_ID STREQUAL "GNU")
        target_compile_options(mossharbour_warnings INTERFACE $<$<COMPILE_LANGUAGE:CXX>:
            -Wduplicated-cond -Wduplicated-branches -Wlogical-op>)
    endif()
    if(CMAKE_CXX_COMPILER_ID STREQUAL "Clang")
        # MinGW's headers declare the platform's operations as throwing nothing, to clang as part of their type.
        target_compile_options(mossharbour_warnings INTERFACE
            $<$<COMPILE_LANGUAGE:CXX>:-Wno-microsoft-exception-spec>)
    endif()
    if(MOSSHARBOUR_WARNINGS_AS_ERRORS)
        target_compile_options(mossharbour_warnings INTERFACE $<$<COMPILE_LANGUAGE:CXX>:-Werror>)
    endif()
endif()

# mossharbour_own_target(<target>): the language settings and warnings of the project's own code.
function(mossharbour_own_target target)
    target_link_libraries(${target} PRIVATE
        $<BUILD_INTERFACE:mossharbour_warnings> $<BUILD_INTERFACE:mossharbour_windows>)
endfunction()
