// SPDX-License-Identifier: GPL-3.0-or-later
// Taking file names apart as text, without a look at the file system. Any thread.
#pragma once

#include <string>
#include <string_view>
#include <vector>

namespace tovik::base {

/// What separates folders in this name: "/"; in a name without any, "\" (a name from a list made
/// on another system).
[[nodiscard]] char separatorOf(std::string_view path) noexcept;

/// What stands behind the last separator; the whole name if there is none.
[[nodiscard]] std::string_view lastPart(std::string_view path) noexcept;

/// What stands before the last separator, without it ("/" for a file of the root); empty if there
/// is none.
[[nodiscard]] std::string_view folderPart(std::string_view path) noexcept;

/// The parts between separators, without empty ones.
[[nodiscard]] std::vector<std::string_view> partsOf(std::string_view path);

/// Folder and name with one "/" between them.
[[nodiscard]] std::string joinPath(std::string_view folder, std::string_view name);

/// The name itself if it begins with "/", else the name inside the folder.
[[nodiscard]] std::string absolutePath(std::string_view name, std::string_view workingFolder);

} // namespace tovik::base
