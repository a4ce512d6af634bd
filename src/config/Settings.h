// SPDX-License-Identifier: GPL-3.0-or-later
// Settings by key, straight from the file: there is no copy in memory. Interface thread.
#pragma once

#include "config/clsXML.h"
#include "config/StartSettings.h"
#include "host/Paths.h"

#include <functional>
#include <string>
#include <string_view>

namespace tovik::config {

/// Reads and writes "db/settings.xml". Every access, also one that only reads, reads the file anew
/// into the shared document and writes it back whole. A key in any case names the element in upper
/// case. The program has no defaults: a key that the file lacks raises 94 when it is read and is
/// not created when it is written. So does every key of a missing or damaged file, which is left
/// as it is.
class Settings {
public:
    /// Both are kept by reference. The document is the one that the whole program shares.
    Settings(const host::Paths& paths, clsXML& settingsXml);

    /// The text of a key. Raises 94 where there is none, before the file is written, and what
    /// writing raises.
    [[nodiscard]] std::string getSetting(std::string_view key);

    /// Sets the text of a key that exists; the file has reached the disk on return. Raises what
    /// writing raises.
    void saveSetting(std::string_view key, std::string_view value);

    /// Reads the start-up group. Raises 94 for a missing key, 13 and 6 for a text that does not
    /// convert; what was read until then is kept in `state`, and the file is not written.
    void getSettings(StartSettings& state);

    /// Opens the file in the shared document, does the work, and saves the file. An error in the
    /// work goes to the caller, and nothing is saved.
    void withSettings(const std::function<void(clsXML&)>& work);

    /// The path of the element of a key.
    [[nodiscard]] static std::string pathOf(std::string_view key);

private:
    const host::Paths& paths_;
    clsXML& xml_;
};

} // namespace tovik::config
