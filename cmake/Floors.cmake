# SPDX-License-Identifier: GPL-3.0-or-later
# One folder is one target, linked to what the table of floors lets it use: an include of anything
# else does not find its library, and tests/architecture checks the includes themselves.
include(cmake/FloorTable.cmake)
set(TOVIK_FLOORS_FILE ${PROJECT_SOURCE_DIR}/tests/architecture/floors.txt)
set(TOVIK_LIBRARIES_FILE ${PROJECT_SOURCE_DIR}/tests/architecture/libraries.txt)
set_property(DIRECTORY APPEND PROPERTY
    CMAKE_CONFIGURE_DEPENDS ${TOVIK_FLOORS_FILE} ${TOVIK_LIBRARIES_FILE})
tovik_read_floors(${TOVIK_FLOORS_FILE} ${PROJECT_SOURCE_DIR}/src)
tovik_read_widget_folders(${TOVIK_LIBRARIES_FILE})

# tovik_folders(folder ...): adds each of these folders that has a CMakeLists.txt.
function(tovik_folders)
    foreach(folder IN LISTS ARGN)
        if(EXISTS ${CMAKE_CURRENT_SOURCE_DIR}/${folder}/CMakeLists.txt)
            add_subdirectory(${folder})
        endif()
    endforeach()
endfunction()

# tovik_floors(): adds the folders below this one of src/, from the ground up; those with widgets
# only where Qt is.
function(tovik_floors)
    _tovik_folder(folder)
    tovik_children("${folder}" children)
    get_property(widgets GLOBAL PROPERTY TOVIK_WIDGET_FOLDERS)
    foreach(child IN LISTS children)
        string(REGEX REPLACE "^/" "" path "${folder}/${child}")
        if(TOVIK_WITH_QT OR NOT path IN_LIST widgets)
            tovik_folders(${child})
        endif()
    endforeach()
endfunction()

# This folder of src/; empty for src/ itself.
function(_tovik_folder out)
    file(RELATIVE_PATH folder ${PROJECT_SOURCE_DIR}/src ${CMAKE_CURRENT_SOURCE_DIR})
    set(${out} "${folder}" PARENT_SCOPE)
endfunction()

# Qt's headers, compiled once for every target that asks for QT.
if(TOVIK_WITH_QT)
    file(GENERATE OUTPUT ${CMAKE_BINARY_DIR}/qt_precompiled.cpp CONTENT "")
    add_library(tovik_qt_precompiled STATIC ${CMAKE_BINARY_DIR}/qt_precompiled.cpp)
    target_link_libraries(tovik_qt_precompiled PUBLIC Qt6::Widgets PRIVATE tovik_warnings)
    target_precompile_headers(tovik_qt_precompiled
                              PRIVATE ${PROJECT_SOURCE_DIR}/cmake/QtPrecompiled.h)
endif()

# tovik_library(NAME SOURCES ... [USES target ...] [PRIVATE_USES target ...] [QT])
# Within src/ it is linked to all that its folder may use, or, where USES names targets of other
# folders, to these alone. Outside of src/ only what it names is linked.
function(tovik_library name)
    cmake_parse_arguments(ARG "QT" "" "SOURCES;USES;PRIVATE_USES" ${ARGN})
    add_library(${name} STATIC ${ARG_SOURCES})
    target_include_directories(${name} PUBLIC ${PROJECT_SOURCE_DIR}/src)
    _tovik_folder(folder)
    if(NOT folder MATCHES "^\\.\\.")
        _tovik_link_floors(${name} ${folder} "${ARG_USES}")
    endif()
    target_link_libraries(${name} PUBLIC ${ARG_USES}
                                  PRIVATE ${ARG_PRIVATE_USES} tovik_warnings)
    if(ARG_QT)
        target_link_libraries(${name} PUBLIC Qt6::Widgets)
        # moc reads our headers alone: it need not wait until the libraries below are built.
        set_target_properties(${name} PROPERTIES AUTOMOC ON AUTOGEN_ORIGIN_DEPENDS OFF)
        target_precompile_headers(${name} REUSE_FROM tovik_qt_precompiled)
    endif()
endfunction()

# Links a target of a folder to what the folder may use, or sees that the targets of ours that it
# names are among these.
function(_tovik_link_floors name folder named)
    tovik_usable(${folder} usable)
    get_property(own GLOBAL PROPERTY TOVIK_TARGETS_${folder})
    tovik_target_of(${folder} ${name})
    set(ours ${named})
    list(FILTER ours INCLUDE REGEX "^tovik_")
    list(REMOVE_ITEM ours ${own} "")
    foreach(target IN LISTS ours)
        if(NOT target IN_LIST usable)
            message(FATAL_ERROR "${name} may not use ${target}: see ${TOVIK_FLOORS_FILE}")
        endif()
    endforeach()
    if(NOT ours)
        target_link_libraries(${name} PUBLIC ${usable})
    endif()
endfunction()

# Test files are compiled in batches: what they include (the test library above all) weighs more than
# what they say. So names in a test's anonymous namespace are unique within its folder.
set(TOVIK_TEST_BATCH 8 CACHE STRING "Test files compiled as one; 0: each by itself")

# One folder of generated media serves all presets.
set(TOVIK_MEDIA_DIR ${PROJECT_SOURCE_DIR}/build/media)

# All test programs, and nothing that no test needs.
add_custom_target(tovik_test_programs)

# The tests' own bodies: not optimised, and without the checks for undefined behaviour, which cost a third
# of their compile time. The code under test has both.
set(TOVIK_TEST_OPTIONS -O0 -fPIC)
if(TOVIK_SANITIZE MATCHES "undefined")
    list(APPEND TOVIK_TEST_OPTIONS -fno-sanitize=undefined)
endif()

# The test library's headers, compiled once for all test programs that are not optimised.
file(GENERATE OUTPUT ${CMAKE_BINARY_DIR}/test_precompiled.cpp CONTENT "")
add_library(tovik_test_precompiled STATIC EXCLUDE_FROM_ALL ${CMAKE_BINARY_DIR}/test_precompiled.cpp)
target_link_libraries(tovik_test_precompiled PRIVATE tovik_warnings GTest::gmock_main)
target_compile_options(tovik_test_precompiled PRIVATE ${TOVIK_TEST_OPTIONS})
target_precompile_headers(tovik_test_precompiled
                          PRIVATE ${PROJECT_SOURCE_DIR}/cmake/TestPrecompiled.h)

# tovik_tests(NAME SOURCES ... [USES target ...] [QT] [OPTIMISED]): one test program for one folder. A test
# that needs media finds the folder of generated files in the environment variable TOVIK_MEDIA.
function(tovik_tests name)
    cmake_parse_arguments(ARG "QT;OPTIMISED" "" "SOURCES;USES" ${ARGN})
    add_executable(${name} ${ARG_SOURCES})
    target_include_directories(${name} PRIVATE ${PROJECT_SOURCE_DIR}/src
                                               ${PROJECT_SOURCE_DIR}/tests)
    target_link_libraries(${name} PRIVATE ${ARG_USES} tovik_warnings GTest::gmock_main)
    if(TOVIK_TEST_BATCH GREATER 0)
        set_target_properties(${name} PROPERTIES UNITY_BUILD ON
                                                 UNITY_BUILD_BATCH_SIZE ${TOVIK_TEST_BATCH})
        # A fixture of a batched file stands in no header, as GCC would have it.
        target_compile_options(${name} PRIVATE $<$<CXX_COMPILER_ID:GNU>:-Wno-subobject-linkage>)
    endif()
    if(TOVIK_SANITIZE OR NOT ARG_OPTIMISED)
        target_compile_options(${name} PRIVATE ${TOVIK_TEST_OPTIONS})
        target_precompile_headers(${name} REUSE_FROM tovik_test_precompiled)
    endif()
    if(ARG_QT)
        set_target_properties(${name} PROPERTIES AUTOMOC ON AUTOGEN_ORIGIN_DEPENDS OFF)
    endif()
    add_dependencies(tovik_test_programs ${name})
    add_test(NAME ${name} COMMAND ${name})
    set(environment "TOVIK_MEDIA=${TOVIK_MEDIA_DIR};QT_QPA_PLATFORM=offscreen"
        "LSAN_OPTIONS=suppressions=${PROJECT_SOURCE_DIR}/tests/support/lsan.supp")
    # Of the four that ./check runs beside each other it takes the place of two: it computes, where a
    # test in the window mostly waits.
    set_tests_properties(${name} PROPERTIES
        ENVIRONMENT "${environment}"
        FIXTURES_REQUIRED tovik_media
        PROCESSORS 2)
endfunction()
