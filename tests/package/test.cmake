# Installs the build, builds the client against what was installed and runs it from the installed bin folder.
# Given by -D: BUILD, FOLDER, GENERATOR, TOOLCHAIN, COMPILER, BUILD_TYPE, EMULATOR (a list).

function(run)
    execute_process(COMMAND ${ARGN} RESULT_VARIABLE result)
    if(result)
        string(JOIN " " command ${ARGN})
        message(FATAL_ERROR "failed (${result}): ${command}")
    endif()
endfunction()

file(REMOVE_RECURSE "${FOLDER}")
run("${CMAKE_COMMAND}" --install "${BUILD}" --prefix "${FOLDER}/installed" --config "${BUILD_TYPE}")

set(options "-DCMAKE_PREFIX_PATH=${FOLDER}/installed" "-DCMAKE_BUILD_TYPE=${BUILD_TYPE}"
    "-DCMAKE_RUNTIME_OUTPUT_DIRECTORY=${FOLDER}/installed/bin")
if(TOOLCHAIN)
    list(APPEND options "-DCMAKE_TOOLCHAIN_FILE=${TOOLCHAIN}")
else()
    list(APPEND options "-DCMAKE_CXX_COMPILER=${COMPILER}")
endif()
run("${CMAKE_COMMAND}" -S "${CMAKE_CURRENT_LIST_DIR}" -B "${FOLDER}/client" -G "${GENERATOR}" ${options})
run("${CMAKE_COMMAND}" --build "${FOLDER}/client" --config "${BUILD_TYPE}")
run(${EMULATOR} "${FOLDER}/installed/bin/package_client.exe")
