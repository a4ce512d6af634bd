// SPDX-License-Identifier: GPL-3.0-or-later
#include "sound/decode/FallbackModule.h"

#include <array>
#include <dlfcn.h>
#include <filesystem>

namespace tovik::sound {
namespace {

constexpr const char* kFile = "tovik-ffmpeg.so";

/// Beside the program, as it is built, or where programs keep their modules once installed.
constexpr std::array<const char*, 2> kFolders = {".", "../lib/tovik"};

const FallbackDecoders* load(const std::filesystem::path& path) {
    // Never closed again: its libraries do not like to be taken away.
    void* const module = ::dlopen(path.c_str(), RTLD_NOW | RTLD_LOCAL);
    if (module == nullptr) {
        return nullptr;
    }
    const auto* decoders = static_cast<const FallbackDecoders*>(::dlsym(module, kFallbackSymbol));
    return decoders != nullptr && decoders->version == kFallbackVersion ? decoders : nullptr;
}

const FallbackDecoders* find() {
    std::error_code error;
    const std::filesystem::path program = std::filesystem::read_symlink("/proc/self/exe", error);
    for (const char* folder : kFolders) {
        if (const auto* decoders = load(program.parent_path() / folder / kFile)) {
            return decoders;
        }
    }
    return nullptr;
}

} // namespace

OpenResult openByFallback(FormatFamily family, const std::shared_ptr<const ByteStore>& store) {
    static const FallbackDecoders* const decoders = find();
    return decoders == nullptr ? OpenResult{OpenStatus::notMine, nullptr}
                               : decoders->open(family, store);
}

} // namespace tovik::sound
