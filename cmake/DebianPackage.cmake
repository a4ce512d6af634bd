# SPDX-License-Identifier: GPL-3.0-or-later
# The Debian package, by CPack; packaging/make_package makes it from the preset "package".
execute_process(COMMAND date --utc --date=${TOVIK_DAY} --rfc-email
                OUTPUT_VARIABLE TOVIK_CHANGE_TIME OUTPUT_STRIP_TRAILING_WHITESPACE
                COMMAND_ERROR_IS_FATAL ANY)
set(CPACK_PACKAGE_CONTACT "Tovik developers <tovik@users.noreply.example.org>")
configure_file(${packaging}/debian/changelog.in ${CMAKE_BINARY_DIR}/changelog @ONLY)
tovik_install_packed(${CMAKE_BINARY_DIR}/changelog changelog share/doc/tovik)
install(FILES ${packaging}/debian/copyright DESTINATION share/doc/tovik)

set(CPACK_GENERATOR DEB)
set(CPACK_PACKAGE_NAME tovik)
set(CPACK_PACKAGE_VENDOR "Tovik developers")
set(CPACK_PACKAGE_DESCRIPTION_SUMMARY "skinned audio player for files, discs and Internet radio")
set(CPACK_DEBIAN_PACKAGE_DESCRIPTION
    "Tovik plays MP3, Ogg Vorbis, FLAC, WAV, WMA, tracker modules, audio discs and
Internet radio. It keeps a playlist, crossfades, skips silence, has a ten-band
equalizer, edits ID3 tags, rips discs, shows visual plug-ins and takes its look
from a skin and its words from a language file.")
set(CPACK_PACKAGING_INSTALL_PREFIX /usr)
set(CPACK_INSTALL_DEFAULT_DIRECTORY_PERMISSIONS
    OWNER_READ OWNER_WRITE OWNER_EXECUTE GROUP_READ GROUP_EXECUTE WORLD_READ WORLD_EXECUTE)
set(CPACK_DEBIAN_FILE_NAME DEB-DEFAULT)
set(CPACK_DEBIAN_PACKAGE_SECTION sound)
set(CPACK_DEBIAN_PACKAGE_PRIORITY optional)
set(CPACK_DEBIAN_PACKAGE_SHLIBDEPS ON)
# The encoders of ripped discs are programs that the player starts, the library of ALSA's sound is looked
# for when it is wanted.
set(CPACK_DEBIAN_PACKAGE_RECOMMENDS "lame, vorbis-tools, libsdl2-2.0-0, ca-certificates, qt6-wayland")
set(CPACK_DEBIAN_PACKAGE_CONTROL_STRICT_PERMISSION ON)
set(CPACK_DEBIAN_DEBUGINFO_PACKAGE ON)
set(CPACK_DEBIAN_COMPRESSION_TYPE xz)
include(CPack)
