// SPDX-License-Identifier: GPL-3.0-or-later
#include "app/Unasked.h"

#include <algorithm>
#include <utility>

namespace tovik::app {

WatchedTimers::WatchedTimers(host::TimerFactory& timers, Run run)
    : timers_(timers), run_(std::move(run)) {}

std::unique_ptr<host::Timer> WatchedTimers::makeTimer(host::Timer::Tick tick) {
    return timers_.makeTimer([this, tick = std::move(tick)] {
        struct Count {
            int& ticks;

            explicit Count(int& count) : ticks(count) { ++ticks; }

            ~Count() { --ticks; }

            Count(const Count&) = delete;
            Count& operator=(const Count&) = delete;
        };

        const Count count(ticks_);
        run_(tick);
    });
}

host::MessageAnswer UnaskedDialogs::showMessage(const host::MessageBox& box) {
    if (!p_.comfort.tellsTimersInLine || !p_.timers.ticking() ||
        box.buttons != host::MessageButtons::Ok) {
        return p_.dialogs.showMessage(box);
    }
    std::string text = box.text;
    std::ranges::replace_if(
        text, [](char character) { return character == '\r' || character == '\n'; }, ' ');
    p_.line.show(text);
    return box.defaultAnswer;
}

std::vector<std::string> UnaskedDialogs::openFiles(const host::FileDialog& dialog) {
    return p_.dialogs.openFiles(dialog);
}

std::optional<std::string> UnaskedDialogs::saveFile(const host::FileDialog& dialog) {
    return p_.dialogs.saveFile(dialog);
}

std::optional<std::string> UnaskedDialogs::chooseFolder(const host::FolderDialog& dialog) {
    return p_.dialogs.chooseFolder(dialog);
}

} // namespace tovik::app
