// SPDX-License-Identifier: GPL-3.0-or-later
// The user's file of which program opens what. The format is that of the Association between MIME
// types and applications specification 1.0.1. Pure; any thread.
#pragma once

#include <span>
#include <string>
#include <string_view>
#include <vector>

namespace tovik::desktop {

/// The bytes with the program in front of all others for these types, as default and among those
/// that can open them, and no longer among those that cannot. Other lines stay as they are.
[[nodiscard]] std::string withDefaults(std::string_view bytes, std::span<const std::string> types,
                                       std::string_view desktopId);

/// Those of the types that the user took from the program: among those that cannot open them.
[[nodiscard]] std::vector<std::string> refusedTypes(std::string_view bytes,
                                                    std::span<const std::string> types,
                                                    std::string_view desktopId);

/// The bytes without the program among defaults and those that can open something; a line that
/// named nobody else goes, and a section that then holds nothing. The program is among those that
/// cannot open the types of `refused`. Other lines stay as they are.
[[nodiscard]] std::string withoutProgram(std::string_view bytes, std::string_view desktopId,
                                         std::span<const std::string> refused = {});

} // namespace tovik::desktop
