# SPDX-License-Identifier: GPL-3.0-or-later
# Libraries from the distribution. Each is linked by the one folder that wraps it.
find_package(PkgConfig REQUIRED)
find_package(Threads REQUIRED)
pkg_check_modules(CDIO REQUIRED IMPORTED_TARGET libcdio libcdio_cdda libcdio_paranoia)
pkg_check_modules(CURL REQUIRED IMPORTED_TARGET libcurl>=7.87)
pkg_check_modules(FFMPEG REQUIRED IMPORTED_TARGET libavformat libavcodec libavutil)
pkg_check_modules(MPG123 REQUIRED IMPORTED_TARGET libmpg123)
pkg_check_modules(VORBISFILE REQUIRED IMPORTED_TARGET vorbisfile)
pkg_check_modules(FLAC REQUIRED IMPORTED_TARGET flac)
pkg_check_modules(SOXR REQUIRED IMPORTED_TARGET soxr)
pkg_check_modules(OPENMPT REQUIRED IMPORTED_TARGET libopenmpt)
pkg_check_modules(TAGLIB REQUIRED IMPORTED_TARGET taglib)
pkg_check_modules(PULSE REQUIRED IMPORTED_TARGET libpulse)
pkg_check_modules(XCB REQUIRED IMPORTED_TARGET xcb xcb-shape)
pkg_check_modules(SDL2 REQUIRED sdl2)
find_package(pugixml REQUIRED)
pkg_check_modules(EXPAT REQUIRED IMPORTED_TARGET expat)
find_package(GTest REQUIRED)
if(TOVIK_WITH_QT)
    find_package(Qt6 6.4 REQUIRED COMPONENTS Core DBus Gui Widgets Test)
endif()
if(TOVIK_BENCH)
    find_package(benchmark REQUIRED)
endif()

# What the about window tells.
set(TOVIK_LIBRARIES
    "Qt ${Qt6_VERSION}"
    "FFmpeg (libavcodec ${FFMPEG_libavcodec_VERSION}, libavformat ${FFMPEG_libavformat_VERSION})"
    "libmpg123 ${MPG123_VERSION}"
    "libvorbis ${VORBISFILE_VERSION}"
    "FLAC ${FLAC_VERSION}"
    "libopenmpt ${OPENMPT_VERSION}"
    "libsoxr ${SOXR_VERSION}"
    "libcurl ${CURL_VERSION}"
    "libcdio ${CDIO_libcdio_VERSION}"
    "TagLib ${TAGLIB_VERSION}"
    "libpulse ${PULSE_VERSION}"
    "libxcb ${XCB_xcb_VERSION}"
    "SDL ${SDL2_VERSION}"
    "pugixml ${pugixml_VERSION}"
    "Expat ${EXPAT_VERSION}")
list(JOIN TOVIK_LIBRARIES "|" TOVIK_LIBRARIES)
