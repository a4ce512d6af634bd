// SPDX-License-Identifier: GPL-3.0-or-later
#include "player/TrackAdvance.h"

#include "base/Numbers.h"
#include "player/FadeTime.h"
#include "player/ModeFaces.h"

#include <array>
#include <cmath>

namespace tovik::player {

namespace {

constexpr playlist::Row kTenRows = 10;

} // namespace

void TrackAdvance::PlayRow(playlist::Row row, std::int32_t fadeSeconds) {
    p_.list.SelectIndex(row);
    p_.list.GetData(row);
    const std::string path = p_.list.OutFileName;
    if (p_.state.CrossfadeOn && p_.state.TracksStarted != 0) {
        p_.crossfade.CrossFade_BurnBaby(path, fadeMilliseconds(fadeSeconds), "");
    } else {
        p_.transport.Burnbaby(path, 0, "");
    }
    p_.state.CurrentTitle = p_.list.OutTitle;
    const std::string shown = " " + p_.list.OutTitle;
    p_.playing.scrollerText = shown;
    p_.playing.caption = shown;
    if (p_.state.MiniModeOn) {
        p_.playing.miniCaption = shown;
    }
    p_.view.showTitles(p_.playing);
}

playlist::Row TrackAdvance::gen_shuffle(playlist::Row count) {
    // Cell 0 stays empty; it is one of the nine that are taken unless `Comfort` says otherwise.
    static constexpr std::size_t kCells = 10;
    static constexpr double kTaken = 9;
    static constexpr playlist::Row kFewRows = 10;
    playlist::Row picked = 0;
    config::guard(p_.errors, config::player("GenShuffle"), [&] {
        std::array<playlist::Row, kCells> cells{};
        for (std::size_t i = 1; i < kCells; ++i) {
            do {
                cells[i] = base::toInt32(std::floor(count * p_.random.next() + 1));
            } while (count > kFewRows && cells[i] == cells[i - 1]);
        }
        const std::size_t first = p_.state.comfort.alwaysPicksRow ? 1 : 0;
        picked = cells.at(first + static_cast<std::size_t>(p_.random.next() * kTaken));
    });
    return picked;
}

playlist::Row TrackAdvance::pick() {
    return gen_shuffle(p_.list.ListCount());
}

void TrackAdvance::Next_track() {
    config::guard(p_.errors, config::player("Next_track"), [this] {
        const std::int32_t seconds = fadeSeconds(p_.settings);
        if (p_.state.ShuffleOn) {
            PlayRow(pick(), seconds);
        } else if (hasNext()) {
            const playlist::Row row = p_.list.SelectedIndex;
            PlayRow(row == p_.list.ListCount() ? 1 : row + 1, seconds);
        }
    });
}

void TrackAdvance::last_track() {
    config::guard(p_.errors, config::player("Last_track"), [this] {
        const std::int32_t seconds = fadeSeconds(p_.settings);
        const playlist::Row count = p_.list.ListCount();
        if (p_.list.SelectedIndex == 0) {
            p_.list.SelectedIndex = 1;
        }
        const playlist::Row row = p_.list.SelectedIndex;
        if (p_.state.ShuffleOn) {
            if (count != 0 && p_.state.RepeatOn) {
                PlayRow(pick(), seconds);
            }
        } else if (row != 1) {
            PlayRow(row - 1, seconds);
        } else if (p_.state.RepeatOn && count != 0) {
            // A deliberate oddity: with a single row this is row 0, which plays nothing.
            PlayRow(count == 1 ? 0 : count, seconds);
        }
    });
}

bool TrackAdvance::hasNext() const {
    const playlist::Row count = p_.list.ListCount();
    return count != 0 &&
           (p_.state.ShuffleOn || p_.state.RepeatOn || p_.list.SelectedIndex != count);
}

bool TrackAdvance::neverEnds() const {
    return p_.list.ListCount() != 0 && (p_.state.ShuffleOn || p_.state.RepeatOn) &&
           !p_.state.StopAfterCurrent;
}

void TrackAdvance::endTrack() {
    if (p_.state.StopAfterCurrent || p_.FadeOut.enabled()) {
        p_.transport.button_stop();
    } else {
        Next_track();
    }
}

void TrackAdvance::selectItem(std::int32_t item) {
    if (item >= 0 && item < p_.mirror.ListCount()) {
        p_.mirror.ListIndex(item);
    }
}

void TrackAdvance::playItem(playlist::Row row) {
    selectItem(row - 1);
    p_.list.SelectedIndex = row;
    p_.transport.List1_DblClick();
}

void TrackAdvance::ten_tracks_fwd() {
    const playlist::Row count = p_.list.ListCount();
    const playlist::Row row = p_.list.SelectedIndex;
    if (count == 0 || row < 1) {
        playItem(kTenRows);
    } else if (count - row < kTenRows) {
        Next_track();
    } else {
        playItem(row + kTenRows);
    }
}

void TrackAdvance::ten_track_bck() {
    const playlist::Row row = p_.list.SelectedIndex;
    if (p_.list.ListCount() != 0 && row > kTenRows) {
        playItem(row - kTenRows);
    } else {
        last_track();
    }
}

void TrackAdvance::button_next() {
    if (p_.list.ListCount() > 0) {
        p_.state.IsPaused = false;
        Next_track();
    }
}

void TrackAdvance::button_previous() {
    if (p_.list.ListCount() > 0) {
        p_.state.IsPaused = false;
        last_track();
    }
}

void TrackAdvance::button_shuffle() {
    p_.state.ShuffleOn = !p_.state.ShuffleOn;
    showMode(p_.elements, p_.state, Mode::shuffle);
}

void TrackAdvance::button_loop() {
    p_.state.RepeatOn = !p_.state.RepeatOn;
    showMode(p_.elements, p_.state, Mode::repeat);
}

} // namespace tovik::player
