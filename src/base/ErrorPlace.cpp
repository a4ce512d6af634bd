// SPDX-License-Identifier: GPL-3.0-or-later
#include "base/ErrorPlace.h"

#include <string>

namespace tovik::base {

RuntimeError withPlace(const RuntimeError& error, std::string_view place) {
    return {static_cast<ErrorNumber>(error.number()),
            error.description() + ": " + std::string(place), error.source()};
}

} // namespace tovik::base
