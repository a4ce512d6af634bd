# SPDX-License-Identifier: GPL-3.0-or-later
# The warnings that every file of ours must pass; each is an error.
add_library(tovik_warnings INTERFACE)
target_compile_options(tovik_warnings INTERFACE
    -Wall -Wextra -Wpedantic -Wshadow -Wconversion -Wsign-conversion -Wold-style-cast
    -Wnon-virtual-dtor -Woverloaded-virtual -Wcast-align -Wunused -Wnull-dereference
    -Wdouble-promotion -Wformat=2 -Wimplicit-fallthrough -Werror)
# What src/base/Mutex.h annotates is proved by clang alone.
target_compile_options(tovik_warnings INTERFACE $<$<CXX_COMPILER_ID:Clang>:-Wthread-safety>)
# GCC 12 sees overlaps in std::string that are not there (bug 105651), in optimized builds alone.
target_compile_options(tovik_warnings INTERFACE
    $<$<AND:$<CXX_COMPILER_ID:GNU>,$<VERSION_LESS:$<CXX_COMPILER_VERSION>,13>>:-Wno-restrict>)
