# SPDX-License-Identifier: GPL-3.0-or-later
# The folder "data" beside the built player, from which it fills a new data folder: what stands in
# data/ of the source tree, the skin package and the picture of the start, made from the drawings.
if(NOT TARGET tovik OR NOT TARGET tovik_skin_art)
    return()
endif()

set(shipped ${CMAKE_BINARY_DIR}/data)
set(shipped_files)
file(GLOB_RECURSE data_files CONFIGURE_DEPENDS RELATIVE ${PROJECT_SOURCE_DIR}/data
     ${PROJECT_SOURCE_DIR}/data/*)
foreach(file IN LISTS data_files)
    add_custom_command(
        OUTPUT ${shipped}/${file}
        COMMAND ${CMAKE_COMMAND} -E copy ${PROJECT_SOURCE_DIR}/data/${file} ${shipped}/${file}
        DEPENDS ${PROJECT_SOURCE_DIR}/data/${file})
    list(APPEND shipped_files ${shipped}/${file})
endforeach()

# The folder begins empty, so that no picture of an older drawing gets into the package.
set(pictures ${CMAKE_BINARY_DIR}/skin)
set(package ${shipped}/skins/base.tsf)
add_custom_command(
    OUTPUT ${package}
    COMMAND ${CMAKE_COMMAND} -E rm -rf ${pictures}
    COMMAND ${CMAKE_COMMAND} -E make_directory ${pictures} ${shipped}/skins
    COMMAND ${CMAKE_COMMAND} -E env QT_QPA_PLATFORM=offscreen ASAN_OPTIONS=detect_leaks=0
            $<TARGET_FILE:tovik_skin_art> ${pictures}
    COMMAND tovik-skin build ${package} ${pictures}
    DEPENDS tovik_skin_art tovik-skin
    COMMENT "Drawing the skin")

# The picture of the start, twice as large as it shows, for dense screens.
set(splash ${shipped}/skins/splash.png)
add_custom_command(
    OUTPUT ${splash}
    COMMAND ${CMAKE_COMMAND} -E make_directory ${shipped}/skins
    COMMAND ${CMAKE_COMMAND} -E env ASAN_OPTIONS=detect_leaks=0
            $<TARGET_FILE:tovik_skin_art> --splash ${splash} --scale 2
    DEPENDS tovik_skin_art
    COMMENT "Drawing the picture of the start")

# Told from that folder.
set(TOVIK_SHIPPED_FILES ${data_files} skins/base.tsf skins/splash.png)
add_custom_target(tovik_data ALL DEPENDS ${shipped_files} ${package} ${splash})
add_dependencies(tovik tovik_data)
