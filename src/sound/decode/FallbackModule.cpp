// SPDX-License-Identifier: GPL-3.0-or-later
#include "sound/decode/FallbackModule.h"

#include "base/ModuleFile.h"

#include <utility>

namespace tovik::sound {
namespace {

const FallbackDecoders* module() {
    static const auto* const decoders =
        base::findInModule<FallbackDecoders>(kFallbackFile, kFallbackSymbol, kFallbackVersion);
    return decoders;
}

} // namespace

OpenResult openByFallback(FormatFamily family, const std::shared_ptr<const ByteStore>& store) {
    return module() == nullptr ? OpenResult{OpenStatus::notMine, nullptr}
                               : module()->open(family, store);
}

std::unique_ptr<LiveSound> openLiveSound(std::shared_ptr<LiveBytes> bytes,
                                         std::string_view contentType) {
    return module() == nullptr ? nullptr : module()->openLive(std::move(bytes), contentType);
}

void prepareLiveSound() {
    static_cast<void>(module());
}

} // namespace tovik::sound
