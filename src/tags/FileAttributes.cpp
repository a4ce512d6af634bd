// SPDX-License-Identifier: GPL-3.0-or-later
#include "tags/FileAttributes.h"

#include "base/FileErrors.h"
#include "base/PathText.h"
#include "base/Text.h"

#include <optional>
#include <utility>

#include <sys/stat.h>

namespace tovik::tags {

namespace {

constexpr mode_t kModeBits = 07777;
constexpr mode_t kAllWriteBits = S_IWUSR | S_IWGRP | S_IWOTH;

std::optional<mode_t> modeOf(const std::string& path) {
    struct stat facts {};

    return ::stat(path.c_str(), &facts) == 0 ? std::optional(facts.st_mode & kModeBits)
                                             : std::nullopt;
}

} // namespace

std::string fileAttributes(const std::string& path) {
    const std::optional<mode_t> mode = modeOf(path);
    if (!mode) {
        return "-1";
    }
    std::string letters;
    if ((*mode & S_IWUSR) == 0) {
        letters += 'R';
    }
    if (base::lastPart(path).starts_with('.')) {
        letters += 'H';
    }
    return letters.empty() ? "Normal" : letters;
}

void setFileAttributes(const std::string& path, std::string_view letters) {
    const std::optional<mode_t> mode = modeOf(path);
    if (!mode) {
        return;
    }
    const bool readOnly = !base::equalsIgnoringCase(letters, "Normal") &&
                          letters.find_first_of("Rr") != std::string_view::npos;
    const mode_t changed = readOnly ? *mode & ~kAllWriteBits : *mode | S_IWUSR;
    if (changed != *mode && ::chmod(path.c_str(), changed) != 0) {
        base::raiseFailure(base::lastSystemError());
    }
}

NormalAttributes::NormalAttributes(std::string path) : path_(std::move(path)) {
    if (const std::optional<mode_t> mode = modeOf(path_)) {
        mode_ = *mode;
        restore_ = true;
        setFileAttributes(path_, "Normal");
    }
}

NormalAttributes::~NormalAttributes() {
    if (restore_) {
        ::chmod(path_.c_str(), mode_);
    }
}

} // namespace tovik::tags
