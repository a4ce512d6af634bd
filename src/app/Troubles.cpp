// SPDX-License-Identifier: GPL-3.0-or-later
#include "app/Troubles.h"

#include "base/ErrorPlace.h"
#include "base/Text.h"

#include <utility>

namespace tovik::app {

namespace {

// Among the notices.
constexpr int kAsideWords = 17;
constexpr int kForeignWords = 18;
constexpr int kUnreadWords = 21;

void appendLine(std::string& lines, const std::string& line) {
    lines += (lines.empty() ? "" : "\n") + line;
}

} // namespace

void Troubles::note(const base::RuntimeError& error, const config::Procedure& procedure) {
    errors_.log(error, procedure);
    appendLine(failures_, error.description());
}

void Troubles::noteAside(const std::string& path) {
    // In English, as all that is logged.
    errors_.log(base::RuntimeError(base::ErrorNumber::DamagedData,
                                   "The settings were damaged and are kept as " + path),
                config::player("Load"));
    aside_ = path;
    if (started_) {
        tell();
    }
}

void Troubles::noteUnread(const base::RuntimeError& why) {
    errors_.log(why, config::player("Load"));
    unread_ = why.description();
    if (started_) {
        tell();
    }
}

void Troubles::noteForeign(const std::string& path) {
    errors_.log(base::withPlace(base::RuntimeError(base::ErrorNumber::DamagedData), path),
                config::player("Load"));
    foreign_ = path;
}

void Troubles::tell() {
    started_ = true;
    std::string lines = std::exchange(failures_, {});
    const auto appendWords = [&](int words, const std::string& path) {
        if (!path.empty()) {
            appendLine(lines, base::replaceAll(language_.get_Notice_String(words), "[x]", path));
        }
    };
    appendWords(kAsideWords, std::exchange(aside_, {}));
    appendWords(kUnreadWords, std::exchange(unread_, {}));
    appendWords(kForeignWords, std::exchange(foreign_, {}));
    if (!lines.empty()) {
        errors_.tell(base::RuntimeError(base::ErrorNumber::InternalError, lines));
    }
}

} // namespace tovik::app
