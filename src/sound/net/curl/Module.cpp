// SPDX-License-Identifier: GPL-3.0-or-later
// The one name that the module shows.
#include "sound/net/curl/CurlFetch.h"

extern "C" {
[[gnu::visibility("default")]] extern const tovik::sound::HttpModule tovikHttp;

const tovik::sound::HttpModule tovikHttp = {tovik::sound::kHttpVersion, &tovik::sound::curl::fetch};
}
