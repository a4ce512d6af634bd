// SPDX-License-Identifier: GPL-3.0-or-later
// libcdio's handle of an open drive or image; who reads shares it, so that it outlives the reading.
// The thread of its drive.
#pragma once

#include <cdio/cdio.h>

#include <memory>

namespace tovik::sound::libcdio {

using CdHandle = std::shared_ptr<CdIo_t>;

/// Takes the handle over; null stays null.
[[nodiscard]] inline CdHandle share(CdIo_t* handle) {
    return handle == nullptr ? CdHandle{} : CdHandle(handle, &cdio_destroy);
}

} // namespace tovik::sound::libcdio
