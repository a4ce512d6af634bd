# SPDX-License-Identifier: GPL-3.0-or-later
# What is installed where, below any prefix: the player finds its parts in ../lib/tovik and what is
# shipped in ../share/tovik, as seen from its own folder. The target "tovik_installed" builds it all.
if(NOT TARGET tovik OR NOT TARGET tovik_skin_art)
    return()
endif()

set(packaging ${PROJECT_SOURCE_DIR}/packaging)
add_custom_target(tovik_installed ALL DEPENDS tovik tovik-skin tovik_data)

install(TARGETS tovik tovik-skin RUNTIME DESTINATION bin)
get_property(modules GLOBAL PROPERTY TOVIK_MODULES)
get_property(visuals GLOBAL PROPERTY TOVIK_VISUALS)
add_dependencies(tovik_installed ${modules} ${visuals})
install(TARGETS ${modules} LIBRARY DESTINATION lib/tovik/modules RUNTIME DESTINATION lib/tovik)
install(TARGETS ${visuals} LIBRARY DESTINATION lib/tovik/Vis)

# Files and not the folder, which may hold what an earlier build laid there.
foreach(file IN LISTS TOVIK_SHIPPED_FILES)
    cmake_path(GET file PARENT_PATH folder)
    install(FILES ${CMAKE_BINARY_DIR}/data/${file} DESTINATION share/tovik/${folder})
endforeach()

# The icons that are in the program, too, were drawn with the window's pictures.
foreach(size 16 22 24 32 48 64 128 256 512)
    install(FILES ${CMAKE_BINARY_DIR}/window/icons/tovik-${size}.png RENAME tovik.png
            DESTINATION share/icons/hicolor/${size}x${size}/apps)
endforeach()
install(FILES ${packaging}/tovik.svg DESTINATION share/icons/hicolor/scalable/apps)

# The version stands in the settings, too, in the form that windows and servers are told: its build and
# its day with it.
set_property(DIRECTORY APPEND PROPERTY
    CMAKE_CONFIGURE_DEPENDS ${PROJECT_SOURCE_DIR}/data/db/settings.xml)
file(STRINGS ${PROJECT_SOURCE_DIR}/data/db/settings.xml told REGEX "<TK(XV|V2)>")
string(REGEX REPLACE ".*<TKXV>([0-9]+),.*<TKV2>([0-9]+)<.*" "\\1.\\2." version "${told}")
string(FIND "${PROJECT_VERSION}." "${version}" place)
if(NOT place EQUAL 0)
    message(FATAL_ERROR "data/db/settings.xml tells another version than ${PROJECT_VERSION}: ${told}")
endif()
file(STRINGS ${PROJECT_SOURCE_DIR}/data/db/settings.xml day REGEX "<TKD>")
string(REGEX REPLACE ".*>([0-9]+)\\.([0-9]+)\\.([0-9]+)<.*" "\\3-\\2-\\1" TOVIK_DAY "${day}")
configure_file(${packaging}/desktop/tovik.metainfo.xml.in
               ${CMAKE_BINARY_DIR}/tovik.metainfo.xml @ONLY)
install(FILES ${CMAKE_BINARY_DIR}/tovik.metainfo.xml RENAME org.tovik.tovik.metainfo.xml
        DESTINATION share/metainfo)
install(FILES ${packaging}/desktop/tovik.desktop DESTINATION share/applications)
install(FILES ${packaging}/desktop/tovik.xml DESTINATION share/mime/packages)
install(FILES ${packaging}/completion/tovik.bash RENAME tovik
        DESTINATION share/bash-completion/completions)
install(FILES ${packaging}/completion/tovik-skin.bash RENAME tovik-skin
        DESTINATION share/bash-completion/completions)
install(FILES ${packaging}/completion/_tovik DESTINATION share/zsh/vendor-completions)

# tovik_install_packed(FILE NAME DESTINATION): packs a file without its time, so that two builds have
# the same bytes.
function(tovik_install_packed file name destination)
    set(packed ${CMAKE_BINARY_DIR}/packed/${name}.gz)
    add_custom_command(
        OUTPUT ${packed}
        COMMAND ${CMAKE_COMMAND} -E make_directory ${CMAKE_BINARY_DIR}/packed
        COMMAND gzip -9nc ${file} > ${packed}
        DEPENDS ${file}
        VERBATIM)
    add_custom_target(tovik_packed_${name} DEPENDS ${packed})
    add_dependencies(tovik_installed tovik_packed_${name})
    install(FILES ${packed} DESTINATION ${destination})
endfunction()

foreach(page tovik.1 tovik-skin.1)
    tovik_install_packed(${packaging}/man/${page} ${page} share/man/man1)
endforeach()
install(FILES ${PROJECT_SOURCE_DIR}/README.md DESTINATION share/doc/tovik)
install(FILES ${PROJECT_SOURCE_DIR}/docs/oddities.md DESTINATION share/doc/tovik/docs)

include(cmake/DebianPackage.cmake)
