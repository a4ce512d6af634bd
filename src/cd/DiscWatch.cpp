// SPDX-License-Identifier: GPL-3.0-or-later
#include "cd/DiscWatch.h"

namespace tovik::cd {

namespace {

constexpr std::int32_t kLookMs = 250;

// Notices of a language.
constexpr int kDiscGone = 9;
constexpr int kUnreadable = 10;

} // namespace

DiscWatch::DiscWatch(const Needs& needs)
    : needs_(needs), timer_(needs.core.timers.makeTimer([this] { look(); })) {
    timer_->setInterval(kLookMs);
    needs_.core.news.add(*this);
}

DiscWatch::~DiscWatch() {
    needs_.core.news.remove(*this);
}

void DiscWatch::restartVisualisation() {
    if (needs_.core.sound.discReport(needs_.core.state.active())) {
        timer_->setEnabled(true);
    }
}

void DiscWatch::look() {
    const sound::Handle track = needs_.core.state.active();
    const auto report = needs_.core.sound.discReport(track);
    if (!report) {
        timer_->setEnabled(false);
        return;
    }
    switch (report->trouble) {
    case sound::DiscTrouble::none:
    case sound::DiscTrouble::noTrack: // like a file that does not open
        break;
    case sound::DiscTrouble::unreadable:
        if (told_ != track) {
            told_ = track;
            tellUnreadable();
        }
        break;
    case sound::DiscTrouble::noDisc:
    case sound::DiscTrouble::noDrive:
        timer_->setEnabled(false);
        needs_.transport.button_stop();
        needs_.dialogs.showMessage({.text = needs_.language.get_Notice_String(kDiscGone),
                                    .title = host::kProgramTitle,
                                    .icon = host::MessageIcon::Exclamation});
        break;
    }
}

void DiscWatch::tellUnreadable() {
    player::NowPlaying& playing = needs_.core.screen.playing;
    const std::string text = needs_.language.get_Notice_String(kUnreadable);
    playing.scrollerText = " " + needs_.core.state.CurrentTitle + " (" + text + ")";
    playing.caption = playing.scrollerText;
    needs_.core.screen.showTitles();
}

} // namespace tovik::cd
