# SPDX-License-Identifier: GPL-3.0-or-later
if(TOVIK_SANITIZE)
    add_compile_options(-fsanitize=${TOVIK_SANITIZE} -fno-omit-frame-pointer
                        -fno-sanitize-recover=all)
    add_link_options(-fsanitize=${TOVIK_SANITIZE})
endif()
