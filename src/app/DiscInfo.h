// SPDX-License-Identifier: GPL-3.0-or-later
// The wing of what is known of discs: the dialog where the user names one, and the asking of a
// server. Interface thread.
#pragma once

#include "cd/frmCdNFO.h"
#include "cd/frmDiscMatch.h"
#include "host/Host.h"
#include "window/WindowOpener.h"

namespace tovik::app {

/// The parts are used as they are.
class DiscInfo {
public:
    /// All of them outlive the wing.
    DiscInfo(const player::Core& core, const playlist::stdSS& lstTracks, const host::Host& host,
             window::WindowOpener& windows);
    DiscInfo(const DiscInfo&) = delete;
    DiscInfo& operator=(const DiscInfo&) = delete;

    cd::DiscForm form;
    discs::FREEDB freedb;
    cd::frmDiscMatch match;
    cd::frmCdNFO dialog;
};

} // namespace tovik::app
