// SPDX-License-Identifier: GPL-3.0-or-later
#include "app/BuiltWith.h"

#include "config/Fields.h"

namespace tovik::app {

std::vector<std::string> builtWith() {
    // The build knows them: cmake/Libraries.cmake.
    const config::Fields fields(TOVIK_LIBRARIES, '|');
    return fields.all();
}

const char* programVersion() {
    return TOVIK_VERSION;
}

} // namespace tovik::app
