// SPDX-License-Identifier: GPL-3.0-or-later
// Finding and loading the modules of the program: what brings many libraries and is seldom needed
// stands in a file beside it. Any thread.
#pragma once

#include <cstdint>
#include <string>

namespace tovik::base {

/// A file or folder of the program, beside it or where programs keep their parts; empty where there
/// is none.
[[nodiscard]] std::string besideProgram(const char* name);

/// What `symbol` names in the module of this file name, which is loaded (tens of milliseconds) and
/// never closed again; null where there is none.
[[nodiscard]] const void* symbolOfModule(const char* file, const char* symbol);

/// The same as a record that begins with the version of when it was built.
template <typename Record>
[[nodiscard]] const Record* findInModule(const char* file, const char* symbol,
                                         std::uint32_t version) {
    const auto* record = static_cast<const Record*>(symbolOfModule(file, symbol));
    return record != nullptr && record->version == version ? record : nullptr;
}

} // namespace tovik::base
