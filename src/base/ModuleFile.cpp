// SPDX-License-Identifier: GPL-3.0-or-later
#include "base/ModuleFile.h"

#include <array>
#include <dlfcn.h>
#include <filesystem>

namespace tovik::base {
namespace {

/// Beside the program, as it is built, or where it is installed: its own parts, and those with
/// libraries.
constexpr std::array<const char*, 3> kFolders = {".", "../lib/tovik", "../lib/tovik/modules"};

std::filesystem::path programFolder() {
    std::error_code error;
    return std::filesystem::read_symlink("/proc/self/exe", error).parent_path();
}

} // namespace

std::string besideProgram(const char* name) {
    std::error_code error;
    for (const char* folder : kFolders) {
        const std::filesystem::path path = programFolder() / folder / name;
        if (std::filesystem::exists(path, error)) {
            return path.lexically_normal().native();
        }
    }
    return {};
}

const void* symbolOfModule(const char* file, const char* symbol) {
    for (const char* folder : kFolders) {
        const std::filesystem::path path = programFolder() / folder / file;
        // Never closed again: its libraries do not like to be taken away.
        void* const module = ::dlopen(path.c_str(), RTLD_NOW | RTLD_LOCAL);
        const void* const found = module != nullptr ? ::dlsym(module, symbol) : nullptr;
        if (found != nullptr) {
            return found;
        }
    }
    return nullptr;
}

} // namespace tovik::base
