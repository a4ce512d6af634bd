// SPDX-License-Identifier: GPL-3.0-or-later
// The dialog where a disc's album, artist, year, genre and track names are entered before a rip, as
// logic. Interface thread.
#pragma once

#include "cd/CdState.h"
#include "discs/FREEDB.h"
#include "host/Paths.h"
#include "player/Core.h"

#include <cstdint>
#include <functional>
#include <optional>
#include <string>

namespace tovik::cd {

/// Shows the dialog.
class CdNFOView {
public:
    virtual ~CdNFOView() = default;

    /// All fields and names may be others, the text of the selected track, too.
    virtual void showData() = 0;

    /// The name of one track is another; counted from 0.
    virtual void showTrack(std::size_t track) = 0;

    /// How a search stands, by `searching` and `searchEnd`, is another.
    virtual void showSearch() = 0;
};

/// The form outlives the dialog: a rip reads it when the dialog is hidden. What was entered goes
/// when the dialog is closed without a rip (`Unload`). The numbers of the genre in the form are
/// found when Rip is pressed and an MP3 format is set; else, and without a genre, there is none.
class frmCdNFO {
public:
    /// What the buttons `Command1` are for, by index; 3 is none.
    enum class Button : std::uint8_t { rip = 0, close = 1, search = 2, clear = 4 };

    /// All of it outlives the object.
    struct Needs {
        const player::Core& core;
        DiscForm& form;
        const playlist::stdSS& lstTracks;
        discs::FREEDB& FREEDB;
        const host::Paths& paths;
        host::MessagePump& pump;
    };

    explicit frmCdNFO(const Needs& needs);
    frmCdNFO(const frmCdNFO&) = delete;
    frmCdNFO& operator=(const frmCdNFO&) = delete;

    /// Set by who composes the player; one that is not set does nothing.
    struct Hooks {
        std::function<void()> open{};          ///< opens the dialog; it is closed on return
        std::function<void()> Rip_All{};       ///< rips the tracks of the disc
        std::function<std::int32_t()> drive{}; ///< the chosen one, from 0
    } hooks;

    // For who rips and who lists tracks -----------------------------------------------------------

    /// Opens the dialog and holds up the caller until it is closed. Where Rip was pressed in it,
    /// the disc is ripped after that. It loads what is kept of the disc, except where the form is
    /// filled for that disc still: after a rip.
    void Show();

    /// Forgets what was entered, but for what the disc itself told.
    void Unload();

    /// The same where it was entered for another disc than the one that is in the drive now.
    void forgetOtherDisc();

    // For the dialog ------------------------------------------------------------------------------

    /// The dialog opens for a view, which outlives the time until `Form_Unload`: reads whether it
    /// stays in front, runs `words`, which gives it the words of the language, and names the
    /// tracks "Track " and the number where they are not named yet. What goes wrong is logged.
    void Form_Load(CdNFOView& view, const std::function<void()>& words);

    /// The dialog has come to the screen: loads what is kept of the disc. Where nothing is, and the
    /// setting "CDSEARCH" is on, it searches. Other handlers run meanwhile.
    void Form_Activate();

    /// The dialog goes. A search that runs is called off.
    void Form_Unload();

    [[nodiscard]] bool staysOnTop() const noexcept { return staysOnTop_; }

    /// Returns whether the dialog closes. Search lets other handlers run meanwhile, and does
    /// nothing while a search runs.
    bool Command1_Click(Button button);

    /// A field was changed by hand.
    void Text1_Change(int index, const std::string& text);

    /// The same; index 1 is the name of the selected track, and nothing without one.
    void Text2_Change(int index, const std::string& text);

    /// A track was selected, counted from 0; -1 for none. Its name goes to `Text2(1)`.
    void List1_Click(int track);

    /// The selected track; nothing when none is.
    [[nodiscard]] std::optional<std::size_t> Get_Selected() const;

    /// Reads the fields from the file that is kept of the disc in the first drive, or in the chosen
    /// one with `Comfort::namesChosenDisc`. Without a disc
    /// or a file they stay as they are. Returns whether there was a file.
    bool load_local_cddb();

    [[nodiscard]] bool searching() const noexcept { return searching_; }

    /// How the last search ended; nothing before the first one.
    [[nodiscard]] std::optional<discs::QueryEnd> searchEnd() const noexcept { return searchEnd_; }

private:
    void rip();
    void search();
    void clear();
    void emptyFields();
    void deselect();
    void nameTracks();
    void takeFetched(const DiscForm& fetched);
    void store(const std::string& discId, const DiscForm& fetched);
    void keepTyped();
    [[nodiscard]] std::string firstToc() const;
    void show();
    void showSearch();

    [[nodiscard]] DiscForm& form() noexcept { return needs_.form; }

    // Fields of `Text2`.
    static constexpr int kTrackField = 1;
    static constexpr int kGenreField = 2;

    Needs needs_;
    CdNFOView* view_ = nullptr;
    std::string toc_; ///< of the disc that the form is filled for
    std::optional<std::size_t> selected_;
    bool loaded_ = false; ///< the form is that of a dialog that was not closed
    bool fresh_ = false;  ///< what is kept of the disc was not looked for yet
    bool ripAsked_ = false;
    bool typed_ = false; ///< the form holds what nothing but the user knows
    bool searching_ = false;
    bool staysOnTop_ = false;
    std::optional<discs::QueryEnd> searchEnd_;
};

} // namespace tovik::cd
