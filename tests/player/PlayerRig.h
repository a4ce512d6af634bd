// SPDX-License-Identifier: GPL-3.0-or-later
// The player's parts over a sound library without sound, in a data folder of a test's own.
#pragma once

#include "config/clsXML.h"
#include "player/Playback.h"
#include "support/host/PollWatches.h"
#include "support/host/TestHost.h"
#include "support/sound/FakeSoundLibrary.h"
#include "tags/FactsDesk.h"
#include "tags/TagWarning.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <map>
#include <memory>
#include <string>
#include <vector>

namespace tovik::test {

/// Writes down what a window is told, and keeps the record as it was told last.
class RecordingView final : public player::NowPlayingView {
public:
    std::vector<std::string> told;
    std::vector<std::array<std::string, player::kTagFields>> facts; ///< the fields at each telling
    player::NowPlaying last;

    void showFacts(const player::NowPlaying& playing) override {
        facts.push_back(playing.fields);
        note("facts", playing);
    }

    void showFormat(const player::NowPlaying& playing) override { note("format", playing); }

    void showTitles(const player::NowPlaying& playing) override { note("titles", playing); }

    void showCaptions(const player::NowPlaying& playing) override { note("captions", playing); }

    void showTime(const player::NowPlaying& playing) override { note("time", playing); }

    void showPosition(const player::NowPlaying& playing) override { note("position", playing); }

    void showVolume(const player::NowPlaying& playing) override { note("volume", playing); }

    void showBalance(const player::NowPlaying& playing) override { note("balance", playing); }

    void showSource() override { told.emplace_back("source"); }

private:
    void note(const char* what, const player::NowPlaying& playing) {
        told.emplace_back(what);
        last = playing;
    }
};

/// Writes down who was told of a track.
class RecordingEvents final : public player::TrackEvents {
public:
    std::vector<std::string> told;
    player::TrackReport report;

    void showTitlePopup(const std::string& text) override { told.push_back("popup " + text); }

    void reportTrack(const player::TrackReport& track) override {
        told.emplace_back("track");
        report = track;
    }

    void reportFacts(const player::TrackReport& track) override {
        told.emplace_back("facts");
        report = track;
    }

    void reportNothing(const std::string& format, const std::string& word) override {
        told.push_back("nothing " + format + " " + word);
    }

    void restartVisualisation() override { told.emplace_back("visualisation"); }

    void stopVisualisation() override { told.emplace_back("no visualisation"); }
};

/// A window that only has a number.
class NumberedWindow final : public player::PlayerHandle {
public:
    static constexpr std::uintptr_t kNumber = 77;

    [[nodiscard]] std::uintptr_t handle() const override { return kNumber; }
};

/// Writes among the calls of the sound library that a start asked for its filters.
class NotedEqualizer final : public player::StartEqualizer {
public:
    explicit NotedEqualizer(std::vector<std::string>& calls) : calls_(calls) {}

    void Set_EQ() override { calls_.emplace_back("Set_EQ"); }

private:
    std::vector<std::string>& calls_;
};

/// The texts of an ID3v1 tag.
struct TagTexts {
    std::string title{};
    std::string artist{};
    std::string album{};
    std::string year{};
    char genre = 0;
    char padding = '\0';
};

class PlayerRig : public testing::Test {
protected:
    PlayerRig();

    /// Sets one key of the settings file, or takes it out.
    void set(const std::string& key, const std::string& text);
    void takeOut(const std::string& key);

    /// A file on the disk that the sound library knows; returns its path.
    std::string track(const std::string& name, const FakeFile& sound, std::size_t bytes = 1000,
                      const TagTexts* tag = nullptr);

    /// Rows 1 to `count`, files "1", "2" ... of that kind.
    void addRows(int count, const FakeFile& sound);

    /// The name of the file that was offered to the decoders last; empty for an empty path.
    [[nodiscard]] std::string offered() const;

    /// Lets time pass for sound and timers alike, in steps of 10 ms.
    void advance(std::int64_t milliseconds);

    /// Puts a row into the list and fetches it, as callers of `Burnbaby` do.
    void fetchRow(const std::string& path, const std::string& title);

    /// Starts a file plainly, as the row that was fetched last.
    bool burn(const std::string& path, const std::string& popup = {}) {
        return transport_.Burnbaby(fetched(path), popup);
    }

    /// The same by a crossfade.
    bool fade(const std::string& path, std::int32_t milliseconds) {
        return crossfade_.CrossFade_BurnBaby(fetched(path), milliseconds);
    }

    /// Date, version and system apart, the lines of the log: "description,number,module,word".
    [[nodiscard]] std::vector<std::string> logged() const;

    TestHost host_;
    FakeSoundLibrary sound_;
    player::PlayerState state_;
    config::clsXML xml_;
    config::Settings settings_{host_.paths, xml_};
    config::ErrHandler log_{host_.paths, host_.clock, host_.operatingSystem};
    config::Errors errors_{log_, host_.dialogs};
    tags::TagWarning tagWarning_{host_.dialogs};
    tags::cMP3ID3v1 tag_{tagWarning_};
    playlist::stdSS list_;
    playlist::ListMirror mirror_{list_};
    player::Screen screen_;
    player::NowPlaying& playing_ = screen_.playing;
    RecordingView view_;
    player::TrackNews news_;
    RecordingEvents events_;
    NumberedWindow handle_;
    PollWatches watches_;                          ///< at first nothing is: answers come at once
    std::map<std::string, tags::FileFacts> known_; ///< what files say of themselves, by path
    tags::FactsDesk desk_{watches_, [this](const std::string& path) {
                              const auto known = known_.find(path);
                              return known == known_.end() ? tags::FileFacts{} : known->second;
                          }};
    NotedEqualizer startEqualizer_{sound_.calls};
    player::Core core_{.state = state_,
                       .sound = sound_,
                       .settings = settings_,
                       .errors = errors_,
                       .lists = {.stdSS = list_, .List1 = mirror_},
                       .timers = host_.clock,
                       .screen = screen_,
                       .news = news_,
                       .facts = &desk_};
    player::Playback playback_{core_, tag_, startEqualizer_, handle_, host_.random};

    // The parts by the names that tests use.
    player::CBASS_TIME& time_ = playback_.time;
    player::TrackOpener opener_{sound_};
    player::Volume& volume_ = playback_.volume;
    player::Balance& balance_ = playback_.balance;
    player::TrackFacts& facts_ = playback_.facts;
    player::TrackStarter& starter_ = playback_.starter;
    host::Timer* CrossFade_ = &playback_.crossfade.CrossFade();
    player::Crossfade& crossfade_ = playback_.crossfade;
    player::Transport& transport_ = playback_.transport;
    player::RowPlayer& rowPlayer_ = playback_.rows;
    player::TrackAdvance& advance_ = playback_.advance;
    player::SilenceSkip& silenceSkip_ = playback_.silenceSkip;
    player::FadeOut& fadeOut_ = playback_.fadeOut;
    player::PlaybackClock& clock_ = playback_.clock;
    player::TrackSeek& seek_ = playback_.seek;

private:
    [[nodiscard]] player::TrackRef fetched(const std::string& path) const {
        return {.path = path, .title = list_.OutTitle, .row = list_.SelectedIndex};
    }

    void writeSettings() const;

    std::map<std::string, std::string> values_;
};

} // namespace tovik::test
