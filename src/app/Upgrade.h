// SPDX-License-Identifier: GPL-3.0-or-later
// What the first start of a newer program does to a data folder. Interface thread.
#pragma once

#include <string>
#include <string_view>

namespace tovik::app {

/// Where another, older version filled the folder: lays shipped files that it lacks, renews those
/// that nobody changed, completes the unpacked skin, gives the settings the program's version, and
/// remembers this version. What fails is told on the error stream and tried again at the next
/// start. Else it reads one small file. One process at a time may do it (`host::FolderLock`).
/// `shipped` may be empty: then there is nothing to lay.
void upgradeDataFolder(const std::string& dataFolder, const std::string& shipped,
                       std::string_view version);

} // namespace tovik::app
