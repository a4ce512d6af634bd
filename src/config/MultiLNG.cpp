// SPDX-License-Identifier: GPL-3.0-or-later
#include "config/MultiLNG.h"

#include "base/PathText.h"
#include "base/Text.h"
#include "config/INI.h"

#include <algorithm>
#include <filesystem>
#include <span>
#include <system_error>

namespace tovik::config {

namespace {

using S = LanguageSection;

constexpr std::string_view kFolder = "Languages";
constexpr std::string_view kExtension = ".lng";
constexpr std::string_view kEnglish = "Languages/English.lng";

/// The text of an item in a language file; empty where there is none.
std::string textIn(const std::string& path, LanguageSection section, int number) {
    INI file;
    file.Path = path;
    file.Section = languageSections()[static_cast<std::size_t>(section)].name;
    file.Key = "item" + std::to_string(number);
    return std::string(base::trimmed(file.Value()));
}

bool isReadable(const host::Paths& paths) {
    std::error_code failure;
    const std::filesystem::directory_iterator entries(paths.of(host::DataItem::Languages), failure);
    return !failure;
}

} // namespace

void MultiLNG::attach(TextWindow window, TextTargets& targets) {
    targets_.at(static_cast<std::size_t>(window)) = &targets;
}

void MultiLNG::detach(TextWindow window) {
    targets_.at(static_cast<std::size_t>(window)) = nullptr;
}

void MultiLNG::Language_File(std::string_view name) {
    file_ = std::string(name) + std::string(kExtension);
}

const host::Paths& MultiLNG::holder() const {
    const bool fromShipped = !shipped_.dataFolder().empty() && !isReadable(paths_);
    return fromShipped ? shipped_ : paths_;
}

std::vector<std::string> MultiLNG::names() const {
    std::vector<std::string> found;
    std::error_code failure;
    const std::filesystem::path folder = holder().of(host::DataItem::Languages);
    for (std::filesystem::directory_iterator entry(folder, failure), end; !failure && entry != end;
         entry.increment(failure)) {
        if (base::equalsIgnoringCase(entry->path().extension().native(), kExtension)) {
            found.push_back(entry->path().stem().native());
        }
    }
    std::ranges::sort(found);
    return found;
}

std::string MultiLNG::path() const {
    // The separator of the name is that of the whole, so that either kind leads out of the folder.
    const std::string name = std::string(kFolder) + base::separatorOf(file_) + file_;
    return holder().inside(name);
}

std::string MultiLNG::textOf(const std::string& path, LanguageSection section, int number) const {
    std::string text = textIn(path, section, number);
    return text.empty() ? englishOf(section, number) : text;
}

std::string MultiLNG::englishOf(LanguageSection section, int number) const {
    const LanguageSectionRow& row = languageSections()[static_cast<std::size_t>(section)];
    if (const auto place = static_cast<std::size_t>(number); place < row.english.size()) {
        return std::string(row.english[place]);
    }
    if (!comfort_->keepsMissingWords) {
        return {};
    }
    std::string text = textIn(paths_.inside(kEnglish), section, number);
    return text.empty() && !shipped_.dataFolder().empty()
               ? textIn(shipped_.inside(kEnglish), section, number)
               : text;
}

void MultiLNG::load(LanguageSection section) {
    const std::span<const LanguageRow> rows = languageRowsOf(section);
    const auto targetsOf = [this](const LanguageRow& row) {
        return targets_.at(static_cast<std::size_t>(row.window));
    };
    if (std::ranges::all_of(rows, [&](const auto& row) { return targetsOf(row) == nullptr; })) {
        return;
    }
    const std::string file = path();
    const int items = languageSections()[static_cast<std::size_t>(section)].items;
    for (int number = 0; number < items; ++number) {
        const std::string text = textOf(file, section, number);
        for (const LanguageRow& row : rows) {
            const int offset = number - row.item;
            if (targetsOf(row) != nullptr && offset >= 0 && offset < row.count) {
                const int index = row.index == kEveryElement ? kEveryElement : row.index + offset;
                targetsOf(row)->setText(row.element, index, row.kind, text);
            }
        }
    }
}

void MultiLNG::loadAttached() {
    for (const LanguageSectionRow& row : languageSections()) {
        load(row.section);
    }
}

std::string MultiLNG::get_Prompt_String(int number) const {
    return textOf(path(), S::Prompt, number);
}

std::string MultiLNG::get_Error_String(int number) const {
    return textOf(path(), S::Error, number);
}

std::string MultiLNG::get_Notice_String(int number) const {
    return textOf(path(), S::Notice, number);
}

std::string MultiLNG::get_Rip_String(RipText text) const {
    return textOf(path(), S::TovikRip, static_cast<int>(text));
}

void MultiLNG::Load_Menus_Lng() {
    Load_Menu_Main_LNG();
    Load_Menu_Vis_LNG();
    Load_Menu_Preset_LNG();
    Load_Menu_Rip_LNG();
    Load_Menu_PL_LNG();
}

void MultiLNG::Load_Menu_Main_LNG() {
    load(S::MainMenu);
}

void MultiLNG::Load_Menu_Vis_LNG() {
    load(S::VisMenu);
}

void MultiLNG::Load_Menu_PL_LNG() {
    load(S::PlMenu);
}

void MultiLNG::Load_Menu_Preset_LNG() {
    load(S::PresetMenu);
}

void MultiLNG::Load_Menu_Rip_LNG() {
    load(S::RipMenu);
}

void MultiLNG::Load_Main_Win_LNG() {
    load(S::PlayerWin);
}

void MultiLNG::Load_FRM_Preferences_LNG() {
    load(S::frmPreferences);
}

void MultiLNG::Load_FRM_Preset_LNG() {
    load(S::FrmLoadPreset);
}

void MultiLNG::Load_FRM_addDir_LNG() {
    load(S::frmAddDir);
}

void MultiLNG::Load_FRM_search_LNG() {
    load(S::frmSearchSong);
}

void MultiLNG::Load_addST_search_LNG() {
    load(S::frmAddStation);
}

void MultiLNG::Load_FRM_cdinfo_LNG() {
    load(S::frmCdInfo);
}

void MultiLNG::Load_Update_LNG() {
    load(S::Update);
}

void MultiLNG::Load_Outputpath() {
    load(S::frmOutPutPath);
}

void MultiLNG::Load_About() {
    load(S::frmAbout);
}

void MultiLNG::Load_FRM_MP3Tag() {
    load(S::frmMp3Tag);
}

void MultiLNG::Load_frmJump2time() {
    load(S::frmJump2Time);
}

void MultiLNG::Load_frmJump2track() {
    load(S::frmJump2Track);
}

void MultiLNG::Get_Shortcut_List() {
    load(S::Shortcuts);
}

void MultiLNG::loadPreferenceWords() {
    load(S::TovikPreferences);
    load(S::TovikComfort);
}

void MultiLNG::loadAboutWords() {
    load(S::TovikAbout);
}

void MultiLNG::loadDiscWords() {
    load(S::TovikDiscs);
}

void MultiLNG::loadNames() {
    load(S::TovikNames);
    load(S::TovikLists);
}

} // namespace tovik::config
