// SPDX-License-Identifier: GPL-3.0-or-later
// What a data folder remembers of the shipped files in it: which version laid them, and what each
// was then, so that a newer program renews those that nobody changed. Used at the start, by the
// interface thread.
#pragma once

#include "host/Paths.h"

#include <functional>
#include <map>
#include <optional>
#include <string>
#include <string_view>
#include <system_error>

namespace tovik::host {

/// The memory as it stands in its file: a line with the version, then one for each file with the
/// digest of its bytes (`base::digestOf`) and its name, told from the data folder.
struct LaidFiles {
    std::string version;
    std::map<std::string, std::string, std::less<>> digests; ///< by name

    /// Nothing where the first line is none.
    [[nodiscard]] static std::optional<LaidFiles> fromText(std::string_view text);

    [[nodiscard]] std::string text() const;
};

/// The memory of a data folder; nothing where it has none or one that cannot be read, as a folder
/// has that was filled before there were such files.
[[nodiscard]] std::optional<LaidFiles> readLaidFiles(const Paths& paths);

/// Answers with the failure. The file is replaced whole or not at all.
[[nodiscard]] std::error_code writeLaidFiles(const Paths& paths, const LaidFiles& laid);

/// Whether a version such as "0.10" comes after another one; a field that is no number counts as 0.
[[nodiscard]] bool isNewer(std::string_view version, std::string_view than);

/// Lays each shipped file that the data folder lacks, and renews each that is as `laid` remembers
/// it; one that somebody changed stays, and so do all below "db", which are the user's. Brings the
/// digests in `laid` up to what stands there now. A file that cannot be written does not keep the
/// others from it; answers with the first failure. The file named `except` is passed over.
[[nodiscard]] std::error_code renewShippedFiles(const Paths& paths, const std::string& shipped,
                                                LaidFiles& laid, std::string_view except = {});

} // namespace tovik::host
