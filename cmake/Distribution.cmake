# SPDX-License-Identifier: GPL-3.0-or-later
# How a program is compiled that others get: hardened, with symbols that go into a package of their
# own, and without a word of where it was built, so that two builds have the same bytes.
option(TOVIK_DISTRIBUTE "Compile for a package" OFF)
if(TOVIK_DISTRIBUTE)
    add_compile_options(-g1 -fstack-protector-strong -fstack-clash-protection
                        -ffile-prefix-map=${PROJECT_SOURCE_DIR}=.
                        -ffile-prefix-map=${PROJECT_BINARY_DIR}=build)
    add_compile_definitions(_FORTIFY_SOURCE=2)
    add_link_options(-Wl,-z,relro,-z,now)
    set(CMAKE_POSITION_INDEPENDENT_CODE ON)
    include(CheckPIESupported)
    check_pie_supported()
    set(CMAKE_SKIP_RPATH ON)
endif()
