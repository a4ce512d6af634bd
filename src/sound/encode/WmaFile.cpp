// SPDX-License-Identifier: GPL-3.0-or-later
#include "sound/encode/WmaFile.h"

#include "base/ModuleFile.h"
#include "sound/decode/FallbackModule.h"

namespace tovik::sound {

std::unique_ptr<WmaFile> createWmaFile(const std::string& path, const WmaForm& form,
                                       std::string& failure) {
    static const auto* const module =
        base::findInModule<WmaModule>(kFallbackFile, kWmaSymbol, kWmaVersion);
    if (module == nullptr) {
        failure = kFallbackFile;
        return nullptr;
    }
    return module->create(path, form, failure);
}

} // namespace tovik::sound
