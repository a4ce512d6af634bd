// SPDX-License-Identifier: GPL-3.0-or-later
// Puts the texts of a language file into the windows. Interface thread.
#pragma once

#include "base/Comfort.h"
#include "config/LanguageTable.h"
#include "host/Paths.h"

#include <array>
#include <cstdint>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

namespace tovik::config {

/// The texts of "TovikRip" that code asks for.
enum class RipText : std::uint8_t {
    Unwritten,  ///< a file
    NoProgram,  ///< a program, and the package that it comes with
    DiscGone,   ///< a file that is not complete
    Status,     ///< the track, and how many there are
    StatusLeft, ///< the same and the time left
    Incomplete, ///< a file whose track broke off
    NoFormat,   ///< a format that nobody knows
};

/// Every loader reads its texts from "Languages/NAME.lng" in the data folder, each anew from the
/// file, and hands them to the windows that are attached. Call `Language_File` first.
///
/// A deliberate oddity (`textOf`): a file, section or key that is missing gives empty texts, and
/// these replace what the window bore: what a language leaves out goes blank, and nothing is said.
/// Sections that begin with "Tovik" have English words built in, which stand in for that; for the
/// others the shipped English file does where `Comfort::keepsMissingWords` is on.
class MultiLNG {
public:
    /// The paths are kept by reference. Where the data folder's "Languages" cannot be read, the
    /// one in `shippedFolder` takes its place.
    explicit MultiLNG(const host::Paths& paths, std::string shippedFolder = {})
        : paths_(paths), shipped_(std::move(shippedFolder)) {}

    /// What of its behaviour is kinder; outlives this. Nothing is without it.
    void obey(const base::Comfort& comfort) { comfort_ = &comfort; }

    /// The languages that there are: the files in the folder by their names, without the extension.
    [[nodiscard]] std::vector<std::string> names() const;

    /// From now on the texts for this window go there. The targets must outlive this object or be
    /// detached before they go.
    void attach(TextWindow window, TextTargets& targets);
    void detach(TextWindow window);

    /// The language by its name, the setting "CLNG". It may leave the folder of languages, by ".."
    /// and separators in it.
    void Language_File(std::string_view name);

    void Load_Menus_Lng();
    void Load_Menu_Main_LNG();
    void Load_Menu_Vis_LNG();
    void Load_Menu_PL_LNG();
    void Load_Menu_Preset_LNG();
    void Load_Menu_Rip_LNG();
    void Load_Main_Win_LNG();
    void Load_FRM_Preferences_LNG();
    void Load_FRM_Preset_LNG();
    void Load_FRM_addDir_LNG();
    void Load_FRM_search_LNG();
    void Load_addST_search_LNG();
    void Load_FRM_cdinfo_LNG();
    void Load_Update_LNG();
    void Load_Outputpath();
    void Load_About();
    void Load_FRM_MP3Tag();
    void Load_frmJump2time();
    void Load_frmJump2track();

    /// The names of the commands go to the list of the preferences.
    void Get_Shortcut_List();

    /// The words of the preferences and of the choice of a folder that no section of old has, and
    /// those of the about window.
    void loadPreferenceWords();
    void loadAboutWords();

    /// Those of the search for what is known of a disc.
    void loadDiscWords();

    /// What a screen reader calls the elements of the main window.
    void loadNames();

    /// Runs the loaders of all attached windows: after a change of the language.
    void loadAttached();

    [[nodiscard]] std::string get_Prompt_String(int number) const;
    [[nodiscard]] std::string get_Error_String(int number) const;

    /// What the window says of the program's own state.
    [[nodiscard]] std::string get_Notice_String(int number) const;

    /// What ripping tells; "[x]", "[y]" and "[z]" stand for what it is about.
    [[nodiscard]] std::string get_Rip_String(RipText text) const;

private:
    void load(LanguageSection section);
    [[nodiscard]] const host::Paths& holder() const;
    [[nodiscard]] std::string path() const;
    [[nodiscard]] std::string textOf(const std::string& path, LanguageSection section,
                                     int number) const;
    [[nodiscard]] std::string englishOf(LanguageSection section, int number) const;

    const host::Paths& paths_;
    host::Paths shipped_; ///< of an empty folder: there is none
    static constexpr base::Comfort kNoComfort{};
    const base::Comfort* comfort_ = &kNoComfort;
    std::string file_;
    std::array<TextTargets*, kTextWindows> targets_{};
};

/// A window that takes texts for as long as this object lives.
class AttachedTexts {
public:
    AttachedTexts(MultiLNG& language, TextWindow window, TextTargets& targets)
        : language_(language), window_(window) {
        language.attach(window, targets);
    }

    ~AttachedTexts() { language_.detach(window_); }

    AttachedTexts(const AttachedTexts&) = delete;
    AttachedTexts& operator=(const AttachedTexts&) = delete;

private:
    MultiLNG& language_;
    TextWindow window_;
};

} // namespace tovik::config
