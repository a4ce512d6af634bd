// SPDX-License-Identifier: GPL-3.0-or-later
#include "sound/net/Http.h"

#include "base/ModuleFile.h"

namespace tovik::sound {
namespace {

constexpr const char* kFile = "tovik-http.so";

const HttpModule* find() {
    return base::findInModule<HttpModule>(kFile, kHttpSymbol, kHttpVersion);
}

} // namespace

HttpEnd fetchHttp(const HttpRequest& request, HttpSink& sink, const std::stop_token& calledOff) {
    static const HttpModule* const module = find();
    return module == nullptr ? HttpEnd::notAvailable : module->fetch(request, sink, calledOff);
}

} // namespace tovik::sound
