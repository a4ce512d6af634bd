// SPDX-License-Identifier: GPL-3.0-or-later
// The dialog that shows a file's facts and edits both of its tags, as logic. Interface thread.
#pragma once

#include "config/MultiLNG.h"
#include "host/Dialogs.h"
#include "player/Core.h"
#include "player/TagForm.h"
#include "tags/cMP3ID3v1.h"
#include "tags/cMP3ID3v2.h"
#include "tags/EditTags.h"
#include "tags/FileFacts.h"
#include "tags/TagWarning.h"
#include "tags/TagWork.h"

#include <array>
#include <cstdint>
#include <set>
#include <string>
#include <vector>

namespace tovik::player {

class frmMp3Tag {
public:
    /// What the buttons `Command1` are for, by index.
    enum class Button : std::uint8_t { save, close, reload };

    /// What the buttons `Command2` are for, by index.
    enum class Copy : std::uint8_t { toVersion2, toVersion1 };

    /// All of it outlives the object.
    struct Needs {
        const Core& core;
        tags::TagWarning& warning;
        host::Dialogs& dialogs;
        const config::MultiLNG& words;
        tags::TagWork& work; ///< how what may take long is done
    };

    explicit frmMp3Tag(const Needs& needs);

    /// Reads the file of the selected row. Other handlers may run in the meantime. Does nothing
    /// while something is read or saved.
    void Form_Load();

    /// A button was pressed. Returns whether the dialog closes. Saving raises 6 for a track of
    /// version 1 outside 0 to 255, and what writing raises; nothing is lost then, and the dialog
    /// stays open, as it does when a tag could not be written.
    bool Command1_Click(Button button);

    /// Copies what both tags have; only for a file that may be written.
    void Command2_Click(Copy copy);

    // A tick box was changed. Without the tick the fields of its tag are emptied. A deliberate
    // oddity: the second one leaves the album as it is, enabled or not (`Comfort::enablesAlbum`
    // takes it for a field like any other).
    void Check1_Click(bool checked);
    void Check2_Click(bool checked);

    [[nodiscard]] TagForm& form() noexcept { return form_; }

    /// Reading or saving is going on: nothing may be changed or closed.
    [[nodiscard]] bool busy() const noexcept { return busy_; }

    /// The entries of both lists of genres.
    [[nodiscard]] static std::vector<std::string> genres();

    /// The values of the technical page. A deliberate oddity: those of the sound are of what plays,
    /// whatever file is shown, and empty without a channel; `Comfort::tellsOwnSound` takes those of
    /// the file.
    [[nodiscard]] std::array<std::string, 11> Label4(const TagWords& words) const;

    /// Why nothing can be written; empty where it can.
    [[nodiscard]] std::string reason() const;

    // The flags that decide when the tag classes tell that a file cannot be written.
    [[nodiscard]] bool TagSaving() const noexcept { return needs_.warning.TagSaving; }

    [[nodiscard]] bool TagWarned() const noexcept { return needs_.warning.TagWarned; }

private:
    /// The values of the technical page as they were read.
    struct Facts {
        std::string size{};
        std::string frequency{};
        std::string bitsAndMode{};
        std::string bytesPerSecond{};
        std::string bitsPerSecond{};
        std::string duration{};
        std::string version{};
        std::string layer{};
        bool copyright = false;
        bool original = false;
        bool validHeader = false;
    };

    void loadVersion1();
    void loadVersion2();

    /// Reads and writes by the formats' own rules, and keeps what is not changed.
    [[nodiscard]] bool keepsFrames() const;
    void loadKept();
    [[nodiscard]] bool saveKept();
    [[nodiscard]] tags::TagChange change1() const;
    [[nodiscard]] tags::TagChange change2() const;
    void noteChange(tags::TagChange& change, const tags::EditTag& tag, tags::EditField field,
                    const std::string& text) const;

    /// The entry of a number or a name of a genre, and the number of an entry.
    [[nodiscard]] std::int32_t entryOfGenre(const std::string& genre) const;
    [[nodiscard]] std::int32_t entryOf(int genre) const;
    [[nodiscard]] static std::uint8_t genreOf(std::int32_t entry);
    void loadFacts();

    /// Finds out what the file is and what a save drops of it; returns its size in bytes. One that
    /// cannot be read stays what it was taken for.
    std::int64_t lookAtFile();

    void loadSound(std::int64_t fileBytes);
    void loadOwnSound();
    void loadHeader();
    [[nodiscard]] bool save();
    [[nodiscard]] bool write();
    void renew();
    [[nodiscard]] bool saveVersion1();
    [[nodiscard]] bool saveVersion2();
    [[nodiscard]] bool acceptsLosses();

    Needs needs_;
    tags::cMP3ID3v1 version1_;
    tags::cMP3ID3v2 version2_;
    base::Comfort comfort_; ///< as it was when the file was read: a save goes the same way
    tags::EditTags kept_;   ///< as they were read
    TagForm form_;
    Facts facts_;
    tags::FileFacts own_;                        ///< what the file says of itself
    std::uint8_t shownGenre_ = 0;                ///< that was loaded for version 2
    std::vector<std::string> lost_;              ///< the frames that a save drops
    std::vector<std::string> lostWithoutFields_; ///< the same where the editor sets no field
    std::set<std::string> toldFiles_;            ///< whose losses were accepted
    std::int32_t loadedGenre1_ = 0;
    std::int32_t loadedGenre2_ = 0;
    bool busy_ = false;
};

} // namespace tovik::player
