# Fails unless the library exports what exports.txt lists, no more and no less: a change of the interface is a
# decision. Given by -D: LIBRARY, OBJDUMP, DEMANGLER, LIST; with UPDATE the list is written anew.

execute_process(COMMAND "${OBJDUMP}" -p "${LIBRARY}" OUTPUT_VARIABLE headers COMMAND_ERROR_IS_FATAL ANY)
string(REGEX MATCH "\\[Ordinal/Name Pointer\\] Table.*" table "${headers}")
string(FIND "${table}" "\n\n" end)
string(SUBSTRING "${table}" 0 ${end} table)
string(REGEX MATCHALL "\\[ *[0-9]+\\] [^\n]+" lines "${table}")
list(TRANSFORM lines REPLACE "^\\[ *[0-9]+\\] ([+]base\\[ *[0-9]+\\] +[0-9a-f]+ )?" "")
list(LENGTH lines count)
if(count LESS 100)
    message(FATAL_ERROR "${LIBRARY}: an export table of ${count} names is none")
endif()

list(JOIN lines "\n" mangled)
set(names "${CMAKE_CURRENT_BINARY_DIR}/exports.mangled")
file(WRITE "${names}" "${mangled}\n")
execute_process(COMMAND "${DEMANGLER}" INPUT_FILE "${names}" OUTPUT_VARIABLE exported COMMAND_ERROR_IS_FATAL ANY)
file(REMOVE "${names}")

# A list of CMake is no place for brackets and semicolons.
function(lines_of text variable)
    string(REGEX REPLACE "[\n]+$" "" text "${text}")
    string(REPLACE "[" "<:" text "${text}")
    string(REPLACE "]" ":>" text "${text}")
    string(REPLACE "\n" ";" text "${text}")
    list(REMOVE_DUPLICATES text)
    list(SORT text)
    set(${variable} "${text}" PARENT_SCOPE)
endfunction()

function(text_of lines variable)
    list(JOIN lines "\n" text)
    string(REPLACE "<:" "[" text "${text}")
    string(REPLACE ":>" "]" text "${text}")
    set(${variable} "${text}" PARENT_SCOPE)
endfunction()

lines_of("${exported}" found)
list(FILTER found EXCLUDE REGEX "thunk to ")  # they come with the classes
if(UPDATE)
    text_of("${found}" text)
    file(WRITE "${LIST}" "${text}\n")
    return()
endif()

file(READ "${LIST}" text)
lines_of("${text}" expected)
set(surplus ${found})
list(REMOVE_ITEM surplus ${expected})
set(absent ${expected})
list(REMOVE_ITEM absent ${found})
if(surplus OR absent)
    list(TRANSFORM surplus PREPEND "+ ")
    list(TRANSFORM absent PREPEND "- ")
    text_of("${surplus};${absent}" difference)
    message(FATAL_ERROR "The library's exports are not those of ${LIST}:\n${difference}\n"
        "Where that is meant, run this script again with -DUPDATE=ON and commit the list.")
endif()
