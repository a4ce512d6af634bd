// SPDX-License-Identifier: GPL-3.0-or-later
// A request by libcurl. Any thread; the sink is called on the caller's.
#pragma once

#include "sound/net/Http.h"

namespace tovik::sound::curl {

/// See HttpFetch. Redirects are followed 8 times, to http and https alone; certificates are checked
/// against the system's; an answer that begins with "ICY 200 OK" is taken as HTTP/1.0.
[[nodiscard]] HttpEnd fetch(const HttpRequest& request, HttpSink& sink,
                            const std::stop_token& calledOff);

} // namespace tovik::sound::curl
