// SPDX-License-Identifier: GPL-3.0-or-later
// Images whose sheet is a TOC file. libcdio looks for the files that it names in the folder that
// the program works in; they lie beside the sheet. The thread of a drive.
#pragma once

#include "sound/cd/libcdio/Handle.h"

#include <string>
#include <string_view>

namespace tovik::sound::libcdio {

/// The sheet as libcdio reads it: with the names of all files absolute, and without the word for the
/// byte order, which it takes for an error. `folder` ends with a slash.
[[nodiscard]] std::string readableSheet(std::string_view sheet, std::string_view folder);

/// Whether a line that names a file of sound says behind the name that its samples have the low
/// byte first.
[[nodiscard]] bool swapsBytes(std::string_view sheet);

struct TocImage {
    CdHandle handle; ///< null when it does not open
    /// The high byte of a sample comes first, as in all sound of such images but where the sheet
    /// says otherwise.
    bool highByteFirst = true;
};

[[nodiscard]] TocImage openTocSheet(const std::string& path);

} // namespace tovik::sound::libcdio
