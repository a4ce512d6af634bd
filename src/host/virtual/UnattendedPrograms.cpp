// SPDX-License-Identifier: GPL-3.0-or-later
#include "host/virtual/UnattendedPrograms.h"

#include "host/ProgramLookup.h"

#include <utility>

namespace tovik::host {

UnattendedPrograms::UnattendedPrograms(const Paths& paths, std::string searchPath)
    : paths_(paths), searchPath_(std::move(searchPath)) {}

std::optional<std::string> UnattendedPrograms::find(const std::string& name) const {
    return findProgram(name, paths_, searchPath_);
}

bool UnattendedPrograms::start(const std::string& name,
                               const std::vector<std::string>& /*arguments*/) {
    return find(name).has_value();
}

} // namespace tovik::host
