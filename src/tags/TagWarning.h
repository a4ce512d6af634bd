// SPDX-License-Identifier: GPL-3.0-or-later
// The message that tags cannot be changed, told once per save by all tag classes together.
// Interface thread.
#pragma once

#include "host/Dialogs.h"

namespace tovik::tags {

class TagWarning {
public:
    /// The dialogs must outlive the object.
    explicit TagWarning(host::Dialogs& dialogs) : dialogs_(dialogs) {}

    /// A save of the tag editor has begun; never cleared.
    bool TagSaving = false;

    /// The message was shown. The tag editor clears it at the start of each save; later failures
    /// stay silent until then.
    bool TagWarned = false;

    /// Shows the message unless it was shown already.
    void showOnce();

    /// The same for ID3v2, which keeps silent until the tag editor saves.
    void showWhileSaving();

private:
    host::Dialogs& dialogs_;
};

} // namespace tovik::tags
