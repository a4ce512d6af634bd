// SPDX-License-Identifier: GPL-3.0-or-later
// The tag editor as logic, with a file of a test's choice.
#pragma once

#include "player/frmMp3Tag.h"
#include "player/PlayerRig.h"
#include "tags/Samples.h"

#include <filesystem>
#include <string>

namespace tovik::test {

using namespace std::string_literals;

/// Each member of the switch; what a test wants otherwise it turns off.
inline void makeSafe(base::Comfort& comfort) {
    for (bool base::Comfort::*const member :
         {&base::Comfort::looksForTagFirst, &base::Comfort::readsSevenBits,
          &base::Comfort::decodesFrames, &base::Comfort::readsWholeGenre,
          &base::Comfort::savesWithoutAlarm, &base::Comfort::showsOwnGenre,
          &base::Comfort::showsLastGenre, &base::Comfort::enablesAlbum,
          &base::Comfort::leavesUntickedTag, &base::Comfort::editsEveryFormat,
          &base::Comfort::cutsRemovedTag, &base::Comfort::savesOnlyChanges}) {
        comfort.*member = true;
    }
}

inline std::string wideText(const std::string& text) {
    std::string bytes = "\1\xFF\xFE";
    for (const char letter : text) {
        bytes += letter + "\0"s;
    }
    return bytes;
}

inline std::string trueTag(const std::string& frames) {
    return tags::samples::head(
               tags::samples::sevenBits(static_cast<std::uint32_t>(frames.size()))) +
           frames;
}

/// Version 1; the genre is "Rock".
inline std::string lastTag(char genre = 17) {
    return "TAG" + tags::samples::field("Title", 30) + tags::samples::field("Artist", 30) +
           tags::samples::field("Album", 30) + "1999" + tags::samples::field("Comment", 28) +
           "\0\x07"s + genre;
}

class TagEditorRig : public PlayerRig {
protected:
    TagEditorRig() { language_.Language_File("English"); }

    void load(const std::string& bytes, const std::string& name = "song.mp3") {
        name_ = name;
        show(host_.folder.write(name, bytes));
    }

    /// The file as the only row, which is selected.
    void show(const std::string& path) {
        path_ = path;
        list_.Clear();
        list_.AddItem(path_, path_, "Song", "00:01", 1);
        list_.SelectIndex(1);
        dialog_.Form_Load();
    }

    [[nodiscard]] std::string file() const { return host_.folder.read(name_); }

    [[nodiscard]] player::TagForm& form() { return dialog_.form(); }

    bool save() { return dialog_.Command1_Click(player::frmMp3Tag::Button::save); }

    std::string name_;
    std::string path_;
    config::MultiLNG language_{host_.paths};
    player::frmMp3Tag dialog_{{.core = core_,
                               .warning = tagWarning_,
                               .dialogs = host_.dialogs,
                               .words = language_,
                               .work = tags::TagWork::direct()}};
    const std::string mp3_ = tags::samples::sound(20);
};

class SafeTags : public TagEditorRig {
protected:
    SafeTags() { makeSafe(state_.comfort); }

    const std::string picture_ = tags::samples::frame("APIC", "\0image/png\0\3\0picture"s);
    const std::string wide_ = tags::samples::frame("TIT2", wideText("Wide"));
};

} // namespace tovik::test
