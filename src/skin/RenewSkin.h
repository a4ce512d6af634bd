// SPDX-License-Identifier: GPL-3.0-or-later
// Brings the unpacked skin to a newer package. Called once, at the first start of a newer program.
// Interface thread.
#pragma once

#include "host/Paths.h"

#include <string_view>

namespace tovik::skin {

/// Writes into the skin's folder what it lacks of the package `newer`, and the new form of each
/// picture that is still, byte for byte, the one of the package `older`; every other picture is the
/// user's and stays. Both are bytes of packages; `older` is empty where the folder was not filled
/// from a shipped one. A folder that is missing or has no file is left to `UnpackSkin`, and a
/// package without the signature of one changes nothing. Raises what reading a package raises, and,
/// after all pictures were tried, the first failure of writing.
void renewSkin(const host::Paths& paths, std::string_view newer, std::string_view older);

} // namespace tovik::skin
