// SPDX-License-Identifier: GPL-3.0-or-later
// Files as lists name them: by paths or by references (RFC 3986), whole or from the list's folder.
// Pure: no file is looked at. Any thread.
#pragma once

#include <string>
#include <string_view>

namespace tovik::playlist {

/// The file that a name in a list stands for. A relative one counts from `folder`, an absolute
/// path, and "\" separates folders as "/" does, unless it begins with "./". A `file:` address of
/// this machine is its path. Other addresses, names with a drive's letter or a server of another
/// system, and tracks of a CD stay as they are.
[[nodiscard]] std::string resolvedName(std::string_view name, std::string_view folder);

/// The name of a file in a list that lies in `folder`: from there where the file lies below it,
/// else as it is; a `file:` address where a line could not hold it. `resolvedName` brings it back.
[[nodiscard]] std::string nameInList(std::string_view fileName, std::string_view folder);

/// The file that a reference in a list stands for, as `resolvedName`; its escapes are decoded. The
/// folder may be one of a server: then a relative one is an address, as it stands.
[[nodiscard]] std::string resolvedReference(std::string_view reference, std::string_view folder);

/// The folder from which references count beside one that names a folder (with "/" behind it) or a
/// document, and itself counts from `outer`.
[[nodiscard]] std::string baseFolder(std::string_view reference, std::string_view outer);

/// Whether it is a file of this system by its whole path, an address of the web or a track of a
/// CD: of what is none nothing can be played.
[[nodiscard]] bool canBePlayed(std::string_view file);

/// A file as a reference: relative where it lies below `folder` (empty: never), else a `file:`
/// address. Addresses stay as they are. `resolvedReference` brings it back.
[[nodiscard]] std::string referenceInList(std::string_view fileName, std::string_view folder);

} // namespace tovik::playlist
