# SPDX-License-Identifier: GPL-3.0-or-later
# Libraries from the distribution. Each is linked by the one folder that wraps it.
find_package(PkgConfig REQUIRED)
find_package(Threads REQUIRED)
pkg_check_modules(FFMPEG REQUIRED IMPORTED_TARGET
    libavformat libavcodec libavutil libswresample)
pkg_check_modules(OPENMPT REQUIRED IMPORTED_TARGET libopenmpt)
pkg_check_modules(SDL2 REQUIRED IMPORTED_TARGET sdl2)
find_package(pugixml REQUIRED)
pkg_check_modules(EXPAT REQUIRED IMPORTED_TARGET expat)
find_package(GTest REQUIRED)
if(TOVIK_WITH_QT)
    find_package(Qt6 6.4 REQUIRED COMPONENTS Core Gui Widgets Test)
endif()
if(TOVIK_BENCH)
    find_package(benchmark REQUIRED)
endif()
