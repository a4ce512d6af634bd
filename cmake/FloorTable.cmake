# SPDX-License-Identifier: GPL-3.0-or-later
# The floors of src/ as tests/architecture/floors.txt lists them: CMake links and orders its targets
# by them. Works in a script, too.

# tovik_read_floors(FILE SOURCE): keeps the table, and where the folders lie.
function(tovik_read_floors file source)
    set_property(GLOBAL PROPERTY TOVIK_SOURCE ${source})
    file(STRINGS ${file} lines)
    set(floors)
    foreach(line IN LISTS lines)
        string(REGEX REPLACE "#.*" "" line "${line}")
        if(line MATCHES "^[ \t]*([^: \t]+)[ \t]*:(.*)$")
            set(folder ${CMAKE_MATCH_1})
            separate_arguments(uses UNIX_COMMAND "${CMAKE_MATCH_2}")
            list(APPEND floors ${folder})
            set_property(GLOBAL PROPERTY TOVIK_USES_${folder} "${uses}")
        endif()
    endforeach()
    set_property(GLOBAL PROPERTY TOVIK_FLOORS "${floors}")
endfunction()

# tovik_read_widget_folders(FILE): keeps the folders that show widgets, from the table of libraries.
function(tovik_read_widget_folders file)
    file(STRINGS ${file} line REGEX "^widgets:")
    string(REGEX REPLACE "^widgets:" "" line "${line}")
    separate_arguments(folders UNIX_COMMAND "${line}")
    set_property(GLOBAL PROPERTY TOVIK_WIDGET_FOLDERS "${folders}")
endfunction()

# tovik_children(FOLDER OUT): the folders directly below one of src/ ("" for src/ itself), each
# once, in the order in which the table names them.
function(tovik_children folder out)
    get_property(floors GLOBAL PROPERTY TOVIK_FLOORS)
    set(children)
    foreach(floor IN LISTS floors)
        if(folder STREQUAL "")
            string(REGEX REPLACE "/.*" "" child "${floor}")
            list(APPEND children "${child}")
        elseif(floor MATCHES "^${folder}/([^/]+)")
            list(APPEND children "${CMAKE_MATCH_1}")
        endif()
    endforeach()
    list(REMOVE_DUPLICATES children)
    set(${out} "${children}" PARENT_SCOPE)
endfunction()

# tovik_target_of(FOLDER TARGET): TARGET is what a folder holds, or a part of it.
function(tovik_target_of folder target)
    set_property(GLOBAL APPEND PROPERTY TOVIK_TARGETS_${folder} ${target})
endfunction()

# tovik_usable(FOLDER OUT): the targets of all folders that the folder may use, as far as they were
# told. A folder without a CMakeLists.txt of its own is a part of the one above it.
function(tovik_usable folder out)
    get_property(floors GLOBAL PROPERTY TOVIK_FLOORS)
    set(targets)
    foreach(floor IN LISTS floors)
        _tovik_holder(${floor} holder)
        if(NOT holder STREQUAL folder)
            continue()
        endif()
        get_property(uses GLOBAL PROPERTY TOVIK_USES_${floor})
        foreach(used IN LISTS uses)
            _tovik_holder(${used} holder)
            if(NOT holder STREQUAL folder)
                get_property(held GLOBAL PROPERTY TOVIK_TARGETS_${holder})
                list(APPEND targets ${held})
            endif()
        endforeach()
    endforeach()
    list(REMOVE_DUPLICATES targets)
    set(${out} "${targets}" PARENT_SCOPE)
endfunction()

# The nearest folder, at or above one, with a CMakeLists.txt.
function(_tovik_holder folder out)
    get_property(source GLOBAL PROPERTY TOVIK_SOURCE)
    while(NOT EXISTS ${source}/${folder}/CMakeLists.txt AND folder MATCHES "/")
        string(REGEX REPLACE "/[^/]*$" "" folder "${folder}")
    endwhile()
    set(${out} "${folder}" PARENT_SCOPE)
endfunction()
