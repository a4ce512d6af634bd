// SPDX-License-Identifier: GPL-3.0-or-later
// Which keys claim a file type. Pure; one thread at a time.
#pragma once

#include "desktop/KeyStore.h"

#include <array>
#include <span>
#include <string>
#include <string_view>

namespace tovik::desktop {

/// The class that all files of the player belong to.
inline constexpr std::string_view kProgId = "Tovik";
inline constexpr std::string_view kTypeDescription = "Tovik Media File";

/// A further thing that can be done with a file, beside opening it.
struct ShellVerb {
    std::string_view caption;
    std::string_view word; ///< of the command line
};

inline constexpr std::array kShellVerbs = {
    ShellVerb{"Play File", "/Play"},
    ShellVerb{"Add to Tovik playlist", "/ADD"},
};

/// Files with this extension, told without its dot, belong to a class, which is opened by the
/// program. With an empty `iconSpec` the class gets no icon.
void RegisterExtension(KeyStore& store, std::string_view extension, std::string_view programPath,
                       std::string_view progId, std::string_view description,
                       std::string_view iconSpec);

/// Files with this extension offer a verb, which starts the program with that word and the file.
void AddShellVerb(KeyStore& store, std::string_view extension, std::string_view programPath,
                  std::string_view verbCaption, std::string_view word);

/// The key of a verb of an extension.
[[nodiscard]] std::string verbKey(std::string_view extension, std::string_view verbCaption);

/// All of it for each of these extensions. What was claimed before stays.
void associate(KeyStore& store, std::span<const std::string> extensions,
               std::string_view programPath, std::string_view iconSpec);

} // namespace tovik::desktop
